// A Qt plugin that carries nothing but its metadata, with a version, so that
// the tests of the component list read a version from a real plugin file.

#include <QObject>
#include <QtPlugin>

class VersionFixture : public QObject {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.plouvarine.test.VersionFixture" FILE "version_plugin.json")
};

#include "version_plugin.moc"
