#pragma once
// Where a programme can come from besides typing it: the file Pcomp.txt that
// an organiser hands out (with nage.txt beside it to name its codes) and a
// Lenex meet file (.lef, or .lxf zipped), the invitation of most meets.
//
// Both readers read the whole file before anything changes: a file that can't
// be read gives one French message in SourceError and the programme on
// screen stays as it was.

#include "src/competitions/utils_programme.h"

#include <QSet>
#include <QString>
#include <QStringList>
#include <stdexcept>
#include <vector>

namespace plouvarine {

class SourceError : public std::runtime_error {
public:
    explicit SourceError(const QString& text) : std::runtime_error(text.toStdString()), text_(text) {}
    const QString& text() const { return text_; }

private:
    QString text_;
};

// A file's text: UTF-8 when it is valid UTF-8 (a BOM dropped), else Latin-1,
// as the organisers' Windows tools write it; its lines without "\r".
QStringList lire_lignes(const QByteArray& bytes);

// The chosen file is a Pcomp.txt, whatever the case of its name.
bool est_fichier_pcomp(const QString& path);

// One line of Pcomp.txt.
struct PcompLine {
    int code = 0;
    QString date;  // yyyymmdd, empty when blank
    ProgSlot slot; // JourCourse still 0
};

// The lines of Pcomp.txt; blank lines are skipped. A line too short for its
// code, letters where a number stands or a date that is no date: SourceError
// naming the line.
std::vector<PcompLine> lire_pcomp(const QStringList& lines);

// Each line's day: from the lowest date, 1 for a line with no date; and the
// number of days, 0 when no line has a date.
struct PcompDays {
    std::vector<int> day;  // one per line
    int count = 0;
};
PcompDays jours_pcomp(const std::vector<PcompLine>& lines);

// The text of the unknown codes: with nage.txt (its lines, or none when the
// file is missing) each code named by its label, day and order.
QString message_codes_inconnus(const std::vector<PcompLine>& unknown, const std::vector<int>& days,
                               const QStringList* nage_lines);

// What a Lenex meet file gives a programme.
struct LenexProgramme {
    QString nom, ville;
    QString debut, fin;   // yyyymmdd, empty without session dates
    int longueur = 0;     // 25, 50, or 0 for another course
    int couloirs = 0;     // 0 when not told
    int jours = 1;        // the days from the first session date to the last
    struct Item {
        int code = 0;
        ProgSlot slot;
    };
    std::vector<Item> items;  // one per event code, by code
    QStringList sans_code;    // events that have no code, described
};

// Reads the first meet of a Lenex document.
LenexProgramme lire_programme_lenex(const QByteArray& xml, const QString& name);
// Reads a .lef, or the .lef inside an .lxf (unpacked under `work_dir`, which
// the caller removes).
LenexProgramme lire_fichier_lenex(const QString& path, const QString& work_dir);

}  // namespace plouvarine
