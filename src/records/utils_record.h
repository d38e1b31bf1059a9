#pragma once
// The rules of a club record, shared by the records window and the search in
// the performance history: what a record must hold, the rule of time and date
// against the record it follows, and the writing of the row.

#include <QDate>
#include <QString>
#include <QStringList>

namespace plouvarine {

class AppContext;

// A record as typed, or as proposed from a swim.
struct RecordEntry {
    QString categorie;  // Categori_record_club.Num_cat
    QString libelle;    // the band's label, by which the rule finds the band
    int code_nage = 0;
    int bassin = 25;
    QString nom;        // holder, or the relay team
    QString prenom;
    double tps = 0;
    QString date;       // yyyymmdd; empty when what was typed is no date
    QString lieu;
    QStringList relais;  // relay swimmers in leg order, at most 10
};

// The date of three fields as yyyymmdd, or empty when it is no date or lies
// after `today`: a record cannot come from a swim to come.
QString date_record(const QString& day, const QString& month, const QString& year, const QDate& today);

// verif_champs_record: the error listing the missing items, or empty.
QString champs_manquants(const RecordEntry& entry);
bool verif_champs_record(AppContext& app, const RecordEntry& entry);

// verif_record: `k` 1 for an insert (against the current record), 2 for a
// replacement (against the record the replaced one beat). Shows the refusal.
bool verif_record(AppContext& app, int k, const RecordEntry& entry);
inline constexpr char kRecordRefuse[] =
    "Impossible d'enregistrer ce record. Il faut que :\n"
    "- Le temps soit inférieur ou égal à celui du précédent record\n"
    "- La date de la performance soit le même jour ou après celle du précédent record.";

// enregistre_record after both checks: a new row for an insert or when no
// current record is known, else the row `current`; gives the row's Num_auto.
QString enregistre_record(AppContext& app, int k, const RecordEntry& entry, const QString& current);
// The two checks, then the writing; empty when refused.
QString accepte_record(AppContext& app, int k, const RecordEntry& entry, const QString& current);

// "F", "M" or empty of Nage.Sexe as the sex of a band.
QString sexe_categorie(const QString& sexe_nage);

}  // namespace plouvarine
