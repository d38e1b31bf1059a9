#include "gui/results/perf_windows.h"

#include "gui/frame/window_parts.h"
#include "src/results/view_perf.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

class PerfViewWindow : public ViewWindow {
public:
    PerfViewWindow(FrmViewPerf& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(960, 600);
        auto* layout = new QHBoxLayout(this);

        // The swimmers, ticked for the history.
        auto* left = new QVBoxLayout;
        auto* search = new QHBoxLayout;
        auto* find = new QLabel(QStringLiteral("Recherche :"));
        find->setObjectName(QStringLiteral("Img_findfast"));
        search->addWidget(find);
        // Parented before the list below it, so that Tab reaches it first.
        recherche_ = new QLineEdit(this);
        recherche_->setObjectName(QStringLiteral("txt_recherche"));
        connect(recherche_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.recherche(t); });
        // Enter empties the search field; Escape closes the window.
        connect(recherche_, &QLineEdit::returnPressed, recherche_, &QLineEdit::clear);
        search->addWidget(recherche_, 1);
        left->addLayout(search);
        nageurs_ = new BoundList(QStringLiteral("LsvNageur"), view_.lsv_nageur(), view_.nageur_selection(), this);
        nageurs_->on_activated = [this] { view_.flip_selected(); };
        left->addWidget(nageurs_, 1);
        all_ = new QCheckBox(QStringLiteral("&Sélectionner tous les nageurs"));
        all_->setObjectName(QStringLiteral("Chk_all_nageurs"));
        connect(all_, &QCheckBox::clicked, this, [this](bool on) { view_.set_chk_all_nageurs(on); });
        left->addWidget(all_);
        layout->addLayout(left, 2);

        auto* right = new QVBoxLayout;
        right->addWidget(options_box());

        auto* finders = new QHBoxLayout;
        search_nageurs_ = new QComboBox;
        search_nageurs_->setObjectName(QStringLiteral("Cbo_search_nageurs"));
        connect(search_nageurs_, &QComboBox::activated, this, [this](int i) { view_.choose_search_swimmer(i); });
        search_epreuve_ = new QComboBox;
        search_epreuve_->setObjectName(QStringLiteral("Cbo_search_epreuve"));
        connect(search_epreuve_, &QComboBox::activated, this, [this](int i) { view_.choose_search_event(i); });
        finders->addWidget(new QLabel(QStringLiteral("Nageur :")));
        finders->addWidget(search_nageurs_, 1);
        finders->addWidget(new QLabel(QStringLiteral("Epreuve :")));
        finders->addWidget(search_epreuve_, 1);
        right->addLayout(finders);

        perfs_ = new BoundList(QStringLiteral("LsvPerf"), view_.lsv_perf(), view_.perf_selection(), this);
        perfs_->on_activated = [this] { view_.cmd_progression(); };
        perfs_->on_delete_key = [this] { view_.supprime_perf(); };
        connect(&view_.perf_selection(), &QItemSelectionModel::selectionChanged, this, [this] { enable(); });
        right->addWidget(perfs_, 1);

        auto* buttons = new QHBoxLayout;
        show_ = add_button(buttons, QStringLiteral("cmd_0"), QStringLiteral("&Afficher"), [this] { view_.affiche_perfs(); });
        chart_ = add_button(buttons, QStringLiteral("cmd_progression"), QStringLiteral("P&rogression"),
                            [this] { view_.cmd_progression(); });
        print_ = add_button(buttons, QStringLiteral("cmd_2"), QStringLiteral("Imprimer"), [this] { view_.cmd_imprimer(); });
        save_ = add_button(buttons, QStringLiteral("cmd_3"), QStringLiteral("Sauvegarder"),
                           [this] { view_.cmd_sauvegarder(); });
        delete_ = add_button(buttons, QStringLiteral("cmd_4"), QStringLiteral("Supprimer"), [this] { view_.supprime_perf(); });
        add_button(buttons, QStringLiteral("cmd_5"), QStringLiteral("Effacer"), [this] { view_.cmd_effacer(); });
        buttons->addStretch(1);
        add_button(buttons, QStringLiteral("cmd_1"), QStringLiteral("&Quitter"), [this] { view_.cmd_quitter(); });
        right->addLayout(buttons);
        layout->addLayout(right, 5);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        {
            const QSignalBlocker block(all_);
            all_->setChecked(view_.chk_all_nageurs());
        }
        const PerfOptions& o = view_.editing() ? view_.edited_options() : view_.options();
        check_option(tri_, o.tri);
        check_option(saison_, o.saison);
        check_option(nb_perf_, o.nb_perf);
        set_text(txt_nb_perf_, o.txt_nb_perf);
        one_->setText(o.label_one());
        custom_label_->setText(o.label_one().toLower() + QStringLiteral("s perfs"));
        for (auto [box, on] : {std::pair{codif_, o.codif}, std::pair{inter_, o.tps_inter},
                               std::pair{relais_, o.tps_relais}, std::pair{selection_, o.selection}}) {
            const QSignalBlocker block(box);
            box->setChecked(on);
        }
        fill(search_nageurs_, view_.cbo_search_nageurs(), view_.search_swimmer());
        fill(search_epreuve_, view_.cbo_search_epreuve(), -1);
        perfs_->header()->resizeSections(QHeaderView::ResizeToContents);
        fit_swimmers();
        enable();
    }

private:
    // The swimmers' list as wide as its columns: names, licence and birth
    // date read without scrolling sideways. Measured again when the rows change.
    void fit_swimmers()
    {
        const int rows = nageurs_->model()->rowCount();
        if (rows == fitted_rows_)
            return;
        fitted_rows_ = rows;
        int width = 2 * nageurs_->frameWidth() + nageurs_->verticalScrollBar()->sizeHint().width();
        for (int c = 0; c < nageurs_->model()->columnCount(); ++c)
            width += std::max(static_cast<QAbstractItemView*>(nageurs_)->sizeHintForColumn(c), nageurs_->header()->sectionSizeHint(c));
        nageurs_->setMinimumWidth(width);
    }

    QGroupBox* options_box()
    {
        auto* box = new QGroupBox(QStringLiteral("Options"));
        auto* outer = new QVBoxLayout(box);
        auto* grid = new QHBoxLayout;
        outer->addLayout(grid);
        const auto group = [this](const QString& title, const QString& name, const QStringList& captions,
                                  QButtonGroup*& buttons, std::function<void(int)> set) {
            auto* frame = new QGroupBox(title);
            auto* column = new QVBoxLayout(frame);
            buttons = new QButtonGroup(frame);
            for (int i = 0; i < captions.size(); ++i) {
                auto* option = new QRadioButton(captions[i]);
                option->setObjectName(name + u'_' + QString::number(i));
                buttons->addButton(option, i);
                column->addWidget(option);
            }
            connect(buttons, &QButtonGroup::idClicked, this, [set = std::move(set)](int id) { set(id); });
            editable_ << frame;
            return frame;
        };
        grid->addWidget(group(QStringLiteral("Ordre de tri"), QStringLiteral("Opt_tri"),
                              {QStringLiteral("Par date (descendant)"), QStringLiteral("Par temps (croissant)")}, tri_,
                              [this](int id) { view_.edited_options().tri = id; refresh(); }));
        grid->addWidget(group(QStringLiteral("Saison"), QStringLiteral("Opt_saison"),
                              {QStringLiteral("En cours"), QStringLiteral("Dernière"), QStringLiteral("Toutes")},
                              saison_, [this](int id) { view_.edited_options().saison = id; }));
        QGroupBox* count = group(QStringLiteral("Nombre de performances affichées"), QStringLiteral("Opt_nbPerf"),
                                 {QStringLiteral("Toutes"), QStringLiteral("Meilleure"), QStringLiteral("Personnalisé")},
                                 nb_perf_, [this](int id) { view_.edited_options().nb_perf = id; });
        one_ = nb_perf_->button(1);
        auto* custom = new QHBoxLayout;
        txt_nb_perf_ = new QLineEdit;
        txt_nb_perf_->setObjectName(QStringLiteral("txt_nb_perf"));
        txt_nb_perf_->setMaxLength(3);
        txt_nb_perf_->setFixedWidth(48);
        digits_only(txt_nb_perf_);
        connect(txt_nb_perf_, &QLineEdit::textEdited, this,
                [this](const QString& t) { view_.edited_options().txt_nb_perf = t; });
        custom->addWidget(txt_nb_perf_);
        custom_label_ = new QLabel;
        custom->addWidget(custom_label_, 1);
        static_cast<QVBoxLayout*>(count->layout())->addLayout(custom);
        grid->addWidget(count);

        auto* checks = new QVBoxLayout;
        const auto check = [&](const QString& name, const QString& caption, std::function<void(bool)> set) {
            auto* box = new QCheckBox(caption);
            box->setObjectName(name);
            connect(box, &QCheckBox::toggled, this, [set = std::move(set)](bool on) { set(on); });
            checks->addWidget(box);
            editable_ << box;
            return box;
        };
        codif_ = check(QStringLiteral("Chk_codif"), QStringLiteral("Codifications"),
                       [this](bool on) { view_.edited_options().codif = on; });
        inter_ = check(QStringLiteral("Chk_tps_inter"), QStringLiteral("Temps intermédiaires"),
                       [this](bool on) { view_.edited_options().tps_inter = on; });
        relais_ = check(QStringLiteral("Chk_tps_relais"), QStringLiteral("Temps au départ d'un relais"),
                        [this](bool on) { view_.edited_options().tps_relais = on; });
        selection_ = check(QStringLiteral("Chk_selection"), QStringLiteral("Performances du club seulement"),
                           [this](bool on) { view_.edited_options().selection = on; });
        grid->addLayout(checks);

        auto* row = new QHBoxLayout;
        row->addStretch(1);
        modifier_ = add_button(row, QStringLiteral("Cmd_option_0"), QStringLiteral("&Modifier"), [this] { view_.cmd_modifier(); });
        valider_ = add_button(row, QStringLiteral("Cmd_option_1"), QStringLiteral("&Valider"), [this] {
            if (!view_.cmd_valider())
                txt_nb_perf_->setFocus();
        });
        annuler_ = add_button(row, QStringLiteral("Cmd_option_2"), QStringLiteral("&Annuler"), [this] { view_.cmd_annuler(); });
        outer->addLayout(row);
        return box;
    }

    static void fill(QComboBox* combo, const std::vector<FrmViewPerf::SearchEntry>& entries, int index)
    {
        const QSignalBlocker block(combo);
        QStringList items;
        for (const auto& e : entries)
            items << e.text;
        QStringList shown;
        for (int i = 0; i < combo->count(); ++i)
            shown << combo->itemText(i);
        if (shown != items) {
            combo->clear();
            combo->addItems(items);
        }
        if (index >= 0)
            combo->setCurrentIndex(index);
    }

    void enable()
    {
        const bool editing = view_.editing();
        for (QWidget* w : editable_)
            w->setEnabled(editing);
        txt_nb_perf_->setEnabled(editing && view_.edited_options().nb_perf == 2);
        modifier_->setEnabled(!editing);
        valider_->setEnabled(editing);
        annuler_->setEnabled(editing);
        show_->setEnabled(!editing);
        print_->setEnabled(!editing && view_.can_print());
        save_->setEnabled(!editing && view_.can_print());
        delete_->setEnabled(!editing && view_.can_delete());
        chart_->setEnabled(!editing && view_.can_chart());
    }

    FrmViewPerf& view_;
    QLineEdit* recherche_ = nullptr;
    BoundList* nageurs_ = nullptr;
    int fitted_rows_ = -1;
    QCheckBox* all_ = nullptr;
    QButtonGroup* tri_ = nullptr;
    QButtonGroup* saison_ = nullptr;
    QButtonGroup* nb_perf_ = nullptr;
    QAbstractButton* one_ = nullptr;
    QLineEdit* txt_nb_perf_ = nullptr;
    QLabel* custom_label_ = nullptr;
    QCheckBox* codif_ = nullptr;
    QCheckBox* inter_ = nullptr;
    QCheckBox* relais_ = nullptr;
    QCheckBox* selection_ = nullptr;
    QList<QWidget*> editable_;
    QPushButton* modifier_ = nullptr;
    QPushButton* valider_ = nullptr;
    QPushButton* annuler_ = nullptr;
    QComboBox* search_nageurs_ = nullptr;
    QComboBox* search_epreuve_ = nullptr;
    BoundList* perfs_ = nullptr;
    QPushButton* show_ = nullptr;
    QPushButton* chart_ = nullptr;
    QPushButton* print_ = nullptr;
    QPushButton* save_ = nullptr;
    QPushButton* delete_ = nullptr;
};

}  // namespace

void register_perf_view_window()
{
    register_view_window<FrmViewPerf, PerfViewWindow>(QString(FrmViewPerf::kName));
}

void register_perf_windows()
{
    register_perf_view_window();
    register_perf_chart_window();
    register_perf_ajout_windows();
}

}  // namespace plouvarine::gui
