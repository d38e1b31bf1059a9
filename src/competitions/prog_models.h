#pragma once
// The programme window's way to the programme models. The model list and the
// naming window serve both kinds of models and live with the entry models,
// above this layer: they register the door here when plugged in.

#include <QString>
#include <functional>

namespace plouvarine {

class AppContext;

struct ProgModelRequest {
    QString mode;    // "Choisir", "modele depuis programme", or "Modif" to rename
    QString caption; // of the list's action command
    QString title;
    QString caller;  // the window told at the closing
    QString num;     // "Modif": the model to rename, and its name
    QString name;
    // "Choisir": the model chosen, with its name.
    std::function<void(const QString& num, const QString& name)> chosen;
    // "modele depuis programme": writes the programme into the model `num`.
    std::function<bool(const QString& num)> save;
};

using ProgModelDoor = std::function<void(AppContext& app, const ProgModelRequest& request)>;
void set_prog_model_door(ProgModelDoor door);
// Opens what the request asks; says "not available" when no door is set.
void open_prog_models(AppContext& app, const ProgModelRequest& request);

}  // namespace plouvarine
