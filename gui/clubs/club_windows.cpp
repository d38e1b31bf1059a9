#include "gui/clubs/club_windows.h"

#include "gui/frame/window_parts.h"
#include "src/clubs/construc_code_club.h"
#include "src/clubs/dem_info.h"
#include "src/clubs/det_profil.h"
#include "src/clubs/liste_club.h"
#include "src/clubs/liste_pays.h"
#include "src/clubs/liste_profil.h"
#include "src/frame/keywords.h"
#include "gui/frame/view_window.h"
#include "gui/frame/window_factory.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

// Frm_liste_club.
class ClubListWindow : public ViewWindow {
public:
    ClubListWindow(FrmListeClub& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(420, 300);
        auto* layout = new QVBoxLayout(this);
        list_ = new BoundList(QStringLiteral("Lsv_club"), view.list(), view.selection(), this,
                              view.keyword() == keyword::kSuppr);
        list_->on_activated = [this] { view_.ok(); };
        list_->on_delete_key = [this] { view_.mark_selected(); };
        layout->addWidget(list_);
        auto* row = new QHBoxLayout;
        ok_ = add_button(row, QStringLiteral("cmd_ok"), view.ok_caption(), [this] { view_.ok(); });
        valider_ = add_button(row, QStringLiteral("cmd_valider"), QStringLiteral("&Valider"),
                              [this] { view_.confirm_deletion(); });
        add_button(row, QStringLiteral("cmd_annuler"), QStringLiteral("&Fermer"), [this] { view_.cancel(); });
        layout->addLayout(row);
        connect(&view.selection(), &QItemSelectionModel::currentChanged, this, [this] { refresh(); });
        refresh();
    }

protected:
    void refresh() override
    {
        ok_->setText(view_.ok_caption());
        ok_->setVisible(view_.ok_visible());
        ok_->setEnabled(view_.ok_enabled());
        valider_->setVisible(view_.keyword() == keyword::kSuppr);
        valider_->setEnabled(!view_.marked().isEmpty());
    }

private:
    FrmListeClub& view_;
    BoundList* list_;
    QPushButton* ok_;
    QPushButton* valider_;
};

// A list that gives one row back: Frm_liste_club_obli, Frm_liste_profil_obli, frm_liste_pays.
template <typename V>
class ChoiceListWindow : public ViewWindow {
public:
    ChoiceListWindow(V& view, QWidget* parent, const QString& list_name) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(360, 280);
        auto* layout = new QVBoxLayout(this);
        auto* list = new BoundList(list_name, view.list(), view.selection(), this);
        list->on_activated = [this] { view_.confirm(); };
        layout->addWidget(list);
        auto* row = new QHBoxLayout;
        ok_ = add_button(row, QStringLiteral("cmd_ok"), QStringLiteral("&OK"), [this] { view_.confirm(); });
        add_button(row, QStringLiteral("cmd_annuler"), QStringLiteral("&Annuler"), [this] { view_.cancel(); });
        layout->addLayout(row);
        connect(&view.selection(), &QItemSelectionModel::currentChanged, this, [this] { refresh(); });
        refresh();
    }

protected:
    void refresh() override { ok_->setEnabled(view_.ok_enabled()); }

private:
    V& view_;
    QPushButton* ok_;
};

// dem_info and dem_info_obli.
class ClubDetailWindow : public ViewWindow {
public:
    ClubDetailWindow(DemInfo& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        auto* layout = new QVBoxLayout(this);
        auto* form = new QFormLayout;
        nom_ = new QLineEdit;
        nom_->setObjectName(QStringLiteral("text1_0"));
        code_ = new QLineEdit;
        code_->setObjectName(QStringLiteral("text1_1"));
        code_->setMaxLength(20);
        form->addRow(QStringLiteral("Nom du Club :"), nom_);
        form->addRow(QStringLiteral("Code du club :"), code_);
        layout->addLayout(form);
        connect(nom_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.set_nom(t); });
        connect(code_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.set_code(t); });
        auto* row = new QHBoxLayout;
        // The code help opens over this window: hiding a modal window would end it.
        aide_ = add_button(row, QStringLiteral("Command1_2"), QStringLiteral("Aide"), [this] { view_.aide(); });
        ok_ = add_button(row, QStringLiteral("cmd_ok"), QStringLiteral("&OK"), [this] { view_.confirm(); });
        cancel_ = add_button(row, QStringLiteral("cmd_annuler"), QStringLiteral("&Annuler"), [this] { view_.cancel(); });
        layout->addLayout(row);
        refresh();
    }

protected:
    void refresh() override
    {
        set_text(nom_, view_.nom());
        set_text(code_, view_.code());
        nom_->setReadOnly(view_.fields_locked());
        code_->setReadOnly(view_.fields_locked());
        aide_->setEnabled(!view_.fields_locked());
        ok_->setEnabled(view_.ok_enabled());
        cancel_->setEnabled(view_.cancel_enabled());
    }

private:
    DemInfo& view_;
    QLineEdit* nom_;
    QLineEdit* code_;
    QPushButton* aide_;
    QPushButton* ok_;
    QPushButton* cancel_;
};

// construc_code_club.
class CodeHelpWindow : public ViewWindow {
public:
    CodeHelpWindow(ConstrucCodeClub& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        auto* layout = new QVBoxLayout(this);
        auto* types = new QGroupBox(QStringLiteral("Type Club"));
        types->setObjectName(QStringLiteral("Opt_type"));
        auto* type_layout = new QVBoxLayout(types);
        auto* group = new QButtonGroup(this);
        for (int i = 0; i < 5; ++i) {
            options_[i] = new QRadioButton(ConstrucCodeClub::type_captions()[size_t(i)]);
            options_[i]->setObjectName(QStringLiteral("Opt_type_%1").arg(i));
            group->addButton(options_[i], i);
            type_layout->addWidget(options_[i]);
        }
        connect(group, &QButtonGroup::idClicked, this, [this](int id) { view_.set_type(id); });
        layout->addWidget(types);

        auto* form = new QFormLayout;
        // The slot holds the view and the setter themselves: built inside a
        // generic lambda capturing by reference, it read a stale stack slot
        // under AddressSanitizer (GCC 12).
        using Setter = void (ConstrucCodeClub::*)(const QString&);
        ConstrucCodeClub* help = &view_;
        auto combo = [this, form, help](const QString& name, const QString& label, Setter setter) {
            auto* box = new QComboBox;
            box->setObjectName(name);
            form->addRow(label, box);
            connect(box, &QComboBox::textActivated, this, [help, setter](const QString& t) { (help->*setter)(t); });
            return box;
        };
        pays_ = combo(QStringLiteral("Cb_pays"), QStringLiteral("Pays :"), &ConstrucCodeClub::set_pays);
        inter_ = combo(QStringLiteral("Cb_inter"), QStringLiteral("Inter Region :"), &ConstrucCodeClub::set_inter);
        region_ = combo(QStringLiteral("Cb_region"), QStringLiteral("Region :"), &ConstrucCodeClub::set_region);
        departement_ = combo(QStringLiteral("Cb_departement"), QStringLiteral("Département :"),
                             &ConstrucCodeClub::set_departement);
        code_fourni_ = new QLineEdit;
        code_fourni_->setObjectName(QStringLiteral("txt_code_fourni"));
        code_fourni_->setMaxLength(4);
        connect(code_fourni_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.set_code_fourni(t); });
        form->addRow(QStringLiteral("Code fourni par la FFN : (4 caractères)"), code_fourni_);
        codification_ = new QLineEdit;
        codification_->setObjectName(QStringLiteral("txt_codification"));
        codification_->setReadOnly(true);
        form->addRow(QStringLiteral("Codification :"), codification_);
        layout->addLayout(form);

        auto* row = new QHBoxLayout;
        add_button(row, QStringLiteral("Command1_0"), QStringLiteral("&Composer"), [this] { view_.compose(); });
        add_button(row, QStringLiteral("Command1_2"), QStringLiteral("Generate"), [this] { view_.compose(); });
        add_button(row, QStringLiteral("Command1_1"), QStringLiteral("&Fermer"), [this] { view_.close_command(); });
        layout->addLayout(row);
        refresh();
    }

protected:
    void refresh() override
    {
        for (int i = 0; i < 5; ++i) {
            const QSignalBlocker block(options_[i]);
            options_[i]->setChecked(view_.type() == i);
            options_[i]->setEnabled(view_.type_enabled(i));
        }
        draw(pays_, view_.pays());
        draw(inter_, view_.inter());
        draw(region_, view_.region());
        draw(departement_, view_.departement());
        set_text(code_fourni_, view_.code_fourni());
        code_fourni_->setEnabled(view_.code_fourni_enabled());
        set_text(codification_, view_.codification());
    }

private:
    static void draw(QComboBox* box, const ComboState& state)
    {
        const QSignalBlocker block(box);
        QStringList shown;
        for (int i = 0; i < box->count(); ++i)
            shown << box->itemText(i);
        if (shown != state.items) {
            box->clear();
            box->addItems(state.items);
        }
        box->setCurrentIndex(state.items.indexOf(state.value));
        box->setEnabled(state.enabled);
    }

    ConstrucCodeClub& view_;
    QRadioButton* options_[5];
    QComboBox* pays_;
    QComboBox* inter_;
    QComboBox* region_;
    QComboBox* departement_;
    QLineEdit* code_fourni_;
    QLineEdit* codification_;
};

// Frm_liste_profil.
class ProfileListWindow : public ViewWindow {
public:
    ProfileListWindow(FrmListeProfil& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(360, 280);
        auto* layout = new QVBoxLayout(this);
        auto* list = new BoundList(QStringLiteral("Lsv_profil"), view.list(), view.selection(), this,
                                   view.keyword() == keyword::kSuppr);
        list->on_activated = [this] { view_.ok(); };
        list->on_delete_key = [this] { view_.mark_selected(); };
        layout->addWidget(list);
        auto* row = new QHBoxLayout;
        ok_ = add_button(row, QStringLiteral("Command1_2"), view.ok_caption(), [this] { view_.ok(); });
        valider_ = add_button(row, QStringLiteral("cmd_valider"), QStringLiteral("&Valider"),
                              [this] { view_.confirm_deletion(); });
        add_button(row, QStringLiteral("cmd_annuler"), QStringLiteral("&Fermer"), [this] { view_.cancel(); });
        layout->addLayout(row);
        connect(&view.selection(), &QItemSelectionModel::currentChanged, this, [this] { refresh(); });
        refresh();
    }

protected:
    void refresh() override
    {
        ok_->setText(view_.ok_caption().isEmpty() ? QStringLiteral("&OK") : view_.ok_caption());
        ok_->setEnabled(view_.ok_enabled());
        valider_->setVisible(view_.keyword() == keyword::kSuppr);
        valider_->setEnabled(!view_.marked().isEmpty());
    }

private:
    FrmListeProfil& view_;
    QPushButton* ok_;
    QPushButton* valider_;
};

// det_profil and det_profil_obli.
class ProfileDetailWindow : public ViewWindow {
public:
    ProfileDetailWindow(DetProfil& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        auto* layout = new QVBoxLayout(this);
        auto* form = new QFormLayout;
        nom_ = new QLineEdit;
        nom_->setObjectName(QStringLiteral("text1_0"));
        code_ = new QLineEdit;
        code_->setObjectName(QStringLiteral("text1_1"));
        code_->setReadOnly(true);
        club_ = new QLabel;
        club_->setObjectName(QStringLiteral("lbl_club"));
        form->addRow(QStringLiteral("Nom du Profil :"), nom_);
        form->addRow(QStringLiteral("Code du club lié :"), code_);
        form->addRow(QString(), club_);
        layout->addLayout(form);
        connect(nom_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.set_nom(t); });
        auto* row = new QHBoxLayout;
        // The club list opens over this window: hiding a modal window would end it.
        choose_ = add_button(row, QStringLiteral("cmd_club"), QStringLiteral("Choix d'un club"),
                             [this] { view_.choose_club(); });
        ok_ = add_button(row, QStringLiteral("cmd_ok"), QStringLiteral("&OK"), [this] { view_.confirm(); });
        auto* cancel = add_button(row, QStringLiteral("cmd_annuler"), QStringLiteral("Annuler"),
                                  [this] { view_.cancel(); });
        // The forced first profile cannot be left: its Annuler is shown off.
        cancel->setEnabled(!view_.obligatory());
        layout->addLayout(row);
        refresh();
    }

protected:
    void refresh() override
    {
        set_text(nom_, view_.nom());
        set_text(code_, view_.code());
        club_->setText(view_.club_name());
        nom_->setReadOnly(view_.fields_locked());
        choose_->setEnabled(!view_.fields_locked());
        ok_->setEnabled(view_.ok_enabled());
    }

private:
    DetProfil& view_;
    QLineEdit* nom_;
    QLineEdit* code_;
    QLabel* club_;
    QPushButton* choose_;
    QPushButton* ok_;
};

}  // namespace

void register_club_windows()
{
    register_view_window<FrmListeClub, ClubListWindow>(QString(FrmListeClub::kName));
    register_view_window<FrmListeClubObli, ChoiceListWindow<FrmListeClubObli>>(QString(FrmListeClubObli::kName),
                                                                               QStringLiteral("Lsv_club"));
    register_view_window<FrmListePays, ChoiceListWindow<FrmListePays>>(QString(FrmListePays::kName),
                                                                       QStringLiteral("Lsv_pays"));
    register_view_window<FrmListeProfilObli, ChoiceListWindow<FrmListeProfilObli>>(QString(FrmListeProfilObli::kName),
                                                                  QStringLiteral("Lsv_profil"));
    register_view_window<DemInfo, ClubDetailWindow>(QString(DemInfo::kName));
    register_view_window<DemInfo, ClubDetailWindow>(QString(DemInfo::kObliName));
    register_view_window<ConstrucCodeClub, CodeHelpWindow>(QString(ConstrucCodeClub::kName));
    register_view_window<FrmListeProfil, ProfileListWindow>(QString(FrmListeProfil::kName));
    register_view_window<DetProfil, ProfileDetailWindow>(QString(DetProfil::kName));
    register_view_window<DetProfil, ProfileDetailWindow>(QString(DetProfil::kObliName));
}

}  // namespace plouvarine::gui
