#pragma once
// Writing Lenex files: the document's head, and the file itself, plain (.lef)
// or zipped (.lxf holding the .lef of the same name).

#include <QByteArray>
#include <QString>
#include <QXmlStreamWriter>

namespace plouvarine::lenex {

// The XML declaration, <LENEX version="3.0"> and the CONSTRUCTOR; the caller
// writes the MEETS and closes the document.
void begin_document(QXmlStreamWriter& xml);

// Saves the XML at `path`, replacing it only once complete: an .lxf path gets
// a zip holding "<name>.lef", any other path the XML itself. Throws LenexError.
void save_lenex(const QByteArray& xml, const QString& path);

}  // namespace plouvarine::lenex
