#include "src/licences/det_licence.h"

#include "src/clubs/liste_club.h"
#include "src/clubs/liste_pays.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/base/sql_text.h"
#include "src/base/text.h"
#include "src/licences/liste_licence.h"
#include "src/licences/season_maintenance.h"
#include "src/base/utils_date.h"
#include "src/frame/choose_date_view.h"
#include "src/licences/utils_licences.h"

namespace plouvarine {

namespace {

// Columns of "SELECT Licence.*, Pays.Libelle", by position.
enum LoadColumn : int {
    kColCodeClub = 1,
    kColLicence = 2,
    kColNom = 3,
    kColPrenom = 4,
    kColSexe = 5,
    kColDateNaissance = 6,
    kColAdresse = 8,
    kColSuiteAdresse = 9,
    kColCodePostal = 10,
    kColLocalite = 11,
    kColTelephone = 12,
    kColSportive = 13,
    kColDateDepot = 19,
    kColDateObliteration = 20,
    kColTypeLicence = 21,
    kColNature = 22,
    kColCodeUnique = 23,
    kColTel2 = 26,
    kColMail = 27,
    kColTarif = 28,
    kColMedecin = 29,
    kColDateCtrlMedical = 30,
    kColPays = 31,
};

void fill_names(Database& db, QStandardItemModel& list, const QString& sql, const QString& header, bool checkable)
{
    list.clear();
    list.setHorizontalHeaderLabels({header});
    const Rows rows = db.load_rows(sql);
    for (int r = 0; r < rows.size(); ++r) {
        auto* item = new QStandardItem(rows.value(r));
        item->setEditable(false);
        if (checkable) {
            item->setCheckable(true);
            item->setCheckState(Qt::Unchecked);
        }
        list.appendRow(item);
    }
}

}  // namespace

const QStringList& DetLicence::licence_letters()
{
    static const QStringList letters{QStringLiteral("F"), QStringLiteral("C")};
    return letters;
}

DetLicence::DetLicence(AppContext& app, const QString& mode, const QString& num)
    : View(app, QString(kName)), mode_(mode), num_(num), selection_(app.state.club_selection)
{
    text1[kNationalite] = QStringLiteral("FRANCE");
    if (!(selection_ && mode_ == keyword::kNouveau))
        text1[kCodeClub] = app.state.club_code;
    if (mode_ == keyword::kNouveau)
        Option_nature = 0;
}

void DetLicence::load()
{
    try {
        load_lists();
        if (mode_ == keyword::kModif && !num_.isEmpty())
            load_licence(num_, false);
    } catch (const std::exception&) {
        // The read has told its failure; the view stays with what it holds.
    }
    changed();
}

void DetLicence::load_lists()
{
    activites_.clear();
    tarifs_.clear();
    if (selection_)
        return;
    const SqlText club = quote_sql(app().state.club_code);
    fill_names(app().db, activites_,
               QStringLiteral("SELECT distinct Activite ") + QStringLiteral("FROM Activites ") +
                   QStringLiteral("WHERE Code_federal = ") + club,
               QStringLiteral("Activités"), true);
    fill_names(app().db, tarifs_,
               QStringLiteral("SELECT distinct Intitule ") + QStringLiteral("FROM Tarifs ") +
                   QStringLiteral("WHERE Code_federal = ") + club,
               QStringLiteral("Tarifs"), false);
}

void DetLicence::load_licence(const QString& num, bool take_fields_only)
{
    const Rows rows = app().db.load_rows(QStringLiteral("SELECT Licence.*, Pays.Libelle ") +
                                         QStringLiteral("FROM Pays Pays, Licence Licence ") +
                                         QStringLiteral("WHERE Pays.Code = Licence.Nationalite ") +
                                         QStringLiteral("AND Licence.Num = ") + sql_key(num));
    if (rows.empty())
        return;
    auto v = [&rows](int column) { return rows.value(0, column); };
    const QString licence = v(kColLicence);
    text1[kCodeClub] = v(kColCodeClub);
    text1[kNumero] = licence.left(5);
    Cb_licence = licence.right(1).compare(QLatin1String("C"), Qt::CaseInsensitive) == 0 ? 1 : 0;
    text1[kNom] = v(kColNom);
    text1[kPrenom] = v(kColPrenom);
    const QString sexe = v(kColSexe);
    Option_sexe = sexe == QLatin1String("M") ? 0 : sexe == QLatin1String("F") ? 1 : -1;
    if (!take_fields_only)
        sexe_loaded_ = Option_sexe == 0 ? QStringLiteral("M") : Option_sexe == 1 ? QStringLiteral("F") : QString();
    AfficheDate(txt_description[kNaissance], txt_description[kNaissance + 1], txt_description[kNaissance + 2],
                v(kColDateNaissance));
    text1[kNationalite] = v(kColPays);
    text1[kAdresse] = v(kColAdresse);
    text1[kSuiteAdresse] = v(kColSuiteAdresse);
    text1[kCodePostal] = v(kColCodePostal);
    text1[kLocalite] = v(kColLocalite);
    text1[kTelephone] = v(kColTelephone);
    for (int i = 0; i < kNbAffiliations; ++i)
        Check1[size_t(i)] = v(kColSportive + i).compare(QLatin1String("O"), Qt::CaseInsensitive) == 0;
    AfficheDate(txt_description[kDepot], txt_description[kDepot + 1], txt_description[kDepot + 2], v(kColDateDepot));
    AfficheDate(txt_description[kObliteration], txt_description[kObliteration + 1],
                txt_description[kObliteration + 2], v(kColDateObliteration));
    const QString type = v(kColTypeLicence);
    Option_type = type == QLatin1String("T") ? 0 : type == QLatin1String("N") ? 1 : type == QLatin1String("R") ? 2 : -1;
    const QString nature = v(kColNature);
    Option_nature = nature == QLatin1String("N") ? 0 : nature == QLatin1String("E") ? 1 : -1;
    const QString code_unique = v(kColCodeUnique);
    if (code_unique.size() == 19)
        text1[kOrigine] = code_unique;
    else
        text1[kOrigine] = selection_ ? v(kColCodeClub) + licence : QString();
    text1[kCodeUnique] = code_unique;
    text1[kTel2] = v(kColTel2);
    text1[kMail] = v(kColMail);
    txt_Medecin = v(kColMedecin);
    AfficheDate(txt_description[kCtrlMedical], txt_description[kCtrlMedical + 1],
                txt_description[kCtrlMedical + 2], v(kColDateCtrlMedical));

    if (selection_)
        return;
    const Rows ticked = app().db.load_rows(QStringLiteral("SELECT distinct Activite ") +
                                           QStringLiteral("FROM Activite_licence ") +
                                           QStringLiteral("WHERE Num_lic = ") + sql_key(num));
    for (int r = 0; r < activites_.rowCount(); ++r) {
        const bool on = ticked.column(0).contains(activites_.item(r)->text(), Qt::CaseInsensitive);
        activites_.item(r)->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    }
    tarif_selection_.clear();
    const QString tarif = v(kColTarif);
    if (const auto row = find_row(tarifs_, tarif); row && !tarif.trimmed().isEmpty())
        select_row_at(tarif_selection_, *row);
}

void DetLicence::unselect_tarif()
{
    tarif_selection_.clear();
    changed();
}

void DetLicence::set_tab(int tab)
{
    current_tab_ = qBound(0, tab, 2);
    changed();
}

bool DetLicence::tab_enabled(int tab) const
{
    if (tab != current_tab_)
        return false;
    return tab == kTabIdentite || !selection_;
}

bool DetLicence::club_choice_enabled() const
{
    return selection_ && mode_ == keyword::kNouveau;
}

void DetLicence::choose_club()
{
    if (!club_choice_enabled())
        return;
    FrmListeClub list(app(), QString(keyword::kChoisir));
    list.set_title(QStringLiteral("Liste des clubs"));
    list.set_ok_caption(QStringLiteral("&OK"));
    list.set_sql(QStringLiteral("SELECT Code_federal, Intitule, Num FROM Club where Code_federal like ") +
                 quote_sql(PrefixeSelection(app().state.club_code) + QLatin1Char('%')) +
                 QStringLiteral(" and Visible = true order by Intitule"));
    if (!list.register_window(name()))
        return;
    list.set_liste();
    app().ui.show_modal(list);
    if (!list.chosen_code().isEmpty()) {
        text1[kCodeClub] = list.chosen_code();
        changed();
    }
}

void DetLicence::choose_origin()
{
    if (!club_choice_enabled())
        return;
    if (app().windows.check_window_open(QString(FrmListeLicence::kName)))
        return;
    const SqlText prefix = quote_sql(PrefixeSelection(app().state.club_code) + QLatin1Char('%'));
    FrmListeLicence list(app(), QString(keyword::kChoisir));
    list.set_ok_caption(QStringLiteral("&OK"));
    if (!list.register_window(name()))
        return;
    list.set_liste(QStringLiteral("Sélectionner un(e) licencié(e)"),
                   QStringLiteral("SELECT Licence.Num, Licence.Licence, Licence.Nom, Licence.Prenom, Club.Intitule, "
                                  "Licence.Date_Naissance ") +
                       QStringLiteral("FROM Club Club, Licence Licence ") +
                       QStringLiteral("WHERE Club.Code_federal = Licence.Code_Club ") +
                       QStringLiteral("AND Licence.Code_Club like ") + prefix + QStringLiteral(" ") +
                       QStringLiteral("AND Licence.Visible = true ") +
                       QStringLiteral("ORDER BY Licence.Nom, Licence.Prenom"));
    app().ui.show_modal(list);
    if (!list.chosen())
        return;
    try {
        load_licence(list.chosen()->num, true);
    } catch (const std::exception&) {
        // The read has told its failure.
    }
    changed();
}

void DetLicence::choose_country()
{
    const QString country = ChoisirPays(app(), name());
    if (country.isEmpty())
        return;
    text1[kNationalite] = country;
    changed();
}

void DetLicence::choose_date(int triple)
{
    if (triple < 0 || triple + 2 >= kDateFieldCount)
        return;
    if (ChoisirDateChamps(app(), txt_description[size_t(triple)], txt_description[size_t(triple + 1)],
                          txt_description[size_t(triple + 2)]))
        changed();
}

bool DetLicence::ValideLicence()
{
    const QString& day = txt_description[kNaissance];
    const QString& month = txt_description[kNaissance + 1];
    const QString& year = txt_description[kNaissance + 2];
    QString failure;
    const QString numero = text1[kNumero].trimmed();
    if (!DateValide(year, month, day))
        failure = QStringLiteral("Date de naissance invalide.");
    else if (numero.size() != 5)
        failure = QStringLiteral("Numéro de licence incomplet.");
    else if (numero.left(2) != year.right(2))
        failure = QStringLiteral("La licence et annee de naissance ne correspondent pas.");
    else if (text1[kNom].trimmed().isEmpty())
        failure = QStringLiteral("Nom de famille non renseigné.");
    else if (text1[kPrenom].trimmed().isEmpty())
        failure = QStringLiteral("Prénom non renseigné.");
    if (failure.isEmpty())
        return true;
    msg_erreur(app().ui, failure);
    return false;
}

LicenceRecord DetLicence::LitLicence()
{
    auto date_of = [this](int triple) {
        QString day = txt_description[size_t(triple)].trimmed();
        QString month = txt_description[size_t(triple + 1)].trimmed();
        const QString year = txt_description[size_t(triple + 2)].trimmed();
        return ComposeDate(year, month, day);
    };
    auto flag = [this](int affiliation) { return Check1[size_t(affiliation)] ? QStringLiteral("O") : QString(); };
    LicenceRecord r;
    r.code_club = text1[kCodeClub].trimmed();
    r.licence = text1[kNumero].trimmed() + licence_letters().value(Cb_licence, licence_letters().first());
    r.nom = text1[kNom].trimmed();
    r.prenom = text1[kPrenom].trimmed();
    r.sexe = Option_sexe == 0 ? QStringLiteral("M") : Option_sexe == 1 ? QStringLiteral("F") : QString();
    r.date_naissance = date_of(kNaissance);
    const QString code = app().db
                             .load_rows(QStringLiteral("select Code from Pays where Libelle = ") +
                                        quote_sql(text1[kNationalite].trimmed()))
                             .first();
    r.nationalite = code.isEmpty() ? QStringLiteral("FRA") : code;
    r.adresse = text1[kAdresse].trimmed();
    r.suite_adresse = text1[kSuiteAdresse].trimmed();
    r.code_postal = text1[kCodePostal].trimmed();
    r.localite = text1[kLocalite].trimmed();
    r.telephone = text1[kTelephone].trimmed();
    r.sportive = flag(0);
    r.synchro = flag(1);
    r.water_polo = flag(2);
    r.plongeon = flag(3);
    r.dirigeant = flag(4);
    r.maitre = flag(5);
    r.date_depot = date_of(kDepot);
    r.date_obliteration = date_of(kObliteration);
    r.type_licence = Option_type == 0 ? QStringLiteral("T") : Option_type == 1 ? QStringLiteral("N") : QStringLiteral("R");
    r.nature = Option_nature == 0 ? QStringLiteral("N") : QStringLiteral("E");
    r.code_unique = text1[kCodeUnique].trimmed();
    r.tel2 = text1[kTel2].trimmed();
    r.mail = text1[kMail].trimmed();
    const QModelIndex tarif = tarif_selection_.currentIndex();
    if (tarif.isValid() && tarif_selection_.isSelected(tarif))
        r.tarif = tarifs_.item(tarif.row())->text().trimmed();
    r.medecin = txt_Medecin.trimmed();
    r.date_ctrl_medical = date_of(kCtrlMedical);
    for (int row = 0; row < activites_.rowCount(); ++row)
        if (activites_.item(row)->checkState() == Qt::Checked)
            r.activites << activites_.item(row)->text();
    return r;
}

bool DetLicence::save()
{
    text1[kNom] = SansAccents(text1[kNom]);
    changed();
    bool saved = false;
    try {
        saved = mode_ == keyword::kModif ? save_modif() : save_new();
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QString(), &e);
        saved = false;
    }
    status_text(app().ui, QString());
    if (saved)
        close();
    return saved;
}

bool DetLicence::save_new()
{
    AppContext& a = app();
    status_text(a.ui, QStringLiteral("Enregistrement de la licence"));
    const QString licence = text1[kNumero].trimmed() + licence_letters().value(Cb_licence, licence_letters().first());
    const QString club = text1[kCodeClub].trimmed();
    const int existing = a.db.count_query(QStringLiteral("select count(*) from Licence where Licence = ") +
                                          quote_sql(licence) + QStringLiteral(" and Code_Club = ") +
                                          quote_sql(club));
    if (existing != 0 && !selection_) {
        msg_erreur(a.ui, QStringLiteral("Numéro de licence déjà utilisé.\nInsertion du licencié annulé."));
        return false;
    }
    // In a selection, a licence already in the base only joins it: what was
    // typed is not written, and its activities of the home club stay.
    const bool take_over = existing != 0;
    LicenceRecord record;
    if (!take_over) {
        if (!ValideLicence())
            return false;
        record = LitLicence();
        try {
            AjouteLicence(a, record);
        } catch (const std::exception& e) {
            msg_erreur(a.ui, QStringLiteral("Erreur lors de l'insertion de la licence."), &e);
            return false;
        }
    }
    const QString num = NumLicence(a, licence, club);
    if (!num.isEmpty() && !take_over)
        SauveActivites(a, num, record.activites);
    msg_info(a.ui, QStringLiteral("Nageur mémorisé avec succès."));
    if (selection_ && !num.isEmpty())
        AjouteASelection(a, a.state.club_code, num);
    num_ = num;
    a.changes.changed(Subject::Licences, num, true);
    return true;
}

bool DetLicence::save_modif()
{
    AppContext& a = app();
    status_text(a.ui, QStringLiteral("Enregistrement des modifications"));
    if (!ValideLicence())
        return false;
    const LicenceRecord record = LitLicence();
    try {
        ModifieLicence(a, record, num_);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QStringLiteral("Erreur lors de la modification de la licence."), &e);
        return false;
    }
    SauveActivites(a, num_, record.activites);
    if (record.sexe != sexe_loaded_) {
        // Entries of the other sex cannot stay.
        SupprimeEngagementsLicences(a, false, a.state.club_code, num_);
        sexe_loaded_ = record.sexe;
    }
    msg_info(a.ui, QStringLiteral("Nageur modifié avec succès."));
    a.changes.changed(Subject::Licences, num_);
    return true;
}

}  // namespace plouvarine
