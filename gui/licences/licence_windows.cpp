#include "gui/licences/licence_windows.h"

#include "gui/frame/window_parts.h"
#include "src/frame/keywords.h"
#include "gui/frame/main_window.h"
#include "gui/frame/view_window.h"
#include "gui/frame/window_factory.h"
#include "gui/frame/date_field_binding.h"
#include "src/licences/det_licence.h"
#include "src/licences/liste_licence.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

// lsv_licence: the typed characters go to the view's search, never to the
// list's own letter navigation; the arrows move as usual.
class LicenceList : public BoundList {
public:
    LicenceList(FrmListeLicence& view, QWidget* parent)
        : BoundList(QStringLiteral("lsv_licence"), view.lsv_licence(), view.selection(), parent,
                    view.mode() == keyword::kSuppr, kVisibleRowsOnly),
          view_(view)
    {
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        switch (event->key()) {
        case Qt::Key_Delete:
            if (view_.mode() == keyword::kSuppr)
                view_.supprime_selection();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            view_.list_key(13);
            return;
        case Qt::Key_Escape:
            view_.list_key(27);
            return;
        case Qt::Key_Backspace:
            view_.list_key(8);
            return;
        default:
            break;
        }
        const QString text = event->text();
        if (text.size() == 1 && text.at(0).unicode() >= 32 && !(event->modifiers() & Qt::ControlModifier)) {
            if (text.at(0).unicode() <= 255)
                view_.list_key(text.at(0).unicode());
            return;
        }
        QTreeView::keyPressEvent(event);
    }

private:
    FrmListeLicence& view_;
};

// frm_liste_licence.
class LicenceListWindow : public ViewWindow {
public:
    LicenceListWindow(FrmListeLicence& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(520, 360);
        setWindowTitle(view.title());
        auto* layout = new QVBoxLayout(this);
        auto* search_row = new QHBoxLayout;
        search_row->addWidget(new QLabel(QStringLiteral("Recherche :")));
        search_ = new QLineEdit;
        search_->setObjectName(QStringLiteral("txt_recherche"));
        search_->installEventFilter(this);
        connect(search_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.set_search_text(t); });
        search_row->addWidget(search_);
        layout->addLayout(search_row);

        list_ = new LicenceList(view, this);
        list_->setSortingEnabled(false);
        list_->header()->setSectionsClickable(true);
        connect(list_->header(), &QHeaderView::sectionClicked, this,
                [this](int section) { view_.sort_by_column(section + 1); });
        list_->on_activated = [this] { view_.SimulAction(); };
        if (view.mode() == keyword::kSsCotisation) {
            list_->setContextMenuPolicy(Qt::CustomContextMenu);
            connect(list_, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
                if (!main_ || !main_->tarifs_menu() || view_.current_num().isEmpty())
                    return;
                view_.prepare_menu_tarifs();
                main_->tarifs_menu()->exec(list_->viewport()->mapToGlobal(pos));
            });
        }
        layout->addWidget(list_);

        auto* row = new QHBoxLayout;
        cmd0_ = add_button(row, QStringLiteral("cmd_0"), QStringLiteral("&OK"), [this] { view_.cmd0(); });
        cmd2_ = add_button(row, QStringLiteral("cmd_2"), view.ok_caption(), [this] {
            view_.cmd2();
            if (!view_.is_closed())
                list_->setFocus();
        });
        cmd1_ = add_button(row, QStringLiteral("cmd_1"), view.cmd1_caption(), [this] { view_.cmd1(); });
        layout->addLayout(row);
        connect(&view.selection(), &QItemSelectionModel::currentChanged, this, [this] { refresh(); });
        refresh();
        list_->setFocus();
    }
    ~LicenceListWindow() override
    {
        if (main_)
            main_->on_tarif_chosen = nullptr;
    }

    // The fee menu is the main window's: its lines come back to this list.
    void placed_in(MainWindow& main) override
    {
        if (view_.mode() != keyword::kSsCotisation)
            return;
        main_ = &main;
        main.on_tarif_chosen = [this](int index) { view_.mnuTarifsSel_Click(index); };
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        set_text(search_, view_.search_text());
        cmd0_->setText(view_.mode() == keyword::kSuppr ? QStringLiteral("&Valider") : QStringLiteral("&OK"));
        cmd0_->setVisible(view_.cmd0_visible());
        cmd0_->setEnabled(view_.mode() != keyword::kChoisir || view_.cmd2_enabled());
        cmd2_->setText(view_.ok_caption());
        cmd2_->setVisible(view_.cmd2_visible());
        cmd2_->setEnabled(view_.cmd2_enabled());
        cmd1_->setText(view_.cmd1_caption());
        list_->show_sort(view_.sorted_column(), view_.sorted_ascending());
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == search_ && event->type() == QEvent::KeyPress) {
            const auto* key = static_cast<QKeyEvent*>(event);
            const int code = (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) ? 13
                             : key->key() == Qt::Key_Escape                                 ? 27
                                                                                            : 0;
            if (code != 0 && view_.search_field_key(code)) {
                if (!view_.is_closed() && code != 13)
                    list_->setFocus();
                return true;
            }
        }
        return ViewWindow::eventFilter(watched, event);
    }

private:
    FrmListeLicence& view_;
    QLineEdit* search_;
    LicenceList* list_;
    QPushButton* cmd0_;
    QPushButton* cmd1_;
    QPushButton* cmd2_;
    QPointer<MainWindow> main_;
};

// det_licence.
class LicenceDetailWindow : public ViewWindow {
public:
    LicenceDetailWindow(DetLicence& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setWindowTitle(view.title());
        auto* layout = new QVBoxLayout(this);
        tabs_ = new QTabWidget;
        tabs_->setObjectName(QStringLiteral("SSTab1"));
        tabs_->addTab(identity_tab(), QStringLiteral("Identité"));
        tabs_->addTab(medical_tab(), QStringLiteral("Contrôle médical"));
        tabs_->addTab(fee_tab(), QStringLiteral("Tarifs"));
        connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) { view_.set_tab(tab); });
        layout->addWidget(tabs_);
        auto* row = new QHBoxLayout;
        add_button(row, QStringLiteral("Command1_0"), QStringLiteral("&Enregistrer"), [this] { view_.save(); });
        add_button(row, QStringLiteral("Command1_1"), QStringLiteral("&Annuler"), [this] { view_.cancel(); });
        layout->addLayout(row);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        for (int i = 0; i < DetLicence::kText1Count; ++i)
            if (text1_[i])
                set_text(text1_[i], view_.text1[size_t(i)]);
        for (int i = 0; i < DetLicence::kDateFieldCount; ++i)
            if (dates_[i])
                set_text(dates_[i], view_.txt_description[size_t(i)]);
        set_text(medecin_, view_.txt_Medecin);
        {
            const QSignalBlocker block(letter_);
            letter_->setCurrentIndex(view_.Cb_licence);
        }
        check_option(sexe_, view_.Option_sexe);
        check_option(type_, view_.Option_type);
        check_option(nature_, view_.Option_nature);
        for (int i = 0; i < 6; ++i) {
            const QSignalBlocker block(checks_[i]);
            checks_[i]->setChecked(view_.Check1[size_t(i)]);
        }
        {
            const QSignalBlocker block(tabs_);
            tabs_->setCurrentIndex(view_.current_tab());
        }
        for (int tab = 0; tab < 3; ++tab)
            tabs_->widget(tab)->setEnabled(view_.tab_enabled(tab));
        club_button_->setEnabled(view_.club_choice_enabled());
        origin_box_->setVisible(view_.origin_visible());
    }

private:
    QLineEdit* text_field(int index, bool digits = false, int max_length = 0)
    {
        auto* edit = new QLineEdit;
        edit->setObjectName(QStringLiteral("text1_%1").arg(index));
        if (digits)
            digits_only(edit);
        if (max_length > 0)
            edit->setMaxLength(max_length);
        connect(edit, &QLineEdit::textEdited, this,
                [this, index](const QString& t) { view_.text1[size_t(index)] = t; });
        text1_[index] = edit;
        return edit;
    }

    QHBoxLayout* date_fields(int base, int button)
    {
        auto* row = new QHBoxLayout;
        const DateTriple triple = make_date_triple(QStringLiteral("txt_description_"), base,
                                                   [this](int index, const QString& t) {
                                                       view_.txt_description[size_t(index)] = t;
                                                   });
        for (int k = 0; k < 3; ++k) {
            dates_[base + k] = triple.fields[size_t(k)];
            row->addWidget(triple.fields[size_t(k)]);
        }
        auto* pick = new QPushButton(QStringLiteral("..."));
        pick->setObjectName(QStringLiteral("Cmd_Date_%1").arg(button));
        pick->setAutoDefault(false);
        connect(pick, &QPushButton::clicked, this, [this, base] { view_.choose_date(base); });
        row->addWidget(pick);
        row->addStretch(1);
        return row;
    }

    QButtonGroup* options(const QString& name, const QStringList& captions, QHBoxLayout* row, int* field)
    {
        auto* group = new QButtonGroup(this);
        for (int i = 0; i < captions.size(); ++i) {
            auto* option = new QRadioButton(captions[i]);
            option->setObjectName(QStringLiteral("%1_%2").arg(name).arg(i));
            group->addButton(option, i);
            row->addWidget(option);
        }
        connect(group, &QButtonGroup::idClicked, this, [field](int id) { *field = id; });
        return group;
    }

    QWidget* identity_tab()
    {
        auto* page = new QWidget;
        auto* form = new QFormLayout(page);
        auto* club_row = new QHBoxLayout;
        club_row->addWidget(text_field(DetLicence::kCodeClub));
        text1_[DetLicence::kCodeClub]->setReadOnly(true);
        club_button_ = add_button(club_row, QStringLiteral("Cmd_Club"), QStringLiteral("..."), [this] { view_.choose_club(); });
        form->addRow(QStringLiteral("Code du club :"), club_row);

        auto* number_row = new QHBoxLayout;
        number_row->addWidget(text_field(DetLicence::kNumero, true, 5));
        letter_ = new QComboBox;
        letter_->setObjectName(QStringLiteral("Cb_licence"));
        letter_->addItems(DetLicence::licence_letters());
        connect(letter_, &QComboBox::currentIndexChanged, this, [this](int i) { view_.Cb_licence = qMax(0, i); });
        number_row->addWidget(letter_);
        form->addRow(QStringLiteral("N° Licence :"), number_row);
        form->addRow(QStringLiteral("Nom :"), text_field(DetLicence::kNom));
        form->addRow(QStringLiteral("Prénom :"), text_field(DetLicence::kPrenom));
        auto* sexe_row = new QHBoxLayout;
        sexe_ = options(QStringLiteral("Option_sexe"), {QStringLiteral("M"), QStringLiteral("F")}, sexe_row,
                        &view_.Option_sexe);
        form->addRow(QStringLiteral("Sexe :"), sexe_row);
        form->addRow(QStringLiteral("Date de Naissance :"), date_fields(DetLicence::kNaissance, 0));

        auto* country_row = new QHBoxLayout;
        country_row->addWidget(text_field(DetLicence::kNationalite));
        text1_[DetLicence::kNationalite]->setReadOnly(true);
        add_button(country_row, QStringLiteral("Cmd_pays"), QStringLiteral("..."), [this] { view_.choose_country(); });
        form->addRow(QStringLiteral("Nationalité :"), country_row);
        form->addRow(QStringLiteral("Adresse :"), text_field(DetLicence::kAdresse));
        form->addRow(QStringLiteral("Adresse suite :"), text_field(DetLicence::kSuiteAdresse));
        form->addRow(QStringLiteral("Code Postal :"), text_field(DetLicence::kCodePostal, true));
        form->addRow(QStringLiteral("Localité :"), text_field(DetLicence::kLocalite));
        form->addRow(QStringLiteral("Téléphone :"), text_field(DetLicence::kTelephone, true));
        form->addRow(QStringLiteral("Téléphone 2 :"), text_field(DetLicence::kTel2, true));
        form->addRow(QStringLiteral("Mail :"), text_field(DetLicence::kMail));

        auto* flags = new QHBoxLayout;
        const QStringList captions{QStringLiteral("Nat. Sportive"), QStringLiteral("Nat. Synchro"),
                                   QStringLiteral("Water Polo"),    QStringLiteral("Plongeon"),
                                   QStringLiteral("Dirigeant"),     QStringLiteral("Maître")};
        for (int i = 0; i < 6; ++i) {
            checks_[i] = new QCheckBox(captions[i]);
            checks_[i]->setObjectName(QStringLiteral("Check1_%1").arg(i));
            connect(checks_[i], &QCheckBox::toggled, this, [this, i](bool on) { view_.Check1[size_t(i)] = on; });
            flags->addWidget(checks_[i]);
        }
        form->addRow(QStringLiteral("Affiliation :"), flags);
        form->addRow(QStringLiteral("Date de dépôt :"), date_fields(DetLicence::kDepot, 10));
        form->addRow(QStringLiteral("Date d'oblitération :"), date_fields(DetLicence::kObliteration, 20));

        auto* type_row = new QHBoxLayout;
        type_ = options(QStringLiteral("Option_type"),
                        {QStringLiteral("Transfert"), QStringLiteral("Nouvelle"), QStringLiteral("Renouvellement")},
                        type_row, &view_.Option_type);
        form->addRow(QStringLiteral("Type de licence"), type_row);
        origin_box_ = new QWidget;
        auto* origin_row = new QHBoxLayout(origin_box_);
        origin_row->setContentsMargins(0, 0, 0, 0);
        origin_row->addWidget(new QLabel(QStringLiteral("Origine du nageur :")));
        origin_row->addWidget(text_field(DetLicence::kOrigine));
        text1_[DetLicence::kOrigine]->setReadOnly(true);
        add_button(origin_row, QStringLiteral("Cmd_origine"), QStringLiteral("Choisir dans une liste de licenciés"),
                   [this] { view_.choose_origin(); });
        form->addRow(origin_box_);
        auto* nature_row = new QHBoxLayout;
        nature_ = options(QStringLiteral("Option_nature"), {QStringLiteral("Normale"), QStringLiteral("Eté")},
                          nature_row, &view_.Option_nature);
        form->addRow(QStringLiteral("Nature de la licence"), nature_row);
        form->addRow(QStringLiteral("Code fédéral unique (optionnel) :"), text_field(DetLicence::kCodeUnique));
        return page;
    }

    QWidget* medical_tab()
    {
        auto* page = new QWidget;
        auto* layout = new QVBoxLayout(page);
        auto* form = new QFormLayout;
        medecin_ = new QLineEdit;
        medecin_->setObjectName(QStringLiteral("txt_Medecin"));
        connect(medecin_, &QLineEdit::textEdited, this, [this](const QString& t) { view_.txt_Medecin = t; });
        form->addRow(QStringLiteral("Médecin :"), medecin_);
        form->addRow(QStringLiteral("Date :"), date_fields(DetLicence::kCtrlMedical, 30));
        layout->addLayout(form);
        auto* frame = new QGroupBox(QStringLiteral("Activités"));
        auto* frame_layout = new QVBoxLayout(frame);
        auto* activities = new QTreeView;
        activities->setObjectName(QStringLiteral("LsvActivites"));
        activities->setRootIsDecorated(false);
        activities->setEditTriggers(QAbstractItemView::NoEditTriggers);
        activities->setModel(&view_.LsvActivites());
        frame_layout->addWidget(activities);
        layout->addWidget(frame);
        return page;
    }

    QWidget* fee_tab()
    {
        auto* page = new QWidget;
        auto* layout = new QVBoxLayout(page);
        auto* fees = new QTreeView;
        fees->setObjectName(QStringLiteral("lsvTarif"));
        fees->setRootIsDecorated(false);
        fees->setEditTriggers(QAbstractItemView::NoEditTriggers);
        fees->setSelectionMode(QAbstractItemView::SingleSelection);
        fees->setModel(&view_.lsvTarif());
        fees->setSelectionModel(&view_.tarif_selection());
        layout->addWidget(fees);
        auto* row = new QHBoxLayout;
        add_button(row, QStringLiteral("cmd_Tarif_Unselect"), QStringLiteral("Supprimer la sélection"),
                   [this] { view_.unselect_tarif(); });
        layout->addLayout(row);
        return page;
    }

    DetLicence& view_;
    QTabWidget* tabs_ = nullptr;
    QLineEdit* text1_[DetLicence::kText1Count] = {};
    QLineEdit* dates_[DetLicence::kDateFieldCount] = {};
    QLineEdit* medecin_ = nullptr;
    QComboBox* letter_ = nullptr;
    QButtonGroup* sexe_ = nullptr;
    QButtonGroup* type_ = nullptr;
    QButtonGroup* nature_ = nullptr;
    QCheckBox* checks_[6] = {};
    QPushButton* club_button_ = nullptr;
    QWidget* origin_box_ = nullptr;
};

}  // namespace

void register_licence_windows()
{
    register_view_window<FrmListeLicence, LicenceListWindow>(QString(FrmListeLicence::kName));
    register_view_window<DetLicence, LicenceDetailWindow>(QString(DetLicence::kName));
}

}  // namespace plouvarine::gui
