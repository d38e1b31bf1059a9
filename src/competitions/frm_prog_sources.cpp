// The sources of frm_prog: a programme model, a past competition, a Pcomp.txt
// and a Lenex meet file. Each only fills tabProg for the person to review.

#include "src/competitions/frm_prog.h"

#include "src/base/files.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"
#include "src/competitions/liste_compet.h"
#include "src/competitions/prog_models.h"
#include "src/competitions/prog_sources.h"
#include "src/competitions/utils_compet.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace plouvarine {

namespace {

const QString kErreurRecuperation =
    QStringLiteral("Une erreur s'est produite lors de la récupération des données d'un programme.");

// The programme window standing now, if any: a list's answer may come after
// it has gone.
FrmProg* standing(AppContext& app)
{
    return dynamic_cast<FrmProg*>(app.windows.instance(QString(FrmProg::kName)));
}

QByteArray read_bytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw SourceError(QStringLiteral("Le fichier %1 ne peut être lu.").arg(QFileInfo(path).fileName()));
    return file.readAll();
}

// A copy of `path` in the folder `work`, made if missing.
QString copie_temporaire(const QString& path, const QString& work)
{
    const QString copy = path_join(work, QFileInfo(path).fileName());
    if (!QDir().mkpath(work) || !QFile::copy(path, copy))
        throw SourceError(QStringLiteral("Le fichier %1 ne peut être copié dans le répertoire temporaire.")
                              .arg(QFileInfo(path).fileName()));
    return copy;
}

}  // namespace

QString FrmProg::CompetPourProgSql()
{
    const QString columns = QStringLiteral("Rcomp.AutoNum, Rcomp.Num, Rcomp.Nom, Rcomp.Debut, Rcomp.Fin, Rcomp.Lieu ");
    return QStringLiteral("SELECT ") + columns + QStringLiteral("FROM Rcomp Rcomp, Pcomp Pcomp ") +
           QStringLiteral("WHERE Rcomp.AutoNum = Pcomp.Num_compet ") + QStringLiteral("AND Rcomp.Deroule = True ") +
           QStringLiteral("GROUP BY ") + columns + QStringLiteral("ORDER BY Rcomp.Debut");
}

void FrmProg::Cmd_modele()
{
    AppContext& a = app();
    ProgModelRequest request;
    request.mode = QString(keyword::kChoisir);
    request.caption = QStringLiteral("&Choisir");
    request.title = QStringLiteral("Choix d'un modèle de programme");
    request.caller = QString(kName);
    request.chosen = [&a](const QString& num, const QString& name) {
        if (FrmProg* prog = standing(a))
            prog->prendre_modele(num, name);
    };
    open_prog_models(a, request);
}

void FrmProg::prendre_modele(const QString& num, const QString& name)
{
    AppContext& a = app();
    status_text(a.ui, QStringLiteral("Récupération des données du modèle ") + name);
    try {
        setTabFromModele(num);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, kErreurRecuperation, &e);
    }
    status_text(a.ui, QString());
    RefreshListeNage();
}

void FrmProg::Cmd_compet()
{
    AppContext& a = app();
    FrmListeCompet* list =
        OuvrirListeCompet(a, QString(FrmListeCompet::kChooseForProg), QString(),
                          QStringLiteral("Choix d'une compétition mémorisée pour copie du programme"), QString(kName),
                          CompetPourProgSql());
    if (list)
        list->on_chosen = [&a](const QString& autonum) {
            if (FrmProg* prog = standing(a))
                prog->prendre_compet(autonum);
        };
}

void FrmProg::prendre_compet(const QString& autonum)
{
    try {
        setTabFromTab(autonum);
    } catch (const std::exception& e) {
        msg_erreur(app().ui, kErreurRecuperation, &e);
        return;
    }
    if (modele_)
        model_days(journee_max_);
    RefreshListeNage();
}

void FrmProg::model_days(int count)
{
    txt_nb_journee = QString::number(count);
    days_.clear();
    SetListeFromText();
}

QString FrmProg::choose_source(const QString& title, const QString& filter)
{
    FileDialogRequest request;
    request.title = title;
    request.filter = filter;
    request.must_exist = true;
    return app().ui.file_dialog(request);
}

void FrmProg::read_in_work_folder(const std::function<void(const QString& work)>& read)
{
    AppContext& a = app();
    const QString work = unique_folder(QStringLiteral("tmpProg"), a.tempo_dir());
    try {
        read(work);
    } catch (const SourceError& e) {
        msg_erreur(a.ui, kErreurRecuperation + QLatin1Char('\n') + e.text());
    } catch (const std::exception& e) {
        msg_erreur(a.ui, kErreurRecuperation, &e);
    }
    delete_folder(work);
    status_text(a.ui, QString());
    RefreshListeNage();
}

void FrmProg::Cmd_charger()
{
    const QString path = choose_source(QStringLiteral("Sélection Fichier Pcomp.txt"),
                                       QStringLiteral("Fichier Programme (Pcomp.txt)|Pcomp.txt"));
    if (!path.isEmpty())
        charger_pcomp(path);
}

void FrmProg::charger_pcomp(const QString& path)
{
    AppContext& a = app();
    if (!est_fichier_pcomp(path)) {
        msg_erreur(a.ui, QStringLiteral("Sélectionner un fichier Pcomp.txt !"));
        return;
    }
    // The organiser's files are read from a copy: the originals may lie on a
    // medium that goes away while the message is on screen.
    status_text(a.ui, QStringLiteral("Copie du fichier dans répertoire temporaire"));
    read_in_work_folder([&](const QString& work) {
        const QString pcomp = copie_temporaire(path, work);
        const QString beside = path_join(QFileInfo(path).absolutePath(), QStringLiteral("nage.txt"));
        const QString nage = QFileInfo::exists(beside) ? copie_temporaire(beside, work) : QString();
        status_text(a.ui, QStringLiteral("Récupération des données du programme"));
        const std::vector<PcompLine> lines = lire_pcomp(lire_lignes(read_bytes(pcomp)));
        const PcompDays days = jours_pcomp(lines);
        const QSet<int> known = listed_codes();
        // Everything is read: now the array changes.
        std::vector<PcompLine> unknown;
        std::vector<int> unknown_days;
        for (size_t i = 0; i < lines.size(); ++i) {
            const PcompLine& line = lines[i];
            if (!known.contains(line.code) || line.code >= kEventSlots) {
                unknown.push_back(line);
                unknown_days.push_back(days.day[i]);
                continue;
            }
            ProgSlot& slot = tab_[size_t(line.code)];
            slot = line.slot;
            slot.JourCourse = qint16(days.day[i]);
        }
        if (days.count > 0)
            model_days(days.count);
        if (!unknown.empty()) {
            QStringList nage_lines;
            if (!nage.isEmpty())
                nage_lines = lire_lignes(read_bytes(nage));
            msg_erreur(a.ui, message_codes_inconnus(unknown, unknown_days, nage.isEmpty() ? nullptr : &nage_lines));
        }
    });
}

void FrmProg::Cmd_lenex()
{
    const QString path = choose_source(QStringLiteral("Sélection d'un fichier Lenex"),
                                       QStringLiteral("Fichier Lenex (*.lef;*.lxf)|*.lef;*.lxf"));
    if (!path.isEmpty())
        charger_lenex(path);
}

void FrmProg::charger_lenex(const QString& path)
{
    AppContext& a = app();
    status_text(a.ui, QStringLiteral("Récupération des données du programme"));
    read_in_work_folder([&](const QString& work) {
        const LenexProgramme meet = lire_fichier_lenex(path, work);
        const bool empty = std::none_of(tab_.begin(), tab_.end(), [](const ProgSlot& s) { return s.JourCourse > 0; });
        if (empty && !modele_)
            offer_meet(meet);
        const QSet<int> known = listed_codes();
        QStringList missing = meet.sans_code;
        TabProg tab{};
        for (const LenexProgramme::Item& item : meet.items) {
            if (known.contains(item.code))
                tab[size_t(item.code)] = item.slot;
            else
                missing << QStringLiteral("Code nage %1 absent de la liste des épreuves").arg(item.code);
        }
        tab_ = tab;
        journee_max_ = meet.jours;
        if (modele_) {
            model_days(meet.jours);
        } else if (meet.jours > days_.size()) {
            // The competition kept its own dates: the file's later days follow
            // them, else saving would move their events onto its last day.
            txt_nb_journee = QString::number(meet.jours);
            SetListeFromText();
        }
        if (!missing.isEmpty())
            msg_erreur(a.ui, QStringLiteral("Des épreuves du fichier Lenex n'ont pas de code nage : \n") +
                                 missing.join(QLatin1Char('\n')));
    });
}

// A competition whose programme is still empty may take the meet's name,
// dates, place, pool and lanes.
void FrmProg::offer_meet(const LenexProgramme& meet)
{
    AppContext& a = app();
    QStringList told;
    if (!meet.nom.isEmpty())
        told << meet.nom;
    if (!meet.debut.isEmpty())
        told << DateLongue(meet.debut) + QStringLiteral(" - ") + DateLongue(meet.fin);
    if (!meet.ville.isEmpty())
        told << meet.ville;
    if (meet.longueur)
        told << QStringLiteral("bassin de %1 m").arg(meet.longueur);
    if (meet.couloirs >= 3 && meet.couloirs <= 10)
        told << QStringLiteral("%1 couloirs").arg(meet.couloirs);
    if (told.isEmpty() ||
        msg_confirm(a.ui,
                    QStringLiteral("Reprendre pour la compétition les informations du fichier Lenex ?\n") +
                        told.join(QStringLiteral(", ")),
                    kDefaultYes) != Button::Yes)
        return;
    SqlFields fields;
    if (!meet.nom.isEmpty())
        fields.push_back({QStringLiteral("Nom"), quote_sql(meet.nom.left(50))});
    if (!meet.debut.isEmpty()) {
        fields.push_back({QStringLiteral("Debut"), quote_sql(meet.debut)});
        fields.push_back({QStringLiteral("Fin"), quote_sql(meet.fin)});
    }
    if (!meet.ville.isEmpty())
        fields.push_back({QStringLiteral("Lieu"), quote_sql(meet.ville.left(50))});
    if (meet.longueur)
        fields.push_back({QStringLiteral("Longueur"), sql_number(meet.longueur)});
    if (meet.couloirs >= 3 && meet.couloirs <= 10)
        fields.push_back({QStringLiteral("Nb_couloir"), sql_number(meet.couloirs)});
    a.db.exec_sql(QStringLiteral("UPDATE Rcomp SET ") + sql_set(fields) + QStringLiteral(" WHERE AutoNum = ") +
                  sql_key(key_));
    load_days();
}

}  // namespace plouvarine
