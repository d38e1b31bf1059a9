#include "gui/frame/time_field_binding.h"
#include "gui/frame/window_parts.h"
#include "gui/tools/tool_windows.h"
#include "src/frame/app_context.h"
#include "src/tools/frm_calpts.h"
#include "src/tools/frm_caltps.h"
#include "src/tools/frm_monitor_def.h"
#include "src/tools/frm_pts_inter.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QTabWidget>
#include <QTextEdit>

namespace plouvarine::gui {

namespace {

QLineEdit* digits_field(const QString& name, QWidget* parent)
{
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    digits_only(edit);
    return edit;
}

class CalptsWindow : public ViewWindow {
public:
    CalptsWindow(FrmCalpts& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        resize(640, 460);
        auto* layout = new QHBoxLayout(this);
        auto* left = new QVBoxLayout;
        auto* pools = new QHBoxLayout;
        for (int metres : {25, 50}) {
            // Parented now, before the list: Tab follows the drawing.
            auto* option = new QRadioButton(QStringLiteral("%1 m").arg(metres), this);
            option->setObjectName(QStringLiteral("Opt_bassin_%1").arg(metres));
            option->setChecked(view_.bassin() == metres);
            connect(option, &QRadioButton::toggled, this, [this, metres](bool on) {
                if (on)
                    view_.set_bassin(metres);
            });
            pools->addWidget(option);
        }
        left->addLayout(pools);
        auto* events = new BoundList(QStringLiteral("LsvNage"), view_.lsv_nage(), view_.nage_selection(), this);
        events->setColumnHidden(1, true);
        connect(&view_.nage_selection(), &QItemSelectionModel::currentRowChanged, this,
                [this](const QModelIndex& current, const QModelIndex& previous) {
                    if (current.row() != previous.row())
                        view_.select_event(current.row());
                });
        left->addWidget(events, 1);
        layout->addLayout(left, 1);

        auto* right = new QVBoxLayout;
        auto* tabs = new QTabWidget;
        tabs->setObjectName(QStringLiteral("SSTab1"));
        for (int i = 0; i < 3; ++i) {
            time_[i] = new QLineEdit;
            time_[i]->setObjectName(QStringLiteral("Txt_Time_%1").arg(i));
            bind_time_field(view_.app().ui, time_[i]);
            connect(time_[i], &QLineEdit::textChanged, this, [this, i](const QString& t) { view_.txt_time[size_t(i)] = t; });
            pts_[i] = digits_field(QStringLiteral("Txt_pts_%1").arg(i), this);
            connect(pts_[i], &QLineEdit::textChanged, this, [this, i](const QString& t) { view_.txt_pts[size_t(i)] = t; });
        }
        auto* convert = new QWidget;
        auto* form = new QFormLayout(convert);
        auto* row1 = new QHBoxLayout;
        row1->addWidget(time_[0]);
        add_button(row1, QStringLiteral("Cmd_calpts"), QStringLiteral("Points"), [this] { view_.Cmd_calpts(); });
        pts_cal_ = new QLabel;
        pts_cal_->setObjectName(QStringLiteral("lblPtsCal"));
        pts_cal_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("Non Dispo")) + 8);
        row1->addWidget(pts_cal_);
        form->addRow(QStringLiteral("Temps :"), row1);
        auto* row2 = new QHBoxLayout;
        row2->addWidget(pts_[0]);
        add_button(row2, QStringLiteral("Cmd_caltps"), QStringLiteral("Temps"), [this] { view_.Cmd_caltps(); });
        tps_cal_ = new QLabel;
        tps_cal_->setObjectName(QStringLiteral("lblTpsCal"));
        tps_cal_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("Non Dispo")) + 8);
        row2->addWidget(tps_cal_);
        form->addRow(QStringLiteral("Points :"), row2);
        tabs->addTab(convert, QStringLiteral("Conversion"));

        auto* tables = new QWidget;
        auto* tform = new QFormLayout(tables);
        auto* r3 = new QHBoxLayout;
        r3->addWidget(pts_[1]);
        r3->addWidget(new QLabel(QStringLiteral("à")));
        r3->addWidget(pts_[2]);
        add_button(r3, QStringLiteral("Cmd_TablePts"), QStringLiteral("Table"), [this] { view_.Cmd_TablePts(); });
        tform->addRow(QStringLiteral("Points de"), r3);
        auto* r4 = new QHBoxLayout;
        r4->addWidget(time_[1]);
        r4->addWidget(new QLabel(QStringLiteral("à")));
        r4->addWidget(time_[2]);
        add_button(r4, QStringLiteral("Cmd_TableTps"), QStringLiteral("Table"), [this] { view_.Cmd_TableTps(); });
        tform->addRow(QStringLiteral("Temps de"), r4);
        tabs->addTab(tables, QStringLiteral("Tables"));
        right->addWidget(tabs);

        table_ = new QTreeView;
        table_->setObjectName(QStringLiteral("LsvTable"));
        table_->setRootIsDecorated(false);
        table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
        table_->setModel(&view_.lsv_table());
        right->addWidget(table_, 1);
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        add_button(buttons, QStringLiteral("cmd_quitter"), QStringLiteral("&Quitter"), [this] { view_.cmd_quitter(); });
        right->addLayout(buttons);
        layout->addLayout(right, 1);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        for (int i = 0; i < 3; ++i) {
            set_text(time_[i], view_.txt_time[size_t(i)]);
            set_text(pts_[i], view_.txt_pts[size_t(i)]);
        }
        pts_cal_->setText(view_.lbl_pts_cal());
        tps_cal_->setText(view_.lbl_tps_cal());
    }

private:
    FrmCalpts& view_;
    QLineEdit* time_[3] = {};
    QLineEdit* pts_[3] = {};
    QLabel* pts_cal_ = nullptr;
    QLabel* tps_cal_ = nullptr;
    QTreeView* table_ = nullptr;
};

class CalTpsWindow : public ViewWindow {
public:
    CalTpsWindow(FrmCalTps& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        resize(420, 360);
        auto* layout = new QVBoxLayout(this);
        auto* row = new QHBoxLayout;
        row->addWidget(new QLabel(QStringLiteral("Temps à ajouter :")));
        field_ = new QLineEdit;
        field_->setObjectName(QStringLiteral("txt_tpsAjout"));
        bind_time_field(view_.app().ui, field_);
        connect(field_, &QLineEdit::textChanged, this, [this](const QString& t) { view_.txt_tps_ajout = t; });
        connect(field_, &QLineEdit::returnPressed, this, [this] { view_.cmd_Ajout(); });
        row->addWidget(field_);
        row->addWidget(new QLabel(QStringLiteral("Format M.SSCC")));
        add_button(row, QStringLiteral("cmd_Ajout"), QStringLiteral("&Ajouter"), [this] { view_.cmd_Ajout(); });
        layout->addLayout(row);
        auto* histo = new BoundList(QStringLiteral("lsv_Histo"), view_.lsv_histo(), view_.histo_selection(), this);
        layout->addWidget(histo, 1);
        copy_option_ = new QCheckBox(QStringLiteral("Copier le résultat dans la fenêtre d'engagement"));
        copy_option_->setObjectName(QStringLiteral("chk_CopieCalcul"));
        connect(copy_option_, &QCheckBox::toggled, this, [this](bool on) { view_.chk_CopieCalcul = on; });
        layout->addWidget(copy_option_);
        auto* buttons = new QHBoxLayout;
        suppr_ = add_button(buttons, QStringLiteral("cmd_Suppr"), QStringLiteral("&Supprimer"), [this] { view_.cmd_Suppr(); });
        buttons->addStretch(1);
        copie_ = add_button(buttons, QStringLiteral("cmd_Copie"), QStringLiteral("&Copier"), [this] { view_.cmd_Copie(); });
        add_button(buttons, QStringLiteral("cmd_Quitter"), QStringLiteral("&Quitter"), [this] { view_.cmd_Quitter(); });
        layout->addLayout(buttons);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        set_text(field_, view_.txt_tps_ajout);
        suppr_->setEnabled(view_.suppr_enabled());
        copie_->setEnabled(view_.copie_enabled());
        copy_option_->setEnabled(view_.copie_enabled());
    }

private:
    FrmCalTps& view_;
    QLineEdit* field_ = nullptr;
    QCheckBox* copy_option_ = nullptr;
    QPushButton* suppr_ = nullptr;
    QPushButton* copie_ = nullptr;
};

class PtsInterWindow : public ViewWindow {
public:
    PtsInterWindow(FrmPtsInter& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        resize(720, 480);
        auto* layout = new QHBoxLayout(this);
        auto* left = new QVBoxLayout;
        auto* list = new BoundList(QStringLiteral("lsv_numauto"), view_.lsv_numauto(), view_.compet_selection(), this);
        list->setColumnHidden(2, true);
        left->addWidget(list, 1);
        auto* relais = new QCheckBox(QStringLiteral("Relais comptent double"));
        relais->setObjectName(QStringLiteral("chk_relais"));
        connect(relais, &QCheckBox::toggled, this, [this](bool on) { view_.chk_relais = on; });
        left->addWidget(relais);
        auto* buttons = new QHBoxLayout;
        add_button(buttons, QStringLiteral("cmd_0"), QStringLiteral("&Calculer"), [this] { view_.calcule_points_equipes(); });
        print_ = add_button(buttons, QStringLiteral("cmd_2"), QStringLiteral("&Imprimer"), [this] { view_.imprime_points(); });
        add_button(buttons, QStringLiteral("cmd_1"), QStringLiteral("&Quitter"), [this] { view_.quitter(); });
        left->addLayout(buttons);
        layout->addLayout(left, 2);
        auto* rich = new QTextEdit;
        rich->setObjectName(QStringLiteral("rich"));
        rich->setReadOnly(true);
        rich->setDocument(&view_.rich.document());
        layout->addWidget(rich, 3);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        print_->setEnabled(view_.print_enabled());
    }

private:
    FrmPtsInter& view_;
    QPushButton* print_ = nullptr;
};

class MonitorDefWindow : public ViewWindow {
public:
    MonitorDefWindow(FrmMonitorDef& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        auto* layout = new QVBoxLayout(this);
        auto* form = new QFormLayout;
        const char* labels[] = {"Position X :", "Position Y :", "Intervalle (ms) :"};
        for (int i = 0; i < 3; ++i) {
            fields_[i] = digits_field(QStringLiteral("txtParam_%1").arg(i), this);
            connect(fields_[i], &QLineEdit::textChanged, this, [this, i](const QString& t) { view_.txtParam[size_t(i)] = t; });
            form->addRow(QString::fromUtf8(labels[i]), fields_[i]);
        }
        layout->addLayout(form);
        always_ = new QCheckBox(QStringLiteral("Toujours visible"));
        always_->setObjectName(QStringLiteral("chkAlwaysVisible"));
        connect(always_, &QCheckBox::toggled, this, [this](bool on) { view_.chkAlwaysVisible = on; });
        layout->addWidget(always_);
        auto* buttons = new QHBoxLayout;
        add_button(buttons, QStringLiteral("Command1_0"), QStringLiteral("&Récupérer"), [this] { view_.recuperer(); });
        add_button(buttons, QStringLiteral("Command1_1"), QStringLiteral("&Appliquer"), [this] { view_.appliquer(); });
        add_button(buttons, QStringLiteral("Command1_2"), QStringLiteral("&Fermer"), [this] { view_.fermer(); });
        layout->addLayout(buttons);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        for (int i = 0; i < 3; ++i)
            set_text(fields_[i], view_.txtParam[size_t(i)]);
        const QSignalBlocker block(always_);
        always_->setChecked(view_.chkAlwaysVisible);
    }

private:
    FrmMonitorDef& view_;
    QLineEdit* fields_[3] = {};
    QCheckBox* always_ = nullptr;
};

}  // namespace

void register_tool_windows()
{
    register_view_window<FrmCalpts, CalptsWindow>(QString(FrmCalpts::kName));
    register_view_window<FrmCalTps, CalTpsWindow>(QString(FrmCalTps::kName));
    register_view_window<FrmPtsInter, PtsInterWindow>(QString(FrmPtsInter::kName));
    register_view_window<FrmMonitorDef, MonitorDefWindow>(QString(FrmMonitorDef::kName));
}

}  // namespace plouvarine::gui
