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
using namespace Qt::StringLiterals;

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

    // Shoots as `shot` does the window the menu command `command` opens, once
    // `then` has run in it.
    void menu(const char* name, const char* command, const std::function<void()>& then = {})
    {
        shot(QLatin1String(name), [&] {
            main_->trigger(QLatin1String(command));
            if (then)
                then();
        });
    }
    // The same for a window of the competition chosen first in its list.
    void chosen(const char* name, const char* command, const std::function<void()>& then = {})
    {
        menu(name, command, [&] {
            click(u"Frm_liste_compet"_s, u"Command1_2"_s);
            if (then)
                then();
        });
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
    shoot.menu("clubs", "mnuBaseClubListe");
    shoot.menu("votre-club", "mnuBaseClubConfigInfo");
    shoot.menu("piscines", "mnuModelePiscineView");
    shoot.menu("licences", "mnuLicListe");
    shoot.menu("licence", "mnuLicModif", [&] { shoot.click(u"frm_liste_licence"_s, u"cmd_2"_s); });
    shoot.menu("competitions", "mnuCompetListe");
    shoot.chosen("competition", "mnuCompetModif");
    shoot.chosen("programme", "mnuEngagProgramme");
    shoot.chosen("engagements", "mnuEngagIndiv", [&] {
        // The interclub's first team, whose swimmers are entered.
        shoot.choose(u"frm_engag"_s, u"cbo_team"_s, 1);
        shoot.pick(u"frm_engag"_s, u"lsv_engag"_s, 0);
    });
    shoot.chosen("relais", "mnuEngagRelais", [&] { shoot.choose(u"frm_engag_relais"_s, u"cbo_team"_s, 1); });
    shoot.chosen("convocations", "mnuEngagConvoc");
    shoot.chosen("disquette", "mnuEngagDisk");
    shoot.menu("import-resultats", "mnuCompetResult");
    shoot.menu("resultats", "mnuCompetVoirResult", [&] {
        shoot.click(u"frm_view_result"_s, u"Chk_all"_s);
        shoot.click(u"frm_view_result"_s, u"cmd_0"_s);
    });
    shoot.menu("performances", "mnuPerfView", [&] {
        shoot.tick(u"frm_view_perf"_s, u"LsvNageur"_s, {0, 1});
        shoot.click(u"frm_view_perf"_s, u"cmd_0"_s);
    });
    shoot.menu("progression", "mnuPerfView", [&] {
        // A swimmer with several swims of one event over the seasons.
        shoot.tick(u"frm_view_perf"_s, u"LsvNageur"_s, {16});
        shoot.click(u"frm_view_perf"_s, u"cmd_0"_s);
        shoot.pick(u"frm_view_perf"_s, u"LsvPerf"_s, 3);
        shoot.click(u"frm_view_perf"_s, u"cmd_progression"_s);
    });
    shoot.menu("ajout-perf", "mnuPerfAjout", [&] { shoot.pick(u"frm_ajout_perf"_s, u"lsv_licence"_s, 3, true); });
    shoot.menu("ajout-perf-relais", "mnuPerfAjoutRelais",
               [&] { shoot.pick(u"frm_ajout_perf_relais"_s, u"LsvNage"_s, 5, true); });
    shoot.menu("records", "mnuPerfRecView", [&] {
        shoot.tick(u"frm_view_record"_s, u"LsvNage"_s, {0, 1, 2, 3});
        shoot.click(u"frm_view_record"_s, u"Cmd_view_0"_s);
    });
    shoot.menu("categories-records", "mnuPerfRecModifier");
    shoot.menu("records-a-valider", "mnuPerfRecView",
               [&] { shoot.click(u"frm_view_record"_s, u"cmd_chercher"_s); });
    shoot.menu("table-cotation", "mnuOutilsCalculPoint", [&] {
        shoot.pick(u"frm_calpts"_s, u"LsvNage"_s, 2);
        // Time fields take M.SSCC: digits and one point, as a person types them.
        shoot.type(u"frm_calpts"_s, u"Txt_Time_0"_s, u"1.1250"_s);
        shoot.click(u"frm_calpts"_s, u"Cmd_calpts"_s);
        shoot.type(u"frm_calpts"_s, u"Txt_Time_1"_s, u"1.1000"_s);
        shoot.type(u"frm_calpts"_s, u"Txt_Time_2"_s, u"1.1500"_s);
        shoot.click(u"frm_calpts"_s, u"Cmd_TableTps"_s);
    });
    shoot.menu("calculatrice-temps", "mnuOutilsCalculTps", [&] {
        for (const char* time : {"0.3215", "0.3540", "0.3387", "0.3192"}) {
            shoot.type(u"frm_calTps"_s, u"txt_tpsAjout"_s, QString::fromLatin1(time));
            shoot.click(u"frm_calTps"_s, u"cmd_Ajout"_s);
        }
    });
    shoot.menu("points-interclubs", "mnuOutilsCalculPointEquipe", [&] {
        shoot.pick(u"frm_PtsInter"_s, u"lsv_numauto"_s, 0);
        shoot.click(u"frm_PtsInter"_s, u"cmd_0"_s);
    });
    shoot.menu("suivi-perf", "mnuPerfOrdiParam");
    main.close();
    app.db.close();
    return shoot.failures == 0 ? 0 : 1;
}
