#include "src/clubs/pools.h"

#include "src/frame/status_lines.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/base/sql_text.h"
#include "src/store/sentinels.h"

#include <QStandardItem>

namespace plouvarine {

namespace {

const QString kNullPool = QStringLiteral("Null");

// Columns of the hidden twin, as the select gives them.
enum InfoColumn { InfoNum, InfoNom, InfoAdresse, InfoCodePostal, InfoVille, InfoCouloir, InfoBassin };

MenuLocks list_locks(const QString& keyword)
{
    if (keyword == keyword::kModif || keyword == keyword::kSuppr)
        return {whole_group(LockGroup::Pool)};
    // Viewing or choosing: no pool may go while the list shows it.
    return locks_on({QStringLiteral("mnuModelePiscineSuppr")});
}

int number_or(const QString& text, int fallback)
{
    bool ok = false;
    const int v = text.trimmed().toInt(&ok);
    return ok ? v : fallback;
}

}  // namespace

QString NumPiscineNulle(AppContext& app)
{
    // A base from elsewhere, or one edited by hand, may lack the row: it is
    // made again rather than leaving competitions without a pool to fall on.
    return piscine_reference(app.db);
}

QString AjoutePiscine(AppContext& app, const Pool& pool)
{
    try {
        return app.db.append_row(QStringLiteral("Piscine"),
                                 {{QStringLiteral("Nom"), pool.nom},
                                  {QStringLiteral("Adresse"), pool.adresse},
                                  {QStringLiteral("Code_Postal"), pool.code_postal},
                                  {QStringLiteral("Ville"), pool.ville},
                                  {QStringLiteral("NbCouloir"), pool.couloirs},
                                  {QStringLiteral("Bassin"), pool.bassin}},
                                 QStringLiteral("Num"));
    } catch (const std::exception&) {
        return {};
    }
}

// ---------------------------------------------------------------- list

PoolListView::PoolListView(AppContext& app, QString keyword)
    : View(app, QString(kName)), keyword_(std::move(keyword))
{
    list_.setHorizontalHeaderLabels({QStringLiteral("Nom Piscine")});
    info_.setHorizontalHeaderLabels({QStringLiteral("Num"), QStringLiteral("Nom"), QStringLiteral("Adresse"),
                                     QStringLiteral("Code postal"), QStringLiteral("Ville"),
                                     QStringLiteral("Couloir"), QStringLiteral("Bassin")});
    marked_.setHorizontalHeaderLabels({QStringLiteral("num")});
    follow(Subject::Pools, [this](const Change& change) { pool_saved(change); });
}

PoolListView::~PoolListView()
{
    if (detail_)
        detail_->close();
}

void PoolListView::set_ok_caption(const QString& caption)
{
    ok_caption_ = caption;
    changed();
}

bool PoolListView::ok_enabled() const
{
    return !ok_caption_.isEmpty() && list_.rowCount() > 0;
}

QString PoolListView::close_caption() const
{
    return keyword_ == keyword::kSuppr ? QStringLiteral("&Valider") : QStringLiteral("&Fermer");
}

bool PoolListView::new_visible() const
{
    return keyword_ == keyword::kChoisir;
}

void PoolListView::set_liste()
{
    status_text(app().ui, QStringLiteral("Chargement de la liste des piscines"));
    try {
        fill_collections(app().db,
                         QStringLiteral("SELECT * from Piscine where Nom <> ") + quote_sql(kNullPool) +
                             QStringLiteral(" order by Nom"),
                         {ListFill{&list_, {InfoNom}, InfoNum},
                          ListFill{&info_, {InfoNum, InfoNom, InfoAdresse, InfoCodePostal, InfoVille, InfoCouloir,
                                            InfoBassin},
                                   InfoNum}});
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QStringLiteral("Erreur lors du chargement de la liste des piscines."), &e);
    }
    marked_.removeRows(0, marked_.rowCount());
    status_text(app().ui, QString());
    changed();
}

Pool PoolListView::pool_at(int row) const
{
    auto cell = [&](int column) { return info_.index(row, column).data().toString(); };
    Pool p;
    p.num = cell(InfoNum);
    p.nom = cell(InfoNom);
    p.adresse = cell(InfoAdresse);
    p.code_postal = cell(InfoCodePostal);
    p.ville = cell(InfoVille);
    p.couloirs = number_or(cell(InfoCouloir), 8);
    p.bassin = number_or(cell(InfoBassin), 25);
    return p;
}

void PoolListView::ok(const std::vector<int>& rows)
{
    if (rows.empty() || !ok_enabled())
        return;
    if (keyword_ == keyword::kSuppr)
        mark(rows);
    else if (keyword_ == keyword::kChoisir)
        choose(pool_at(rows.front()));
    else if (keyword_ == keyword::kView || keyword_ == keyword::kModif)
        open_detail(keyword_, pool_at(rows.front()));
}

void PoolListView::delete_key(const std::vector<int>& rows)
{
    if (keyword_ == keyword::kSuppr)
        mark(rows);
}

void PoolListView::mark(const std::vector<int>& rows)
{
    // From the last row up, so that the earlier rows keep their numbers.
    std::vector<int> sorted = rows;
    std::sort(sorted.rbegin(), sorted.rend());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    for (int row : sorted) {
        if (row < 0 || row >= list_.rowCount())
            continue;
        marked_.appendRow(new QStandardItem(row_key(list_, row)));
        list_.removeRow(row);
        info_.removeRow(row);
    }
    changed();
}

void PoolListView::close_command()
{
    if (keyword_ == keyword::kSuppr && marked_.rowCount() > 0)
        confirm_deletion();
    close();
}

void PoolListView::confirm_deletion()
{
    QStringList terms;
    for (int i = 0; i < marked_.rowCount(); ++i)
        terms << QStringLiteral("Num = ") + sql_key(marked_.item(i)->text());
    const QString condition = terms.join(QStringLiteral(" or "));
    QString pool_condition = condition;
    pool_condition.replace(QStringLiteral("Num"), QStringLiteral("Num_Piscine"));
    try {
        // The competitions held there fall back on the reference pool first.
        app().db.exec_sql(QStringLiteral("Update Rcomp Set Num_Piscine = ") + sql_key(NumPiscineNulle(app())) +
                          QStringLiteral(" where ") + pool_condition);
        app().db.exec_sql(QStringLiteral("Delete from Piscine where ") + condition);
        status_text(app().ui, kStatusDeleted);
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QStringLiteral("Erreur lors de la suppression des piscines."), &e);
    }
    marked_.removeRows(0, marked_.rowCount());
}

void PoolListView::choose(const Pool& pool)
{
    const bool replace =
        msg_confirm(app().ui,
                    QStringLiteral("Remplacer les informations (lieu et nombre de couloir) sur la compétition ?"),
                    kDefaultYes) == Button::Yes;
    if (on_chosen)
        on_chosen(pool, replace);
    close();
}

void PoolListView::new_pool()
{
    if (new_visible())
        open_detail(QString(PoolDetailView::kCreation), Pool{});
}

void PoolListView::open_detail(const QString& mode, const Pool& pool)
{
    if (app().windows.check_window_open(QString(PoolDetailView::kName)))
        return;
    auto detail = std::make_unique<PoolDetailView>(app(), mode);
    if (!detail->register_window(name()))
        return;
    creating_ = mode == QLatin1String(PoolDetailView::kCreation);
    detail->remplir_champs(pool);
    detail->set_title(QStringLiteral("Information sur la piscine"));
    detail_ = detail.get();
    app().ui.show_window(std::move(detail));
}

void PoolListView::ForceUnloadWindowsEngag(const QString& form_name)
{
    if (form_name == QLatin1String(PoolDetailView::kName)) {
        detail_ = nullptr;
        creating_ = false;
    }
}

void PoolListView::pool_saved(const Change& change)
{
    set_liste();
    if (!change.created || !creating_ || keyword_ != keyword::kChoisir)
        return;
    creating_ = false;
    if (const auto row = find_key(list_, change.key))
        choose(pool_at(*row));
}

// ---------------------------------------------------------------- detail

PoolDetailView::PoolDetailView(AppContext& app, QString mode) : View(app, QString(kName)), mode_(std::move(mode)) {}

QStringList PoolDetailView::lane_choices()
{
    QStringList out;
    for (int n = 3; n <= 10; ++n)
        out << QString::number(n);
    return out;
}

QString PoolDetailView::bassin_caption(int metres)
{
    return QStringLiteral("Compétition en bassin de %1 m").arg(metres);
}

void PoolDetailView::remplir_champs(const Pool& record)
{
    pool = record;
    changed();
}

bool PoolDetailView::save()
{
    if (read_only())
        return false;
    if (mode_ == keyword::kModif) {
        try {
            app().db.exec_sql(QStringLiteral("Update Piscine set ") +
                              sql_set({{QStringLiteral("Nom"), quote_sql(pool.nom)},
                                       {QStringLiteral("Adresse"), quote_sql(pool.adresse)},
                                       {QStringLiteral("Code_Postal"), quote_sql(pool.code_postal)},
                                       {QStringLiteral("Ville"), quote_sql(pool.ville)},
                                       {QStringLiteral("NbCouloir"), sql_number(pool.couloirs)},
                                       {QStringLiteral("Bassin"), sql_number(pool.bassin)}}) +
                              QStringLiteral(" where Num = ") + sql_key(pool.num));
        } catch (const std::exception& e) {
            msg_erreur(app().ui, QStringLiteral("Erreur lors de la sauvegarde de la piscine."), &e);
            return false;
        }
        app().changes.changed(Subject::Pools, pool.num);
        return true;
    }
    // "Nouveau" and "Creation".
    if (pool.nom.trimmed().isEmpty()) {
        msg_erreur(app().ui, QStringLiteral("Preciser le nom de la piscine !"));
        return false;
    }
    pool.num = AjoutePiscine(app(), pool);
    if (pool.num.isEmpty()) {
        msg_erreur(app().ui, QStringLiteral("Echec lors de l'enregistrement de la nouvelle piscine."));
        return false;
    }
    msg_info(app().ui, QStringLiteral("Nouvelle piscine enregistrée."));
    app().changes.changed(Subject::Pools, pool.num, true);
    return true;
}

void PoolDetailView::confirm()
{
    if (save())
        close();
}

// ---------------------------------------------------------------- openers

PoolListView* OuvreListePiscines(AppContext& app, const QString& keyword, const QString& title,
                                 const QString& ok_caption, const QString& caller)
{
    if (app.windows.check_window_open(QString(PoolListView::kName)))
        return nullptr;
    auto list = std::make_unique<PoolListView>(app, keyword);
    if (!list->register_window(caller, list_locks(keyword)))
        return nullptr;
    list->set_title(title);
    list->set_ok_caption(ok_caption);
    list->set_liste();
    return show_child(app.ui, std::move(list));
}

void OuvreDetailPiscine(AppContext& app, const QString& mode)
{
    if (app.windows.check_window_open(QString(PoolDetailView::kName)))
        return;
    auto detail = std::make_unique<PoolDetailView>(app, mode);
    if (!detail->register_window(QString(WindowRegistry::kMainWindow),
                                 locks_on({QStringLiteral("mnuModelePiscineNew")})))
        return;
    detail->set_title(mode == keyword::kNouveau ? QStringLiteral("Nouvelle piscine")
                                                : QStringLiteral("Information sur la piscine"));
    app.ui.show_window(std::move(detail));
}

}  // namespace plouvarine
