#include "components/lenex/lenex_writer.h"

#include "components/lenex/lenex_reader.h"
#include "src/base/errors.h"
#include "src/base/zip.h"

#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryDir>

namespace plouvarine::lenex {

void begin_document(QXmlStreamWriter& xml)
{
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("LENEX"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("3.0"));
    xml.writeStartElement(QStringLiteral("CONSTRUCTOR"));
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("Plouvarine"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0.0"));
    xml.writeEndElement();
}

namespace {

void write_file(const QByteArray& bytes, const QString& path)
{
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size() || !f.commit())
        throw LenexError(QStringLiteral("%1 : écriture impossible (%2)").arg(path, f.errorString()));
}

}  // namespace

void save_lenex(const QByteArray& xml, const QString& path)
{
    if (!path.endsWith(QLatin1String(".lxf"), Qt::CaseInsensitive)) {
        write_file(xml, path);
        return;
    }
    // The .lef is written apart so that the work folder holds the .lxf only.
    QTemporaryDir dir;
    if (!dir.isValid())
        throw LenexError(QStringLiteral("%1 : dossier temporaire impossible").arg(path));
    const QString lef = QFileInfo(path).completeBaseName() + QStringLiteral(".lef");
    write_file(xml, dir.filePath(lef));
    try {
        zip_file(path, dir.filePath(lef), lef);
    } catch (const Error& e) {
        throw LenexError(QStringLiteral("%1 : compression impossible (%2)").arg(path, e.description()));
    }
}

}  // namespace plouvarine::lenex
