#include "src/results/results_export.h"

#include "src/base/files.h"
#include "src/base/services.h"
#include "src/entries/convo_bordereau.h"
#include "src/frame/app_context.h"
#include "src/reports/templates.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardItemModel>
#include <QTextBlockFormat>

namespace plouvarine {

namespace {

const QString kFolder = QStringLiteral("rep_res");
const QString kEol = QStringLiteral("\r\n");
const QString kSaveStep = QStringLiteral("Une erreur s'est produite lors de la sauvegarde des résultats dans un "
                                         "fichier externe.");

QString html_cell(const QString& text)
{
    return text.trimmed().isEmpty() ? QStringLiteral("&nbsp;") : text.toHtmlEscaped();
}

// The number of columns of the HTML tables and the width of the table.
struct HtmlColumns {
    int count = 6;
    int width = 680;
};

HtmlColumns html_columns(const ResultSheet& sheet)
{
    HtmlColumns c;
    if (sheet.nationalite) {
        c.count += 1;
        c.width = 720;
    }
    if (sheet.equipe) {
        c.count += 1;
        c.width += 25;
    }
    return c;
}

// The inner table of a swimmer's intermediate times: half of them on a second
// line from eight on. Empty when the row holds none.
QString inter_table(const ResultSheet& sheet, int row, int m, int columns)
{
    QString text = QStringLiteral("<tr><td colspan = %1 align = right><TABLE border=0><TR align=right>").arg(columns) +
                   kEol;
    bool any = false;
    for (int k = 0; k < m; ++k) {
        const QString value = cell(*sheet.rows, row, sheet.first_inter + k);
        any = any || !value.trimmed().isEmpty();
        if (k == m / 2 && m >= 8)
            text += QStringLiteral("</TR><TR align=right>") + kEol;
        text += QStringLiteral("<TD width = 60>") + html_cell(value) + QStringLiteral("</TD>") + kEol;
    }
    if (!any)
        return {};
    return text + QStringLiteral("</TR></TABLE></td></tr>") + kEol;
}

bool write_whole(const QString& path, const QString& text, QString& error)
{
    const QByteArray data = QByteArrayLiteral("\xEF\xBB\xBF") + text.toUtf8();
    WholeFile file(path);
    if (file.write(data.constData(), data.size()) && file.commit())
        return true;
    error = file.error_text();
    return false;
}

// One fixed-width line of a data row, and the line of its intermediate times.
QString fixed_line(const ResultSheet& sheet, int row)
{
    const QStandardItemModel& rows = *sheet.rows;
    int c = 0;
    QStringList fields;
    fields << Completer(cell(rows, row, c++), 4);
    fields << Completer(cell(rows, row, c++), 28);
    fields << Completer(cell(rows, row, c++), 4);
    if (sheet.nationalite)
        fields << Completer(cell(rows, row, c++), 4);
    fields << Completer(cell(rows, row, c++), 30);
    if (sheet.equipe)
        fields << Completer(cell(rows, row, c++), 2);
    const QString tps = cell(rows, row, c), pts = cell(rows, row, c + 1);
    if (is_status_text(tps))
        fields << Completer(tps + u' ' + pts, 13);
    else
        fields << Completer(tps, 8) << CompleterGauche(pts, 4);
    return fields.join(u' ');
}

QString fixed_inter_line(const ResultSheet& sheet, int row, int m)
{
    QString line;
    bool any = false;
    for (int k = 0; k < m; ++k) {
        const QString value = cell(*sheet.rows, row, sheet.first_inter + k);
        any = any || !value.trimmed().isEmpty();
        line += CompleterGauche(value, 8) + u' ';
        if (m >= 8 && k == m / 2 - 1)
            line += u'\n';
    }
    return any ? line : QString();
}

}  // namespace

std::map<QString, QString> pages_html(const ResultSheet& sheet, const QString& competition, const QString& name)
{
    std::map<QString, QString> files;
    const QStandardItemModel& rows = *sheet.rows;
    const HtmlColumns columns = html_columns(sheet);
    const QString title = QStringLiteral("<HTML><HEAD><TITLE>Résultats de ") + competition.toHtmlEscaped() +
                          QStringLiteral("</TITLE></HEAD>") + kEol;

    // The pages first: a list with no event opens none, and then nothing is written.
    QString page;
    QString page_name;
    EventWalker walker(sheet.events);
    int m = 0;
    auto finish = [&] {
        if (!page_name.isEmpty())
            files[page_name] = page + QStringLiteral("</TABLE></BODY></HTML>") + kEol;
    };
    for (int r = 0; r < rows.rowCount(); ++r) {
        const RowKind kind = row_kind(rows, r);
        if (kind == RowKind::Title) {
            const QString text = cell(rows, r, 1);
            if (walker.begins_event(text)) {
                finish();
                page_name = kFolder + QStringLiteral("/n%1.htm").arg(walker.events_reached());
                page = QStringLiteral("<HTML><HEAD><TITLE>Résultats de l'épreuve ") + text.toHtmlEscaped() +
                       QStringLiteral("</TITLE></HEAD>") + kEol + QStringLiteral("<BODY>") + kEol +
                       QStringLiteral("<TABLE border=0 width = %1>").arg(columns.width) + kEol;
                if (sheet.tps_inter)
                    m = inter_count(sheet, r);
            }
            if (!page_name.isEmpty())
                page += QStringLiteral("<TR><TD>&nbsp;</TD><TD colspan = %1>").arg(columns.count - 1) +
                        text.toHtmlEscaped() + QStringLiteral("</TD>") + kEol;
            continue;
        }
        // The rows before the first event have no page to go to.
        if (page_name.isEmpty())
            continue;
        if (kind == RowKind::Blank) {
            page += QStringLiteral("<TR><TD colspan = %1>&nbsp;</TD>").arg(columns.count) + kEol;
            continue;
        }
        QString line = QStringLiteral("<TR><TD>") + cell(rows, r, 0).toHtmlEscaped() + QStringLiteral("</TD>");
        const int tps_column = columns.count - 2;
        for (int c = 1; c < columns.count; ++c) {
            const QString value = cell(rows, r, c);
            if (c == tps_column && is_status_text(value.trimmed())) {
                line += QStringLiteral("<TD colspan = 2>") + (value + u' ' + cell(rows, r, c + 1)).toHtmlEscaped() +
                        QStringLiteral("</TD>");
                break;
            }
            line += QStringLiteral("<TD>") + html_cell(value) + QStringLiteral("</TD>");
        }
        page += line + QStringLiteral("</TR>") + kEol;
        if (sheet.tps_inter)
            page += inter_table(sheet, r, m, columns.count);
    }
    if (page_name.isEmpty())
        return files;
    finish();

    QString links = title + QStringLiteral("<base target = \"res\"><BODY>") + kEol;
    for (int i = 0; i < sheet.events.size(); ++i)
        links += QStringLiteral("<a href=\"n%1.htm\">").arg(i + 1) + sheet.events.at(i).toHtmlEscaped() +
                 QStringLiteral("</a><br>") + kEol;
    files[kFolder + QStringLiteral("/link_nage.htm")] = links + QStringLiteral("</BODY></HTML>") + kEol;

    files[name] = title +
                  QStringLiteral("<frameset Cols=\"25%,*\" frameborder=\"NO\" border=\"0\" framespacing=\"0\" "
                                 "target = >") +
                  kEol + QStringLiteral("  <frame name=\"nage\" scrolling=\"yes\" src=\"rep_res\\link_nage.htm\">") +
                  kEol + QStringLiteral("  <frame name=\"res\" scrolling=\"yes\" src=\"rep_res\\n1.htm\">") + kEol +
                  QStringLiteral("</frameset>") + kEol + QStringLiteral("<noframes><body>") + kEol +
                  QStringLiteral("Impossible d'afficher les frames") + kEol +
                  QStringLiteral("</body></noframes></html>") + kEol;
    return files;
}

bool exporte_html(AppContext& app, const ResultSheet& sheet, const QString& compet, const QString& path)
{
    const QFileInfo target(path);
    const QString name = target.fileName();
    const std::optional<CompetitionInfo> info = lire_competition(app, compet, false);
    const std::map<QString, QString> files = pages_html(sheet, info ? info->nom : QString(), name);
    if (files.empty()) {
        msg_erreur(app.ui, kSaveStep);
        return false;
    }
    const QDir folder = target.absoluteDir();
    const QString sub = folder.filePath(kFolder);
    if (QFileInfo(sub).isDir()) {
        const QString question = QStringLiteral("Le sous répertoire dans lequel seront copiés les pages de résultats") +
                                 u'\n' + QDir::toNativeSeparators(sub) + u'\n' +
                                 QStringLiteral("existe déjà. Des fichiers peuvent être écrasés.") + u'\n' +
                                 QStringLiteral("Continuer ?");
        if (msg_confirm(app.ui, question, kDefaultYes) != Button::Yes)
            return false;
    } else if (!folder.mkdir(kFolder)) {
        msg_erreur(app.ui, kSaveStep + u'\n' + QStringLiteral("Impossible de créer le dossier ") + sub);
        return false;
    }
    // The frameset last: it points into the folder, which must be whole first.
    QString error;
    for (const auto& [file, text] : files)
        if (file != name && !write_whole(folder.filePath(file), text, error)) {
            msg_erreur(app.ui, kSaveStep + u'\n' + error);
            return false;
        }
    if (!write_whole(path, files.at(name), error)) {
        msg_erreur(app.ui, kSaveStep + u'\n' + error);
        return false;
    }
    return true;
}

bool edite_resultats(AppContext& app, const ResultSheet& sheet, const QString& compet, bool printing,
                     const QString& path)
{
    TempoRapport tempo;
    if (!ChargerModele(app, template_path(app, QStringLiteral("rescompet")), tempo.rich, QStringLiteral("rescompet")))
        return false;
    if (const std::optional<CompetitionInfo> info = lire_competition(app, compet, false))
        EcrireTagsCompetition(app, tempo.rich, *info);
    // The head of the report, which each event begins with when printed.
    RichBox& out = tempo.rich;
    tempo.rich_modele.copy_from(out);
    out.move_to_end();
    out.write(QStringLiteral("\n"));

    const QStandardItemModel& rows = *sheet.rows;
    EventWalker walker(sheet.events);
    int m = 0;
    for (int r = 0; r < rows.rowCount(); ++r) {
        switch (row_kind(rows, r)) {
        case RowKind::Blank:
            out.write(QStringLiteral("\n"));
            break;
        case RowKind::Title: {
            const QString text = cell(rows, r, 1);
            const bool event = walker.begins_event(text);
            if (event) {
                m = inter_count(sheet, r);
                if (printing && walker.events_reached() > 1) {
                    // A new event on a page of its own, under the head again.
                    out.move_to_end();
                    out.cursor().insertBlock();
                    const int start = out.cursor().position();
                    EcrireRich(out, tempo.rich_modele);
                    QTextBlockFormat page;
                    page.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
                    QTextCursor first(&out.document());
                    first.setPosition(start);
                    first.mergeBlockFormat(page);
                    out.move_to_end();
                    out.write(QStringLiteral("\n"));
                }
            }
            out.write(QStringLiteral("\n"));
            // The events' titles bold and underlined, the blocks' titles bold.
            EcrireStyle(out, text, 0, true, event);
            break;
        }
        case RowKind::Data: {
            out.write(QStringLiteral("\n") + fixed_line(sheet, r));
            if (sheet.tps_inter) {
                const QString inter = fixed_inter_line(sheet, r, m);
                if (!inter.isEmpty())
                    out.write(QStringLiteral("\n") + inter);
            }
            break;
        }
        }
    }
    if (printing)
        return ImprimerRich(app.ui, out, QStringLiteral("Résultats"));
    QString error;
    if (!out.SaveFile(path, &error)) {
        msg_erreur(app.ui, kSaveStep + u'\n' + error);
        return false;
    }
    return true;
}

}  // namespace plouvarine
