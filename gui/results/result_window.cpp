#include "gui/results/result_window.h"

#include "gui/frame/window_parts.h"
#include "src/results/view_result.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

QTreeView* report_list(const QString& name, QStandardItemModel& model)
{
    auto* list = new QTreeView;
    list->setObjectName(name);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setModel(&model);
    return list;
}

class ResultWindow : public ViewWindow {
public:
    ResultWindow(FrmViewResult& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(1100, 640);
        auto* layout = new QHBoxLayout(this);

        // The competitions, their events, the options.
        auto* left = new QVBoxLayout;
        compets_ = report_list(QStringLiteral("lsv_compet"), view_.lsv_compet());
        compets_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        connect(compets_, &QTreeView::clicked, this, [this](const QModelIndex& index) { view_.click_compet(index.row()); });
        left->addWidget(compets_, 2);
        nages_ = report_list(QStringLiteral("LsvNage"), view_.lsv_nage());
        nages_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        connect(nages_, &QTreeView::doubleClicked, this,
                [this](const QModelIndex& index) { view_.double_click_nage(index.row()); });
        // An event unticked while all are asked for is ticked again.
        connect(&view_.lsv_nage(), &QStandardItemModel::itemChanged, this, [this](QStandardItem* item) {
            if (item->column() == 0 && item->checkState() != Qt::Checked && view_.chk_all())
                view_.set_ticked(item->row(), true);
        });
        left->addWidget(nages_, 3);
        all_ = new QCheckBox(QStringLiteral("Afficher toutes les nages"));
        all_->setObjectName(QStringLiteral("Chk_all"));
        connect(all_, &QCheckBox::clicked, this, [this](bool on) { view_.set_chk_all(on); });
        left->addWidget(all_);
        left->addWidget(options_frame());
        layout->addLayout(left, 2);

        // The results.
        auto* right = new QVBoxLayout;
        auto* search_row = new QHBoxLayout;
        auto* label = new QLabel(QStringLiteral("Epreuve :"));
        search_ = new QComboBox;
        search_->setObjectName(QStringLiteral("Cbo_search"));
        search_->setMinimumContentsLength(30);
        label->setBuddy(search_);
        connect(search_, &QComboBox::activated, this, [this](int index) { show_row(view_.choose_search(index)); });
        search_row->addWidget(label);
        search_row->addWidget(search_, 1);
        right->addLayout(search_row);
        results_ = report_list(QStringLiteral("LsvResults"), view_.lsv_results());
        // Widths from the rows in view: the list of a whole meet runs to thousands.
        results_->header()->setResizeContentsPrecision(0);
        results_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        right->addWidget(results_, 1);
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        voir_ = add_button(buttons, QStringLiteral("cmd_0"), QStringLiteral("Voir"), [this] {
            view_.affiche_resultats();
            // A new list reads from its top; its first row is a blank one.
            results_->clearSelection();
            results_->scrollToTop();
        });
        print_ = add_button(buttons, QStringLiteral("cmd_2"), QStringLiteral("Imprimer"), [this] { view_.imprimer(); });
        export_ = add_button(buttons, QStringLiteral("cmd_3"), QStringLiteral("Exporter"), [this] { view_.exporter(); });
        add_button(buttons, QStringLiteral("cmd_1"), QStringLiteral("&Quitter"), [this] { view_.quitter(); });
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
            all_->setChecked(view_.chk_all());
        }
        const ResultOptions& o = view_.options();
        check_option(type_, o.type_affich);
        check_option(pres_, o.pres_serie);
        check_option(club_, o.club);
        const bool open = view_.options_open();
        for (QCheckBox* box : {equipe_, inter_, nat_})
            box->setEnabled(open);
        equipe_->setChecked(o.equipe);
        inter_->setChecked(o.tps_inter);
        nat_->setChecked(o.nationalite);
        for (QAbstractButton* b : type_->buttons() + club_->buttons())
            b->setEnabled(open);
        for (QAbstractButton* b : pres_->buttons())
            b->setEnabled(view_.pres_serie_enabled());
        modifier_->setEnabled(view_.modifier_enabled());
        valider_->setEnabled(open);
        annuler_->setEnabled(open);
        voir_->setEnabled(view_.voir_enabled());
        print_->setEnabled(view_.imprimer_enabled());
        export_->setEnabled(view_.exporter_enabled());

        QStringList shown;
        for (int i = 0; i < search_->count(); ++i)
            shown << search_->itemText(i);
        if (shown != view_.cbo_search()) {
            const QSignalBlocker block(search_);
            search_->clear();
            search_->addItems(view_.cbo_search());
        }
        search_->setEnabled(view_.search_enabled());

        const QString current = view_.current_compet();
        for (int r = 0; r < view_.lsv_compet().rowCount(); ++r)
            if (view_.lsv_compet().item(r, 0)->data(FrmViewResult::kAutoNumRole).toString() == current &&
                compets_->currentIndex().row() != r)
                compets_->setCurrentIndex(view_.lsv_compet().index(r, 0));
    }

private:
    // The title row of the event chosen in "Epreuve :", at the top of the list.
    // Only then: a refresh leaves the list where the person scrolled it.
    void show_row(int row)
    {
        if (row < 0 || row >= view_.lsv_results().rowCount())
            return;
        const QModelIndex index = view_.lsv_results().index(row, 0);
        results_->setCurrentIndex(index);
        results_->scrollTo(index, QAbstractItemView::PositionAtTop);
    }

    QWidget* options_frame()
    {
        auto* frame = new QWidget;
        auto* grid = new QGridLayout(frame);
        grid->setContentsMargins(0, 0, 0, 0);
        auto group = [this](const QString& title, const QString& name, const QStringList& captions,
                            QButtonGroup*& buttons, QVBoxLayout*& box_layout) {
            auto* box = new QGroupBox(title);
            box_layout = new QVBoxLayout(box);
            buttons = new QButtonGroup(box);
            for (int i = 0; i < captions.size(); ++i) {
                auto* radio = new QRadioButton(captions.at(i));
                radio->setObjectName(name + QStringLiteral("_%1").arg(i));
                buttons->addButton(radio, i);
                box_layout->addWidget(radio);
            }
            connect(buttons, &QButtonGroup::idClicked, this, [this](int) { send_options(); });
            return box;
        };
        QVBoxLayout* box = nullptr;
        grid->addWidget(group(QStringLiteral("Type affichage"), QStringLiteral("Opt_typeAffich"),
                              {QStringLiteral("Par type de courses"), QStringLiteral("Par séries")}, type_, box),
                        0, 0);
        auto* remark = new QLabel(QStringLiteral("(Finales, 1/2, 1/4, 1/8, Séries, Barrages)"));
        remark->setIndent(20);
        box->insertWidget(1, remark);
        grid->addWidget(group(QStringLiteral("Présentation des séries"), QStringLiteral("Opt_PresSerie"),
                              {QStringLiteral("Par temps"), QStringLiteral("Par couloirs")}, pres_, box),
                        0, 1);
        grid->addWidget(group(QStringLiteral("Option Club"), QStringLiteral("Opt_Club"),
                              {QStringLiteral("Tous les clubs"), QStringLiteral("Uniquement clubs liés au profil")},
                              club_, box),
                        1, 0, 1, 2);
        auto check = [this](const QString& caption, const QString& name) {
            auto* c = new QCheckBox(caption);
            c->setObjectName(name);
            connect(c, &QCheckBox::clicked, this, [this] { send_options(); });
            return c;
        };
        equipe_ = check(QStringLiteral("Afficher le numéro d'équipe"), QStringLiteral("Chk_equipe"));
        inter_ = check(QStringLiteral("Afficher les temps intermédiaires"), QStringLiteral("Chk_tps_inter"));
        nat_ = check(QStringLiteral("Afficher la nationalité"), QStringLiteral("Chk_nationalite"));
        grid->addWidget(equipe_, 2, 0, 1, 2);
        grid->addWidget(inter_, 3, 0, 1, 2);
        grid->addWidget(nat_, 4, 0, 1, 2);
        auto* row = new QHBoxLayout;
        modifier_ = add_button(row, QStringLiteral("Cmd_option_0"), QStringLiteral("&Modifier"),
                               [this] { view_.cmd_option(0); });
        valider_ = add_button(row, QStringLiteral("Cmd_option_1"), QStringLiteral("&Valider"),
                              [this] { view_.cmd_option(1); });
        annuler_ = add_button(row, QStringLiteral("Cmd_option_2"), QStringLiteral("&Annuler"),
                              [this] { view_.cmd_option(2); });
        grid->addLayout(row, 5, 0, 1, 2);
        return frame;
    }

    void send_options()
    {
        ResultOptions o;
        o.type_affich = std::max(0, type_->checkedId());
        o.pres_serie = std::max(0, pres_->checkedId());
        o.club = std::max(0, club_->checkedId());
        o.equipe = equipe_->isChecked();
        o.tps_inter = inter_->isChecked();
        o.nationalite = nat_->isChecked();
        view_.set_options(o);
    }

    FrmViewResult& view_;
    QTreeView* compets_ = nullptr;
    QTreeView* nages_ = nullptr;
    QTreeView* results_ = nullptr;
    QCheckBox* all_ = nullptr;
    QComboBox* search_ = nullptr;
    QButtonGroup* type_ = nullptr;
    QButtonGroup* pres_ = nullptr;
    QButtonGroup* club_ = nullptr;
    QCheckBox* equipe_ = nullptr;
    QCheckBox* inter_ = nullptr;
    QCheckBox* nat_ = nullptr;
    QPushButton* modifier_ = nullptr;
    QPushButton* valider_ = nullptr;
    QPushButton* annuler_ = nullptr;
    QPushButton* voir_ = nullptr;
    QPushButton* print_ = nullptr;
    QPushButton* export_ = nullptr;
};

}  // namespace

void register_result_window()
{
    register_view_window<FrmViewResult, ResultWindow>(QString(FrmViewResult::kName));
}

}  // namespace plouvarine::gui
