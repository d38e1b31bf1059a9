// Plouvarine: builds the application and shows the main window.

#include "src/frame/app_context.h"
#include "gui/frame/main_window.h"
#include "gui/frame/qt_services.h"
#include "gui/all_windows.h"
#include "gui/frame/window_factory.h"
#include "src/subjects.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <sys/stat.h>

int main(int argc, char** argv)
{
    // The bases hold personal data of minors: whatever the program or a
    // library makes (reports, exports, the engine's files) is for the user only.
    ::umask(077);
    QApplication qapp(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Plouvarine"));
    QApplication::setOrganizationName(QStringLiteral("Plouvarine"));

    // Qt's own dialogs and standard buttons read in French.
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    QTranslator qt_french;
    if (qt_french.load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&qt_french);

    plouvarine::gui::register_all_windows();
    plouvarine::gui::QtServices services([] { return QApplication::activeWindow(); });
    plouvarine::AppContext app(services, QApplication::applicationDirPath());
    plouvarine::install_subject_hooks(app);
    plouvarine::install_subject_commands(app);
    plouvarine::gui::MainWindow window(app);
    services.on_status = [&window](int panel, const QString& text) { window.show_status(panel, text); };
    services.show_child = [&window](QWidget* child) { window.show_child(child); };
    window.show();
    return QApplication::exec();
}
