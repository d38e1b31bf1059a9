#include "gui/results/perf_windows.h"

#include "gui/frame/date_field_binding.h"
#include "gui/frame/time_field_binding.h"
#include "gui/frame/window_parts.h"
#include "src/frame/app_context.h"
#include "src/results/ajout_perf.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

// Leaving the time field rounds its text.
class LeaveFilter : public QObject {
public:
    LeaveFilter(QLineEdit* edit, std::function<void()> left) : QObject(edit), left_(std::move(left))
    {
        edit->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FocusOut)
            left_();
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> left_;
};

// The entry part both forms share: time, place, date, pool, codifications,
// and the save and cancel commands; the individual form adds its boxes.
class EntryPart : public QWidget {
public:
    EntryPart(AjoutPerfForm& form, bool individual) : form_(form)
    {
        auto* layout = new QVBoxLayout(this);
        auto* grid = new QGridLayout;
        grid->addWidget(new QLabel(QStringLiteral("Temps :")), 0, 0);
        fields_[kFieldTemps] = new QLineEdit;
        bind_time_field(form_.app().ui, fields_[kFieldTemps]);
        new LeaveFilter(fields_[kFieldTemps], [this] {
            form_.entry.leave_time();
            set_text(fields_[kFieldTemps], form_.entry.txt_info[kFieldTemps]);
        });
        grid->addWidget(fields_[kFieldTemps], 0, 1);
        grid->addWidget(new QLabel(QStringLiteral("Lieu :")), 1, 0);
        fields_[kFieldLieu] = new QLineEdit;
        grid->addWidget(fields_[kFieldLieu], 1, 1, 1, 2);
        fields_[kFieldTemps]->setMaximumWidth(120);
        fields_[kFieldLieu]->setMaximumWidth(420);
        grid->setColumnStretch(3, 1);
        for (int i : {kFieldTemps, kFieldLieu}) {
            fields_[i]->setObjectName(QStringLiteral("txt_info_%1").arg(i));
            connect(fields_[i], &QLineEdit::textEdited, this, [this, i](const QString& t) { form_.entry.txt_info[size_t(i)] = t; });
        }
        grid->addWidget(new QLabel(QStringLiteral("Date :")), 2, 0);
        auto* date = new QHBoxLayout;
        date_ = make_date_triple(QStringLiteral("txt_info_"), kFieldJour,
                                 [this](int i, const QString& t) { form_.entry.txt_info[size_t(i)] = t; });
        for (size_t k = 0; k < 3; ++k) {
            fields_[size_t(kFieldJour) + k] = date_.fields[k];
            date->addWidget(date_.fields[k]);
            if (k < 2)
                date->addWidget(new QLabel(QStringLiteral("/")));
        }
        auto* pick = new QPushButton(QStringLiteral("..."));
        pick->setObjectName(QStringLiteral("Cmd_Date"));
        pick->setToolTip(QStringLiteral("Sélection d'une date"));
        pick->setAutoDefault(false);
        connect(pick, &QPushButton::clicked, this, [this] { form_.cmd_date(); });
        date->addWidget(pick);
        date->addStretch(1);
        grid->addLayout(date, 2, 1, 1, 2);

        auto* pool = new QGroupBox(QStringLiteral("Bassin"));
        auto* pool_row = new QHBoxLayout(pool);
        bassin_ = new QButtonGroup(this);
        for (int i = 0; i < 2; ++i) {
            auto* option = new QRadioButton(caption_bassin(i));
            option->setObjectName(QStringLiteral("Opt_bassin_%1").arg(i));
            bassin_->addButton(option, i);
            pool_row->addWidget(option);
        }
        connect(bassin_, &QButtonGroup::idClicked, this, [this](int id) { form_.entry.opt_bassin = id; });
        grid->addWidget(pool, 3, 0, 1, 3);
        layout->addLayout(grid);

        auto* codifs = new QGroupBox(QStringLiteral("Codifications"));
        auto* codif_grid = new QGridLayout(codifs);
        const char* names[] = {"Op_f", "Op_r", "Op_rg", "Op_d"};
        const char* labels[] = {"Fédérale :", "Inter régionale :", "Régionale :", "Départementale :"};
        const char* options[] = {"Qualificative", "Référence", "Animation"};
        for (int g = 0; g < 4; ++g) {
            codif_grid->addWidget(new QLabel(QString::fromUtf8(labels[g])), g, 0);
            codif_[g] = new QButtonGroup(this);
            for (int o = 0; o < 3; ++o) {
                auto* option = new QRadioButton(QString::fromUtf8(options[o]));
                option->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(names[g])).arg(o));
                codif_[g]->addButton(option, o);
                codif_grid->addWidget(option, g, o + 1);
            }
            connect(codif_[g], &QButtonGroup::idClicked, this, [this, g](int id) { form_.entry.codif[size_t(g)] = id; });
        }
        auto* clear = new QPushButton(QStringLiteral("Initialiser les codifications"));
        clear->setObjectName(QStringLiteral("cmd_CodifClear"));
        clear->setAutoDefault(false);
        connect(clear, &QPushButton::clicked, this, [this] { form_.cmd_codif_clear(); });
        codif_grid->addWidget(clear, 4, 0, 1, 4);
        layout->addWidget(codifs);

        if (individual) {
            const auto box = [&](const QString& name, const QString& caption, bool PerfEntry::*flag) {
                auto* check = new QCheckBox(caption);
                check->setObjectName(name);
                connect(check, &QCheckBox::toggled, this, [this, flag](bool on) { form_.entry.*flag = on; });
                layout->addWidget(check);
                checks_.push_back({check, flag});
            };
            box(QStringLiteral("chk_relais"), QStringLiteral("Réalisée au départ d'un relais"), &PerfEntry::chk_relais);
            box(QStringLiteral("chk_Inter"), QStringLiteral("Temps intermédiaire"), &PerfEntry::chk_inter);
            box(QStringLiteral("chk_Sel"), QStringLiteral("Réalisée au sein de la sélection"), &PerfEntry::chk_sel);
        }
        layout->addStretch(1);
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        add_button(buttons, QStringLiteral("Cmd_def_0"), QStringLiteral("&Enregistrer"), [this] {
            form_.entry.focus = -1;
            form_.cmd_enregistrer();
            focus();
        });
        add_button(buttons, QStringLiteral("Cmd_def_1"), QStringLiteral("&Annuler"), [this] { form_.cmd_annuler(); });
        layout->addLayout(buttons);
    }

    void refresh()
    {
        const PerfEntry& e = form_.entry;
        date_.binding->set_guard(false);
        for (size_t i = 0; i < fields_.size(); ++i)
            if (fields_[i])
                set_text(fields_[i], e.txt_info[i]);
        date_.binding->set_guard(true);
        check_option(bassin_, e.opt_bassin);
        bassin_->button(1)->setEnabled(e.bassin50_enabled);
        for (size_t g = 0; g < 4; ++g)
            check_option(codif_[g], e.codif[g]);
        for (const auto& [check, flag] : checks_) {
            const QSignalBlocker block(check);
            check->setChecked(e.*flag);
        }
        setEnabled(form_.event_row() >= 0);
    }

    // The field the last check named; the swimmers' list is the window's.
    std::function<void()> focus_licences;

private:
    void focus()
    {
        const int f = form_.entry.focus;
        if (f == kFocusLicences && focus_licences)
            focus_licences();
        else if (f >= 0 && size_t(f) < fields_.size() && fields_[size_t(f)])
            fields_[size_t(f)]->setFocus();
    }

    AjoutPerfForm& form_;
    std::array<QLineEdit*, 6> fields_{};
    DateTriple date_;
    QButtonGroup* bassin_ = nullptr;
    std::array<QButtonGroup*, 4> codif_{};
    std::vector<std::pair<QCheckBox*, bool PerfEntry::*>> checks_;
};

// The list of events of both forms. The event drawn as current is the event
// chosen, whether clicked or reached by the keyboard: what is saved is the
// event on screen.
template <class PerfView>
BoundList* event_list(PerfView& view, QWidget* parent)
{
    auto* list = new BoundList(QStringLiteral("LsvNage"), view.lsv_nage(), view.nage_selection(), parent);
    QObject::connect(&view.nage_selection(), &QItemSelectionModel::currentRowChanged, parent,
                     [&view](const QModelIndex& current) {
                         if (current.isValid())
                             view.choose_event(current.row());
                     });
    QObject::connect(list, &QTreeView::clicked, parent, [&view](const QModelIndex& i) { view.choose_event(i.row()); });
    list->on_activated = [&view, list] { view.choose_event(list->currentIndex().row()); };
    return list;
}

class AjoutPerfWindow : public ViewWindow {
public:
    AjoutPerfWindow(FrmAjoutPerf& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(720, 560);
        auto* layout = new QVBoxLayout(this);
        tabs_ = new QTabWidget;
        tabs_->setObjectName(QStringLiteral("tab"));
        licences_ = new BoundList(QStringLiteral("lsv_licence"), view_.lsv_licence(), view_.licence_selection(), this);
        licences_->setSortingEnabled(false);
        licences_->header()->setSectionsClickable(true);
        connect(licences_->header(), &QHeaderView::sectionClicked, this, [this](int c) { view_.charge_licences(c); });
        licences_->on_activated = [this] { choose_swimmer(); };
        connect(licences_, &QTreeView::clicked, this, [this] { choose_swimmer(); });
        tabs_->addTab(licences_, QStringLiteral("Nageurs"));

        auto* page = new QWidget;
        auto* row = new QHBoxLayout(page);
        auto* left = new QVBoxLayout;
        sexe_ = new QLabel;
        sexe_->setObjectName(QStringLiteral("lbl_sexe"));
        left->addWidget(sexe_);
        nages_ = event_list(view_, this);
        left->addWidget(nages_, 1);
        row->addLayout(left, 2);
        entry_ = new EntryPart(view_, true);
        row->addWidget(entry_, 3);
        tabs_->addTab(page, QStringLiteral("Performance"));
        connect(tabs_, &QTabWidget::currentChanged, this, [this](int t) { view_.set_tab(t); });
        layout->addWidget(tabs_, 1);

        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        add_button(buttons, QStringLiteral("cmd_quitter"), QStringLiteral("&Quitter"), [this] { view_.cmd_quitter(); });
        layout->addLayout(buttons);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        {
            const QSignalBlocker block(tabs_);
            tabs_->setCurrentIndex(view_.tab());
        }
        tabs_->setTabEnabled(1, !view_.sexe_caption().isEmpty());
        sexe_->setText(view_.sexe_caption());
        entry_->refresh();
    }

private:
    void choose_swimmer()
    {
        const QModelIndex current = licences_->currentIndex();
        if (current.isValid())
            view_.choose_swimmer(current.row());
    }

    FrmAjoutPerf& view_;
    QTabWidget* tabs_ = nullptr;
    BoundList* licences_ = nullptr;
    QLabel* sexe_ = nullptr;
    BoundList* nages_ = nullptr;
    EntryPart* entry_ = nullptr;
};

class AjoutPerfRelaisWindow : public ViewWindow {
public:
    AjoutPerfRelaisWindow(FrmAjoutPerfRelais& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(980, 720);
        auto* layout = new QVBoxLayout(this);
        auto* top = new QHBoxLayout;
        nages_ = event_list(view_, this);
        top->addWidget(nages_, 2);

        licences_ = new BoundList(QStringLiteral("lsv_licence"), view_.lsv_licence(), view_.licence_selection(), this);
        licences_->on_activated = [this] { view_.cmd_add(0); };
        top->addWidget(licences_, 3);
        auto* moves = new QVBoxLayout;
        moves->addStretch(1);
        add_ = add_button(moves, QStringLiteral("Cmd_add_0"), QStringLiteral(">"), [this] { view_.cmd_add(0); });
        remove_ = add_button(moves, QStringLiteral("Cmd_add_1"), QStringLiteral("<"), [this] { view_.cmd_add(1); });
        plus_ = add_button(moves, QStringLiteral("cmd_plus"), QStringLiteral("Monter"), [this] { view_.cmd_plus(); });
        moins_ = add_button(moves, QStringLiteral("cmd_moins"), QStringLiteral("Descendre"), [this] { view_.cmd_moins(); });
        moves->addStretch(1);
        top->addLayout(moves);
        compo_ = new BoundList(QStringLiteral("lsv_compo_relais"), view_.lsv_compo_relais(), view_.compo_selection(), this);
        compo_->on_activated = [this] { view_.cmd_add(1); };
        top->addWidget(compo_, 3);
        layout->addLayout(top, 1);

        entry_ = new EntryPart(view_, false);
        entry_->focus_licences = [this] { licences_->setFocus(); };
        layout->addWidget(entry_);
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        add_button(buttons, QStringLiteral("cmd_quitter"), QStringLiteral("&Quitter"), [this] { view_.cmd_quitter(); });
        layout->addLayout(buttons);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        add_->setEnabled(view_.can_add(0));
        remove_->setEnabled(view_.can_add(1));
        plus_->setEnabled(view_.lsv_compo_relais().rowCount() > 1);
        moins_->setEnabled(view_.lsv_compo_relais().rowCount() > 1);
        entry_->refresh();
    }

private:
    FrmAjoutPerfRelais& view_;
    BoundList* nages_ = nullptr;
    BoundList* licences_ = nullptr;
    BoundList* compo_ = nullptr;
    QPushButton* add_ = nullptr;
    QPushButton* remove_ = nullptr;
    QPushButton* plus_ = nullptr;
    QPushButton* moins_ = nullptr;
    EntryPart* entry_ = nullptr;
};

}  // namespace

void register_perf_ajout_windows()
{
    register_view_window<FrmAjoutPerf, AjoutPerfWindow>(QString(FrmAjoutPerf::kName));
    register_view_window<FrmAjoutPerfRelais, AjoutPerfRelaisWindow>(QString(FrmAjoutPerfRelais::kName));
}

}  // namespace plouvarine::gui
