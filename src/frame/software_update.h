#pragma once
// The software update (command mnuMajLogiciel): a package "maj_soft_*.zip"
// brings new component files, which replace those of the application folder.
// The package lists them in "maj.txt" at its root; the program itself is not
// replaced.

#include <QString>
#include <QStringList>

namespace plouvarine {

class AppContext;

// Asks for the package, unpacks it into a work folder, copies each file named
// in its "maj.txt" over the one in the application folder, and reports the
// files that the package lacks. Reports every failure itself.
void software_update_command(AppContext& app);

// The values of a "maj.txt" in the comma-or-line separated form of the old
// platform's sequential files: a line break or a comma ends a value, blanks
// around it are dropped, a value in double quotes loses them and keeps the
// commas it holds, and empty values are skipped.
QStringList update_list_values(const QString& text);

}  // namespace plouvarine
