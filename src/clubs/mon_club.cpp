#include "src/clubs/mon_club.h"

#include "src/clubs/utils_club.h"
#include "src/frame/status_lines.h"
#include "src/frame/app_context.h"
#include "src/frame/list_helpers.h"
#include "src/base/sql_text.h"
#include "src/base/text.h"
#include "src/clubs/licence_fees.h"
#include "src/store/collation.h"

#include <QStandardItem>

namespace plouvarine {

namespace {

bool run(AppContext& app, const QString& sql, const QString& message)
{
    try {
        app.db.exec_sql(sql);
        return true;
    } catch (const std::exception& e) {
        msg_erreur(app.ui, message, &e);
        return false;
    }
}

QString club_condition(const QString& code)
{
    return QStringLiteral("Code_federal = ") + quote_sql(code);
}

void put_row(QStandardItemModel& model, const QStringList& cells, int selected_row)
{
    if (selected_row >= 0 && selected_row < model.rowCount()) {
        for (int c = 0; c < cells.size(); ++c)
            model.item(selected_row, c)->setText(cells[c]);
    } else {
        model.appendRow(fixed_row(cells));
    }
}

QString cell(const QStandardItemModel& model, int row, int column)
{
    return model.index(row, column).data().toString();
}

}  // namespace

bool SauveInfosClub(AppContext& app, const ClubInfo& info, const QString& num)
{
    return run(app,
               QStringLiteral("Update Club Set ") +
                   sql_set({{QStringLiteral("Adresse"), quote_sql(info.adresse)},
                            {QStringLiteral("Code_Postal"), quote_sql(info.code_postal)},
                            {QStringLiteral("Ville"), quote_sql(info.ville)},
                            {QStringLiteral("Telephone"), quote_sql(info.telephone)},
                            {QStringLiteral("Fax"), quote_sql(info.fax)},
                            {QStringLiteral("Mail"), quote_sql(info.mail)}}) +
                   QStringLiteral(" where Num = ") + sql_key(num),
               QStringLiteral("Erreur lors de la sauvegarde des informations sur le club."));
}

bool MarqueSuppr(AppContext& app, const QString& table, const QString& libelle, const QString& code)
{
    return run(app,
               QStringLiteral("Update ") + table + QStringLiteral(" ") + QStringLiteral("set Suppr = true ") +
                   QStringLiteral("where ") + club_condition(code),
               QStringLiteral("Erreur lors de la sauvegarde temporaire des ") + libelle + QStringLiteral(" du club."));
}

bool RetireSuppr(AppContext& app, const QString& table, const QString& libelle, const QString& code)
{
    return run(app,
               QStringLiteral("Update ") + table + QStringLiteral(" ") + QStringLiteral("set Suppr = false ") +
                   QStringLiteral("where ") + club_condition(code),
               QStringLiteral("Erreur lors de la restoration des ") + libelle);
}

bool AjouteDirigeant(AppContext& app, const QString& code, const Officer& o)
{
    const SqlFields fields = {{QStringLiteral("Code_federal"), quote_sql(code)},
                              {QStringLiteral("Fonction"), quote_sql(o.fonction)},
                              {QStringLiteral("Nom"), quote_sql(o.nom)},
                              {QStringLiteral("Tel1"), quote_sql(o.tel1)},
                              {QStringLiteral("Tel2"), quote_sql(o.tel2)},
                              {QStringLiteral("Mail"), quote_sql(o.mail)}};
    return run(app,
               QStringLiteral("insert into Dirigeant ") + QStringLiteral("(") + sql_columns(fields) +
                   QStringLiteral(") ") + QStringLiteral("values (") + sql_values(fields) + QStringLiteral(")"),
               QStringLiteral("Erreur lors de la sauvegarde du rôle ") + o.fonction + QStringLiteral(" pour ") +
                   o.nom + QStringLiteral("."));
}

bool AjouteActivite(AppContext& app, const QString& code, const QString& activite, const QString& responsable)
{
    const SqlFields fields = {{QStringLiteral("Code_federal"), quote_sql(code)},
                              {QStringLiteral("Activite"), quote_sql(activite)},
                              {QStringLiteral("Responsable"), quote_sql(responsable)}};
    return run(app,
               QStringLiteral("insert into Activites ") + QStringLiteral("(") + sql_columns(fields) +
                   QStringLiteral(") ") + QStringLiteral("values (") + sql_values(fields) + QStringLiteral(")"),
               QStringLiteral("Erreur lors de la sauvegarde du responsable ") + responsable +
                   QStringLiteral(" pour l'activité ") + activite);
}

bool AjouteTarif(AppContext& app, const QString& code, const QString& intitule, double montant)
{
    // The amount goes unquoted, with a point as decimal mark.
    const SqlFields fields = {{QStringLiteral("Code_federal"), quote_sql(code)},
                              {QStringLiteral("Intitule"), quote_sql(intitule)},
                              {QStringLiteral("Tarif"), sql_decimal(montant)}};
    return run(app,
               QStringLiteral("insert into Tarifs ") + QStringLiteral("(") + sql_columns(fields) +
                   QStringLiteral(") ") + QStringLiteral("values (") + sql_values(fields) + QStringLiteral(")"),
               QStringLiteral("Erreur lors de la sauvegarde du tarif ") + intitule + QStringLiteral("."));
}

bool SupprimeMarques(AppContext& app, const QString& table, const QString& condition, const QString& libelle)
{
    return run(app, QStringLiteral("delete from ") + table + QStringLiteral(" ") + QStringLiteral("where ") + condition,
               QStringLiteral("Erreur lors de la suppression des ") + libelle + QStringLiteral("."));
}

int NombreTarifs(AppContext& app, const QString& code)
{
    return app.db.count_query(QStringLiteral("select count(*) from Tarifs ") + QStringLiteral("where ") +
                              club_condition(code));
}

// ---------------------------------------------------------------- view

OwnClubView::OwnClubView(AppContext& app) : View(app, QString(kName))
{
    roles_.setHorizontalHeaderLabels({QStringLiteral("Fonction"), QStringLiteral("Nom"),
                                      QStringLiteral("Téléphone 1"), QStringLiteral("Téléphone 2"),
                                      QStringLiteral("Email")});
    responsables_.setHorizontalHeaderLabels({QStringLiteral("Responsable")});
    fees_.setHorizontalHeaderLabels({QStringLiteral("Tarif"), QStringLiteral("Montant")});
}

void OwnClubView::load()
{
    club_code_ = app().state.club_code;
    nom = app().state.club_name;
    code = club_code_;
    set_title(QStringLiteral("Informations club ") + nom);
    try {
        load_info();
        load_officers();
        load_activities();
        load_fees();
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QStringLiteral("Erreur lors du chargement des informations sur le club."), &e);
    }
    changed();
}

void OwnClubView::load_info()
{
    const Rows r = app().db.load_rows(QStringLiteral("SELECT Adresse, Code_Postal, Ville, Telephone, Fax, Mail ") +
                                      QStringLiteral("FROM Club ") + QStringLiteral("WHERE Code_federal=") +
                                      quote_sql(club_code_));
    info = ClubInfo{r.first(0), r.first(1), r.first(2), r.first(3), r.first(4), r.first(5)};
}

void OwnClubView::load_officers()
{
    roles_.removeRows(0, roles_.rowCount());
    const Rows r = app().db.load_rows(QStringLiteral("SELECT Fonction, Nom, Tel1, Tel2, Mail ") +
                                      QStringLiteral("FROM Dirigeant ") + QStringLiteral("WHERE Code_federal=") +
                                      quote_sql(club_code_) + QStringLiteral(" and suppr = false ") +
                                      QStringLiteral("ORDER BY Fonction, Nom"));
    for (int i = 0; i < r.size(); ++i)
        roles_.appendRow(fixed_row({r.value(i, 0), r.value(i, 1), r.value(i, 2), r.value(i, 3), r.value(i, 4)}));
}

void OwnClubView::load_activities()
{
    activities_.clear();
    const Rows r = app().db.load_rows(QStringLiteral("SELECT Activite, Responsable ") +
                                      QStringLiteral("FROM Activites ") + QStringLiteral("WHERE ") +
                                      club_condition(club_code_) + QStringLiteral(" ") +
                                      QStringLiteral("ORDER BY Activite, Responsable"));
    for (int i = 0; i < r.size(); ++i) {
        QStringList& people = activities_[r.value(i, 0)];
        if (!r.value(i, 1).isEmpty())
            people << r.value(i, 1);
    }
    chosen_activity_ = activities().value(0);
    show_responsables();
}

void OwnClubView::load_fees()
{
    fees_.removeRows(0, fees_.rowCount());
    const Rows r = app().db.load_rows(QStringLiteral("SELECT Intitule, Tarif ") + QStringLiteral("FROM Tarifs ") +
                                      QStringLiteral("WHERE ") + club_condition(club_code_) + QStringLiteral(" ") +
                                      QStringLiteral("ORDER BY Intitule"));
    for (int i = 0; i < r.size(); ++i)
        fees_.appendRow(fixed_row({r.value(i, 0), amount_text(text_to_double(r.value(i, 1)))}));
}

Officer OwnClubView::officer_at(int row) const
{
    return Officer{cell(roles_, row, 0), cell(roles_, row, 1), cell(roles_, row, 2), cell(roles_, row, 3),
                   cell(roles_, row, 4)};
}

void OwnClubView::put_officer(const Officer& o, int selected_row)
{
    put_row(roles_, {o.fonction, o.nom, o.tel1, o.tel2, o.mail}, selected_row);
    changed();
}

void OwnClubView::remove_officer(int row)
{
    if (row >= 0 && row < roles_.rowCount())
        roles_.removeRow(row);
    changed();
}

void OwnClubView::aide_code()
{
    if (AideCodeClub(app(), code))
        changed();
}

QStringList OwnClubView::activities() const
{
    QStringList names = activities_.keys();
    std::sort(names.begin(), names.end(),
              [](const QString& a, const QString& b) { return compare_texts(a, b) < 0; });
    return names;
}

void OwnClubView::choose_activity(const QString& activity)
{
    chosen_activity_ = activities_.contains(activity) ? activity : QString();
    show_responsables();
    changed();
}

void OwnClubView::show_responsables()
{
    responsables_.removeRows(0, responsables_.rowCount());
    for (const QString& name : activities_.value(chosen_activity_))
        responsables_.appendRow(fixed_row({name}));
}

void OwnClubView::add_activity(const QString& activity)
{
    const QString name = activity.trimmed();
    if (name.isEmpty())
        return;
    if (!activities_.contains(name))
        activities_.insert(name, {});
    choose_activity(name);
}

void OwnClubView::remove_activity(const QString& activity)
{
    activities_.remove(activity);
    choose_activity(activities().value(0));
}

void OwnClubView::add_responsable(const QString& name)
{
    const QString person = name.trimmed();
    if (person.isEmpty() || chosen_activity_.isEmpty())
        return;
    QStringList& people = activities_[chosen_activity_];
    if (!people.contains(person))
        people << person;
    show_responsables();
    changed();
}

void OwnClubView::remove_responsable(int row)
{
    QStringList& people = activities_[chosen_activity_];
    if (row >= 0 && row < people.size())
        people.removeAt(row);
    show_responsables();
    changed();
}

bool OwnClubView::put_fee(const QString& intitule, const QString& montant, int selected_row)
{
    if (intitule.trimmed().isEmpty()) {
        msg_info(app().ui, QStringLiteral("Vous devez spécifier un intitulé du tarif."));
        return false;
    }
    const double amount = amount_value(montant);
    if (amount == 0) {
        msg_info(app().ui, QStringLiteral("Vous devez spécifier un montant."));
        return false;
    }
    put_row(fees_, {intitule.trimmed(), amount_text(amount)}, selected_row);
    changed();
    return true;
}

void OwnClubView::remove_fee(int row)
{
    if (row >= 0 && row < fees_.rowCount())
        fees_.removeRow(row);
    changed();
}

bool OwnClubView::amount_key_accepted(const QString& text, QChar key)
{
    if (key.isDigit())
        return true;
    const bool separator = key == QLatin1Char(',') || key == QLatin1Char('.');
    return separator && !text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('.'));
}

double OwnClubView::amount_value(const QString& typed)
{
    // The number reader takes the comma or the point for the decimal mark and
    // stops at the currency sign of a shown amount.
    return text_to_double(typed);
}

QString OwnClubView::amount_field(double amount)
{
    return QString::number(amount, 'f', 2).replace(QLatin1Char('.'), QLatin1Char(','));
}

QString OwnClubView::amount_text(double amount)
{
    return amount_field(amount) + QStringLiteral(" €");
}

QString OwnClubView::franc_conversion(const QString& typed)
{
    return QString::number(amount_value(typed) * kFrancRate, 'f', 2);
}

bool OwnClubView::replace_rows(const QString& table, const QString& word, int count,
                               const std::function<bool(int)>& insert)
{
    if (!MarqueSuppr(app(), table, word, club_code_))
        return false;
    bool all_in = true;
    for (int i = 0; i < count && all_in; ++i)
        all_in = insert(i);
    if (all_in)
        return SupprimeMarques(app(), table, QStringLiteral("Suppr = true"), word + QStringLiteral(" sauvegardés temporairement"));
    // The old rows come back as they were.
    SupprimeMarques(app(), table, QStringLiteral("Suppr = false"), word + QStringLiteral(" déjà insérés temporairement"));
    RetireSuppr(app(), table, word, club_code_);
    return false;
}

bool OwnClubView::save()
{
    status_text(app().ui, QStringLiteral("Sauvegarde des informations sur le club"));
    auto done = [&](bool ok) {
        status_text(app().ui, QString());
        return ok;
    };
    const QString num = NumClub(app(), club_code_);
    if (code != club_code_ && ClubExiste(app(), code, num, true, QStringLiteral("Modification annulée.")))
        return done(false);
    if (!ModifieClub(app(), code, nom, num, QString()))
        return done(false);
    if (!SauveInfosClub(app(), info, num))
        return done(false);
    // From here the rows are written under the code as it now stands.
    club_code_ = code;

    bool ok = replace_rows(QStringLiteral("Dirigeant"), QStringLiteral("dirigeants"), roles_.rowCount(), [&](int i) {
        return AjouteDirigeant(app(), club_code_, officer_at(i));
    });
    std::vector<std::pair<QString, QString>> pairs;
    for (auto it = activities_.cbegin(); it != activities_.cend(); ++it) {
        if (it.value().isEmpty())
            pairs.emplace_back(it.key(), QString());
        for (const QString& person : it.value())
            pairs.emplace_back(it.key(), person);
    }
    ok = replace_rows(QStringLiteral("Activites"), QStringLiteral("activités"), int(pairs.size()), [&](int i) {
             return AjouteActivite(app(), club_code_, pairs[size_t(i)].first, pairs[size_t(i)].second);
         }) && ok;
    const bool fees_ok = replace_rows(QStringLiteral("Tarifs"), QStringLiteral("tarifs"), fees_.rowCount(), [&](int i) {
        return AjouteTarif(app(), club_code_, cell(fees_, i, 0), amount_value(cell(fees_, i, 1)));
    });
    if (fees_ok)
        ok = NettoieTarifs(app(), club_code_) && ok;
    const bool saved = done(ok && fees_ok);
    if (saved)
        status_text(app().ui, kStatusClubSaved);
    return saved;
}

void OuvreMonClub(AppContext& app)
{
    if (app.windows.check_window_open(QString(OwnClubView::kName)))
        return;
    auto view = std::make_unique<OwnClubView>(app);
    // The club and its profile must stay as they are while their data is edited.
    if (!view->register_window(QString(WindowRegistry::kMainWindow),
                               {whole_group(LockGroup::Club), whole_group(LockGroup::Profile)}))
        return;
    view->load();
    app.ui.show_window(std::move(view));
}

}  // namespace plouvarine
