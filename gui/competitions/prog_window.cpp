#include "gui/competitions/prog_window.h"

#include "src/competitions/frm_prog.h"
#include "gui/frame/window_parts.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

class ProgWindow : public ViewWindow {
public:
    ProgWindow(FrmProg& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(640, 420);
        auto* layout = new QVBoxLayout(this);
        auto* body = new QHBoxLayout;
        nage_ = new BoundList(QStringLiteral("LsvNage"), view.LsvNage(), view.nage_selection(), this);
        body->addWidget(nage_, 1);

        definition_ = new QWidget;
        auto* side = new QVBoxLayout(definition_);
        side->setContentsMargins(0, 0, 0, 0);
        classement_ = group(side, QStringLiteral("Classement"), QStringLiteral("Optclass"),
                            {{1, "Temps"}, {2, "1/2 Finales"}, {3, "Séries - Finales"}, {4, "1/4 finales"},
                             {8, "1/8 finales"}});
        connect(classement_, &QButtonGroup::idClicked, this, [this](int id) { view_.set_optclass(id); });
        finales_ = group(side, QStringLiteral("Finales"), QStringLiteral("optNbFinales"),
                         {{1, "Finale A"}, {2, "Finale A && B"}, {3, "Finale A, B && C"}});
        connect(finales_, &QButtonGroup::idClicked, this, [this](int id) { view_.optNbFinales = id; });
        categories_ = group(side, QStringLiteral("Type de finale"), QStringLiteral("OptType"),
                            {{0, "Toutes catégories"}, {1, "Catégories"}});
        connect(categories_, &QButtonGroup::idClicked, this, [this](int id) { view_.OptType = id; });

        auto* day_row = new QHBoxLayout;
        day_row->addWidget(new QLabel(QStringLiteral("Journée")));
        days_ = new QComboBox;
        days_->setObjectName(QStringLiteral("CboDate"));
        connect(days_, &QComboBox::activated, this, [this](int index) { view_.set_cbo_index(index); });
        day_row->addWidget(days_, 1);
        side->addLayout(day_row);
        auto* order_row = new QHBoxLayout;
        order_row->addWidget(new QLabel(QStringLiteral("Numéro d'ordre")));
        ordre_ = digits(QStringLiteral("txtordre"), 4);
        connect(ordre_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.txtordre = t; });
        order_row->addWidget(ordre_, 1);
        side->addLayout(order_row);
        auto* days_row = new QHBoxLayout;
        lbl_journee_ = new QLabel(QStringLiteral("Nombre de journées"));
        lbl_journee_->setObjectName(QStringLiteral("lbl_journee"));
        days_row->addWidget(lbl_journee_);
        nb_journee_ = digits(QStringLiteral("txt_nb_journee"), 2);
        connect(nb_journee_, &QLineEdit::textEdited, this, [this](const QString& t) {
            view_.txt_nb_journee = t;
            view_.SetListeFromText();
        });
        days_row->addWidget(nb_journee_, 1);
        side->addLayout(days_row);
        modele_ = new QCheckBox(QStringLiteral("Enregistrer dans un nouveau modèle"));
        modele_->setObjectName(QStringLiteral("Chk_modele"));
        connect(modele_, &QCheckBox::toggled, this, [this](bool on) { view_.Chk_modele = on; });
        side->addWidget(modele_);
        side->addStretch(1);
        body->addWidget(definition_);

        prog_ = new QTreeView;
        prog_->setObjectName(QStringLiteral("Lsv_prog"));
        prog_->setRootIsDecorated(false);
        prog_->setEditTriggers(QAbstractItemView::NoEditTriggers);
        prog_->setModel(&view.Lsv_prog());
        body->addWidget(prog_, 1);
        layout->addLayout(body, 1);

        auto* row = new QHBoxLayout;
        det_def_ = add_button(row, QStringLiteral("Cmd_det_def"), FrmProg::kCaptionDetail,
                              [this] { view_.Cmd_det_def(); });
        cmd_modele_ = add_button(row, QStringLiteral("Cmd_modele"), QStringLiteral("&Modèle"),
                                 [this] { view_.Cmd_modele(); });
        cmd_compet_ = add_button(row, QStringLiteral("Cmd_compet"), QStringLiteral("&Compétition"),
                                 [this] { view_.Cmd_compet(); });
        cmd_charger_ = add_button(row, QStringLiteral("Cmd_charger"), QStringLiteral("C&harger"),
                                  [this] { view_.Cmd_charger(); });
        cmd_lenex_ = add_button(row, QStringLiteral("Cmd_lenex"), QStringLiteral("Charger un fichier &Lenex"),
                                [this] { view_.Cmd_lenex(); });
        row->addStretch(1);
        add_button(row, QStringLiteral("Command1_0"), QStringLiteral("Ok"), [this] { view_.cmd_ok(); });
        cmd1_ = add_button(row, QStringLiteral("Command1_1"), QStringLiteral("&Annuler"),
                           [this] { view_.cmd_annuler(); });
        layout->addLayout(row);
        refresh();
        nage_->setFocus();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        const bool definition = view_.definition_visible();
        definition_->setVisible(definition);
        prog_->setVisible(!definition);
        if (!definition)
            prog_->resizeColumnToContents(0);
        check_option(classement_, view_.Optclass);
        check_option(finales_, view_.optNbFinales);
        check_option(categories_, view_.OptType);
        enable(classement_, view_.optclass_enabled());
        enable(finales_, view_.finales_enabled());
        enable(categories_, view_.finales_enabled());
        set_text(ordre_, view_.txtordre);
        ordre_->setEnabled(view_.ordre_enabled());
        {
            const QSignalBlocker block(days_);
            QStringList shown;
            for (int i = 0; i < days_->count(); ++i)
                shown << days_->itemText(i);
            if (shown != view_.CboDate()) {
                days_->clear();
                days_->addItems(view_.CboDate());
            }
            days_->setCurrentIndex(view_.cbo_index());
            days_->setEnabled(view_.cbo_enabled());
        }
        set_text(nb_journee_, view_.txt_nb_journee);
        lbl_journee_->setVisible(view_.journee_visible());
        nb_journee_->setVisible(view_.journee_visible());
        modele_->setVisible(view_.Chk_modele_visible());
        {
            const QSignalBlocker block(modele_);
            modele_->setChecked(view_.Chk_modele);
        }
        det_def_->setVisible(view_.Cmd_det_def_visible());
        det_def_->setText(view_.Cmd_det_def_caption());
        cmd_modele_->setVisible(view_.Cmd_modele_visible());
        cmd_compet_->setVisible(view_.Cmd_compet_visible());
        cmd_charger_->setVisible(view_.Cmd_charger_visible());
        cmd_lenex_->setVisible(view_.Cmd_lenex_visible());
        cmd1_->setVisible(view_.Command1_1_visible());
    }

private:
    struct Option {
        int id;
        const char* caption;
    };

    QButtonGroup* group(QVBoxLayout* side, const QString& title, const QString& name,
                        std::initializer_list<Option> options)
    {
        auto* box = new QGroupBox(title);
        box->setObjectName(QStringLiteral("fra_") + name);
        auto* column = new QVBoxLayout(box);
        auto* buttons = new QButtonGroup(this);
        for (const Option& o : options) {
            auto* b = new QRadioButton(QString::fromUtf8(o.caption));
            b->setObjectName(QStringLiteral("%1_%2").arg(name).arg(o.id));
            buttons->addButton(b, o.id);
            column->addWidget(b);
        }
        side->addWidget(box);
        return buttons;
    }

    QLineEdit* digits(const QString& name, int length)
    {
        auto* edit = new QLineEdit;
        edit->setObjectName(name);
        edit->setMaxLength(length);
        digits_only(edit);
        return edit;
    }

    static void enable(QButtonGroup* group, bool on)
    {
        for (QAbstractButton* button : group->buttons())
            button->setEnabled(on);
    }

    FrmProg& view_;
    BoundList* nage_ = nullptr;
    QWidget* definition_ = nullptr;
    QButtonGroup* classement_ = nullptr;
    QButtonGroup* finales_ = nullptr;
    QButtonGroup* categories_ = nullptr;
    QComboBox* days_ = nullptr;
    QLineEdit* ordre_ = nullptr;
    QLabel* lbl_journee_ = nullptr;
    QLineEdit* nb_journee_ = nullptr;
    QCheckBox* modele_ = nullptr;
    QTreeView* prog_ = nullptr;
    QPushButton* det_def_ = nullptr;
    QPushButton* cmd_modele_ = nullptr;
    QPushButton* cmd_compet_ = nullptr;
    QPushButton* cmd_charger_ = nullptr;
    QPushButton* cmd_lenex_ = nullptr;
    QPushButton* cmd1_ = nullptr;
};

}  // namespace

void register_prog_window()
{
    register_view_window<FrmProg, ProgWindow>(QString(FrmProg::kName));
}

}  // namespace plouvarine::gui
