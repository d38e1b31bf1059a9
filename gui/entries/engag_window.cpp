#include "gui/entries/engag_window.h"

#include "gui/frame/date_field_binding.h"
#include "gui/frame/time_field_binding.h"
#include "gui/frame/window_parts.h"
#include "src/entries/frm_engag.h"
#include "src/frame/app_context.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <array>

namespace plouvarine::gui {

namespace {

// The widgets of one row of the panel.
struct RowWidgets {
    QCheckBox* check = nullptr;
    QLineEdit* temps = nullptr;
    QLineEdit* lieu = nullptr;
    DateTriple date;
    QButtonGroup* bassin = nullptr;  // ids 25 and 50
    QRadioButton* option_50 = nullptr;
};

// The search field: Return adds the swimmer found.
class SearchField : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    std::function<void()> on_return;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && on_return) {
            on_return();
            return;
        }
        QLineEdit::keyPressEvent(event);
    }
};

class EngagWindow : public ViewWindow {
public:
    EngagWindow(FrmEngag& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(1180, 600);
        auto* layout = new QVBoxLayout(this);
        auto* top = new QHBoxLayout;
        top->addWidget(new QLabel(QStringLiteral("Equipe")));
        team_ = new QComboBox;
        team_->setObjectName(QStringLiteral("cbo_team"));
        connect(team_, &QComboBox::activated, this, [this](int index) { view_.set_team(index); });
        top->addWidget(team_, 1);
        do_modele_ = new QCheckBox(QStringLiteral("Faire un modèle"));
        do_modele_->setObjectName(QStringLiteral("Chk_DoModele"));
        connect(do_modele_, &QCheckBox::toggled, this, [this](bool on) { view_.Chk_DoModele = on; });
        top->addWidget(do_modele_);
        top->addStretch(1);
        const char* kinds[] = {"Hommes", "Femmes", "Mixtes"};
        for (int k = 0; k < 3; ++k) {
            top->addWidget(new QLabel(QString::fromLatin1(kinds[k])));
            counts_[k] = new QLineEdit;
            counts_[k]->setObjectName(QStringLiteral("txt_nb_equipe_%1").arg(k));
            counts_[k]->setMaxLength(2);
            counts_[k]->setFixedWidth(counts_[k]->fontMetrics().horizontalAdvance(QStringLiteral("000")) + 12);
            digits_only(counts_[k]);
            connect(counts_[k], &QLineEdit::textEdited, this, [this, k](const QString& t) { view_.txt_nb_equipe[k] = t; });
            top->addWidget(counts_[k]);
        }
        auto* team_row = new QHBoxLayout;
        def_team_ = add_button(team_row, QStringLiteral("cmd_def_team"), QStringLiteral("&Equipes"),
                               [this] { view_.cmd_def_team(); });
        top->addLayout(team_row);
        layout->addLayout(top);

        auto* body = new QHBoxLayout;
        engag_ = new BoundList(QStringLiteral("lsv_engag"), view.lsv_engag(), view.engag_selection(), this);
        engag_->on_delete_key = [this] { view_.delete_key(); };
        body->addWidget(engag_, 2);
        body->addWidget(make_panel(), 4);

        auto* right = new QVBoxLayout;
        search_ = new SearchField;
        search_->setObjectName(QStringLiteral("txt_search"));
        connect(search_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.set_search_text(t); });
        search_->on_return = [this] { view_.search_return(); };
        right->addWidget(search_);
        licencie_ = new BoundList(QStringLiteral("lsv_licencie"), view.lsv_licencie(), view.licencie_selection(),
                                  this, true);
        licencie_->on_activated = [this] { view_.Cmd_add(); };
        right->addWidget(licencie_, 1);
        auto* add_row = new QHBoxLayout;
        add_ = add_button(add_row, QStringLiteral("Cmd_add"), QStringLiteral("<< &Ajouter"), [this] { view_.Cmd_add(); });
        right->addLayout(add_row);
        body->addLayout(right, 2);
        layout->addLayout(body, 1);

        auto* row = new QHBoxLayout;
        cmd_modele_ = add_button(row, QStringLiteral("Cmd_modele"), QStringLiteral("&Modèle"),
                                 [this] { view_.Cmd_modele(); });
        row->addStretch(1);
        ok_ = add_button(row, QStringLiteral("Command1_0"), QStringLiteral("Ok"), [this] { view_.cmd_ok(); });
        add_button(row, QStringLiteral("Command1_1"), QStringLiteral("&Annuler"), [this] { view_.cmd_annuler(); });
        layout->addLayout(row);
        refresh();
        engag_->setFocus();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        {
            const QSignalBlocker block(team_);
            QStringList shown;
            for (int i = 0; i < team_->count(); ++i)
                shown << team_->itemText(i);
            if (shown != view_.cbo_team()) {
                team_->clear();
                team_->addItems(view_.cbo_team());
            }
            team_->setCurrentIndex(view_.team_index());
        }
        do_modele_->setVisible(view_.chk_domodele_visible());
        cmd_modele_->setVisible(view_.cmd_modele_visible());
        set_text(search_, view_.search_text());
        search_->setEnabled(view_.search_enabled());
        add_->setEnabled(view_.add_enabled());
        def_team_->setEnabled(view_.def_team_enabled());
        for (int k = 0; k < 3; ++k) {
            set_text(counts_[k], view_.txt_nb_equipe[k]);
            counts_[k]->setEnabled(view_.def_team_enabled());
        }
        ok_->setEnabled(true);
        for (int i = 0; i < kPanelRows; ++i)
            refresh_row(i);
        for (int c = 0; c + 1 < view_.lsv_engag().columnCount(); ++c)
            engag_->resizeColumnToContents(c);
    }

private:
    QWidget* make_panel()
    {
        auto* scroll = new QScrollArea;
        scroll->setObjectName(QStringLiteral("fra_epreuves"));
        scroll->setWidgetResizable(true);
        auto* inner = new QWidget;
        auto* grid = new QGridLayout(inner);
        grid->setVerticalSpacing(2);
        const QStringList headings{QString(), QStringLiteral("Temps"), QStringLiteral("Lieu"),
                                   QStringLiteral("Date"), QStringLiteral("Bassin")};
        for (int c = 0; c < headings.size(); ++c)
            grid->addWidget(new QLabel(headings[c]), 0, c);
        const bool fields = view_.fields_visible();
        int line = 1;
        for (int i = 0; i < kPanelRows; ++i) {
            if (!view_.row_shown(i))
                continue;
            RowWidgets& w = rows_[size_t(i)];
            w.check = new QCheckBox(view_.events()[size_t(i)].label);
            w.check->setObjectName(QStringLiteral("Check1_%1").arg(i));
            connect(w.check, &QCheckBox::toggled, this, [this, i](bool on) { view_.set_checked(i, on); });
            grid->addWidget(w.check, line, 0);
            if (fields) {
                w.temps = new QLineEdit;
                w.temps->setObjectName(QStringLiteral("txt_temps_%1").arg(i));
                w.temps->setMaxLength(8);
                w.temps->setFixedWidth(w.temps->fontMetrics().horizontalAdvance(QStringLiteral("00.0000")) + 14);
                bind_time_field(view_.app().ui, w.temps);
                connect(w.temps, &QLineEdit::textChanged, this, [this, i](const QString& t) { view_.set_temps(i, t); });
                connect(w.temps, &QLineEdit::editingFinished, this, [this, i] { view_.leave_temps(i); });
                grid->addWidget(w.temps, line, 1);
                w.lieu = new QLineEdit;
                w.lieu->setObjectName(QStringLiteral("text1_%1").arg(i));
                w.lieu->setMinimumWidth(w.lieu->fontMetrics().horizontalAdvance(QStringLiteral("Saint-Brieuc")) + 14);
                connect(w.lieu, &QLineEdit::textEdited, this, [this, i](const QString& t) { view_.set_lieu(i, t); });
                grid->addWidget(w.lieu, line, 2);
                w.date = make_date_triple(QStringLiteral("txt_description_"), 0,
                                          [this, i](int part, const QString& t) { view_.set_date_part(i, part, t); });
                auto* date = new QHBoxLayout;
                date->setSpacing(2);
                for (int k = 0; k < 3; ++k) {
                    w.date.fields[size_t(k)]->setObjectName(QStringLiteral("txt_description_%1").arg(i + 50 * k));
                    date->addWidget(w.date.fields[size_t(k)]);
                }
                grid->addLayout(date, line, 3);
                w.bassin = new QButtonGroup(this);
                auto* pools = new QHBoxLayout;
                auto* option_25 = new QRadioButton(QStringLiteral("25 m"));
                option_25->setObjectName(QStringLiteral("Option1_%1").arg(i));
                w.bassin->addButton(option_25, 25);
                pools->addWidget(option_25);
                if (view_.has_option_50(i)) {
                    w.option_50 = new QRadioButton(QStringLiteral("50 m"));
                    w.option_50->setObjectName(QStringLiteral("Option1_%1").arg(i + 50));
                    w.bassin->addButton(w.option_50, 50);
                    pools->addWidget(w.option_50);
                }
                pools->addStretch(1);
                connect(w.bassin, &QButtonGroup::idClicked, this, [this, i](int id) { view_.set_bassin_50(i, id == 50); });
                grid->addLayout(pools, line, 4);
            }
            ++line;
        }
        grid->setRowStretch(line, 1);
        grid->setColumnStretch(2, 1);
        scroll->setWidget(inner);
        // The whole width of a row shows; only the rows scroll.
        scroll->setMinimumWidth(inner->sizeHint().width() + scroll->verticalScrollBar()->sizeHint().width() + 4);
        return scroll;
    }

    void refresh_row(int i)
    {
        RowWidgets& w = rows_[size_t(i)];
        if (!w.check)
            return;
        const EngagRow& entry = view_.panel()[size_t(i)];
        {
            const QSignalBlocker block(w.check);
            w.check->setChecked(entry.checked);
        }
        w.check->setEnabled(view_.check_enabled(i));
        if (!w.temps)
            return;
        const bool on = view_.fields_enabled(i);
        if (!w.temps->hasFocus() || !on)
            set_text(w.temps, entry.temps);
        set_text(w.lieu, entry.lieu);
        w.date.binding->set_guard(false);
        set_text(w.date.fields[0], entry.jour);
        set_text(w.date.fields[1], entry.mois);
        set_text(w.date.fields[2], entry.annee);
        w.date.binding->set_guard(true);
        check_option(w.bassin, !entry.checked ? 0 : entry.bassin_50 ? 50 : 25);
        for (QWidget* field : {static_cast<QWidget*>(w.temps), static_cast<QWidget*>(w.lieu)})
            field->setEnabled(on);
        for (QLineEdit* field : w.date.fields)
            field->setEnabled(on);
        for (QAbstractButton* b : w.bassin->buttons())
            b->setEnabled(on);
    }

    FrmEngag& view_;
    QComboBox* team_ = nullptr;
    QCheckBox* do_modele_ = nullptr;
    BoundList* engag_ = nullptr;
    SearchField* search_ = nullptr;
    BoundList* licencie_ = nullptr;
    QPushButton* add_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* cmd_modele_ = nullptr;
    QPushButton* def_team_ = nullptr;
    std::array<QLineEdit*, 3> counts_{};
    std::array<RowWidgets, kPanelRows> rows_{};
};

}  // namespace

void register_engag_window()
{
    register_view_window<FrmEngag, EngagWindow>(QString(FrmEngag::kName));
}

}  // namespace plouvarine::gui
