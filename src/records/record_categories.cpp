#include "src/records/record_categories.h"

#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/frame/app_context.h"
#include "src/frame/list_helpers.h"

namespace plouvarine {

const QStringList& DetCategorieRecordClub::sexes()
{
    static const QStringList list{QStringLiteral("Homme"), QStringLiteral("Femme"), QStringLiteral("Mixte")};
    return list;
}

DetCategorieRecordClub::DetCategorieRecordClub(AppContext& app) : View(app, QString(kName))
{
    set_title(QStringLiteral("Définition des catégories"));
    list_.setHorizontalHeaderLabels(
        {QStringLiteral("Libellé"), QStringLiteral("Age mini"), QStringLiteral("Age maxi"), QStringLiteral("Sexe")});
}

std::vector<CategorieRecord> DetCategorieRecordClub::lines() const
{
    std::vector<CategorieRecord> out;
    for (int r = 0; r < list_.rowCount(); ++r)
        out.push_back({list_.item(r, 0)->text(), list_.item(r, 1)->text().toInt(), list_.item(r, 2)->text().toInt(),
                       list_.item(r, 3)->text()});
    return out;
}

void DetCategorieRecordClub::charge()
{
    const Rows rows = app().db.load_rows(QStringLiteral("SELECT Libelle, Age_inf, Age_sup, Sexe FROM Categori_record_club ") +
                                         QStringLiteral("WHERE Code_Club = ") + quote_sql(app().state.club_code) +
                                         QStringLiteral(" ") + QStringLiteral("ORDER BY Age_inf, Sexe"));
    list_.removeRows(0, list_.rowCount());
    for (int r = 0; r < rows.size(); ++r)
        list_.appendRow({fixed_cell(rows.value(r, 0)), fixed_cell(rows.value(r, 1)), fixed_cell(rows.value(r, 2)), fixed_cell(rows.value(r, 3))});
    selected_ = -1;
    changed();
}

void DetCategorieRecordClub::select_line(int row)
{
    selected_ = (row >= 0 && row < list_.rowCount()) ? row : -1;
    if (selected_ >= 0) {
        txt_libelle = list_.item(row, 0)->text();
        txt_age = {list_.item(row, 1)->text(), list_.item(row, 2)->text()};
        opt_sexe = std::max<qsizetype>(0, sexes().indexOf(list_.item(row, 3)->text()));
    }
    changed();
}

QString DetCategorieRecordClub::cmd_def_caption(int index)
{
    switch (index) {
    case 0: return QStringLiteral("&Ajouter");
    case 1: return QStringLiteral("&Modifier");
    default: return QStringLiteral("&Supprimer");
    }
}

bool DetCategorieRecordClub::verif_categorie(int changed_row, const QString& caption)
{
    QString texts;
    if (txt_libelle.trimmed().isEmpty())
        texts += QStringLiteral("Le libellé est manquant.\n");
    if (txt_age[0].trimmed().isEmpty())
        txt_age[0] = QStringLiteral("0");
    if (txt_age[1].trimmed().isEmpty())
        txt_age[1] = txt_age[0];
    const int low = txt_age[0].toInt();
    const int high = txt_age[1].toInt();
    // A band upside down would hold no age and slip past the overlap test.
    if (low > high)
        texts += QStringLiteral("L'age mini est supérieur à l'age maxi.\n");
    const QString sexe = sexes().value(opt_sexe);
    for (int r = 0; r < list_.rowCount(); ++r) {
        if (r == changed_row || list_.item(r, 3)->text().compare(sexe, Qt::CaseInsensitive) != 0)
            continue;
        const int inf = list_.item(r, 1)->text().toInt();
        const int sup = list_.item(r, 2)->text().toInt();
        if ((low >= inf && low <= sup) || (high >= inf && high <= sup)) {
            texts += QStringLiteral("Les ages limites sont déjà compris dans une catégorie");
            break;
        }
    }
    changed();
    if (texts.isEmpty())
        return true;
    QString title = caption;
    title.remove(u'&');
    msg_info(app().ui, title + QStringLiteral(" impossible !\n") + texts);
    return false;
}

int DetCategorieRecordClub::position_categorie(int age_inf, const QString& sexe) const
{
    for (int r = 0; r < list_.rowCount(); ++r) {
        const int inf = list_.item(r, 1)->text().toInt();
        if (inf > age_inf || (inf == age_inf && list_.item(r, 3)->text().compare(sexe, Qt::CaseInsensitive) > 0))
            return r;
    }
    return list_.rowCount();
}

void DetCategorieRecordClub::insert_line(const CategorieRecord& band)
{
    const int at = position_categorie(band.age_inf, band.sexe);
    list_.insertRow(at, {fixed_cell(band.libelle), fixed_cell(QString::number(band.age_inf)), fixed_cell(QString::number(band.age_sup)),
                         fixed_cell(band.sexe)});
    selected_ = at;
}

bool DetCategorieRecordClub::cmd_def(int index)
{
    if (index == 2) {
        if (selected_ < 0)
            return false;
        list_.removeRow(selected_);
        selected_ = -1;
        changed();
        return true;
    }
    const int changing = index == 1 ? selected_ : -1;
    if (index == 1 && changing < 0)
        return false;
    if (!verif_categorie(changing, cmd_def_caption(index)))
        return false;
    if (changing >= 0)
        list_.removeRow(changing);
    insert_line({txt_libelle.trimmed(), txt_age[0].toInt(), txt_age[1].toInt(), sexes().value(opt_sexe)});
    changed();
    return true;
}

bool DetCategorieRecordClub::ok()
{
    try {
        enregistre_categories(app().db, app().state.club_code, lines());
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QString(), &e);
        return false;
    }
    if (on_saved)
        on_saved();
    close();
    return true;
}

void enregistre_categories(Database& db, const QString& club, const std::vector<CategorieRecord>& bands)
{
    const SqlText c = quote_sql(club);
    db.exec_sql(QStringLiteral("UPDATE Categori_record_club SET Old = true where Code_Club = ") + c);
    for (const CategorieRecord& band : bands)
        db.exec_sql(QStringLiteral("INSERT INTO Categori_record_club ") +
                    QStringLiteral(" (Code_Club, Libelle, Age_inf, Age_sup, Sexe) ") + QStringLiteral("VALUES (") + c +
                    QStringLiteral(", ") + quote_sql(band.libelle) + QStringLiteral(", ") + sql_number(band.age_inf) +
                    QStringLiteral(", ") + sql_number(band.age_sup) + QStringLiteral(", ") + quote_sql(band.sexe) +
                    QStringLiteral(")"));
    const Rows fresh = db.load_rows(QStringLiteral("Select Num_cat, Age_sup, Sexe from Categori_record_club ") +
                                    QStringLiteral("where Code_Club = ") + c + QStringLiteral(" and Old = false ") +
                                    QStringLiteral("order by age_inf"));
    // Lowest first, and the old bands deleted as they are emptied: an old
    // band goes to the lowest new band that reaches its highest age.
    for (int r = 0; r < fresh.size(); ++r) {
        const QString n = fresh.value(r, 0);
        const SqlText a = sql_number(fresh.value(r, 1).toLongLong());
        const SqlText s = quote_sql(fresh.value(r, 2));
        db.exec_sql(QStringLiteral("UPDATE RecordClub ") + QStringLiteral("Set RecordClub.Categorie = ") + sql_key(n) +
                    QStringLiteral(" ") + QStringLiteral("WHERE RecordClub.Categorie in ( ") +
                    QStringLiteral("SELECT Categori_record_club.Num_cat from Categori_record_club ") +
                    QStringLiteral("Where Categori_record_club.Code_Club = ") + c + QStringLiteral(" AND ") +
                    QStringLiteral("Categori_record_club.Old = True AND ") +
                    QStringLiteral("Categori_record_club.Sexe = ") + s + QStringLiteral(" AND ") +
                    QStringLiteral("Categori_record_club.Age_sup <= ") + a + QStringLiteral(");"));
        purge_records(db, n);
        db.exec_sql(QStringLiteral("DELETE from Categori_record_club ") + QStringLiteral("where Code_Club = ") + c +
                    QStringLiteral(" and Old = true ") + QStringLiteral("and Sexe = ") + s +
                    QStringLiteral(" and Age_sup <= ") + a);
    }
    db.exec_sql(QStringLiteral("DELETE from Categori_record_club ") + QStringLiteral("where Code_Club = ") + c +
                QStringLiteral(" and Old = true"));
}

void purge_records(Database& db, const QString& num_cat)
{
    const Rows rows = db.load_rows(QStringLiteral("SELECT Num_auto, Code_nage, Bassin, Date_perf, Tps ") +
                                   QStringLiteral("FROM RecordClub WHERE Categorie =") + sql_key(num_cat) +
                                   QStringLiteral(" ") + QStringLiteral("ORDER BY Bassin, Code_nage, Tps, Date_perf"));
    QString last_pool = QStringLiteral("-1");
    QString last_event = QStringLiteral("99");
    QString last_date;
    QStringList dropped;
    for (int r = 0; r < rows.size(); ++r) {
        if (rows.value(r, 2) != last_pool || rows.value(r, 1) != last_event) {
            last_pool = rows.value(r, 2);
            last_event = rows.value(r, 1);
            last_date = QStringLiteral("99999999");
        }
        // Slower than a row of an earlier date: it never stood as a record.
        if (rows.value(r, 3) > last_date)
            dropped << rows.value(r, 0);
        else
            last_date = rows.value(r, 3);
    }
    if (dropped.isEmpty())
        return;
    QStringList keys;
    for (const QString& key : dropped)
        keys << sql_key(key).text();
    db.exec_sql(QStringLiteral("DELETE from RecordClub WHERE Num_auto IN (") + keys.join(QStringLiteral(", ")) +
                QStringLiteral(")"));
}

DetCategorieRecordClub* OuvrirCategoriesRecord(AppContext& app, const QString& caller)
{
    if (app.windows.check_window_open(QString(DetCategorieRecordClub::kName)))
        return nullptr;
    auto view = std::make_unique<DetCategorieRecordClub>(app);
    // The records shown elsewhere would follow bands about to change.
    if (!view->register_window(caller.isEmpty() ? QString(WindowRegistry::kMainWindow) : caller,
                               locks_on({QStringLiteral("mnuPerfRecView")})))
        return nullptr;
    try {
        view->charge();
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QString(), &e);
        return nullptr;
    }
    return show_child(app.ui, std::move(view));
}

}  // namespace plouvarine
