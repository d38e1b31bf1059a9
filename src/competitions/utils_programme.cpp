#include "src/competitions/utils_programme.h"

#include "src/competitions/frm_prog.h"
#include "src/frame/app_context.h"
#include "src/frame/list_helpers.h"
#include "src/frame/menu_state.h"
#include "src/base/sql_text.h"

#include <QStandardItemModel>
#include <stdexcept>

namespace plouvarine {

namespace {

qint16 small(const QString& text)
{
    return qint16(qBound(-32768, text.trimmed().toInt(), 32767));
}

}  // namespace

QString ListeNageSql(int longueur)
{
    QString sql = QStringLiteral("SELECT Libelle, Code_Nage FROM Nage ");
    if (longueur == 50)
        sql += QStringLiteral("WHERE Possible_50 = true ");
    return sql + QLatin1String(kOrdreNage);
}

QString TabFromTabSql(const QString& num_compet)
{
    return QStringLiteral("SELECT Code_epreuve, JourCourse, Type, Nb_finales, Type_finale, Num_ordre ") +
           QStringLiteral("FROM Pcomp ") + QStringLiteral("WHERE Num_compet = ") + sql_key(num_compet);
}

QString TabFromModeleSql(const QString& num_modele, int longueur)
{
    if (longueur == 25)
        return QStringLiteral("SELECT Code_epreuve, JourCourse, Type, Nb_finales, Type_finale, Num_ordre ") +
               QStringLiteral("FROM Pcomp_modele ") + QStringLiteral("WHERE Num_modele = ") + sql_key(num_modele);
    return QStringLiteral("SELECT Pcomp_modele.Code_epreuve, Pcomp_modele.JourCourse, Pcomp_modele.Type, "
                          "Pcomp_modele.Nb_finales, Pcomp_modele.Type_finale, Pcomp_modele.Num_ordre ") +
           QStringLiteral("FROM Nage Nage, Pcomp_modele Pcomp_modele ") +
           QStringLiteral("WHERE Nage.Code_Nage = Pcomp_modele.Code_epreuve ") +
           QStringLiteral("AND Pcomp_modele.Num_modele = ") + sql_key(num_modele) + QStringLiteral(" ") +
           QStringLiteral("AND Nage.Possible_50 = true");
}

LoadedProg ChargeTabProg(Database& db, const QString& sql)
{
    LoadedProg loaded;
    const Rows rows = db.load_rows(sql);
    for (int r = 0; r < rows.size(); ++r) {
        const int code = rows.value(r, 0).trimmed().toInt();
        if (code < 0 || code >= kEventSlots)
            throw std::out_of_range("L'indice n'appartient pas à la sélection.");
        ProgSlot& slot = loaded.tab[size_t(code)];
        slot.JourCourse = small(rows.value(r, 1));
        slot.Type = small(rows.value(r, 2));
        slot.Nb_finales = small(rows.value(r, 3));
        slot.Type_finale = rows.value(r, 4);
        slot.Num_ordre = small(rows.value(r, 5));
        loaded.journee_max = qMax(loaded.journee_max, int(slot.JourCourse));
    }
    return loaded;
}

QString InsertProgSql(const QString& table, const QString& key, const QString& num, int code, const ProgSlot& slot)
{
    // Type and Nb_finales are text columns.
    const SqlFields fields = {{key, sql_key(num)},
                              {QStringLiteral("Code_epreuve"), sql_number(code)},
                              {QStringLiteral("JourCourse"), sql_number(slot.JourCourse)},
                              {QStringLiteral("Type"), quote_sql(QString::number(slot.Type))},
                              {QStringLiteral("nb_finales"), quote_sql(QString::number(slot.Nb_finales))},
                              {QStringLiteral("Type_finale"), quote_sql(slot.Type_finale)},
                              {QStringLiteral("num_ordre"), sql_number(slot.Num_ordre)}};
    return QStringLiteral("INSERT INTO ") + table + QStringLiteral(" (") + sql_columns(fields) + QStringLiteral(") ") +
           QStringLiteral("VALUES (") + sql_values(fields) + QStringLiteral(");");
}

bool SaveTabInTable(AppContext& app, TabProg& tab, int day_count, const QString& table, const QString& num,
                    bool modele)
{
    const QString key = modele ? QStringLiteral("Num_modele") : QStringLiteral("Num_compet");
    try {
        app.db.exec_sql(QStringLiteral("DELETE FROM ") + table + QStringLiteral(" where ") + key +
                        QStringLiteral(" = ") + sql_key(num));
        for (int code = 0; code < kEventSlots; ++code) {
            ProgSlot& slot = tab[size_t(code)];
            if (slot.JourCourse <= 0)
                continue;
            if (slot.JourCourse > day_count)
                slot.JourCourse = qint16(day_count);
            app.db.exec_sql(InsertProgSql(table, key, num, code, slot));
        }
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de l'enregistrement du programme."), &e);
        return false;
    }
    return true;
}

QString LibelleJournee(int day)
{
    return QString::number(day) + (day == 1 ? QStringLiteral("ère") : QStringLiteral("ème")) +
           QStringLiteral(" journée");
}

QString DescriptionEpreuve(int type, int nb_finales, const QString& type_finale)
{
    if (type < 2)
        return QStringLiteral("(Classement au temps)");
    QString text;
    switch (type) {
    case 2: text = QStringLiteral("(1/2 finales, "); break;
    case 3: text = QStringLiteral("(Série finales, "); break;
    case 4: text = QStringLiteral("(1/4 finales, "); break;
    case 8: text = QStringLiteral("(1/8 finales, "); break;
    default: break;
    }
    switch (nb_finales) {
    case 1: text += QStringLiteral("finale A, "); break;
    case 2: text += QStringLiteral("finale A - B, "); break;
    case 3: text += QStringLiteral("finale A - B - C, "); break;
    default: break;
    }
    return text + (type_finale == QLatin1String("C") ? QStringLiteral("par catégories)")
                                                      : QStringLiteral("toutes catégories)"));
}

void ChargerListeProg(Database& db, QStandardItemModel& list, const QString& table, const QString& key,
                      const QString& num, const std::function<QString(int day)>& heading)
{
    list.clear();
    list.setHorizontalHeaderLabels({QStringLiteral("Libelle"), QStringLiteral("Num Ordre")});
    const QString& t = table;
    const QString from_where = QStringLiteral("FROM Nage Nage, ") + t + QStringLiteral(" ") +
                               QStringLiteral("WHERE Nage.Code_Nage = ") + t + QStringLiteral(".Code_epreuve ") +
                               QStringLiteral("AND ") + t + QStringLiteral(".") + key + QStringLiteral(" = ") + sql_key(num) +
                               QStringLiteral(" ");
    const Rows unordered = db.load_rows(QStringLiteral("SELECT Nage.Libelle, ") + t + QStringLiteral(".Num_ordre ") +
                                        from_where + QStringLiteral("AND ") + t + QStringLiteral(".Num_ordre = 0 ") +
                                        QStringLiteral("ORDER BY ") + t + QStringLiteral(".Code_epreuve"));
    for (int r = 0; r < unordered.size(); ++r)
        list.appendRow({fixed_cell(unordered.value(r, 0)), fixed_cell(unordered.value(r, 1))});

    const Rows ordered = db.load_rows(
        QStringLiteral("SELECT Nage.Libelle, ") + t + QStringLiteral(".JourCourse, ") + t +
        QStringLiteral(".Num_ordre, ") + t + QStringLiteral(".Type, ") + t + QStringLiteral(".Nb_finales, ") + t +
        QStringLiteral(".Type_finale ") + from_where + QStringLiteral("AND ") + t +
        QStringLiteral(".Num_ordre <> 0 ") + QStringLiteral("ORDER BY ") + t + QStringLiteral(".JourCourse, ") + t +
        QStringLiteral(".Num_ordre, ") + t + QStringLiteral(".Code_epreuve"));
    QString day_seen;
    for (int r = 0; r < ordered.size(); ++r) {
        const QString day = ordered.value(r, 1);
        if (r == 0 || day != day_seen) {
            day_seen = day;
            list.appendRow({fixed_cell(QString()), fixed_cell(QString())});
            list.appendRow({fixed_cell(heading(day.toInt())), fixed_cell(QString())});
        }
        const QString description = DescriptionEpreuve(ordered.value(r, 3).toInt(), ordered.value(r, 4).toInt(),
                                                       ordered.value(r, 5));
        list.appendRow({fixed_cell(ordered.value(r, 0) + QLatin1Char(' ') + description), fixed_cell(ordered.value(r, 2))});
    }
}

FrmProg* OuvrirProg(AppContext& app, const QString& mode, const QString& key, bool modele, const QString& title,
                    const QString& caller, bool definition, bool load_model_prog)
{
    if (app.windows.check_window_open(QString(FrmProg::kName)))
        return nullptr;
    auto prog = std::make_unique<FrmProg>(app, mode, key, modele);
    prog->set_title(title);
    // While a programme is edited, the competitions stay as they are.
    const MenuLocks locks =
        modele ? MenuLocks{} : locks_on({QStringLiteral("mnuCompetModif"), QStringLiteral("mnuCompetSuppr")});
    if (!prog->register_window(caller.isEmpty() ? QString(WindowRegistry::kMainWindow) : caller, locks))
        return nullptr;
    prog->setVisibleControlModele();
    prog->setViewControle(definition);
    prog->setListeNage();
    if (load_model_prog)
        prog->loadModeleProg();
    return show_child(app.ui, std::move(prog));
}

}  // namespace plouvarine
