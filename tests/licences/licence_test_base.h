#pragma once
// A connected copy of the model base whose current profile works for a plain
// club, with helpers to lay licences, clubs, fees and entries into it.

#include "src/frame/app_context.h"
#include "src/licences/det_licence.h"
#include "src/base/sql_text.h"
#include "src/base/text.h"
#include "support/app_fixture.h"

using namespace Qt::Literals::StringLiterals;

namespace plouvarine::testing {

class LicenceBase : public AppFixture {
protected:
    static constexpr const char* kClub = "FRA2210290017";
    static constexpr const char* kOtherClub = "FRA2210290021";
    static constexpr const char* kSelection = "FRA2210290000";

    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        app->state.club_code = QLatin1String(kClub);
        app->state.club_name = QStringLiteral("Brest Natation");
        app->state.profile_name = QStringLiteral("Entraîneur");
        app->state.profile_num = QStringLiteral("1");
        app->state.num_lic_nulle = licence(QStringLiteral("Null"), QStringLiteral("X"), QStringLiteral("NULL"), QString());
    }
    void use_selection()
    {
        app->state.club_code = QLatin1String(kSelection);
        app->state.club_selection = true;
    }
    QString licence(const QString& nom, const QString& prenom, const QString& number,
                    const QString& club = QLatin1String(kClub), const QString& birth = QStringLiteral("19850307"))
    {
        return app->db.append_row(QStringLiteral("Licence"),
                                  {{"Code_club", club}, {"Licence", number}, {"Nom", nom}, {"Prenom", prenom},
                                   {"Sexe", "F"}, {"Date_Naissance", birth}, {"Nationalite", "FRA"}},
                                  QStringLiteral("Num"));
    }
    // A new licence typed in the detail with what a save needs, not saved yet.
    std::unique_ptr<DetLicence> new_licence(const QString& numero, const QString& nom = u"Martin"_s,
                                            const QString& prenom = u"Léa"_s, const QString& year = u"1985"_s)
    {
        auto v = std::make_unique<DetLicence>(*app, u"Nouveau"_s);
        v->load();
        v->text1[DetLicence::kNumero] = numero;
        v->text1[DetLicence::kNom] = nom;
        v->text1[DetLicence::kPrenom] = prenom;
        v->txt_description = {u"7"_s, u"3"_s, year};
        v->Option_sexe = 1;
        return v;
    }
    void club(const QString& code, const QString& name)
    {
        exec(QStringLiteral("INSERT INTO Club (Code_federal, Intitule) VALUES ('%1', '%2')").arg(code, name));
    }
    void fee(const QString& name)
    {
        exec(QStringLiteral("INSERT INTO Tarifs VALUES ('%1', %2, 100, false)").arg(kClub, quote_sql(name).text()));
    }
    void activity(const QString& name)
    {
        exec(QStringLiteral("INSERT INTO Activites (Code_federal, Activite) VALUES ('%1', %2)")
                 .arg(kClub, quote_sql(name).text()));
    }
    QString competition(bool visible, bool run)
    {
        return app->db.append_row(u"Rcomp"_s, {{"Nom", "Meeting"}, {"Visible", visible}, {"Deroule", run}},
                                  u"AutoNum"_s);
    }
    void entry(const QString& competition, const QString& num)
    {
        exec(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic) VALUES (%1, 1, 2, %2)")
                 .arg(competition, num));
    }
    QString field(const QString& num, const QString& column)
    {
        return value(QStringLiteral("select %1 from Licence where Num = %2").arg(column, num));
    }
};

}  // namespace plouvarine::testing
