#include "gui/competitions/competition_windows.h"

#include "src/competitions/det_compet.h"
#include "src/competitions/liste_compet.h"
#include "gui/competitions/prog_window.h"
#include "src/frame/keywords.h"
#include "gui/frame/window_parts.h"
#include "gui/frame/date_field_binding.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

// Frm_liste_compet.
class CompetListWindow : public ViewWindow {
public:
    CompetListWindow(FrmListeCompet& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(560, 320);
        auto* layout = new QVBoxLayout(this);
        list_ = new BoundList(QStringLiteral("lsv_compet"), view.lsv_compet(), view.selection(), this,
                              view.mode() == keyword::kSuppr);
        list_->header()->setSectionsClickable(true);
        connect(list_->header(), &QHeaderView::sectionClicked, this,
                [this](int section) { view_.sort_by_column(section + 1); });
        list_->on_activated = [this] { view_.activate(); };
        list_->on_delete_key = [this] { view_.delete_key(); };
        layout->addWidget(list_);
        auto* row = new QHBoxLayout;
        cmd0_ = add_button(row, QStringLiteral("Command1_0"), QStringLiteral("&Ok"), [this] { view_.cmd0(); });
        cmd2_ = add_button(row, QStringLiteral("Command1_2"), view.action_caption(), [this] { view_.cmd2(); });
        cmd3_ = add_button(row, QStringLiteral("Command1_3"), QStringLiteral("&Nouvelle"), [this] { view_.cmd3(); });
        cmd1_ = add_button(row, QStringLiteral("Command1_1"), QStringLiteral("&Annuler"), [this] { view_.cmd1(); });
        layout->addLayout(row);
        refresh();
        list_->setFocus();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        cmd2_->setText(view_.action_caption());
        cmd2_->setVisible(view_.cmd2_visible());
        cmd2_->setEnabled(view_.cmd2_enabled());
        cmd1_->setEnabled(view_.cmd1_enabled());
        cmd3_->setVisible(view_.cmd3_visible());
        list_->show_sort(view_.sorted_column(), !view_.sorted_descending());
    }

private:
    FrmListeCompet& view_;
    BoundList* list_;
    QPushButton* cmd0_;
    QPushButton* cmd1_;
    QPushButton* cmd2_;
    QPushButton* cmd3_;
};

// det_compet.
class CompetDetailWindow : public ViewWindow {
public:
    CompetDetailWindow(DetCompet& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        auto* layout = new QVBoxLayout(this);
        auto* form = new QFormLayout;
        form->addRow(QStringLiteral("Nom de la compétition"), text_field(DetCompet::kNom));
        form->addRow(QStringLiteral("Numéro"), text_field(DetCompet::kNumero));
        connect(text1_[DetCompet::kNumero], &QLineEdit::textEdited, this, [this](const QString& t) {
            const QString filtered = DetCompet::FiltreNumero(t);
            view_.text1[DetCompet::kNumero] = filtered;
            if (filtered != t) {
                const int cursor = text1_[DetCompet::kNumero]->cursorPosition();
                set_text(text1_[DetCompet::kNumero], filtered);
                text1_[DetCompet::kNumero]->setCursorPosition(qMin(cursor, int(filtered.size())));
            }
        });
        form->addRow(QStringLiteral("Lieu"), text_field(DetCompet::kLieu));
        form->addRow(QStringLiteral("Date début"), date_fields(DetCompet::kDebut));
        form->addRow(QStringLiteral("Date fin"), date_fields(DetCompet::kFin));
        auto* type_row = new QHBoxLayout;
        type_ = options(QStringLiteral("Option1"), {QStringLiteral("Championnats"), QStringLiteral("Interclubs")},
                        type_row, nullptr);
        connect(type_, &QButtonGroup::idClicked, this, [this](int id) { view_.set_type(id); });
        form->addRow(QStringLiteral("Type"), type_row);
        auto* bassin_row = new QHBoxLayout;
        bassin_ = options(QStringLiteral("Op_bass"), {QStringLiteral("25 m"), QStringLiteral("50 m")}, bassin_row,
                          &view_.Op_bass);
        form->addRow(QStringLiteral("Bassin"), bassin_row);
        lanes_ = new QComboBox;
        lanes_->setObjectName(QStringLiteral("Cb_couloir"));
        lanes_->addItems(DetCompet::lane_choices());
        connect(lanes_, &QComboBox::currentTextChanged, this, [this](const QString& t) { view_.Cb_couloir = t; });
        form->addRow(QStringLiteral("Nombre de couloirs"), lanes_);
        auto* pool_row = new QHBoxLayout;
        pool_ = new QLabel;
        pool_->setObjectName(QStringLiteral("lbl_piscine"));
        pool_row->addWidget(pool_, 1);
        add_button(pool_row, QStringLiteral("cmdPiscine"), QStringLiteral("..."), [this] { view_.choose_pool(); });
        add_button(pool_row, QStringLiteral("cmdPiscineClear"), QStringLiteral("X"), [this] { view_.clear_pool(); });
        form->addRow(QStringLiteral("Piscine"), pool_row);
        layout->addLayout(form);

        static const char* const kGroups[] = {"Op_f", "Op_r", "Op_rg", "Op_d"};
        static const char* const kTitles[] = {"Fédérale", "Inter régionale", "Régionale", "Départementale"};
        auto* codifs = new QHBoxLayout;
        for (int level = 0; level < DetCompet::kLevelCount; ++level) {
            auto* box = new QGroupBox(QString::fromUtf8(kTitles[level]));
            codif_[level] = options(QLatin1String(kGroups[level]),
                                    {QStringLiteral("Qualificative"), QStringLiteral("Référence"),
                                     QStringLiteral("Animation")},
                                    new QVBoxLayout(box), &view_.codif[size_t(level)]);
            codifs->addWidget(box);
        }
        layout->addLayout(codifs);
        auto* clear_row = new QHBoxLayout;
        add_button(clear_row, QStringLiteral("Cmd_clear_option"), QStringLiteral("Initialiser les codifications"),
                   [this] { view_.clear_options(); });
        clear_row->addStretch(1);
        layout->addLayout(clear_row);

        auto* row = new QHBoxLayout;
        add_button(row, QStringLiteral("Command1_0"), QStringLiteral("&Enregistrer"), [this] {
            if (!view_.save() && !view_.is_closed())
                focus_failed_field();
        });
        add_button(row, QStringLiteral("Command1_1"), QStringLiteral("&Annuler"), [this] { view_.cancel(); });
        layout->addLayout(row);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        for (int i = 0; i < DetCompet::kText1Count; ++i)
            set_text(text1_[i], view_.text1[size_t(i)]);
        for (int i = 0; i < DetCompet::kDateFieldCount; ++i)
            if (dates_[i]) {
                const bool guard = bindings_[i / 10]->guard();
                bindings_[i / 10]->set_guard(false);
                set_text(dates_[i], view_.txt_date[size_t(i)]);
                bindings_[i / 10]->set_guard(guard);
            }
        check_option(type_, view_.Option1);
        check_option(bassin_, view_.Op_bass);
        for (int level = 0; level < DetCompet::kLevelCount; ++level) {
            check_option(codif_[level], view_.codif[size_t(level)]);
            for (QAbstractButton* b : codif_[level]->buttons())
                b->setEnabled(view_.options_enabled());
        }
        for (QAbstractButton* b : bassin_->buttons())
            b->setEnabled(view_.options_enabled());
        {
            const QSignalBlocker block(lanes_);
            lanes_->setCurrentText(view_.Cb_couloir);
        }
        pool_->setText(view_.lbl_piscine);
    }

private:
    void focus_failed_field()
    {
        if (QWidget* w = findChild<QWidget*>(view_.focus_field()))
            w->setFocus();
    }

    QLineEdit* text_field(int index)
    {
        auto* edit = new QLineEdit;
        edit->setObjectName(QStringLiteral("text1_%1").arg(index));
        if (index != DetCompet::kNumero)
            connect(edit, &QLineEdit::textEdited, this,
                    [this, index](const QString& t) { view_.text1[size_t(index)] = t; });
        text1_[index] = edit;
        return edit;
    }

    QHBoxLayout* date_fields(int base)
    {
        auto* row = new QHBoxLayout;
        const DateTriple triple = make_date_triple(QStringLiteral("txt_date_"), base, [this](int index, const QString& t) {
            view_.txt_date[size_t(index)] = t;
        });
        for (int k = 0; k < 3; ++k) {
            dates_[base + k] = triple.fields[size_t(k)];
            row->addWidget(triple.fields[size_t(k)]);
        }
        bindings_[base / 10] = triple.binding;
        auto* pick = new QPushButton(QStringLiteral("..."));
        pick->setObjectName(QStringLiteral("Cmd_Date_%1").arg(base));
        pick->setAutoDefault(false);
        connect(pick, &QPushButton::clicked, this, [this, base] { view_.choose_date(base); });
        row->addWidget(pick);
        row->addStretch(1);
        return row;
    }

    // The options go into `row`, which a widget or a parent layout owns.
    QButtonGroup* options(const QString& name, const QStringList& captions, QBoxLayout* row, int* field)
    {
        auto* group = new QButtonGroup(this);
        for (int i = 0; i < captions.size(); ++i) {
            auto* option = new QRadioButton(captions[i]);
            option->setObjectName(QStringLiteral("%1_%2").arg(name).arg(i));
            group->addButton(option, i);
            row->addWidget(option);
        }
        if (field)
            connect(group, &QButtonGroup::idClicked, this, [field](int id) { *field = id; });
        return group;
    }

    DetCompet& view_;
    QLineEdit* text1_[DetCompet::kText1Count] = {};
    QLineEdit* dates_[DetCompet::kDateFieldCount] = {};
    DateFieldBinding* bindings_[2] = {};
    QButtonGroup* type_ = nullptr;
    QButtonGroup* bassin_ = nullptr;
    QButtonGroup* codif_[DetCompet::kLevelCount] = {};
    QComboBox* lanes_ = nullptr;
    QLabel* pool_ = nullptr;
};

}  // namespace

void register_competition_windows()
{
    register_view_window<FrmListeCompet, CompetListWindow>(QString(FrmListeCompet::kName));
    register_view_window<DetCompet, CompetDetailWindow>(QString(DetCompet::kName));
    register_prog_window();
}

}  // namespace plouvarine::gui
