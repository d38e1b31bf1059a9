#include "gui/records/record_windows.h"

#include "gui/frame/date_field_binding.h"
#include "gui/frame/time_field_binding.h"
#include "gui/frame/window_parts.h"
#include "src/frame/app_context.h"
#include "src/records/frm_view_record.h"
#include "src/records/record_categories.h"
#include "src/records/record_finder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

QTreeView* report_list(const QString& name, QStandardItemModel& model, QWidget* parent)
{
    auto* list = new QTreeView(parent);
    list->setObjectName(name);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setModel(&model);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    return list;
}

QLineEdit* field(const QString& name, int length = 0)
{
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    if (length > 0)
        edit->setMaxLength(length);
    return edit;
}

QButtonGroup* options(const QString& prefix, const QStringList& captions, QBoxLayout* row, QObject* owner)
{
    auto* group = new QButtonGroup(owner);
    for (int i = 0; i < captions.size(); ++i) {
        auto* option = new QRadioButton(captions[i]);
        option->setObjectName(prefix + QString::number(i));
        group->addButton(option, i);
        row->addWidget(option);
    }
    return group;
}

// ---- det_categorie_record_club ----

class CategoriesWindow : public ViewWindow {
public:
    CategoriesWindow(DetCategorieRecordClub& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(520, 420);
        auto* layout = new QVBoxLayout(this);
        list_ = report_list(QStringLiteral("lsv_cat"), view_.lsv_cat(), this);
        connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                [this](const QModelIndex& current) { view_.select_line(current.isValid() ? current.row() : -1); });
        layout->addWidget(list_, 1);

        auto* form = new QFormLayout;
        libelle_ = field(QStringLiteral("txt_libelle"), 50);
        connect(libelle_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.txt_libelle = t; });
        form->addRow(QStringLiteral("Libellé :"), libelle_);
        const char* captions[] = {"Age mini :", "Age maxi :"};
        for (int i = 0; i < 2; ++i) {
            age_[i] = field(QStringLiteral("txt_age_%1").arg(i), 3);
            digits_only(age_[i]);
            connect(age_[i], &QLineEdit::textEdited, this, [this, i](const QString& t) { view_.txt_age[size_t(i)] = t; });
            form->addRow(QString::fromUtf8(captions[i]), age_[i]);
        }
        auto* sexes = new QHBoxLayout;
        sexe_ = options(QStringLiteral("Opt_sexe_"), DetCategorieRecordClub::sexes(), sexes, this);
        connect(sexe_, &QButtonGroup::idClicked, this, [this](int id) { view_.opt_sexe = id; });
        form->addRow(QStringLiteral("Sexe :"), sexes);
        layout->addLayout(form);

        auto* defs = new QHBoxLayout;
        for (int i = 0; i < 3; ++i)
            add_button(defs, QStringLiteral("Cmd_def_%1").arg(i), DetCategorieRecordClub::cmd_def_caption(i),
                       [this, i] { view_.cmd_def(i); });
        defs->addStretch(1);
        add_button(defs, QStringLiteral("cmd_0"), QStringLiteral("&Ok"), [this] { view_.ok(); });
        add_button(defs, QStringLiteral("cmd_1"), QStringLiteral("&Annuler"), [this] { view_.annuler(); });
        layout->addLayout(defs);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        set_text(libelle_, view_.txt_libelle);
        for (int i = 0; i < 2; ++i)
            set_text(age_[i], view_.txt_age[size_t(i)]);
        check_option(sexe_, view_.opt_sexe);
        const QSignalBlocker block(list_->selectionModel());
        if (view_.selected() >= 0)
            list_->setCurrentIndex(view_.lsv_cat().index(view_.selected(), 0));
        else
            list_->selectionModel()->clear();
    }

private:
    DetCategorieRecordClub& view_;
    QTreeView* list_ = nullptr;
    QLineEdit* libelle_ = nullptr;
    QLineEdit* age_[2] = {};
    QButtonGroup* sexe_ = nullptr;
};

// ---- frm_view_record ----

class RecordWindow : public ViewWindow {
public:
    RecordWindow(FrmViewRecord& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(940, 600);
        auto* layout = new QVBoxLayout(this);
        // The events, beside both tabs; made first, so that Tab reaches them first.
        auto* body = new QHBoxLayout;
        nages_ = report_list(QStringLiteral("LsvNage"), view_.lsv_nage(), this);
        tabs_ = new QTabWidget(this);
        tabs_->setObjectName(QStringLiteral("tabs"));
        nages_->setMaximumWidth(260);
        connect(nages_, &QTreeView::clicked, this, [this](const QModelIndex& index) {
            if (tabs_->currentIndex() == 1)
                view_.ouvre_saisie(index.row());
        });

        tabs_->addTab(consultation(), QStringLiteral("Consultation"));
        tabs_->addTab(saisie(), QStringLiteral("Saisie"));
        connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) {
            if (index == 1) {
                const QModelIndex current = nages_->currentIndex();
                view_.ouvre_saisie(current.isValid() && nages_->selectionModel()->isSelected(current) ? current.row() : -1);
            }
        });
        body->addWidget(nages_);
        body->addWidget(tabs_, 1);
        layout->addLayout(body, 1);

        auto* bottom = new QHBoxLayout;
        categories_ = add_button(bottom, QStringLiteral("cmd_categories"), QStringLiteral("Catégories..."),
                                 [this] { view_.categories(); });
        chercher_ = add_button(bottom, QStringLiteral("cmd_chercher"), QStringLiteral("Chercher dans les performances"),
                               [this] { view_.chercher(); });
        bottom->addStretch(1);
        add_button(bottom, QStringLiteral("cmd_quitter"), QStringLiteral("&Quitter"), [this] { view_.quitter(); });
        layout->addLayout(bottom);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        check_option(view_bassin_, view_.opt_view_bassin);
        histo_->setChecked(view_.chk_histo);
        relayeur_->setChecked(view_.chk_relayeur);
        {
            const QSignalBlocker block(search_);
            search_->clear();
            search_->addItems(view_.cbo_search());
            search_->setCurrentIndex(-1);
        }
        const bool editing = view_.editing();
        tabs_->setTabEnabled(0, !editing);
        nages_->setEnabled(!editing);
        categories_->setEnabled(!editing);
        chercher_->setEnabled(!editing);

        event_->setText(view_.event_title());
        {
            const QSignalBlocker block(cat_);
            cat_->clear();
            cat_->addItems(view_.cbo_cat());
            cat_->setCurrentIndex(view_.cbo_cat_index());
        }
        cat_->setEnabled(!editing);
        check_option(bassin_, view_.opt_bassin());
        bassin_->button(1)->setEnabled(view_.possible_50() && !editing);
        bassin_->button(0)->setEnabled(!editing);
        date_.binding->set_guard(false);
        set_text(nom_, view_.txt_nom);
        set_text(prenom_, view_.txt_prenom);
        set_text(tps_, view_.txt_tps);
        for (int i = 0; i < 3; ++i)
            set_text(date_.fields[size_t(i)], view_.txt_date[size_t(i)]);
        set_text(lieu_, view_.txt_lieu);
        set_text(relayeur_nom_, view_.txt_relayeur);
        date_.binding->set_guard(true);
        for (QLineEdit* edit : {nom_, prenom_, tps_, lieu_, date_.fields[0], date_.fields[1], date_.fields[2]})
            edit->setReadOnly(!editing);
        date_button_->setEnabled(editing);
        relais_box_->setEnabled(editing && view_.relais_enabled());
        relais_->clear();
        relais_->addItems(view_.lsv_relais);
        relais_->setCurrentRow(view_.relais_selected);
        for (int i = 0; i < 4; ++i)
            defs_[i]->setEnabled(view_.cmd_def_enabled(i));
    }

private:
    QWidget* consultation()
    {
        auto* page = new QWidget;
        auto* layout = new QVBoxLayout(page);
        auto* choices = new QHBoxLayout;
        view_bassin_ = options(QStringLiteral("Opt_view_bassin_"),
                               {QStringLiteral("25 m"), QStringLiteral("50 m"), QStringLiteral("Tous bassins")}, choices, this);
        connect(view_bassin_, &QButtonGroup::idClicked, this, [this](int id) { view_.opt_view_bassin = id; });
        histo_ = new QCheckBox(QStringLiteral("Historique complet"));
        histo_->setObjectName(QStringLiteral("Chk_histo"));
        connect(histo_, &QCheckBox::clicked, this, [this](bool on) { view_.chk_histo = on; });
        relayeur_ = new QCheckBox(QStringLiteral("Afficher les relayeurs"));
        relayeur_->setObjectName(QStringLiteral("Chk_relayeur"));
        connect(relayeur_, &QCheckBox::clicked, this, [this](bool on) { view_.chk_relayeur = on; });
        choices->addWidget(histo_);
        choices->addWidget(relayeur_);
        choices->addStretch(1);
        search_ = new QComboBox;
        search_->setObjectName(QStringLiteral("Cbo_search"));
        search_->setMinimumWidth(200);
        connect(search_, &QComboBox::activated, this, [this](int index) {
            const int row = view_.search_row(index);
            if (row >= 0)
                records_->scrollTo(view_.lsv_records().index(row, 0), QAbstractItemView::PositionAtTop);
        });
        choices->addWidget(search_);
        layout->addLayout(choices);
        records_ = report_list(QStringLiteral("lsvRecords"), view_.lsv_records(), page);
        layout->addWidget(records_, 1);
        auto* buttons = new QHBoxLayout;
        const char* captions[] = {"&Afficher", "Imprimer", "Exporter", "Effacer"};
        for (int i = 0; i < 4; ++i)
            add_button(buttons, QStringLiteral("Cmd_view_%1").arg(i), QString::fromUtf8(captions[i]),
                       [this, i] { view_.cmd_view(i); });
        buttons->addStretch(1);
        layout->addLayout(buttons);
        return page;
    }

    QWidget* saisie()
    {
        auto* page = new QWidget;
        auto* layout = new QVBoxLayout(page);
        event_ = new QLabel;
        event_->setObjectName(QStringLiteral("lbl_epreuve"));
        QFont bold = event_->font();
        bold.setBold(true);
        event_->setFont(bold);
        layout->addWidget(event_);

        auto* form = new QFormLayout;
        cat_ = new QComboBox;
        cat_->setObjectName(QStringLiteral("Cbo_cat"));
        connect(cat_, &QComboBox::activated, this, [this](int index) { view_.set_cbo_cat(index); });
        form->addRow(QStringLiteral("Catégorie :"), cat_);
        auto* pools = new QHBoxLayout;
        bassin_ = options(QStringLiteral("Opt_bassin_"), {FrmViewRecord::bassin_caption(0), FrmViewRecord::bassin_caption(1)},
                          pools, this);
        connect(bassin_, &QButtonGroup::idClicked, this, [this](int id) { view_.set_opt_bassin(id); });
        pools->addStretch(1);
        form->addRow(QStringLiteral("Bassin :"), pools);
        nom_ = text_field(QStringLiteral("txt_info_0"), &FrmViewRecord::txt_nom);
        form->addRow(QStringLiteral("Nom :"), nom_);
        prenom_ = text_field(QStringLiteral("txt_info_1"), &FrmViewRecord::txt_prenom);
        form->addRow(QStringLiteral("Prénom :"), prenom_);
        tps_ = text_field(QStringLiteral("txt_info_2"), &FrmViewRecord::txt_tps);
        tps_->setMaximumWidth(120);
        bind_time_field(view_.app().ui, tps_);
        form->addRow(QStringLiteral("Tps réalisé :"), tps_);
        auto* dates = new QHBoxLayout;
        date_ = make_date_triple(QStringLiteral("txt_date_"), 0,
                                 [this](int index, const QString& t) { view_.txt_date[size_t(index)] = t; });
        for (QLineEdit* edit : date_.fields)
            dates->addWidget(edit);
        date_button_ = new QPushButton(QStringLiteral("Sélection d'une date"));
        date_button_->setObjectName(QStringLiteral("Cmd_Date"));
        date_button_->setAutoDefault(false);
        connect(date_button_, &QPushButton::clicked, this, [this] { view_.cmd_date(); });
        dates->addWidget(date_button_);
        dates->addStretch(1);
        form->addRow(QStringLiteral("Date de la performance :"), dates);
        lieu_ = text_field(QStringLiteral("txt_info_3"), &FrmViewRecord::txt_lieu);
        form->addRow(QStringLiteral("Lieu de la performance :"), lieu_);
        layout->addLayout(form);

        relais_box_ = new QGroupBox(QStringLiteral("Relayeurs"));
        relais_box_->setObjectName(QStringLiteral("Frame_relais"));
        auto* relay = new QHBoxLayout(relais_box_);
        auto* left = new QVBoxLayout;
        auto* name_row = new QHBoxLayout;
        name_row->addWidget(new QLabel(QStringLiteral("Nom relayeur :")));
        relayeur_nom_ = text_field(QStringLiteral("txt_relayeur"), &FrmViewRecord::txt_relayeur);
        name_row->addWidget(relayeur_nom_);
        left->addLayout(name_row);
        auto* relay_buttons = new QHBoxLayout;
        add_button(relay_buttons, QStringLiteral("Cmd_add_0"), QStringLiteral("Ajouter à la composition"),
                   [this] { view_.add_relayeur(); });
        add_button(relay_buttons, QStringLiteral("Cmd_add_1"), QStringLiteral("Supprimer de la composition"),
                   [this] { view_.remove_relayeur(); });
        left->addLayout(relay_buttons);
        left->addStretch(1);
        relay->addLayout(left, 1);
        auto* right = new QVBoxLayout;
        relais_ = new QListWidget;
        relais_->setObjectName(QStringLiteral("lsv_relais"));
        relais_->setMaximumHeight(120);
        connect(relais_, &QListWidget::currentRowChanged, this, [this](int row) { view_.relais_selected = row; });
        right->addWidget(relais_);
        auto* moves = new QHBoxLayout;
        add_button(moves, QStringLiteral("cmd_plus"), QStringLiteral("Monter"), [this] { view_.move_relayeur(-1); });
        add_button(moves, QStringLiteral("cmd_moins"), QStringLiteral("Descendre"), [this] { view_.move_relayeur(1); });
        moves->addStretch(1);
        right->addLayout(moves);
        relay->addLayout(right, 1);
        layout->addWidget(relais_box_);
        layout->addStretch(1);

        auto* defs = new QHBoxLayout;
        defs->addStretch(1);
        const char* captions[] = {"&Annuler", "&Insérer", "&Remplacer", "&Modifier"};
        for (int i = 0; i < 4; ++i)
            defs_[i] = add_button(defs, QStringLiteral("Cmd_def_%1").arg(i), QString::fromUtf8(captions[i]),
                                  [this, i] { view_.cmd_def(i); });
        layout->addLayout(defs);
        return page;
    }

    QLineEdit* text_field(const QString& name, QString FrmViewRecord::*member)
    {
        QLineEdit* edit = field(name, 50);
        connect(edit, &QLineEdit::textEdited, this, [this, member](const QString& t) { view_.*member = t; });
        return edit;
    }

    FrmViewRecord& view_;
    QTabWidget* tabs_ = nullptr;
    QTreeView* nages_ = nullptr;
    QTreeView* records_ = nullptr;
    QButtonGroup* view_bassin_ = nullptr;
    QCheckBox* histo_ = nullptr;
    QCheckBox* relayeur_ = nullptr;
    QComboBox* search_ = nullptr;
    QPushButton* categories_ = nullptr;
    QPushButton* chercher_ = nullptr;
    QLabel* event_ = nullptr;
    QComboBox* cat_ = nullptr;
    QButtonGroup* bassin_ = nullptr;
    QLineEdit* nom_ = nullptr;
    QLineEdit* prenom_ = nullptr;
    QLineEdit* tps_ = nullptr;
    DateTriple date_;
    QPushButton* date_button_ = nullptr;
    QLineEdit* lieu_ = nullptr;
    QGroupBox* relais_box_ = nullptr;
    QLineEdit* relayeur_nom_ = nullptr;
    QListWidget* relais_ = nullptr;
    QPushButton* defs_[4] = {};
};

// ---- frm_cherche_record ----

class FinderWindow : public ViewWindow {
public:
    FinderWindow(FrmChercheRecord& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(860, 380);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(new QLabel(QStringLiteral("Performances du club qui battent ou égalent un record :")));
        list_ = report_list(QStringLiteral("lsv_propositions"), view_.lsv_propositions(), this);
        connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                [this](const QModelIndex& current) { view_.selected = current.isValid() ? current.row() : -1; });
        layout->addWidget(list_, 1);
        auto* buttons = new QHBoxLayout;
        add_button(buttons, QStringLiteral("cmd_0"), QStringLiteral("&Accepter"), [this] { view_.accepter(); });
        add_button(buttons, QStringLiteral("cmd_1"), QStringLiteral("&Ignorer"), [this] { view_.ignorer(); });
        buttons->addStretch(1);
        add_button(buttons, QStringLiteral("cmd_2"), QStringLiteral("&Fermer"), [this] { view_.fermer(); });
        layout->addLayout(buttons);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        const QSignalBlocker block(list_->selectionModel());
        if (view_.selected >= 0)
            list_->setCurrentIndex(view_.lsv_propositions().index(view_.selected, 0));
    }

private:
    FrmChercheRecord& view_;
    QTreeView* list_ = nullptr;
};

}  // namespace

void register_record_windows()
{
    register_view_window<DetCategorieRecordClub, CategoriesWindow>(QString(DetCategorieRecordClub::kName));
    register_view_window<FrmViewRecord, RecordWindow>(QString(FrmViewRecord::kName));
    register_view_window<FrmChercheRecord, FinderWindow>(QString(FrmChercheRecord::kName));
}

}  // namespace plouvarine::gui
