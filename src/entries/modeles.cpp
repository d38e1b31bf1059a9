#include "src/entries/modeles.h"

#include "src/base/sql_text.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"

namespace plouvarine {

QString TableModele(const QString& kind)
{
    return QStringLiteral("Modele_") + (kind == keyword::kModelProg ? QStringLiteral("prog") : QStringLiteral("engag"));
}

void EffacerModele(AppContext& app, const QString& modele)
{
    const QString where = QStringLiteral("where Num_modele = ") + sql_key(modele);
    app.db.exec_sql(QStringLiteral("DELETE from Engag_modele ") + where);
    app.db.exec_sql(QStringLiteral("DELETE from Engag_nageur_modele ") + where);
    app.db.exec_sql(QStringLiteral("DELETE from Engag_equipe_modele ") + where);
}

bool ModeleDepuisCompet(AppContext& app, const QString& modele, const QString& compet)
{
    const QString m = sql_key(modele).text();
    const QString c = sql_key(compet).text();
    const QString profile = sql_key(app.state.profile_num).text();
    try {
        app.db.exec_sql(
            QStringLiteral("INSERT INTO Engag_modele ( Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte, Num_modele ) ") +
            QStringLiteral("SELECT Engag.Code_epreuve, Engag.Num_Lic, Engag.Num_equipe, Engag.Equipe_mixte, ") + m +
            QStringLiteral(" AS Expr1 ") + QStringLiteral("FROM Engag ") + QStringLiteral("WHERE Engag.Num_compet = ") +
            c + QStringLiteral(" and Engag.Num_profil = ") + profile);
        app.db.exec_sql(
            QStringLiteral("INSERT INTO Engag_equipe_modele ( Eq_Homme, Eq_Femme, Eq_Mixte, Num_modele ) ") +
            QStringLiteral("SELECT Engag_equipe.Eq_Homme, Engag_equipe.Eq_Femme, Engag_equipe.Eq_Mixte, ") + m +
            QStringLiteral(" AS Expr1 ") + QStringLiteral("FROM Engag_equipe ") +
            QStringLiteral("WHERE Engag_equipe.Num_compet = ") + c + QStringLiteral(" and Engag_equipe.Num_profil = ") +
            profile);
        app.db.exec_sql(
            QStringLiteral("INSERT INTO Engag_nageur_modele ( Num_modele, Num_Lic, Equipe, Equipe_m ) ") +
            QStringLiteral("SELECT ") + m +
            QStringLiteral(" AS Expr1, Engag_nageur.Num_Lic, Engag_nageur.Equipe, Engag_nageur.Equipe_m ") +
            QStringLiteral("FROM Engag_nageur ") + QStringLiteral("WHERE Engag_nageur.Num_compet = ") + c +
            QStringLiteral(" and Engag_nageur.Num_profil = ") + profile);
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Erreur durant la sauvegarde du modèle."), &e);
        return false;
    }
    return true;
}

bool MemoModeleTempo(AppContext& app, const QString& modele)
{
    try {
        app.db.exec_sql(
            QStringLiteral("INSERT INTO Engag_tempo ( Num_compet, Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte ) ") +
            QStringLiteral("SELECT Engag_modele.Num_modele, Engag_modele.Code_epreuve, Engag_modele.Num_Lic, "
                           "Engag_modele.Num_equipe, Engag_modele.Equipe_mixte ") +
            QStringLiteral("FROM Engag_modele ") + QStringLiteral("WHERE Engag_modele.Num_modele = ") + sql_key(modele));
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Erreur lors de la mémorisation des engagements dans la table temporaire"),
                   &e);
        return false;
    }
    return true;
}

bool AppliquerModele(AppContext& app, const QString& modele, const QString& compet)
{
    const QString m = sql_key(modele).text();
    const QString c = sql_key(compet).text();
    const QString profile = sql_key(app.state.profile_num).text();
    const QString of_compet = c + QStringLiteral(" and Num_profil = ") + profile;
    try {
        const int longueur =
            app.db.load_rows(QStringLiteral("select Longueur from Rcomp where AutoNum = ") + c).first().toInt();
        // Every relay and entry of the competition goes, those of other teams too.
        app.db.exec_sql(QStringLiteral("DELETE FROM Relais where Num_compet = ") + of_compet);
        app.db.exec_sql(QStringLiteral("DELETE FROM Engag where Num_compet = ") + of_compet);
        // Entries come without times: they are proposed when the swimmer is reviewed.
        app.db.exec_sql(
            QStringLiteral("INSERT INTO Engag ( Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, "
                           "Equipe_mixte ) ") +
            QStringLiteral("SELECT ") + c + QStringLiteral(" AS Expr1, ") + profile +
            QStringLiteral(" AS Expr2, Engag_modele.Code_epreuve, Engag_modele.Num_Lic, Engag_modele.Num_equipe, "
                           "Engag_modele.Equipe_mixte ") +
            QStringLiteral("FROM Nage Nage, Engag_modele Engag_modele ") +
            QStringLiteral("WHERE (Nage.Code_Nage = Engag_modele.Code_epreuve ") +
            QStringLiteral("AND ((Engag_modele.Num_modele) = ") + m +
            (longueur == 50 ? QStringLiteral(") AND ((Nage.Possible_50)=True") : QString()) + QStringLiteral("));"));
        app.db.exec_sql(QStringLiteral("Delete from Engag_nageur where Num_compet = ") + of_compet);
        app.db.exec_sql(
            QStringLiteral("INSERT INTO Engag_nageur ( Num_compet, Num_profil, Num_Lic, Equipe, Equipe_m ) ") +
            QStringLiteral("SELECT ") + c + QStringLiteral(" AS Expr1, ") + profile +
            QStringLiteral(" AS Expr2, Engag_nageur_modele.Num_Lic, Engag_nageur_modele.Equipe, "
                           "Engag_nageur_modele.Equipe_m ") +
            QStringLiteral("From Engag_nageur_modele ") +
            QStringLiteral("WHERE (((Engag_nageur_modele.Num_modele) = ") + m + QStringLiteral("));"));
        app.db.exec_sql(QStringLiteral("Delete from Engag_equipe where Num_compet = ") + of_compet);
        app.db.exec_sql(
            QStringLiteral("INSERT INTO Engag_equipe ( Num_compet, Num_profil, Eq_Homme, Eq_Femme, Eq_Mixte ) ") +
            QStringLiteral("SELECT ") + c + QStringLiteral(" AS Expr1, ") + profile +
            QStringLiteral(" AS Expr2, Engag_equipe_modele.Eq_Homme, Engag_equipe_modele.Eq_Femme, "
                           "Engag_equipe_modele.Eq_Mixte ") +
            QStringLiteral("FROM Engag_equipe_modele ") +
            QStringLiteral("WHERE (((Engag_equipe_modele.Num_modele) =") + m + QStringLiteral("));"));
    } catch (const std::exception&) {
        msg_info(app.ui, QStringLiteral("Des erreurs sont apparues lors de la lecture des données depuis le modèle."));
        return false;
    }
    return true;
}

}  // namespace plouvarine
