// Plouvarine: builds the application and shows the main window.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv)
{
    QApplication qapp(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Plouvarine"));
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Plouvarine"));
    window.resize(800, 600);
    window.show();
    return QApplication::exec();
}
