#pragma once
// Reading Lenex files: one .lef (plain XML), one .lxf or .zip (a zip holding
// .lef files), or a folder of them.

#include "components/lenex/lenex_model.h"

#include <QString>
#include <QStringList>
#include <stdexcept>

namespace plouvarine::lenex {

// A file that cannot be read: the French text says where and why.
class LenexError : public std::runtime_error {
public:
    explicit LenexError(const QString& text) : std::runtime_error(text.toStdString()), text_(text) {}
    const QString& text() const { return text_; }

private:
    QString text_;
};

// Parses Lenex XML. `name` is the file name for the messages. Throws
// LenexError with the line and the element where the reading stopped.
Document parse_lenex(const QByteArray& xml, const QString& name);

// The files of a source: the .lef, .lxf and .zip files of a folder and its
// sub-folders, by path, or the source itself.
QStringList source_files(const QString& source);

// The .lef files of one file: a .lef itself; an .lxf or .zip unpacked into a
// fresh folder under `work_dir` (refused when an entry would land outside
// it). Throws LenexError for a missing file, an archive that cannot be
// unpacked or one that holds no .lef.
QStringList lef_files(const QString& file, const QString& work_dir);

// A trace line for each event of the meet that the catalogue does not have.
QStringList unknown_events(const Meet& meet);

// Reads and parses one .lef file. Throws LenexError.
Document read_lef(const QString& path);

}  // namespace plouvarine::lenex
