// Stands in for the Lenex components: traces what the runner gave it and, for
// the entry files, leaves two files in the work folder (or one too large for any disk).

#include "src/frame/exchange_component.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QObject>
#include <QStorageInfo>
#include <QtPlugin>

class RecordingComponent : public QObject, public plouvarine::ExchangeComponent {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLOUVARINE_EXCHANGE_COMPONENT_IID FILE "recording_component.json")
    Q_INTERFACES(plouvarine::ExchangeComponent)

public:
    bool run(const QString& method, const plouvarine::ExchangeCall& call,
             plouvarine::OperationProgress& progress) override
    {
        QStringList held;
        QDirIterator it(call.source, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            held << QDir(call.source).relativeFilePath(it.next());
        held.sort();
        QFile trace(call.trace_file);
        if (!trace.open(QIODevice::Append))
            return false;
        trace.write(QStringLiteral("%1 num=%2 new=%3 option=%4 source=%5\n")
                        .arg(method, call.num_compet)
                        .arg(int(call.new_compet))
                        .arg(int(call.option))
                        .arg(held.join(QLatin1Char(',')))
                        .toUtf8());
        progress.set_progress(1, 1);
        if (method != QLatin1String("bCreation_disquette"))
            return false;
        // Competition "huge": a sparse file larger than the space left, that
        // no target can take.
        if (call.num_compet == QLatin1String("huge")) {
            QFile out(QDir(call.tmp_dir).filePath(QStringLiteral("huge.lef")));
            if (!out.open(QIODevice::WriteOnly) || !out.resize(QStorageInfo(call.tmp_dir).bytesAvailable() + (1 << 20)))
                trace.write("sparse file refused\n");
            return true;
        }
        for (const char* name : {"engagements.lef", "relais.lef"}) {
            QFile out(QDir(call.tmp_dir).filePath(QString::fromLatin1(name)));
            if (!out.open(QIODevice::WriteOnly) || out.write("<LENEX/>") != 8)
                return false;
        }
        return true;
    }
};

#include "recording_component.moc"
