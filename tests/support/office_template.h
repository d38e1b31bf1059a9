#pragma once
// A template as a club makes it in its word processor: LibreOffice writes it
// as RTF from a text document that the test lays out, with a logo, a table of
// tags, a bulleted list, a header and a footer.

#include <QByteArray>
#include <QColor>
#include <QString>
#include <QStringList>

namespace plouvarine::testing {

// A PNG of `width` x `height` pixels filled with `color`.
QByteArray solid_png(int width, int height, const QColor& color);

struct OfficeTemplate {
    QString rtf;     // the converted file, empty when LibreOffice is missing or failed
    QByteArray logo;  // the PNG put in the letterhead
    QString error;
};

// Converts `source` with LibreOffice into `folder` (`arguments` name the
// filters: "--convert-to", "rtf"...) and gives the converted file's path, or
// the empty text with `error` set. Each conversion runs with a user profile of
// its own in `folder`, so that conversions of tests running side by side do
// not meet in one LibreOffice instance (the second would give up at once).
QString office_convert(const QString& source, const QString& folder, const QStringList& arguments,
                       const QString& converted_name, QString* error);

// Writes the text document in `folder` and converts it with LibreOffice.
OfficeTemplate make_office_template(const QString& folder);

}  // namespace plouvarine::testing
