#pragma once
// The outputs of the results list, each from the rows as they stand on screen:
// the printed report and its rich-text file through the template "rescompet",
// and the small HTML site of frames (the frameset, rep_res/link_nage.htm, one
// page per event rep_res/n1.htm ...). The tab text is exporte_texte's.

#include "src/results/result_rows.h"

#include <QString>
#include <map>

namespace plouvarine {

class AppContext;

// The files of the HTML tree for the frameset file `name`, by their path
// relative to its folder ("rep_res/n1.htm"), each as its text. Empty when the
// list opens no page (it has no event).
std::map<QString, QString> pages_html(const ResultSheet& sheet, const QString& competition, const QString& name);

// Writes the HTML tree beside `path`: asks before writing into a "rep_res"
// that exists, makes it when not. Every file is replaced only when written
// whole, the frameset last. Failures show "Une erreur s'est produite lors de
// la sauvegarde des résultats dans un fichier externe." and give false.
bool exporte_html(AppContext& app, const ResultSheet& sheet, const QString& compet, const QString& path);

// The report of the list on the template "rescompet" of competition `compet`:
// printed, each event beginning a page of its own, or saved as rich text at
// `path`. False when nothing was printed or written (the template failed, the
// printer choice was cancelled, the file could not be written).
bool edite_resultats(AppContext& app, const ResultSheet& sheet, const QString& compet, bool printing,
                     const QString& path);

}  // namespace plouvarine
