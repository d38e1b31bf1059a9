#pragma once
// The pool register: the list Frm_liste_piscine and the detail det_Piscine.
// A competition always names a pool; the row named "Null", the reference
// pool, stands for none and never shows in the list.

#include "src/frame/view.h"

#include <QStandardItemModel>
#include <QString>
#include <QStringList>
#include <functional>

namespace plouvarine {

struct Pool {
    QString num;
    QString nom;
    QString adresse;
    QString code_postal;
    QString ville;
    int couloirs = 8;   // 3 to 10
    int bassin = 25;    // 25 or 50 metres
};

// The Num of the reference pool "Null", made again when the base lacks it;
// throws on a base error.
QString NumPiscineNulle(AppContext& app);
// Adds the pool and gives its new Num, or the empty text on failure.
QString AjoutePiscine(AppContext& app, const Pool& pool);

class PoolDetailView;

class PoolListView : public View {
public:
    static constexpr QLatin1String kName{"Frm_liste_piscine"};

    PoolListView(AppContext& app, QString keyword);
    ~PoolListView() override;

    const QString& keyword() const { return keyword_; }
    // The visible list, "Nom Piscine", the pool's Num as each row's key.
    QStandardItemModel& Lsv_piscine() { return list_; }
    // The hidden twin: every column of the pool, in step with the visible list.
    QStandardItemModel& Lsv_info_piscine() { return info_; }
    // The pools marked for deletion ("num").
    QStandardItemModel& Lsv_num() { return marked_; }

    // Caption of Command1 0 (empty: hidden), and whether it can be used.
    QString ok_caption() const { return ok_caption_; }
    void set_ok_caption(const QString& caption);
    bool ok_enabled() const;
    // Command1 1 closes the list; in "Suppr" it confirms the deletion first.
    QString close_caption() const;
    // Command1 2, "Nouvelle", only when choosing for a competition.
    bool new_visible() const;

    void set_liste();
    // The pool of a visible row (0-based).
    Pool pool_at(int row) const;

    // Command1 0 on the selected rows (0-based), as the mode wants: opens the
    // detail ("View", "Modif"), marks the rows ("Suppr"), takes the row ("Choisir").
    void ok(const std::vector<int>& rows);
    // The Delete key: in "Suppr", marks the selected rows.
    void delete_key(const std::vector<int>& rows);
    // Command1 1.
    void close_command();
    // Command1 2: a new pool, chosen once saved.
    void new_pool();

    // "Choisir": the chosen pool and whether its place, lanes and length
    // replace the competition's.
    std::function<void(const Pool&, bool replace)> on_chosen;

    // The detail opened from this list has closed.
    void ForceUnloadWindowsEngag(const QString& form_name) override;

private:
    void mark(const std::vector<int>& rows);
    void confirm_deletion();
    void choose(const Pool& pool);
    void open_detail(const QString& mode, const Pool& pool);
    // A pool was saved: the list fills again; the pool made from this list
    // to be chosen ("Creation") is chosen.
    void pool_saved(const Change& change);

    QString keyword_;
    QString ok_caption_;
    QStandardItemModel list_;
    QStandardItemModel info_;
    QStandardItemModel marked_;
    PoolDetailView* detail_ = nullptr;
    // This list's own detail is open in "Creation".
    bool creating_ = false;
};

class PoolDetailView : public View {
public:
    static constexpr QLatin1String kName{"det_Piscine"};
    // The mode in which a pool made from a choice list is chosen at once.
    static constexpr QLatin1String kCreation{"Creation"};

    PoolDetailView(AppContext& app, QString mode);

    const QString& mode() const { return mode_; }
    bool read_only() const { return mode_ == QLatin1String("View"); }
    static QStringList lane_choices();   // "3" to "10"
    // Fields: txt_nom, txt_adresse, txt_code_postal, txt_ville, Cb_couloir, Op_bass.
    Pool pool;
    // remplir_champs: the fields from a record.
    void remplir_champs(const Pool& record);

    // The confirmation: gives true when the pool went into the base.
    bool save();
    // The confirmation button: saves, and closes the window once saved.
    void confirm();
    // Option captions of Op_bass, 50 m first.
    static QString bassin_caption(int metres);

private:
    QString mode_;
};

// OuvreListePiscines: the one list, locked and shown with its keyword, title and
// OK caption; a second call brings it to the front with the usual message.
// `caller` is the window told at the list's closing (det_compet when choosing).
PoolListView* OuvreListePiscines(AppContext& app, const QString& keyword, const QString& title,
                                 const QString& ok_caption,
                                 const QString& caller = QString(WindowRegistry::kMainWindow));
// OuvreDetailPiscine: the detail for a new pool ("Nouveau").
void OuvreDetailPiscine(AppContext& app, const QString& mode);

}  // namespace plouvarine
