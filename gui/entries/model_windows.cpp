#include "gui/entries/model_windows.h"

#include "src/entries/liste_modele.h"
#include "src/frame/keywords.h"
#include "gui/frame/window_parts.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

class ModelListWindow : public ViewWindow {
public:
    ModelListWindow(FrmListeModele& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        tree_ = new BoundList(QStringLiteral("Lsv_modele"), view.Lsv_modele(), view.selection(), this,
                              view.mode() == keyword::kSuppr);
        tree_->on_activated = [this] { view_.activate(); };
        tree_->on_delete_key = [this] { view_.delete_key(); };

        auto* buttons = new QHBoxLayout;
        action_ = add_button(buttons, QStringLiteral("Command1_2"), QString(), [this] { view_.cmd_action(); });
        buttons->addStretch(1);
        ok_ = add_button(buttons, QStringLiteral("Command1_0"), QStringLiteral("&Ok"), [this] { view_.cmd_ok(); });
        add_button(buttons, QStringLiteral("Command1_1"), QStringLiteral("&Annuler"), [this] { view_.cmd_annuler(); });
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(tree_, 1);
        layout->addLayout(buttons);
        setMinimumSize(340, 300);
        refresh();
    }

protected:
    void refresh() override
    {
        action_->setText(view_.action_caption());
        action_->setVisible(!view_.action_caption().isEmpty());
        action_->setEnabled(view_.action_enabled());
        ok_->setEnabled(view_.ok_enabled());
        tree_->header()->setSectionResizeMode(QHeaderView::Stretch);
    }

private:
    FrmListeModele& view_;
    BoundList* tree_;
    QPushButton* action_;
    QPushButton* ok_;
};

class ModelNameWindow : public ViewWindow {
public:
    ModelNameWindow(DetModeleObli& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        nom_ = new QLineEdit(view.txt_nom, this);
        nom_->setObjectName(QStringLiteral("txt_nom"));
        nom_->setMaxLength(50);
        connect(nom_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.txt_nom = t; });
        auto* form = new QFormLayout;
        form->addRow(QStringLiteral("Nom du modèle :"), nom_);
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        auto* ok = add_button(buttons, QStringLiteral("Command1_0"), QStringLiteral("&Ok"), [this] { view_.cmd_ok(); });
        ok->setDefault(true);
        add_button(buttons, QStringLiteral("Command1_1"), QStringLiteral("&Annuler"), [this] { view_.cmd_annuler(); });
        auto* layout = new QVBoxLayout(this);
        layout->addLayout(form);
        layout->addLayout(buttons);
        setMinimumWidth(360);
    }

private:
    DetModeleObli& view_;
    QLineEdit* nom_;
};

}  // namespace

void register_model_windows()
{
    register_view_window<FrmListeModele, ModelListWindow>(QString(FrmListeModele::kName));
    register_view_window<DetModeleObli, ModelNameWindow>(QString(DetModeleObli::kName));
}

}  // namespace plouvarine::gui
