#include "src/licences/liste_licence.h"

#include "src/reports/rich_text.h"
#include "src/reports/template_builder.h"
#include "src/reports/templates.h"

#include "src/frame/status_lines.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/base/sql_text.h"
#include "src/licences/season_maintenance.h"
#include "src/base/utils_date.h"
#include "src/licences/utils_licences.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <algorithm>

namespace plouvarine {

namespace {

// The list of a selection: its swimmers come from several clubs.
QString selection_from_where(const QString& code)
{
    return QStringLiteral("FROM Club Club, Licence Licence, Selection Selection ") +
           QStringLiteral("WHERE Club.Code_federal = Licence.Code_club and Licence.Num = Selection.Num_Lic and ") +
           QStringLiteral("Selection.Code_Sel = ") + quote_sql(code) +
           QStringLiteral(" and Selection.Visible = true and Licence.Visible = true order by Licence.Nom, "
                          "Licence.Prenom, Club.Intitule");
}

QString date_longue(const QString& date)
{
    return DateLongue(date);
}

}  // namespace

MenuLocks FrmListeLicence::locks_for(const QString& mode)
{
    if (mode == keyword::kModif || mode == keyword::kSuppr || mode == keyword::kSsCotisation)
        return {whole_group(LockGroup::Licence)};
    if (mode == keyword::kView)
        return locks_on({QStringLiteral("mnuLicSuppr")});
    return {};
}

FrmListeLicence::FrmListeLicence(AppContext& app, const QString& mode) : View(app, QString(kName)), mode_(mode)
{
    list_.set_role(kKeyRole, 0);
    list_.set_role(kNumLicenceRole, 1);
    list_.set_role(kNomCompletRole,
                   [](const RawRows& rows, int row) { return rows.value(row, 2) + QLatin1Char(' ') + rows.value(row, 3); });
    empty_tempo();
    // A licence saved elsewhere shows here at once, selected.
    follow(Subject::Licences, [this](const Change& change) {
        ReloadListe(change.key.isEmpty() ? current_num() : change.key);
    });
}

FrmListeLicence::~FrmListeLicence()
{
    empty_tempo();
}

void FrmListeLicence::empty_tempo()
{
    if (!app().db.is_open())
        return;
    try {
        app().db.exec_sql(QStringLiteral("DELETE FROM Licence_tempo"));
    } catch (const std::exception&) {
        // Nothing to undo is left behind either way.
    }
}

void FrmListeLicence::set_ok_caption(const QString& caption)
{
    ok_caption_ = caption;
    changed();
}

void FrmListeLicence::set_liste(const QString& title, const QString& sql)
{
    AppContext& a = app();
    set_title(title);
    status_text(a.ui, QStringLiteral("Chargement de la liste des licences"));
    QString statement = sql;
    if (statement.isEmpty()) {
        const QString code = a.state.club_code;
        if (a.state.club_selection)
            statement = QStringLiteral("SELECT Licence.Num, Licence.Licence, Licence.Nom, Licence.Prenom, "
                                       "Club.Intitule, Licence.Date_Naissance ") +
                        selection_from_where(code);
        else
            statement = QStringLiteral("SELECT Num, Licence, Nom, Prenom, Date_Naissance ") +
                        QStringLiteral("FROM Licence ") + QStringLiteral("WHERE Code_Club = ") + quote_sql(code) +
                        QStringLiteral(" and Visible = true order by Nom, Prenom");
    }
    // No fee is a blank, nothing, or the empty text that the licence record
    // writes when no fee is chosen.
    if (mode_ == keyword::kSsCotisation)
        statement.replace(QStringLiteral("WHERE "),
                          QStringLiteral("WHERE (Licence.Tarif = ' ' OR Licence.Tarif = '' OR Licence.Tarif is null) AND "));
    const qsizetype cut = statement.indexOf(QStringLiteral(" order by"), 0, Qt::CaseInsensitive);
    sql_base_ = cut < 0 ? statement : statement.left(cut);
    order_ = cut < 0 ? QString() : statement.mid(cut + 1);
    last_column_ = 0;
    ascending_ = false;
    load(sql_base_ + QLatin1Char(' ') + order_);
    if (list_.rowCount() > 0)
        select_row_at(selection_, 0);
    status_text(a.ui, QString());
    changed();
}

void FrmListeLicence::load(const QString& sql)
{
    RawRows rows;
    try {
        rows = app().db.load_raw_rows(sql);
    } catch (const std::exception&) {
        rows = RawRows();
    }
    // Num, Licence, Nom, Prenom, [Club,] Date_Naissance. The cells are read
    // from the rows as drawn: the dates are written out only for the rows in view.
    club_column_ = rows.column_count() >= 6;
    std::vector<RowsTable::Column> columns{{QStringLiteral("Nom"), 2},
                                           {QStringLiteral("Prénom"), 3},
                                           {QStringLiteral("N° Licence"), 1}};
    if (club_column_)
        columns.push_back({QStringLiteral("Club Origine"), 4});
    columns.push_back({QStringLiteral("Date Naissance"), std::max(rows.column_count() - 1, 0), &date_longue});
    list_.reset(std::move(rows), std::move(columns));
}

void FrmListeLicence::ReloadListe(const QString& num)
{
    load(sql_base_ + QLatin1Char(' ') + order_);
    if (const auto row = find_key(list_, num))
        select_row_at(selection_, *row);
    else if (list_.rowCount() > 0)
        select_row_at(selection_, 0);
    changed();
}

std::optional<int> FrmListeLicence::current_row() const
{
    const QModelIndex current = selection_.currentIndex();
    if (!current.isValid() || current.row() >= list_.rowCount())
        return std::nullopt;
    return current.row();
}

QString FrmListeLicence::current_num() const
{
    const auto row = current_row();
    return row ? row_key(list_, *row) : QString();
}

QString FrmListeLicence::OrdreListe(int column)
{
    QString first;
    QString ties;
    switch (column) {
    case 1:
        first = QStringLiteral("Licence.Nom");
        ties = QStringLiteral(", Licence.Prenom");
        break;
    case 2:
        first = QStringLiteral("Licence.Prenom");
        ties = QStringLiteral(", Licence.Nom");
        break;
    case 3:
        first = QStringLiteral("Licence.Licence");
        break;
    case 4:
        first = club_column_ ? QStringLiteral("Club.Intitule") : QStringLiteral("Licence.Date_Naissance");
        ties = QStringLiteral(", Licence.Nom, Licence.Prenom");
        break;
    case 5:
        first = QStringLiteral("Licence.Date_Naissance");
        ties = QStringLiteral(", Licence.Nom, Licence.Prenom");
        break;
    default:
        return order_;
    }
    if (column == last_column_) {
        if (ascending_)
            first += QStringLiteral(" DESC");
        ascending_ = !ascending_;
    } else {
        last_column_ = column;
        ascending_ = true;
    }
    QString clause = QStringLiteral("ORDER BY ") + first + ties;
    // The list of a plain club reads one table, whose columns go unqualified.
    if (!club_column_)
        clause.remove(QStringLiteral("Licence."));
    return clause;
}

void FrmListeLicence::sort_by_column(int column)
{
    const QString num = current_num();
    order_ = OrdreListe(column);
    ReloadListe(num);
}

void FrmListeLicence::set_search_text(const QString& text)
{
    search_ = text;
    incremental_select(selection_, search_, 0, kNomCompletRole);
    changed();
}

bool FrmListeLicence::search_field_key(int key_ascii)
{
    if (!search_key_clears(key_ascii))
        return false;
    search_.clear();
    changed();
    if (key_ascii == 13)
        SimulAction();
    return true;
}

void FrmListeLicence::list_key(int key_ascii)
{
    if ((key_ascii >= 32 && key_ascii <= 126) || (key_ascii >= 160 && key_ascii <= 255)) {
        set_search_text(search_ + QChar(key_ascii));
    } else if (key_ascii == 8) {
        if (!search_.isEmpty()) {
            search_.chop(1);
            set_search_text(search_);
        }
    } else if (key_ascii == 27) {
        search_.clear();
        changed();
    } else if (key_ascii == 13) {
        search_.clear();
        changed();
        SimulAction();
    }
}

bool FrmListeLicence::cmd2_enabled() const
{
    return list_.rowCount() > 0 && current_row().has_value();
}

void FrmListeLicence::cmd2()
{
    if (!cmd2_enabled())
        return;
    if (mode_ == keyword::kModif) {
        OuvreDetailLicence(app(), QString(keyword::kModif), current_num(), name());
    } else if (mode_ == keyword::kSuppr) {
        supprime_selection();
    }
}

bool FrmListeLicence::cmd0_visible() const
{
    return mode_ == keyword::kSuppr || mode_ == keyword::kChoisir || mode_ == keyword::kSsCotisation;
}

void FrmListeLicence::cmd0()
{
    if (mode_ == keyword::kSuppr) {
        // The deletion is done: the list has nothing left to do.
        confirme_suppression();
        close();
    } else if (mode_ == keyword::kSsCotisation) {
        sauve_tarifs();
    } else if (mode_ == keyword::kChoisir) {
        const auto row = current_row();
        if (!row)
            return;
        const QModelIndex first = list_.index(*row, 0);
        chosen_ = Choice{first.data(kKeyRole).toString(), first.data(kNumLicenceRole).toString(), list_.text(*row, 0),
                         list_.text(*row, 1)};
        if (on_chosen)
            on_chosen(*chosen_);
        close();
    }
}

QString FrmListeLicence::cmd1_caption() const
{
    return mode_ == keyword::kSuppr || mode_ == keyword::kChoisir ? QStringLiteral("&Annuler")
                                                                    : QStringLiteral("&Fermer");
}

void FrmListeLicence::cmd1()
{
    // The undo puts every marked row back and ends the deletion; a failed
    // undo keeps the list open on the rows still marked.
    if (mode_ == keyword::kSuppr && !annule_suppression())
        return;
    close();
}

void FrmListeLicence::SimulAction()
{
    if (mode_ == keyword::kChoisir)
        cmd0();
    else if (mode_ == keyword::kView || mode_ == keyword::kModif || mode_ == keyword::kSuppr)
        cmd2();
}

void FrmListeLicence::supprime_selection()
{
    if (mode_ != keyword::kSuppr)
        return;
    AppContext& a = app();
    std::vector<int> rows;
    for (const QModelIndex& index : selection_.selectedRows())
        rows.push_back(index.row());
    if (rows.empty())
        if (const auto row = current_row())
            rows.push_back(*row);
    std::sort(rows.rbegin(), rows.rend());
    int last_removed = -1;
    for (int row : rows) {
        const QString num = row_key(list_, row);
        try {
            if (a.state.club_selection) {
                a.db.exec_sql(QStringLiteral("Update Selection Set Suppr = true, Visible = false ") +
                              QStringLiteral("where Num_Lic = ") + sql_key(num) + QStringLiteral(" and Code_Sel = ") +
                              quote_sql(a.state.club_code));
            } else {
                try {
                    a.db.exec_sql(
                        QStringLiteral("INSERT INTO Licence_tempo ( Num, Code_Club, Licence, Nom, Prenom ) ") +
                        QStringLiteral("SELECT Licence.Num, Licence.Code_Club, Licence.Licence, Licence.Nom, "
                                       "Licence.Prenom ") +
                        QStringLiteral("From Licence ") + QStringLiteral("WHERE (((Licence.Num) = ") + sql_key(num) +
                        QStringLiteral("));"));
                } catch (const std::exception& e) {
                    msg_erreur(a.ui, QStringLiteral("Erreur lors de la mémorisation des informations.\nSuppression annulée."),
                               &e);
                    continue;
                }
                a.db.exec_sql(QStringLiteral("Update Licence Set Visible = false where Num = ") + sql_key(num));
            }
        } catch (const std::exception& e) {
            msg_erreur(a.ui, QString(), &e);
            continue;
        }
        list_.removeRow(row);
        last_removed = row;
    }
    if (last_removed >= 0)
        select_last_row(selection_, last_removed);
    search_.clear();
    changed();
}

void FrmListeLicence::confirme_suppression()
{
    AppContext& a = app();
    bool deleted = false;
    try {
        const int marked = a.state.club_selection
                               ? a.db.count_query(QStringLiteral("select count(*) from Selection where Code_Sel = ") +
                                                  quote_sql(a.state.club_code) + QStringLiteral(" and Suppr = true"))
                               : a.db.count_query(QStringLiteral("select count(*) from Licence_tempo"));
        SupprimeEngagementsLicences(a, a.state.club_selection, a.state.club_code, QString());
        deleted = marked > 0;
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    // The deletion is final now: the undo must not bring these rows back.
    empty_tempo();
    status_text(a.ui, deleted ? kStatusDeleted : QString());
    changed();
}

bool FrmListeLicence::annule_suppression()
{
    AppContext& a = app();
    try {
        if (a.state.club_selection)
            a.db.exec_sql(QStringLiteral("UPDATE Selection Set Suppr = false, Visible = true ") +
                          QStringLiteral("WHERE Code_Sel = ") + quote_sql(a.state.club_code) +
                          QStringLiteral(" ") + QStringLiteral("AND Suppr = true"));
        else
            a.db.exec_sql(
                QStringLiteral("Update Licence Set Visible = true where Num in (select Num from Licence_tempo)"));
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
        return false;
    }
    empty_tempo();
    ReloadListe(current_num());
    return true;
}

void FrmListeLicence::ChargeMenuTarifs()
{
    AppContext& a = app();
    try {
        const Rows rows = a.db.load_rows(QStringLiteral("SELECT Intitule ") + QStringLiteral("FROM Tarifs ") +
                                         QStringLiteral("WHERE Code_federal = ") + quote_sql(a.state.club_code) +
                                         QStringLiteral(" ") + QStringLiteral("ORDER BY Intitule"));
        a.menus.set_tarifs(rows.column(0));
    } catch (const std::exception&) {
        a.menus.set_tarifs({});
    }
}

void FrmListeLicence::prepare_menu_tarifs()
{
    const QString noted = fees_.value(current_num());
    app().menus.set_checked_tarif(noted.isEmpty() ? -1 : int(app().menus.tarifs().indexOf(noted, 1)));
}

void FrmListeLicence::mnuTarifsSel_Click(int index)
{
    const QString num = current_num();
    if (num.isEmpty() || mode_ != keyword::kSsCotisation)
        return;
    const QStringList& lines = app().menus.tarifs();
    if (index == 0) {
        fees_.remove(num);
    } else if (index > 0 && index < lines.size()) {
        if (fees_.value(num) == lines.at(index))
            return;
        fees_.insert(num, lines.at(index));
    } else {
        return;
    }
    changed();
}

void FrmListeLicence::sauve_tarifs()
{
    AppContext& a = app();
    const QStringList nums = fees_.keys();
    for (const QString& num : nums) {
        try {
            a.db.exec_sql(QStringLiteral("UPDATE Licence SET Tarif = ") + quote_sql(fees_.value(num)) +
                          QStringLiteral(" ") + QStringLiteral("WHERE Num = ") + sql_key(num));
        } catch (const std::exception& e) {
            msg_erreur(a.ui, QString(), &e);
            break;
        }
        fees_.remove(num);
        if (const auto row = find_key(list_, num))
            list_.removeRow(*row);
    }
    if (list_.rowCount() > 0 && !current_row())
        select_row_at(selection_, 0);
    changed();
}

// ---------------------------------------------------------------- report

LicenceReport LitRapportLicences(AppContext& app)
{
    status_text(app.ui, QStringLiteral("Récupération des licences"));
    LicenceReport report;
    QString sql;
    if (app.state.club_selection)
        sql = QStringLiteral("SELECT Licence.Nom, Licence.Prenom, Licence.Licence, Licence.Nationalite, "
                             "Licence.Sexe, Licence.Date_Naissance ") +
              selection_from_where(app.state.club_code);
    else
        sql = QStringLiteral("SELECT Nom, Prenom, Licence, Nationalite, Sexe, Date_Naissance ") +
              QStringLiteral("FROM Licence ") + QStringLiteral("WHERE Code_Club = ") +
              quote_sql(app.state.club_code) + QStringLiteral(" and Visible = true order by Nom, Prenom");
    const Rows rows = app.db.load_rows(sql);
    for (int r = 0; r < rows.size(); ++r) {
        QStringList line;
        for (int c = 0; c < 6; ++c)
            line << rows.value(r, c);
        report.lines.push_back(line);
    }
    return report;
}

QStringList LignesRapportLicences(const LicenceReport& report)
{
    // Column widths of the template's fixed-width paragraph.
    static const int kWidths[] = {24, 20, 8, 5, 3};
    QStringList out;
    for (const QStringList& line : report.lines) {
        QString text;
        for (int c = 0; c < 5; ++c)
            text += line.value(c).leftJustified(kWidths[c] - 1, QLatin1Char(' '), true) + QLatin1Char(' ');
        out << text + DateLongue(line.value(5), QString::fromLatin1(kFormatDateCourte));
    }
    return out;
}

bool ImprimeRapportLicences(AppContext& app)
{
    bool printed = false;
    try {
        const LicenceReport report = LitRapportLicences(app);
        ReportJob job;
        job.kind = QStringLiteral("rptlic");
        job.title = QStringLiteral("Rapport des licences");
        job.fill = [&](TempoRapport& tempo) {
            status_text(app.ui, QStringLiteral("Ecriture du rapport"));
            RemplacerBalisePartout(tempo.rich, tags::kNomProfil, app.state.profile_name);
            tempo.rich.move_to_end();
            tempo.rich.write(LignesRapportLicences(report).join(QLatin1Char('\n')));
            status_text(app.ui, QStringLiteral("Impression du rapport"));
        };
        printed = imprimer_rapport(app, job);
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QString(), &e);
    }
    status_text(app.ui, QString());
    return printed;
}

}  // namespace plouvarine
