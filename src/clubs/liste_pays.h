#pragma once
// frm_liste_pays: the countries by name; in "Choisir" it gives one name back.

#include "src/frame/view.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>

namespace plouvarine {

class FrmListePays : public View {
public:
    static constexpr QLatin1String kName{"frm_liste_pays"};
    explicit FrmListePays(AppContext& app);

    QStandardItemModel& list() { return list_; }
    QItemSelectionModel& selection() { return selection_; }
    bool ok_enabled() const { return list_.rowCount() > 0 && selection_.currentIndex().isValid(); }

    // The confirmation or a double click: the selected name is chosen.
    void confirm();
    void cancel() { close(); }
    const QString& chosen() const { return chosen_; }

private:
    QStandardItemModel list_;
    QItemSelectionModel selection_{&list_};
    QString chosen_;
};

// Shows the country list modally; the chosen name, or the empty text.
QString ChoisirPays(AppContext& app, const QString& caller);

}  // namespace plouvarine
