#include "gui/entries/relay_window.h"

#include "gui/frame/time_field_binding.h"
#include "gui/frame/window_parts.h"
#include "src/base/utils_time.h"
#include "src/entries/frm_engag_relais.h"
#include "src/frame/app_context.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

void fill_combo(QComboBox* combo, const QStringList& items, int index)
{
    const QSignalBlocker block(combo);
    QStringList shown;
    for (int i = 0; i < combo->count(); ++i)
        shown << combo->itemText(i);
    if (shown != items) {
        combo->clear();
        combo->addItems(items);
    }
    combo->setCurrentIndex(index);
}

class RelayWindow : public ViewWindow {
public:
    RelayWindow(FrmEngagRelais& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(720, 440);
        auto* layout = new QVBoxLayout(this);

        auto* top = new QHBoxLayout;
        top->addWidget(new QLabel(QStringLiteral("Equipe")));
        team_ = combo(QStringLiteral("cbo_team"));
        connect(team_, &QComboBox::activated, this, [this](int index) { view_.set_team_index(index); });
        top->addWidget(team_, 1);
        composition_ = add_button(top, QStringLiteral("Cmd_composition"), FrmEngagRelais::kCaptionComposition,
                                  [this] { view_.cmd_composition(); });
        layout->addLayout(top);

        pages_ = new QStackedWidget;
        pages_->addWidget(selection_page());
        pages_->addWidget(composition_page());
        layout->addWidget(pages_, 1);

        auto* row = new QHBoxLayout;
        plus_ = add_button(row, QStringLiteral("cmd_plus"), QStringLiteral("+"), [this] { view_.cmd_plus(); });
        moins_ = add_button(row, QStringLiteral("cmd_moins"), QStringLiteral("-"), [this] { view_.cmd_moins(); });
        row->addStretch(1);
        add_button(row, QStringLiteral("Command1_0"), QStringLiteral("Ok"), [this] { view_.cmd_ok(); });
        add_button(row, QStringLiteral("Command1_1"), QStringLiteral("&Annuler"), [this] { view_.cmd_annuler(); });
        layout->addLayout(row);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        const bool composing = view_.composition();
        const bool editable = !view_.read_only();
        fill_combo(team_, view_.cbo_team(), view_.team_index());
        team_->setEnabled(!composing);
        composition_->setText(view_.composition_caption());
        pages_->setCurrentIndex(composing ? 1 : 0);
        set_text(nb_equipe_, view_.txt_nb_equipe());
        nb_equipe_->setEnabled(editable && view_.relais_selection().hasSelection());
        fill_combo(relay_events_, view_.cbo_team_relais(), view_.relay_event_index());
        set_text(temps_, view_.txt_temps);
        const bool relay_shown = view_.relay_number() > 0;
        temps_->setEnabled(editable && relay_shown);
        caltps_->setEnabled(relay_shown && view_.lsv_engag_relais().rowCount() > 0);
        add_->setEnabled(view_.can_add());
        remove_->setEnabled(editable && relay_shown && view_.lsv_engag_relais().rowCount() > 0);
        plus_->setEnabled(editable);
        moins_->setEnabled(editable);
        plus_->setToolTip(composing ? QStringLiteral("Avancer le nageur") : QStringLiteral("Un relais de plus"));
        moins_->setToolTip(composing ? QStringLiteral("Reculer le nageur") : QStringLiteral("Un relais de moins"));
        fit(relais_);
        fit(engag_);
        fit(nageurs_);
    }

private:
    QWidget* selection_page()
    {
        auto* page = new QWidget;
        auto* row = new QHBoxLayout(page);
        row->setContentsMargins(0, 0, 0, 0);
        relais_ = new BoundList(QStringLiteral("Lst_relais"), view_.Lst_relais(), view_.relais_selection(), page);
        row->addWidget(relais_, 1);
        auto* side = new QVBoxLayout;
        side->addWidget(new QLabel(QStringLiteral("Nombre de relais")));
        nb_equipe_ = new QLineEdit;
        nb_equipe_->setObjectName(QStringLiteral("txt_nb_equipe"));
        nb_equipe_->setMaxLength(3);
        digits_only(nb_equipe_);
        connect(nb_equipe_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.set_nb_equipe(t); });
        side->addWidget(nb_equipe_);
        side->addStretch(1);
        row->addLayout(side);
        return page;
    }

    QWidget* composition_page()
    {
        auto* page = new QWidget;
        auto* column = new QVBoxLayout(page);
        column->setContentsMargins(0, 0, 0, 0);
        auto* head = new QHBoxLayout;
        head->addWidget(new QLabel(QStringLiteral("Relais")));
        relay_events_ = combo(QStringLiteral("cbo_team_relais"));
        connect(relay_events_, &QComboBox::activated, this, [this](int index) { view_.set_relay_event(index); });
        head->addWidget(relay_events_, 1);
        column->addLayout(head);

        auto* body = new QHBoxLayout;
        numbers_ = new BoundList(QStringLiteral("lst_num_relais"), view_.lst_num_relais(), view_.num_selection(), page);
        numbers_->setHeaderHidden(true);
        numbers_->setMaximumWidth(110);
        body->addWidget(numbers_);
        engag_ = new BoundList(QStringLiteral("lsv_engag_relais"), view_.lsv_engag_relais(), view_.engag_selection(),
                               page);
        engag_->on_delete_key = [this] { view_.cmd_add(1); };
        body->addLayout(titled(QStringLiteral("Nageurs du relais, dans l'ordre"), engag_), 2);
        auto* moves = new QVBoxLayout;
        moves->addStretch(1);
        auto* add_row = new QHBoxLayout;
        add_ = add_button(add_row, QStringLiteral("Cmd_add_0"), QStringLiteral("<<"), [this] { view_.cmd_add(0); });
        moves->addLayout(add_row);
        auto* remove_row = new QHBoxLayout;
        remove_ = add_button(remove_row, QStringLiteral("Cmd_add_1"), QStringLiteral(">>"),
                             [this] { view_.cmd_add(1); });
        moves->addLayout(remove_row);
        moves->addStretch(1);
        body->addLayout(moves);
        nageurs_ = new BoundList(QStringLiteral("lsv_nageurs"), view_.lsv_nageurs(), view_.nageurs_selection(), page);
        nageurs_->on_activated = [this] { view_.cmd_add(0); };
        body->addLayout(titled(QStringLiteral("Nageurs de l'équipe"), nageurs_), 2);
        column->addLayout(body, 1);

        auto* time_row = new QHBoxLayout;
        time_row->addWidget(new QLabel(QStringLiteral("Temps d'engagement")));
        temps_ = new QLineEdit;
        temps_->setObjectName(QStringLiteral("txt_temps"));
        temps_->setMaximumWidth(100);
        bind_time_field(view_.app().ui, temps_);
        connect(temps_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.txt_temps = t; });
        // A time left is shown in its canonical form, as it will be stored.
        connect(temps_, &QLineEdit::editingFinished, this, [this] {
            if (!view_.txt_temps.trimmed().isEmpty()) {
                view_.txt_temps = normalise_temps(view_.txt_temps);
                set_text(temps_, view_.txt_temps);
            }
        });
        time_row->addWidget(temps_);
        caltps_ = add_button(time_row, QStringLiteral("Cmd_caltps"), QStringLiteral("Calculer le temps"),
                             [this] { view_.cmd_caltps(); });
        time_row->addStretch(1);
        column->addLayout(time_row);
        return page;
    }

    static QVBoxLayout* titled(const QString& caption, QWidget* list)
    {
        auto* column = new QVBoxLayout;
        column->addWidget(new QLabel(caption));
        column->addWidget(list, 1);
        return column;
    }

    QComboBox* combo(const QString& name)
    {
        auto* box = new QComboBox;
        box->setObjectName(name);
        return box;
    }

    static void fit(QTreeView* list)
    {
        for (int c = 0; c + 1 < list->model()->columnCount(); ++c)
            list->resizeColumnToContents(c);
    }

    FrmEngagRelais& view_;
    QComboBox* team_ = nullptr;
    QPushButton* composition_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    BoundList* relais_ = nullptr;
    QLineEdit* nb_equipe_ = nullptr;
    QComboBox* relay_events_ = nullptr;
    BoundList* numbers_ = nullptr;
    BoundList* engag_ = nullptr;
    BoundList* nageurs_ = nullptr;
    QPushButton* add_ = nullptr;
    QPushButton* remove_ = nullptr;
    QLineEdit* temps_ = nullptr;
    QPushButton* caltps_ = nullptr;
    QPushButton* plus_ = nullptr;
    QPushButton* moins_ = nullptr;
};

}  // namespace

void register_relay_window()
{
    register_view_window<FrmEngagRelais, RelayWindow>(QString(FrmEngagRelais::kName));
}

}  // namespace plouvarine::gui
