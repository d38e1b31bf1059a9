#include "src/entries/convo_bordereau.h"

#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"
#include "src/base/utils_time.h"
#include "src/competitions/handoff.h"
#include "src/competitions/liste_compet.h"
#include "src/entries/frm_convocation.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/reports/rich_text.h"
#include "src/reports/template_builder.h"
#include "src/reports/templates.h"

#include <map>

namespace plouvarine {

namespace {

constexpr int kNameWidth = 25;
constexpr int kFirstNameWidth = 20;
constexpr int kLicenceWidth = 7;
constexpr int kSwimmerWidth = kNameWidth + 1 + kFirstNameWidth + 1 + kLicenceWidth;  // 54
constexpr double kRelaySwimmersSize = 8;
constexpr double kTextSize = 10;

bool is_true(const QString& value) { return value == QLatin1String("Vrai"); }

QChar pad_char(const QString& pad) { return pad.isEmpty() ? QLatin1Char(' ') : pad.at(0); }

// What the rows before wrote last: a heading is due when the team changes.
struct Heading {
    QString number;
    QString label;
    bool first = true;
};

// A line break, the team's heading underlined, a line break, when the team
// (number or label) is not the one of the row before.
void EnteteEquipe(RichBox& rich, Heading& last, const QString& number, bool mixed, const QString& sexe)
{
    const QString label = LibelleEquipe(number, mixed, sexe);
    if (!last.first && number == last.number && label == last.label)
        return;
    last = {number, label, false};
    EcrireTexte(rich, QStringLiteral("\n"));
    EcrireSouligne(rich, number == QLatin1String("0") ? label : QStringLiteral("Equipe ") + number + u' ' + label);
    EcrireTexte(rich, QStringLiteral("\n"));
}

void ecrire_individuels(AppContext& app, RichBox& rich, const QString& num)
{
    status_text(app.ui, QStringLiteral("Ecriture engagements par nageur"));
    const Rows rows = app.db.load_rows(
        QStringLiteral("SELECT Licence.Nom, Licence.Prenom, Licence.Licence, Licence.Sexe, Nage.Libelle, "
                       "Engag.Tps_engagement, Engag.Num_equipe, Engag.Equipe_mixte, Licence.Num ") +
        QStringLiteral("FROM Nage Nage, Engag Engag, Licence Licence ") +
        QStringLiteral("WHERE Licence.Num = Engag.Num_Lic AND ") +
        QStringLiteral("Nage.Code_Nage = Engag.Code_epreuve AND ") + QStringLiteral("Engag.Num_compet = ") +
        sql_key(num) + QStringLiteral(" And Engag.Num_profil = ") + sql_key(app.state.profile_num) +
        QStringLiteral(" ORDER BY Engag.Num_equipe, Engag.Equipe_mixte, Licence.Sexe, Licence.Nom, "
                       "Licence.Prenom, Nage.Code_Nage"));
    // The first piece written replaces the tag and takes its fixed-width font.
    if (rich.Find(tags::kEngagIndiv) < 0)
        return;
    if (rows.empty())
        rich.write(QString());
    Heading heading;
    QString last_swimmer;
    for (int r = 0; r < rows.size(); ++r) {
        const QString number = rows.value(r, 6);
        EnteteEquipe(rich, heading, number, is_true(rows.value(r, 7)), rows.value(r, 3));
        QString line;
        const QString swimmer = rows.value(r, 8);
        if (swimmer != last_swimmer)
            line = Completer(rows.value(r, 0), kNameWidth) + u' ' + Completer(rows.value(r, 1), kFirstNameWidth) +
                   u' ' + Completer(rows.value(r, 2), kLicenceWidth);
        else
            line = QString(kSwimmerWidth, QLatin1Char(' '));
        last_swimmer = swimmer;
        line += u' ' + Completer(rows.value(r, 4), 17) + u' ' + CompleterGauche(affiche_temps(rows.value(r, 5)), 8);
        EcrireTexte(rich, line + u'\n');
    }
}

// Writes the relay section; gives the swimmers of each relay that has some,
// by the running number of its mark, tab-separated.
std::map<int, QString> ecrire_relais(AppContext& app, RichBox& rich, const QString& num)
{
    status_text(app.ui, QStringLiteral("Ecriture engagements par relais"));
    std::map<int, QString> swimmers;
    const Rows rows = app.db.load_rows(
        QStringLiteral("SELECT Nage.Libelle, Relais.Num_Lic, Relais.Tps, Relais.Num_equipe, Relais.Equipe_mixte, "
                       "Nage.Sexe, ") +
        QStringLiteral("Relais.Licence1, Relais.Licence2, Relais.Licence3, Relais.Licence4, Relais.Licence5, ") +
        QStringLiteral("Relais.Licence6, Relais.Licence7, Relais.Licence8, Relais.Licence9, Relais.Licence10 ") +
        QStringLiteral("FROM Nage Nage, Relais Relais ") + QStringLiteral("WHERE Nage.Code_Nage = Relais.Code_epreuve ") +
        QStringLiteral("AND Relais.Num_compet = ") + sql_key(num) + QStringLiteral(" AND Relais.Num_profil = ") +
        sql_key(app.state.profile_num) +
        QStringLiteral(" ORDER BY Relais.Num_equipe, Relais.Equipe_mixte, Nage.Sexe, Nage.Code_nage, Relais.Num_Lic"));
    if (rich.Find(tags::kEngagRelais) < 0)
        return swimmers;
    if (rows.empty())
        rich.write(QString());
    const QString nulle = app.state.num_lic_nulle;
    Heading heading;
    int mark = 0;
    for (int r = 0; r < rows.size(); ++r) {
        EnteteEquipe(rich, heading, rows.value(r, 3), is_true(rows.value(r, 4)), rows.value(r, 5));
        EcrireTexte(rich, Completer(rows.value(r, 0), 30) + CompleterGauche(rows.value(r, 1), 6) +
                              QString(7, QLatin1Char(' ')) + CompleterGauche(affiche_temps(rows.value(r, 2)), 8) +
                              u'\n');
        QStringList places;
        for (int c = 6; c < 16; ++c) {
            const QString place = rows.value(r, c);
            if (!place.isEmpty() && place != nulle)
                places << place;
        }
        if (places.isEmpty())
            continue;
        ++mark;
        EcrireTexte(rich, QStringLiteral("<BALISE %1>\n").arg(mark));
        swimmers[mark] = places.join(u'\t');
    }
    return swimmers;
}

// The relay's swimmers, one indented line each: tab, name, first name and
// licence in brackets.
QString LigneNageursRelais(AppContext& app, const QString& list)
{
    QString out;
    for (const QString& number : list.split(u'\t', Qt::SkipEmptyParts)) {
        QString sql;
        if (app.state.club_selection)
            sql = QStringLiteral("SELECT Licence.Nom, Licence.Prenom, Licence.Licence, Club.Code_federal ") +
                  QStringLiteral("FROM Club Club, Licence Licence, Selection Selection ") +
                  QStringLiteral("WHERE Club.Code_federal = Licence.Code_Club AND Licence.Num = Selection.Num_Lic AND ") +
                  QStringLiteral("Selection.Visible = true AND Selection.Num_Lic = ") + sql_key(number);
        else
            sql = QStringLiteral("SELECT Nom, Prenom, Licence") + QStringLiteral(" FROM Licence ") +
                  QStringLiteral(" WHERE Visible = true") + QStringLiteral(" AND Num = ") + sql_key(number);
        const Rows rows = app.db.load_rows(sql);
        if (rows.empty())
            continue;
        out += u'\t' + rows.value(0, 0) + u' ' + rows.value(0, 1) + QStringLiteral(" (") + rows.value(0, 2) +
               QStringLiteral(")\n");
    }
    return out;
}

}  // namespace

QString Completer(const QString& text, int width, const QString& pad)
{
    return text.leftJustified(width, pad_char(pad), true);
}

QString CompleterGauche(const QString& text, int width, const QString& pad)
{
    return text.rightJustified(width, pad_char(pad), true);
}

QString LibelleEquipe(const QString& number, bool mixed, const QString& sexe)
{
    if (number == QLatin1String("0"))
        return QStringLiteral("Individuel");
    if (mixed)
        return QStringLiteral("Mixte");
    return sexe == QLatin1String("M") ? QStringLiteral("Homme") : QStringLiteral("Femme");
}

void EcrireBordereau(AppContext& app, RichBox& rich, const QString& num)
{
    ecrire_individuels(app, rich, num);
    const std::map<int, QString> relays = ecrire_relais(app, rich, num);
    // The swimmers go in a second pass, in a smaller size under each relay.
    for (const auto& [mark, list] : relays) {
        if (rich.Find(QStringLiteral("<BALISE %1>").arg(mark)) < 0)
            continue;
        EcrireTexte(rich, LigneNageursRelais(app, list), kRelaySwimmersSize);
        SetTaille(rich, kTextSize);
    }
}

bool ImprimerBordereau(AppContext& app, const QString& num)
{
    bool printed = false;
    try {
        ReportJob job;
        job.kind = QStringLiteral("bor_engag");
        job.title = QStringLiteral("Bordereau d'engagements");
        job.competition = num;
        job.fill = [&](TempoRapport& tempo) { EcrireBordereau(app, tempo.rich, num); };
        printed = imprimer_rapport(app, job);
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QString(), &e);
    }
    status_text(app.ui, QString());
    return printed;
}

// ---------------------------------------------------------------- convocations

namespace {

// The days of the programme, each under its date, the events in their order.
void ecrire_programme(AppContext& app, RichBox& rich, const QString& num, const QString& debut)
{
    const Rows rows = app.db.load_rows(
        QStringLiteral("SELECT Nage.Libelle, Pcomp.JourCourse ") + QStringLiteral("FROM Nage Nage, Pcomp Pcomp ") +
        QStringLiteral("WHERE Nage.Code_Nage = Pcomp.Code_epreuve ") + QStringLiteral("AND Pcomp.Num_compet = ") +
        sql_key(num) + QStringLiteral(" ORDER BY Pcomp.JourCourse, Pcomp.Num_ordre"));
    const QDate start = QDate::fromString(debut, QStringLiteral("yyyyMMdd"));
    QString day;
    for (int r = 0; r < rows.size(); ++r) {
        const QString jour = rows.value(r, 1);
        if (r == 0 || jour != day) {
            day = jour;
            EcrireTexte(rich, QStringLiteral("\n"));
            const QDate date = start.isValid() ? start.addDays(jour.toInt() - 1) : QDate();
            EcrireSouligne(rich, DateLongue(date.toString(QStringLiteral("yyyyMMdd")),
                                            QString::fromLatin1(kFormatDateJour)));
            EcrireTexte(rich, QStringLiteral("\n"));
        }
        EcrireTexte(rich, rows.value(r, 0) + u'\n');
    }
}

// The lines that replace `tag`, or the tag emptied.
void remplacer_lignes(RichBox& rich, const QString& tag, const QStringList& lines)
{
    if (rich.Find(tag) < 0)
        return;
    rich.write(lines.isEmpty() ? QString() : lines.join(u'\n'));
}

void ecrire_coupon(RichBox& rich, const ConvocationSwimmer& swimmer, const ConvocationChoice& choice)
{
    const QString dashes(70, u'-');
    const auto ciseaux = [&rich] {
        SetPolice(rich, kPoliceCiseaux);
        EcrireTexte(rich, kCiseaux + u'\n');
        SetPolice(rich, QStringLiteral("Courier New"));
    };
    rich.move_to_end();
    ciseaux();
    QString text = QStringLiteral("\n\n") + dashes + u'\n';
    text += QStringLiteral("Nageur  : ") + swimmer.nom + u' ' + swimmer.prenom + u'\n';
    text += QStringLiteral("Licence : ") + swimmer.licence + u'\n';
    if (!choice.reply_date.isEmpty())
        text += QStringLiteral("Réponse souhaitée avant : ") + choice.reply_date + u'\n';
    text += QStringLiteral("Je participe au épreuve suivante :\n");
    text += QStringLiteral("Rayer les épreuves à supprimer.\n");
    EcrireTexte(rich, text);
    ciseaux();
    EcrireTexte(rich, dashes);
}

}  // namespace

QString ColonneEquipe(const QString& number, bool mixed)
{
    if (number.isEmpty() || number == QLatin1String("0"))
        return {};
    return CompleterGauche(number, 5) + QStringLiteral("  ") + (mixed ? QStringLiteral("X") : QString());
}

bool PreparerConvocation(AppContext& app, TempoRapport& tempo, const QString& num, const ConvocationChoice& choice)
{
    status_text(app.ui, QStringLiteral("Préparation du modèle de convocation"));
    RichBox& modele = tempo.rich_modele;
    if (!ChargerModele(app, template_path(app, QStringLiteral("convo")), modele, QStringLiteral("convo")))
        return false;
    EcrireTagsProfil(app, modele);
    if (modele.Find(tags::kMsgPerso) >= 0) {
        if (choice.message)
            EcrireRich(modele, *choice.message);
        else
            modele.write(QString());
        EcrireTexte(modele, QStringLiteral("\n"));
    }
    // A competition whose pool is gone still has its letter, the pool tags empty.
    auto info = lire_competition(app, num, true);
    if (!info) {
        info = lire_competition(app, num, false);
        if (info)
            info->with_pool = true;
    }
    if (info)
        EcrireTagsCompetition(app, modele, *info);
    if (modele.Find(tags::kProg) >= 0) {
        modele.write(QString());
        if (choice.programme)
            ecrire_programme(app, modele, num, info ? info->debut : QString());
        else
            RemplacerBalise(modele, kProgrammeHeading, QString());
    }
    return true;
}

void EcrireConvocation(AppContext& app, TempoRapport& tempo, const QString& num, const ConvocationSwimmer& swimmer,
                       const ConvocationChoice& choice)
{
    RichBox& rich = tempo.rich;
    rich.copy_from(tempo.rich_modele);
    RemplacerBalise(rich, tags::kNageur, swimmer.nom + u' ' + swimmer.prenom);
    RemplacerBalise(rich, tags::kLicence, swimmer.licence);
    const QString scope = QStringLiteral("AND Relais.Num_compet = ");
    const Rows engag = app.db.load_rows(
        QStringLiteral("SELECT Nage.Libelle, Engag.Tps_engagement, Engag.Num_equipe, Engag.Equipe_mixte ") +
        QStringLiteral("FROM Nage Nage, Engag Engag ") + QStringLiteral("WHERE Nage.Code_Nage = Engag.Code_epreuve ") +
        QStringLiteral("AND Engag.Num_compet = ") + sql_key(num) + QStringLiteral(" AND Engag.Num_profil = ") +
        sql_key(app.state.profile_num) + QStringLiteral(" AND Engag.Num_Lic = ") + sql_key(swimmer.num) +
        QStringLiteral(" ORDER BY Engag.Num_equipe, Engag.Equipe_mixte, Engag.Code_epreuve"));
    QStringList lines;
    for (int r = 0; r < engag.size(); ++r)
        lines << Completer(u' ' + Completer(engag.value(r, 0), 25), 35) + affiche_temps(engag.value(r, 1)) +
                     ColonneEquipe(engag.value(r, 2), is_true(engag.value(r, 3)));
    remplacer_lignes(rich, tags::kEngag, lines);

    // Every place of a relay, the tenth too.
    QString condition;
    for (int n = 1; n <= 10; ++n)
        condition += QStringLiteral(" OR Licence%1 = ").arg(n) + sql_key(swimmer.num);
    condition = condition.mid(4);
    const Rows relais = app.db.load_rows(
        QStringLiteral("SELECT Nage.Libelle, Relais.Num_Lic, Relais.Num_equipe, Relais.Equipe_mixte ") +
        QStringLiteral("FROM Nage Nage, Relais Relais ") + QStringLiteral("WHERE Nage.Code_Nage = Relais.Code_epreuve ") +
        scope + sql_key(num) + QStringLiteral(" AND Relais.Num_profil = ") + sql_key(app.state.profile_num) +
        QStringLiteral(" AND (") + condition + QStringLiteral(") ") +
        QStringLiteral("ORDER BY Relais.Num_equipe, Relais.Equipe_mixte, Relais.Code_epreuve"));
    lines.clear();
    for (int r = 0; r < relais.size(); ++r)
        lines << Completer(u' ' + Completer(relais.value(r, 0), 25), 35) + Completer(relais.value(r, 1), 7) +
                     ColonneEquipe(relais.value(r, 2), is_true(relais.value(r, 3)));
    remplacer_lignes(rich, tags::kEngagRelais, lines);
    if (choice.coupon)
        ecrire_coupon(rich, swimmer, choice);
}

void install_print_handoff()
{
    set_competition_door(QString(keyword::kImprimBordereau),
                         [](AppContext& app, const QString& num) { ImprimerBordereau(app, num); });
    set_competition_door(QString(keyword::kImprimConvoc), [](AppContext& app, const QString& num) {
        OuvrirConvocation(app, num, QString(FrmListeCompet::kName));
    });
}

}  // namespace plouvarine
