#include "support/office_template.h"

#include "support/temp_files.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QUrl>
#include <QStandardPaths>

namespace plouvarine::testing {

QByteArray solid_png(int width, int height, const QColor& color)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

OfficeTemplate make_office_template(const QString& folder)
{
    OfficeTemplate out;
    out.logo = solid_png(80, 40, QColor(200, 30, 30));
    // A flat text document: the one-file form of the word processor's own format.
    const QByteArray document = R"(<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0"
 xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"
 xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0"
 office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.text">
<office:automatic-styles>
 <style:page-layout style:name="pm1"><style:page-layout-properties fo:page-width="21cm" fo:page-height="29.7cm"
  fo:margin-top="1.5cm" fo:margin-bottom="1.5cm" fo:margin-left="2.5cm" fo:margin-right="2cm"/>
  <style:header-style><style:header-footer-properties fo:min-height="0cm" fo:margin-bottom="0.5cm"/></style:header-style>
  <style:footer-style><style:header-footer-properties fo:min-height="0cm" fo:margin-top="0.5cm"/></style:footer-style>
 </style:page-layout>
 <style:style style:name="Tab" style:family="table"><style:table-properties style:width="12cm" table:align="left"/></style:style>
 <style:style style:name="TabA" style:family="table-column"><style:table-column-properties style:column-width="4cm"/></style:style>
 <style:style style:name="TabB" style:family="table-column"><style:table-column-properties style:column-width="8cm"/></style:style>
 <style:style style:name="Cell" style:family="table-cell"><style:table-cell-properties fo:border="0.5pt solid #000000"/></style:style>
 <text:list-style style:name="L1"><text:list-level-style-bullet text:level="1" text:bullet-char="•">
  <style:list-level-properties text:list-level-position-and-space-mode="label-alignment">
  <style:list-level-label-alignment text:label-followed-by="listtab" fo:text-indent="-0.635cm" fo:margin-left="1.27cm"/>
  </style:list-level-properties></text:list-level-style-bullet></text:list-style>
</office:automatic-styles>
<office:master-styles><style:master-page style:name="Standard" style:page-layout-name="pm1">
 <style:header><text:p>En-tête du &lt;NOM_CLUB&gt;</text:p></style:header>
 <style:footer><text:p>Pied de page du club</text:p></style:footer>
</style:master-page></office:master-styles>
<office:body><office:text>
<text:p>Logo <draw:frame draw:name="logo" text:anchor-type="as-char" svg:width="4cm" svg:height="2cm"><draw:image><office:binary-data>)" +
                               out.logo.toBase64() + R"(</office:binary-data></draw:image></draw:frame></text:p>
<table:table table:name="Coupon" table:style-name="Tab">
 <table:table-column table:style-name="TabA"/><table:table-column table:style-name="TabB"/>
 <table:table-row><table:table-cell table:style-name="Cell"><text:p>Club</text:p></table:table-cell>
  <table:table-cell table:style-name="Cell"><text:p>&lt;NOM_CLUB&gt;</text:p></table:table-cell></table:table-row>
 <table:table-row><table:table-cell table:style-name="Cell"><text:p>Code</text:p></table:table-cell>
  <table:table-cell table:style-name="Cell"><text:p>&lt;CODE_CLUB&gt;</text:p></table:table-cell></table:table-row>
</table:table>
<text:list text:style-name="L1"><text:list-item><text:p>Bonnet du club</text:p></text:list-item>
 <text:list-item><text:p>Licence à jour</text:p></text:list-item></text:list>
<text:p>Fin du modèle</text:p>
</office:text></office:body></office:document>
)";
    const QString source = folder + QStringLiteral("/modele.fodt");
    if (!write_bytes(source, document)) {
        out.error = QStringLiteral("cannot write ") + source;
        return out;
    }
    out.rtf = office_convert(source, folder, {QStringLiteral("--convert-to"), QStringLiteral("rtf")},
                             QStringLiteral("modele.rtf"), &out.error);
    return out;
}

QString office_convert(const QString& source, const QString& folder, const QStringList& arguments,
                       const QString& converted_name, QString* error)
{
    const QString soffice = QStandardPaths::findExecutable(QStringLiteral("soffice"));
    if (soffice.isEmpty()) {
        *error = QStringLiteral("soffice is not installed");
        return {};
    }
    const QString profile = QUrl::fromLocalFile(folder + QStringLiteral("/lo-profile")).toString();
    QProcess convert;
    convert.start(soffice, QStringList{QStringLiteral("-env:UserInstallation=") + profile, QStringLiteral("--headless")}
                               + arguments + QStringList{QStringLiteral("--outdir"), folder, source});
    const QString converted = folder + QLatin1Char('/') + converted_name;
    if (!convert.waitForFinished(180000) || !QFile::exists(converted)) {
        *error = QStringLiteral("LibreOffice did not convert the document: ") +
                 QString::fromLocal8Bit(convert.readAllStandardError());
        return {};
    }
    return converted;
}

}  // namespace plouvarine::testing
