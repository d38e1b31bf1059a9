#include "src/entries/frm_convocation.h"

#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"
#include "src/entries/convo_bordereau.h"
#include "src/frame/app_context.h"
#include "src/frame/list_helpers.h"
#include "src/reports/templates.h"

#include <QDir>
#include <QFileInfo>
#include <QTextBlockFormat>
#include <QTextCursor>

namespace plouvarine {

FrmConvocation::FrmConvocation(AppContext& app, const QString& num)
    : View(app, QString(kName)), num_(num), several_clubs_(app.state.club_selection)
{
    set_title(QStringLiteral("Impression des convocations"));
    SetPolice(rich, QStringLiteral("Courier New"));
}

void FrmConvocation::SetListe()
{
    AppContext& a = app();
    QString sql;
    if (several_clubs_)
        sql = QStringLiteral("SELECT Licence.Nom, Licence.Prenom, Licence.Licence, Licence.Num, Club.Intitule, "
                             "Club.Code_federal ") +
              QStringLiteral("FROM Club Club, Licence Licence, Engag_nageur Engag_nageur ") +
              QStringLiteral("WHERE Club.Code_federal = Licence.Code_Club AND Licence.Num = Engag_nageur.Num_Lic AND ");
    else
        sql = QStringLiteral("SELECT Licence.Nom, Licence.Prenom, Licence.Licence, Licence.Num ") +
              QStringLiteral("FROM Licence Licence, Engag_nageur Engag_nageur ") +
              QStringLiteral("WHERE Licence.Num = Engag_nageur.Num_Lic AND ");
    sql += QStringLiteral("Engag_nageur.Num_compet = ") + sql_key(num_) + QStringLiteral(" AND Engag_nageur.Num_profil = ") +
           sql_key(a.state.profile_num) +
           QStringLiteral(" AND Licence.Visible = true ORDER BY Licence.Nom, Licence.Prenom, Licence.licence");
    const Rows rows = a.db.load_rows(sql);
    nageurs_.clear();
    QStringList headers{QStringLiteral("Nom"), QStringLiteral("Prénom"), QStringLiteral("Licence")};
    if (several_clubs_)
        headers << QStringLiteral("Club Origine");
    nageurs_.setHorizontalHeaderLabels(headers);
    for (int r = 0; r < rows.size(); ++r) {
        QList<QStandardItem*> items;
        for (int c : {0, 1, 2})
            items << new QStandardItem(rows.value(r, c));
        if (several_clubs_)
            items << new QStandardItem(rows.value(r, 4));
        for (QStandardItem* item : items)
            item->setEditable(false);
        items[0]->setCheckable(true);
        items[0]->setCheckState(chk_all_ ? Qt::Checked : Qt::Unchecked);
        items[0]->setData(rows.value(r, 3), kNumRole);
        if (several_clubs_)
            items[0]->setData(rows.value(r, 5), kNumClubRole);
        nageurs_.appendRow(items);
    }
    changed();
}

void FrmConvocation::set_chk_all(bool on)
{
    status_text(app().ui, QStringLiteral("Sélection de tous les engagés"));
    chk_all_ = on;
    check_all(nageurs_, on);
    status_text(app().ui, QString());
    changed();
}

void FrmConvocation::set_checked(int row, bool on)
{
    check_row(nageurs_, row, on);
}

bool FrmConvocation::checked(int row) const
{
    return is_checked(nageurs_, row);
}

void FrmConvocation::cmd_text(int index)
{
    const QTextCharFormat current = rich.cursor().charFormat();
    switch (index) {
    case 0:
        SetGras(rich, current.fontWeight() <= QFont::Normal);
        break;
    case 1:
        SetItalique(rich, !current.fontItalic());
        break;
    case 2:
        SetSouligne(rich, !current.fontUnderline());
        break;
    case 3:
        SetAlignement(rich, Qt::AlignLeft);
        break;
    case 4:
        SetAlignement(rich, Qt::AlignHCenter);
        break;
    case 5:
        SetAlignement(rich, Qt::AlignRight);
        break;
    default:
        break;
    }
}

QString FrmConvocation::reply_date() const
{
    QString day = txt_description[0].trimmed();
    QString month = txt_description[1].trimmed();
    const QString year = txt_description[2].trimmed();
    if (!DateValide(year, month, day) || !JourValide(day.toInt(), month.toInt(), year.toInt()))
        return {};
    return DateLongue(ComposeDate(year, month, day));
}

std::vector<ConvocationSwimmer> FrmConvocation::ticked() const
{
    std::vector<ConvocationSwimmer> out;
    for (int r = 0; r < nageurs_.rowCount(); ++r)
        if (checked(r))
            out.push_back({nageurs_.item(r, 0)->data(kNumRole).toString(), nageurs_.item(r, 0)->text(),
                           nageurs_.item(r, 1)->text(), nageurs_.item(r, 2)->text()});
    return out;
}

QString convocation_file(const QString& folder, const QString& base, const QStringList& taken)
{
    QString name;
    for (const QChar c : base)
        name += (c.unicode() < 32 || QStringLiteral("\\/:*?\"<>|").contains(c)) ? u'_' : c;
    name = name.trimmed();
    while (name.endsWith(u'.'))
        name.chop(1);
    if (name.isEmpty())
        name = QStringLiteral("Convocation");
    const QDir dir(folder);
    QString path = dir.filePath(name + QStringLiteral(".pdf"));
    for (int n = 2; QFileInfo::exists(path) || taken.contains(path); ++n)
        path = dir.filePath(name + QStringLiteral(" (%1).pdf").arg(n));
    return path;
}

int FrmConvocation::cmd_pdf()
{
    AppContext& a = app();
    const std::vector<ConvocationSwimmer> swimmers = ticked();
    if (swimmers.empty())
        return 0;
    const QString folder = a.ui.browse_folder(QStringLiteral("Dossier des convocations"));
    if (folder.isEmpty())
        return 0;
    QStringList written;
    try {
        ConvocationChoice choice;
        choice.message = &rich;
        choice.programme = Chk_prog;
        choice.coupon = chk_reponse;
        if (chk_reponse)
            choice.reply_date = reply_date();
        TempoRapport tempo;
        if (PreparerConvocation(a, tempo, num_, choice)) {
            const QString competition =
                a.db.load_rows(QStringLiteral("SELECT Nom FROM Rcomp WHERE AutoNum = ") + sql_key(num_)).first();
            const int total = int(swimmers.size());
            for (int i = 0; i < total; ++i) {
                const ConvocationSwimmer& swimmer = swimmers[size_t(i)];
                const QString caption =
                    QStringLiteral("Impression de la convocation de ") + swimmer.nom + u' ' + swimmer.prenom;
                if (!a.ui.progress(caption, i, total)) {
                    status_text(a.ui, QStringLiteral("Opérations annulées"));
                    break;
                }
                status_text(a.ui, caption);
                EcrireConvocation(a, tempo, num_, swimmer, choice);
                const QString path = convocation_file(
                    folder, swimmer.nom + u' ' + swimmer.prenom + QStringLiteral(" - ") + competition, written);
                if (!a.ui.write_pdf(path, QStringLiteral("Convocation"), tempo.rich.document(),
                                    tempo.rich.page_setup())) {
                    msg_erreur(a.ui, QStringLiteral("Impossible d'écrire le fichier ") + path);
                    break;
                }
                written << path;
            }
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    a.ui.progress_end();
    return int(written.size());
}

bool FrmConvocation::cmd1()
{
    AppContext& a = app();
    const std::vector<ConvocationSwimmer> swimmers = ticked();
    if (swimmers.empty())
        return false;
    bool printed = false;
    try {
        ConvocationChoice choice;
        choice.message = &rich;
        choice.programme = Chk_prog;
        choice.coupon = chk_reponse;
        if (chk_reponse)
            choice.reply_date = reply_date();
        TempoRapport tempo;
        if (PreparerConvocation(a, tempo, num_, choice)) {
            // Each letter on its own pages of the one document printed.
            RichBox run;
            for (size_t i = 0; i < swimmers.size(); ++i) {
                status_text(a.ui, QStringLiteral("Impression de la convocation de ") + swimmers[i].nom + u' ' +
                                      swimmers[i].prenom);
                EcrireConvocation(a, tempo, num_, swimmers[i], choice);
                run.move_to_end();
                if (i == 0)
                    run.copy_page_from(tempo.rich);  // the template's page, header and footer
                else
                    run.cursor().insertBlock();
                const int start = run.cursor().position();
                EcrireRich(run, tempo.rich);
                if (i > 0) {
                    QTextBlockFormat page;
                    page.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
                    QTextCursor first(&run.document());
                    first.setPosition(start);
                    first.mergeBlockFormat(page);
                }
            }
            status_text(a.ui, QStringLiteral("Impression"));
            printed = ImprimerRich(a.ui, run, QStringLiteral("Convocations"));
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    status_text(a.ui, QString());
    return printed;
}

FrmConvocation* OuvrirConvocation(AppContext& app, const QString& num, const QString& caller)
{
    if (app.windows.check_window_open(QString(FrmConvocation::kName)))
        return nullptr;
    auto view = std::make_unique<FrmConvocation>(app, num);
    if (!view->register_window(caller.isEmpty() ? QString(WindowRegistry::kMainWindow) : caller))
        return nullptr;
    view->SetListe();
    return show_child(app.ui, std::move(view));
}

}  // namespace plouvarine
