// The entries file (createdisk) of a competition, against its reference.

#include "components/lenex_support.h"
#include "src/base/zip.h"
#include "support/golden.h"
#include "support/temp_files.h"

#include <QDir>
#include <tuple>

namespace plouvarine::testing {
namespace {

class EntriesFileTest : public LenexBase {
protected:
    void SetUp() override
    {
        LenexBase::SetUp();
        db.exec_sql(QStringLiteral("INSERT INTO Club (Code_federal, Intitule) VALUES ('0929001', 'Cercle des Nageurs de Brest')"));
        db.exec_sql(QStringLiteral("INSERT INTO Profil (Libelle, Code_club, LastUse) VALUES ('Brest', '0929001', true)"));
        profile = db.count_query(QStringLiteral("SELECT max(Num) FROM Profil"));
        db.exec_sql(QStringLiteral("INSERT INTO Licence (Code_club, Licence, Nom, Prenom, Visible) VALUES ('0929001', '1', 'Null', '', true)"));
        nulle = db.count_query(QStringLiteral("SELECT max(Num) FROM Licence"));
        const char* swimmers[][5] = {{"100001A", "Le Goff", "Anne", "F", "20100504"},
                                     {"100002B", "Kerlé", "Élodie", "F", "20091120"},
                                     {"100003C", "Tanguy", "Yann", "M", "20080101"},
                                     {"100004D", "Morvan", "Loïc", "M", "20071231"},
                                     {"100005E", "Guéguen", "Maï", "F", "20110303"}};
        for (const auto& s : swimmers) {
            db.exec_sql(QStringLiteral("INSERT INTO Licence (Code_club, Licence, Nom, Prenom, Sexe, Date_Naissance, Visible) "
                                       "VALUES ('0929001', '%1', '%2', '%3', '%4', '%5', true)")
                            .arg(QLatin1String(s[0]), QString::fromUtf8(s[1]), QString::fromUtf8(s[2]), QLatin1String(s[3]),
                                 QLatin1String(s[4])));
            nums.append(db.count_query(QStringLiteral("SELECT max(Num) FROM Licence")));
        }
        compet = add_competition(25);
        // Day 1: 100 m free women and men; day 2: 4x100 m free women, 4x50 m free mixed.
        for (const auto& [code, day, order] : {std::tuple{2, 1, 1}, {52, 1, 2}, {8, 2, 1}, {45, 2, 2}})
            db.exec_sql(QStringLiteral("INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse, Type, Nb_finales, Type_finale, Num_ordre) "
                                       "VALUES (%1, %2, %3, 1, 0, ' ', %4)").arg(compet).arg(code).arg(day).arg(order));
        auto entry = [&](int code, int who, const char* time, const char* date, const char* place, int pool) {
            db.exec_sql(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Tps_engagement, "
                                       "Date_perf, Lieu_perf, Bassin) VALUES (%1, %2, %3, %4, %5, '%6', '%7', %8)")
                            .arg(compet).arg(profile).arg(code).arg(nums[who]).arg(QLatin1String(time), QLatin1String(date),
                                                                                   QLatin1String(place)).arg(pool));
        };
        entry(2, 0, "1.0512", "20250110", "Quimper", 25);
        entry(2, 1, "1.1003", "20241201", "Rennes", 50);
        entry(52, 2, "0.5999", "20250110", "Quimper", 25);
        entry(2, 4, "0", "", "", 0);           // no time yet
        entry(12, 0, "1.1545", "20250110", "Quimper", 25);  // 100 m back: not in the programme
        auto relay = [&](int code, int number, const char* time, QList<int> legs) {
            QStringList l;
            for (int i = 0; i < 10; ++i)
                l.append(QString::number(i < legs.size() ? nums[legs[i]] : nulle));
            db.exec_sql(QStringLiteral("INSERT INTO Relais (Num_profil, Num_compet, Code_epreuve, Num_Lic, Tps, Licence1, "
                                       "Licence2, Licence3, Licence4, Licence5, Licence6, Licence7, Licence8, Licence9, "
                                       "Licence10) VALUES (%1, %2, %3, %4, %5, %6)")
                            .arg(profile).arg(compet).arg(code).arg(number).arg(QLatin1String(time), l.join(u',')));
        };
        relay(8, 1, "4.3050", {0, 1, 4, 1});
        relay(45, 1, "2.0100", {2, 0, 3, 1});
        relay(45, 2, "0", {});
    }

    int profile = 0, nulle = 0, compet = 0;
    QList<int> nums;
};

// The reference holds the club, the pool (SCM), each entry with its time and
// pool (NT with none), the relays with their swimmers' positions, the programme
// by day and the event entered off the programme on the last day.
TEST_F(EntriesFileTest, EveryEntryAndRelayPositionIsInTheFileWithTheProgramme)
{
    ExchangeCall call;
    call.num_compet = QString::number(compet);
    call.profile_num = QString::number(profile);
    ASSERT_TRUE(run(QStringLiteral("createdisk"), QStringLiteral("bCreation_disquette"), call)) << trace().toStdString();
    const QByteArray lef = read_bytes(path(QStringLiteral("tmpexpimp/engagements_%1.lef").arg(compet)));
    expect_golden(QStringLiteral("components"), QStringLiteral("engagements.lef"), lef);
    EXPECT_TRUE(trace().contains(QStringLiteral("Épreuve 12 absente du programme"))) << trace().toStdString();
    EXPECT_TRUE(trace().contains(QStringLiteral("5 nageur(s), 5 engagement(s) individuel(s), 3 relais."))) << trace().toStdString();

    // Compressed: one .lxf holding the same .lef, nothing else in the work folder.
    call.option = true;
    ASSERT_TRUE(run(QStringLiteral("createdisk"), QStringLiteral("bCreation_disquette"), call));
    EXPECT_EQ(QDir(path(QStringLiteral("tmpexpimp"))).entryList(QDir::Files),
              QStringList{QStringLiteral("engagements_%1.lxf").arg(compet)});
    const QString lxf = path(QStringLiteral("tmpexpimp/engagements_%1.lxf").arg(compet));
    EXPECT_EQ(zip_entries(lxf), QStringList{QStringLiteral("engagements_%1.lef").arg(compet)});
    EXPECT_EQ(lenex_bytes(lxf), lef);
}

TEST_F(EntriesFileTest, AMissingCompetitionGivesATraceAndNoFile)
{
    ExchangeCall call;
    call.num_compet = QStringLiteral("999");
    call.profile_num = QString::number(profile);
    EXPECT_FALSE(run(QStringLiteral("createdisk"), QStringLiteral("bCreation_disquette"), call));
    EXPECT_TRUE(trace().startsWith(QStringLiteral("Erreur : la compétition n° 999 n'existe pas"))) << trace().toStdString();
    EXPECT_TRUE(QDir(path(QStringLiteral("tmpexpimp"))).isEmpty());
}

}  // namespace
}  // namespace plouvarine::testing
