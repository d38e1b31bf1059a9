#include "support/statement_log.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <unistd.h>

namespace plouvarine::testing {

namespace {

// Records: "1" or "0" for prepared, the statement as sent, the statement as
// rewritten, each field ended by a unit separator, the record by a NUL: texts
// in statements may hold tabs and line breaks.
constexpr char kField = '\x1f';
constexpr char kEnd = '\0';

QString log_folder()
{
    return QStringLiteral(PLOUVARINE_STATEMENT_LOG);
}

// Linked into every test program: switches the recorder on before main.
[[maybe_unused]] const bool recording = [] {
    Database::set_statement_recorder([](const SentStatement& s) {
        static QSet<QString> seen;
        static QFile file;
        const QString key = s.jet + QLatin1Char(kField) + QString::number(s.prepared);
        if (seen.contains(key))
            return;
        seen.insert(key);
        if (!file.isOpen()) {
            QDir().mkpath(log_folder());
            file.setFileName(QDir(log_folder()).filePath(QString::number(::getpid()) + QStringLiteral(".log")));
            if (!file.open(QIODevice::Append))
                return;
        }
        const QByteArray record = QByteArray(s.prepared ? "1" : "0") + kField + s.jet.toUtf8() + kField +
                                  s.sqlite.toUtf8() + kEnd;
        file.write(record);
        file.flush();
    });
    return true;
}();

}  // namespace

std::vector<SentStatement> recorded_statements()
{
    std::vector<SentStatement> out;
    QSet<QString> seen;
    const QDir dir(log_folder());
    for (const QString& name : dir.entryList({QStringLiteral("*.log")}, QDir::Files, QDir::Name)) {
        QFile file(dir.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        for (const QByteArray& record : file.readAll().split(kEnd)) {
            const QList<QByteArray> parts = record.split(kField);
            if (parts.size() != 3)
                continue;
            const SentStatement s{QString::fromUtf8(parts[1]), QString::fromUtf8(parts[2]), parts[0] == "1"};
            const QString key = s.jet + QLatin1Char(kField) + QString::number(s.prepared);
            if (!seen.contains(key)) {
                seen.insert(key);
                out.push_back(s);
            }
        }
    }
    return out;
}

}  // namespace plouvarine::testing
