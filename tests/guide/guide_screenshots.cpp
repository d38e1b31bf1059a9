// The user guide's screenshots: the real main window over a copy of the demo
// base, each window opened through its menu and grabbed into <folder>/<name>.png;
// messages and file dialogs scripted. Run by scripts/guide-screenshots.sh.

#include "drawn_main_window.h"

#include "gui/all_windows.h"
#include "src/frame/app_context.h"
#include "src/subjects.h"
#include "support/scripted_services.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QLocale>
#include <QMdiSubWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <QTranslator>
#include <QTreeView>
#include <cstdio>
#include <functional>

using namespace plouvarine;

namespace {

class Shooter {
public:
    Shooter(testing::DrawnMainWindow& main, QString folder) : main_(main), folder_(std::move(folder)) {}

    // Runs `action`; a modal window it opens is grabbed and closed, else the
    // child window it leaves in front (the main window when there is none)
    // is grabbed once the action is over.
    void shot(const QString& name, const std::function<void()>& action)
    {
        bool modal_taken = false;
        QTimer poll;
        poll.setInterval(150);
        QObject::connect(&poll, &QTimer::timeout, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            if (!modal || modal_taken)
                return;
            modal_taken = true;
            save(name, modal->grab());
            modal->close();
        });
        poll.start();
        action();
        settle();
        poll.stop();
        if (!modal_taken) {
            QMdiSubWindow* front = main_->mdi_area()->activeSubWindow();
            save(name, front ? front->grab() : main_->grab());
        }
        close_children();
    }

    // Clicks the button or tick box `button` of the child window `window`.
    void click(const QString& window, const QString& button)
    {
        if (auto* b = child<QAbstractButton>(window, button))
            b->click();
    }

    // Picks the line `index` of the list `combo` of the child window `window`,
    // as the person's choice does.
    void choose(const QString& window, const QString& combo, int index)
    {
        auto* c = child<QComboBox>(window, combo);
        if (c && c->count() > index) {
            c->setCurrentIndex(index);
            Q_EMIT c->activated(index);
        }
    }

    // Makes the line `row` of the list `list` of the child window `window`
    // current; `clicked` clicks it too.
    void pick(const QString& window, const QString& list, int row, bool clicked = false)
    {
        auto* v = child<QTreeView>(window, list);
        if (!v || v->model()->rowCount() <= row)
            return;
        v->setCurrentIndex(v->model()->index(row, 0));
        if (clicked)
            Q_EMIT v->clicked(v->model()->index(row, 0));
    }

    // Ticks the lines `rows` of the list `list` of the child window `window`.
    void tick(const QString& window, const QString& list, std::initializer_list<int> rows)
    {
        auto* v = child<QTreeView>(window, list);
        for (int row : rows)
            if (v && v->model()->rowCount() > row)
                v->model()->setData(v->model()->index(row, 0), Qt::Checked, Qt::CheckStateRole);
    }

    // Types `text` into the field `field` of the child window `window`.
    void type(const QString& window, const QString& field, const QString& text)
    {
        if (auto* f = child<QLineEdit>(window, field)) {
            f->setText(text);
            Q_EMIT f->textEdited(text);
        }
    }

    // Opens the window of the menu command `command` on the competition
    // chosen first in its list.
    void open_chosen(const char* command)
    {
        main_->trigger(QLatin1String(command));
        click(QStringLiteral("Frm_liste_compet"), QStringLiteral("Command1_2"));
    }

    int failures = 0;

private:
    // The control `name` of the child window `window`, once the events are
    // handled; a word on stderr when it is missing, as a picture would be wrong.
    template <typename T>
    T* child(const QString& window, const QString& name)
    {
        settle();
        QWidget* w = main_.child_window(window);
        T* found = w ? w->findChild<T*>(name) : nullptr;
        if (!found)
            std::fprintf(stderr, "guide_screenshots: no %s in %s\n", qPrintable(name), qPrintable(window));
        return found;
    }
    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QApplication::processEvents();
    }
    void save(const QString& name, const QPixmap& picture)
    {
        const QString path = QDir(folder_).filePath(name + QStringLiteral(".png"));
        // Small enough for the repository, large enough to read.
        const QPixmap small = picture.width() > 960 ? picture.scaledToWidth(960, Qt::SmoothTransformation) : picture;
        // A busy window (a long list of results) goes to 256 colours, which
        // a window's flat colours hardly need more of.
        const bool saved = small.save(path, "PNG", 9)
                           && (QFileInfo(path).size() < 200 * 1024
                               || small.toImage().convertToFormat(QImage::Format_Indexed8, Qt::AvoidDither).save(path, "PNG", 9));
        if (!saved) {
            std::fprintf(stderr, "guide_screenshots: cannot write %s\n", qPrintable(path));
            ++failures;
            return;
        }
        std::printf("%s\n", qPrintable(path));
    }
    void close_children()
    {
        for (QMdiSubWindow* sub : main_->mdi_area()->subWindowList())
            sub->close();
        settle();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    testing::DrawnMainWindow& main_;
    QString folder_;
};

bool copy_application_folder(const QString& from, const QString& to)
{
    for (const QFileInfo& f : QDir(from).entryInfoList(QDir::Files))
        if (!QFile::copy(f.filePath(), QDir(to).filePath(f.fileName())))
            return false;
    return true;
}

}  // namespace

int main(int argc, char** argv)
{
    QTemporaryDir settings, app_dir, work;
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    QApplication qapp(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: guide_screenshots <output folder>\n");
        return 2;
    }
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    QTranslator qt_french;
    if (qt_french.load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&qt_french);
    gui::register_all_windows();

    const QString demo = QDir(work.path()).filePath(QStringLiteral("demo.mdb"));
    if (!copy_application_folder(QFileInfo(QStringLiteral(PLOUVARINE_DEMO_FILE)).path(), app_dir.path())
        || !QFile::copy(QStringLiteral(PLOUVARINE_DEMO_FILE), demo)) {
        std::fprintf(stderr, "guide_screenshots: the application folder or the demo base is missing\n");
        return 1;
    }
    QFile::setPermissions(demo, QFile::permissions(demo) | QFileDevice::WriteOwner);
    QDir().mkpath(QString::fromLocal8Bit(argv[1]));

    testing::ScriptedServices ui;
    AppContext app(ui, app_dir.path());
    app.state.model_path = app.app_file(QStringLiteral("modele_base.sav"));
    install_subject_hooks(app);
    testing::DrawnMainWindow main;
    main.open(app, ui);
    app.enable_menus(false);
    main->resize(1260, 780);
    Shooter shoot(main, QString::fromLocal8Bit(argv[1]));

    shoot.shot(QStringLiteral("demarrage"), [] {});
    ui.files.push_back(demo);
    main->trigger(QStringLiteral("mnuBaseOpen"));
    if (!app.db.is_open()) {
        std::fprintf(stderr, "guide_screenshots: the demo base did not open\n");
        return 1;
    }
    // The status bar as the program writes it (the scripted services keep it).
    main->show_status(1, ui.status[1]);
    main->show_status(2, ui.status[2]);
    shoot.shot(QStringLiteral("base-ouverte"), [] {});
    shoot.shot(QStringLiteral("clubs"), [&] { main->trigger(QStringLiteral("mnuBaseClubListe")); });
    shoot.shot(QStringLiteral("votre-club"), [&] { main->trigger(QStringLiteral("mnuBaseClubConfigInfo")); });
    shoot.shot(QStringLiteral("piscines"), [&] { main->trigger(QStringLiteral("mnuModelePiscineView")); });
    shoot.shot(QStringLiteral("licences"), [&] { main->trigger(QStringLiteral("mnuLicListe")); });
    shoot.shot(QStringLiteral("licence"), [&] {
        main->trigger(QStringLiteral("mnuLicModif"));
        shoot.click(QStringLiteral("frm_liste_licence"), QStringLiteral("cmd_2"));
    });
    shoot.shot(QStringLiteral("competitions"), [&] { main->trigger(QStringLiteral("mnuCompetListe")); });
    shoot.shot(QStringLiteral("competition"), [&] {
        shoot.open_chosen("mnuCompetModif");
    });
    shoot.shot(QStringLiteral("programme"), [&] {
        shoot.open_chosen("mnuEngagProgramme");
    });
    shoot.shot(QStringLiteral("engagements"), [&] {
        shoot.open_chosen("mnuEngagIndiv");
        // The interclub's first team, whose swimmers are entered.
        shoot.choose(QStringLiteral("frm_engag"), QStringLiteral("cbo_team"), 1);
        shoot.pick(QStringLiteral("frm_engag"), QStringLiteral("lsv_engag"), 0);
    });
    shoot.shot(QStringLiteral("relais"), [&] {
        shoot.open_chosen("mnuEngagRelais");
        shoot.choose(QStringLiteral("frm_engag_relais"), QStringLiteral("cbo_team"), 1);
    });
    shoot.shot(QStringLiteral("convocations"), [&] {
        shoot.open_chosen("mnuEngagConvoc");
    });
    shoot.shot(QStringLiteral("disquette"), [&] {
        shoot.open_chosen("mnuEngagDisk");
    });
    shoot.shot(QStringLiteral("import-resultats"), [&] { main->trigger(QStringLiteral("mnuCompetResult")); });
    shoot.shot(QStringLiteral("resultats"), [&] {
        main->trigger(QStringLiteral("mnuCompetVoirResult"));
        shoot.click(QStringLiteral("frm_view_result"), QStringLiteral("Chk_all"));
        shoot.click(QStringLiteral("frm_view_result"), QStringLiteral("cmd_0"));
    });
    shoot.shot(QStringLiteral("performances"), [&] {
        main->trigger(QStringLiteral("mnuPerfView"));
        shoot.tick(QStringLiteral("frm_view_perf"), QStringLiteral("LsvNageur"), {0, 1});
        shoot.click(QStringLiteral("frm_view_perf"), QStringLiteral("cmd_0"));
    });
    shoot.shot(QStringLiteral("progression"), [&] {
        main->trigger(QStringLiteral("mnuPerfView"));
        // A swimmer with several swims of one event over the seasons.
        shoot.tick(QStringLiteral("frm_view_perf"), QStringLiteral("LsvNageur"), {16});
        shoot.click(QStringLiteral("frm_view_perf"), QStringLiteral("cmd_0"));
        shoot.pick(QStringLiteral("frm_view_perf"), QStringLiteral("LsvPerf"), 3);
        shoot.click(QStringLiteral("frm_view_perf"), QStringLiteral("cmd_progression"));
    });
    shoot.shot(QStringLiteral("ajout-perf"), [&] {
        main->trigger(QStringLiteral("mnuPerfAjout"));
        shoot.pick(QStringLiteral("frm_ajout_perf"), QStringLiteral("lsv_licence"), 3, true);
    });
    shoot.shot(QStringLiteral("ajout-perf-relais"), [&] {
        main->trigger(QStringLiteral("mnuPerfAjoutRelais"));
        shoot.pick(QStringLiteral("frm_ajout_perf_relais"), QStringLiteral("LsvNage"), 5, true);
    });
    shoot.shot(QStringLiteral("records"), [&] {
        main->trigger(QStringLiteral("mnuPerfRecView"));
        shoot.tick(QStringLiteral("frm_view_record"), QStringLiteral("LsvNage"), {0, 1, 2, 3});
        shoot.click(QStringLiteral("frm_view_record"), QStringLiteral("Cmd_view_0"));
    });
    shoot.shot(QStringLiteral("categories-records"), [&] { main->trigger(QStringLiteral("mnuPerfRecModifier")); });
    shoot.shot(QStringLiteral("records-a-valider"), [&] {
        main->trigger(QStringLiteral("mnuPerfRecView"));
        shoot.click(QStringLiteral("frm_view_record"), QStringLiteral("cmd_chercher"));
    });
    shoot.shot(QStringLiteral("table-cotation"), [&] {
        main->trigger(QStringLiteral("mnuOutilsCalculPoint"));
        shoot.pick(QStringLiteral("frm_calpts"), QStringLiteral("LsvNage"), 2);
        shoot.type(QStringLiteral("frm_calpts"), QStringLiteral("Txt_Time_0"), QStringLiteral("1:12.50"));
        shoot.click(QStringLiteral("frm_calpts"), QStringLiteral("Cmd_calpts"));
        shoot.type(QStringLiteral("frm_calpts"), QStringLiteral("Txt_Time_1"), QStringLiteral("1:10.00"));
        shoot.type(QStringLiteral("frm_calpts"), QStringLiteral("Txt_Time_2"), QStringLiteral("1:15.00"));
        shoot.click(QStringLiteral("frm_calpts"), QStringLiteral("Cmd_TablePts"));
    });
    shoot.shot(QStringLiteral("calculatrice-temps"), [&] {
        main->trigger(QStringLiteral("mnuOutilsCalculTps"));
        for (const char* time : {"0.3215", "0.3540", "0.3387", "0.3192"}) {
            shoot.type(QStringLiteral("frm_calTps"), QStringLiteral("txt_tpsAjout"), QString::fromLatin1(time));
            shoot.click(QStringLiteral("frm_calTps"), QStringLiteral("cmd_Ajout"));
        }
    });
    shoot.shot(QStringLiteral("points-interclubs"), [&] {
        main->trigger(QStringLiteral("mnuOutilsCalculPointEquipe"));
        shoot.pick(QStringLiteral("frm_PtsInter"), QStringLiteral("lsv_numauto"), 0);
        shoot.click(QStringLiteral("frm_PtsInter"), QStringLiteral("cmd_0"));
    });
    shoot.shot(QStringLiteral("suivi-perf"), [&] { main->trigger(QStringLiteral("mnuPerfOrdiParam")); });
    main.close();
    app.db.close();
    return shoot.failures == 0 ? 0 : 1;
}
