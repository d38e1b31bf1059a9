#include "gui/clubs/mon_club_window.h"

#include "src/clubs/mon_club.h"
#include "gui/frame/window_parts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QTabWidget>
#include <QTreeView>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

QLineEdit* field(QWidget* parent, const char* name)
{
    auto* e = new QLineEdit(parent);
    e->setObjectName(QLatin1String(name));
    return e;
}

QTreeView* list(QWidget* parent, const char* name, QAbstractItemModel* model)
{
    auto* t = new QTreeView(parent);
    t->setObjectName(QLatin1String(name));
    t->setModel(model);
    t->setRootIsDecorated(false);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->setSelectionMode(QAbstractItemView::SingleSelection);
    return t;
}

int current_row(const QTreeView* t)
{
    const QModelIndexList rows = t->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

QPushButton* button(QWidget* parent, const QString& caption, const char* name)
{
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(QLatin1String(name));
    b->setAutoDefault(false);
    return b;
}

class OwnClubWindow : public ViewWindow {
public:
    OwnClubWindow(OwnClubView& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        auto* tabs = new QTabWidget(this);
        tabs->setObjectName(QStringLiteral("SSTab1"));
        tabs->addTab(general_tab(), QStringLiteral("Club"));
        tabs->addTab(officers_tab(), QStringLiteral("Dirigeants"));
        tabs->addTab(activities_tab(), QStringLiteral("Activités"));
        tabs->addTab(fees_tab(), QStringLiteral("Tarifs"));

        auto* reload = button(this, QStringLiteral("&Recharger"), "Command1_0");
        auto* save = button(this, QStringLiteral("&Enregistrer"), "Command1_1");
        auto* quit = button(this, QStringLiteral("&Quitter"), "Command1_2");
        connect(reload, &QPushButton::clicked, this, [this] { view_.load(); });
        connect(save, &QPushButton::clicked, this, [this] { view_.save(); });
        connect(quit, &QPushButton::clicked, this, [this] { view_.quit(); });
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        buttons->addWidget(reload);
        buttons->addWidget(save);
        buttons->addWidget(quit);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(tabs, 1);
        layout->addLayout(buttons);
        setMinimumSize(520, 400);
        refresh();
    }

protected:
    void refresh() override
    {
        nom_->setText(view_.nom);
        code_->setText(view_.code);
        adresse_->setText(view_.info.adresse);
        code_postal_->setText(view_.info.code_postal);
        ville_->setText(view_.info.ville);
        telephone_->setText(view_.info.telephone);
        fax_->setText(view_.info.fax);
        mail_->setText(view_.info.mail);
        const QSignalBlocker block(activities_);
        activities_->clear();
        activities_->addItems(view_.activities());
        activities_->setCurrentText(view_.chosen_activity());
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // Enter in these fields acts as their command.
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                if (watched == responsable_) {
                    add_responsable();
                    return true;
                }
                if (watched == intitule_ || watched == montant_) {
                    add_fee();
                    return true;
                }
            }
            if (watched == montant_) {
                const QString typed = static_cast<QKeyEvent*>(event)->text();
                if (typed.size() == 1 && typed[0].isPrint() &&
                    !OwnClubView::amount_key_accepted(montant_->text(), typed[0]))
                    return true;
            }
        }
        return ViewWindow::eventFilter(watched, event);
    }

private:
    QWidget* general_tab()
    {
        auto* page = new QWidget;
        nom_ = field(page, "txt_nom");
        code_ = field(page, "txt_code");
        code_->setMaxLength(14);
        auto* help = button(page, QStringLiteral("Aide"), "Cmd_code");
        connect(help, &QPushButton::clicked, this, [this] { view_.aide_code(); });
        adresse_ = field(page, "txt_adresse");
        code_postal_ = field(page, "txt_code_postal");
        digits_only(code_postal_);
        ville_ = field(page, "txt_ville");
        telephone_ = field(page, "txt_telephone");
        digits_only(telephone_);
        fax_ = field(page, "txt_fax");
        digits_only(fax_);
        mail_ = field(page, "txt_mail");
        auto* code_row = new QHBoxLayout;
        code_row->addWidget(code_, 1);
        code_row->addWidget(help);
        auto* form = new QFormLayout(page);
        form->addRow(QStringLiteral("Nom du Club :"), nom_);
        form->addRow(QStringLiteral("Code du club :"), code_row);
        form->addRow(QStringLiteral("Adresse :"), adresse_);
        form->addRow(QStringLiteral("Code Postal :"), code_postal_);
        form->addRow(QStringLiteral("Ville :"), ville_);
        form->addRow(QStringLiteral("Téléphone :"), telephone_);
        form->addRow(QStringLiteral("Fax :"), fax_);
        form->addRow(QStringLiteral("Email :"), mail_);
        bind(nom_, view_.nom);
        bind(code_, view_.code);
        bind(adresse_, view_.info.adresse);
        bind(code_postal_, view_.info.code_postal);
        bind(ville_, view_.info.ville);
        bind(telephone_, view_.info.telephone);
        bind(fax_, view_.info.fax);
        bind(mail_, view_.info.mail);
        return page;
    }

    QWidget* officers_tab()
    {
        auto* page = new QWidget;
        roles_ = list(page, "Lsv_role", &view_.Lsv_role());
        fonction_ = field(page, "txt_fonction");
        role_nom_ = field(page, "txt_role_nom");
        tel1_ = field(page, "txt_tel1");
        digits_only(tel1_);
        tel2_ = field(page, "txt_tel2");
        digits_only(tel2_);
        role_mail_ = field(page, "txt_role_mail");
        connect(roles_, &QTreeView::clicked, this, [this](const QModelIndex& i) {
            const Officer o = view_.officer_at(i.row());
            fonction_->setText(o.fonction);
            role_nom_->setText(o.nom);
            tel1_->setText(o.tel1);
            tel2_->setText(o.tel2);
            role_mail_->setText(o.mail);
        });
        auto* put = button(page, QStringLiteral("Ajouter / Modifier"), "Cmd_role_0");
        auto* remove = button(page, QStringLiteral("Supprimer"), "Cmd_role_2");
        connect(put, &QPushButton::clicked, this, [this] {
            view_.put_officer(Officer{fonction_->text(), role_nom_->text(), tel1_->text(), tel2_->text(),
                                      role_mail_->text()},
                              current_row(roles_));
        });
        connect(remove, &QPushButton::clicked, this, [this] { view_.remove_officer(current_row(roles_)); });
        auto* form = new QFormLayout;
        form->addRow(QStringLiteral("Fonction :"), fonction_);
        form->addRow(QStringLiteral("Nom :"), role_nom_);
        form->addRow(QStringLiteral("Téléphone 1 :"), tel1_);
        form->addRow(QStringLiteral("Téléphone 2 :"), tel2_);
        form->addRow(QStringLiteral("Email :"), role_mail_);
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        buttons->addWidget(put);
        buttons->addWidget(remove);
        auto* layout = new QVBoxLayout(page);
        layout->addWidget(roles_, 1);
        layout->addLayout(form);
        layout->addLayout(buttons);
        return page;
    }

    QWidget* activities_tab()
    {
        auto* page = new QWidget;
        activities_ = new QComboBox(page);
        activities_->setObjectName(QStringLiteral("Cbo_activite"));
        activities_->setEditable(true);
        connect(activities_, &QComboBox::activated, this,
                [this](int) { view_.choose_activity(activities_->currentText()); });
        auto* add = button(page, QStringLiteral("Ajouter"), "Cmd_activite_0");
        auto* remove = button(page, QStringLiteral("Suppr"), "Cmd_activite_1");
        connect(add, &QPushButton::clicked, this, [this] { view_.add_activity(activities_->currentText()); });
        connect(remove, &QPushButton::clicked, this, [this] { view_.remove_activity(activities_->currentText()); });
        people_ = list(page, "lsv_responsable", &view_.lsv_responsable());
        responsable_ = field(page, "txt_responsable");
        responsable_->installEventFilter(this);
        auto* add_person = button(page, QStringLiteral("Ajouter"), "Cmd_add_resp");
        auto* remove_person = button(page, QStringLiteral("Supprimer"), "Cmd_suppr_resp");
        connect(add_person, &QPushButton::clicked, this, [this] { add_responsable(); });
        connect(remove_person, &QPushButton::clicked, this,
                [this] { view_.remove_responsable(current_row(people_)); });

        auto* activity_row = new QHBoxLayout;
        activity_row->addWidget(new QLabel(QStringLiteral("Activité :"), page));
        activity_row->addWidget(activities_, 1);
        activity_row->addWidget(add);
        activity_row->addWidget(remove);
        auto* person_row = new QHBoxLayout;
        person_row->addWidget(new QLabel(QStringLiteral("Responsable :"), page));
        person_row->addWidget(responsable_, 1);
        person_row->addWidget(add_person);
        person_row->addWidget(remove_person);
        auto* layout = new QVBoxLayout(page);
        layout->addLayout(activity_row);
        layout->addWidget(people_, 1);
        layout->addLayout(person_row);
        return page;
    }

    QWidget* fees_tab()
    {
        auto* page = new QWidget;
        fees_ = list(page, "Lsv_tarif", &view_.Lsv_tarif());
        intitule_ = field(page, "txt_intitule");
        montant_ = field(page, "txt_montant");
        intitule_->installEventFilter(this);
        montant_->installEventFilter(this);
        francs_ = field(page, "txt_franc");
        francs_->setReadOnly(true);
        corres_ = new QCheckBox(QStringLiteral("Afficher conversion en fancs"), page);
        corres_->setObjectName(QStringLiteral("Chk_corres"));
        auto convert = [this] {
            francs_->setText(corres_->isChecked() ? OwnClubView::franc_conversion(montant_->text()) : QString());
        };
        connect(montant_, &QLineEdit::textChanged, this, convert);
        connect(corres_, &QCheckBox::toggled, this, convert);
        connect(fees_, &QTreeView::clicked, this, [this](const QModelIndex& i) {
            intitule_->setText(view_.Lsv_tarif().index(i.row(), 0).data().toString());
            montant_->setText(OwnClubView::amount_field(
                OwnClubView::amount_value(view_.Lsv_tarif().index(i.row(), 1).data().toString())));
        });
        auto* add = button(page, QStringLiteral("Ajouter / Modifier"), "Cmd_AddTarif");
        auto* remove = button(page, QStringLiteral("Supprimer"), "Cmd_SupprTarif");
        connect(add, &QPushButton::clicked, this, [this] { add_fee(); });
        connect(remove, &QPushButton::clicked, this, [this] { view_.remove_fee(current_row(fees_)); });

        auto* amount_row = new QHBoxLayout;
        amount_row->addWidget(montant_, 1);
        auto* devise = new QLabel(QStringLiteral("€"), page);
        devise->setObjectName(QStringLiteral("lbl_devise"));
        amount_row->addWidget(devise);
        amount_row->addWidget(francs_, 1);
        auto* franc = new QLabel(QStringLiteral("F"), page);
        franc->setObjectName(QStringLiteral("lbl_franc"));
        amount_row->addWidget(franc);
        auto* form = new QFormLayout;
        form->addRow(QStringLiteral("Intitulé :"), intitule_);
        form->addRow(QStringLiteral("Montant :"), amount_row);
        form->addRow(QString(), corres_);
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        buttons->addWidget(add);
        buttons->addWidget(remove);
        auto* layout = new QVBoxLayout(page);
        layout->addWidget(fees_, 1);
        layout->addLayout(form);
        layout->addLayout(buttons);
        return page;
    }

    // The first tab's fields write through to the view as they are typed.
    void bind(QLineEdit* edit, QString& target)
    {
        connect(edit, &QLineEdit::textEdited, this, [&target](const QString& text) { target = text; });
    }
    void add_responsable()
    {
        view_.add_responsable(responsable_->text());
        responsable_->clear();
    }
    void add_fee()
    {
        if (view_.put_fee(intitule_->text(), montant_->text(), current_row(fees_))) {
            intitule_->clear();
            montant_->clear();
        }
    }

    OwnClubView& view_;
    QLineEdit *nom_, *code_, *adresse_, *code_postal_, *ville_, *telephone_, *fax_, *mail_;
    QTreeView* roles_;
    QLineEdit *fonction_, *role_nom_, *tel1_, *tel2_, *role_mail_;
    QComboBox* activities_;
    QTreeView* people_;
    QLineEdit* responsable_;
    QTreeView* fees_;
    QLineEdit *intitule_, *montant_, *francs_;
    QCheckBox* corres_;
};

}  // namespace

void register_mon_club_window()
{
    register_view_window<OwnClubView, OwnClubWindow>(QString(OwnClubView::kName));
}

}  // namespace plouvarine::gui
