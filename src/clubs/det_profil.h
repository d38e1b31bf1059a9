#pragma once
// det_profil: a profile's name and bound club ("Nouveau", "Modif", "View").
// det_profil_obli: the first profile of a base, which can't be left without one.

#include "src/frame/view.h"

class QStandardItemModel;

namespace plouvarine {

class DetProfil : public View {
public:
    static constexpr QLatin1String kName{"det_profil"};
    static constexpr QLatin1String kObliName{"det_profil_obli"};

    DetProfil(AppContext& app, const QString& name, const QString& keyword);

    bool obligatory() const { return name() == kObliName; }
    const QString& keyword() const { return keyword_; }

    // text1 0: "Nom du Profil :".
    const QString& nom() const { return nom_; }
    void set_nom(const QString& text);
    // text1 1: "Code du club lié :", read-only, filled by the club choice;
    // the club's name is shown beside it.
    const QString& code() const { return code_; }
    const QString& club_name() const { return club_name_; }
    void set_code(const QString& code, const QString& club_name = {});

    bool fields_locked() const { return keyword_ == QLatin1String("View"); }
    bool ok_enabled() const { return !fields_locked() && !nom_.isEmpty() && !code_.isEmpty(); }

    // "Modif": the list row being edited (its Num under kKeyRole, its old
    // club code under kProfileCodeRole), whose names the duplicate check reads.
    void set_source(const QStandardItemModel* list, int row);

    // "Choix d'un club": the club list, the chosen club comes back here.
    void choose_club();
    // The confirmation: true when saved (the view has closed).
    bool confirm();
    // "Annuler": the forced view does nothing.
    void cancel();
    bool query_close() override { return !obligatory(); }

private:
    bool duplicate_in_source() const;

    QString keyword_;
    QString nom_;
    QString code_;
    QString club_name_;
    const QStandardItemModel* source_ = nullptr;
    int source_row_ = -1;
};

}  // namespace plouvarine
