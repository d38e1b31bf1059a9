#include "src/clubs/construc_code_club.h"

#include "src/clubs/utils_club.h"
#include "src/frame/app_context.h"
#include "src/base/sql_text.h"
#include "src/base/text.h"

namespace plouvarine {

namespace {

const QString kNull = QStringLiteral("Null");

}  // namespace

const std::array<QString, 5>& ConstrucCodeClub::type_captions()
{
    static const std::array<QString, 5> captions{
        QStringLiteral("Club"), QStringLiteral("Sélection Fédérale"), QStringLiteral("Sélection Inter régionale"),
        QStringLiteral("Sélection Régionale"), QStringLiteral("Sélection Départementale")};
    return captions;
}

int ConstrucCodeClub::type_of_code(const QString& code)
{
    if (code.mid(3, 1) == QLatin1String("0"))
        return Federale;
    if (code.endsWith(QLatin1String("000000000")))
        return InterRegionale;
    if (code.endsWith(QLatin1String("0000000")))
        return Regionale;
    if (code.endsWith(QLatin1String("0000")))
        return Departementale;
    return Club;
}

ConstrucCodeClub::ConstrucCodeClub(AppContext& app, const QString& code) : View(app, QString(kName))
{
    set_title(QStringLiteral("Aide à la construction du code Club"));
    pays_.items = read_names(QStringLiteral("select Libelle from Pays order by Libelle"));
    type_ = type_of_code(code);
    code_fourni_enabled_ = type_ == Club;
    code_fourni_ = type_ == Club ? QString() : QStringLiteral("0000");

    if (code.size() == kClubCodeLength && CodeClubValide(app, code, false, {})) {
        pays_.value = lookup(QStringLiteral("select Libelle from Pays where Code = ") + quote_sql(code.left(3)));
        country_logic();
        if (code.mid(3, 1) != QLatin1String("0") && inter_.enabled) {
            inter_.value = lookup(QStringLiteral("select Libelle from Inter_Region where Code = ") + code.mid(3, 1));
            inter_logic();
        }
        if (code.mid(4, 2) != QLatin1String("00") && region_.enabled) {
            region_.value =
                lookup(QStringLiteral("select Libelle from Region where Code = ") + quote_sql(code.mid(4, 2)));
            region_logic();
        }
        if (code.mid(6, 3) != QLatin1String("000") && departement_.enabled)
            departement_.value = lookup(QStringLiteral("select Libelle from Departement where Code = ")
                                        + quote_sql(code.mid(6, 3)));
        code_fourni_ = code.right(4);
    } else {
        pays_.value = QString(kFrance);
        country_logic();
    }
}

QStringList ConstrucCodeClub::read_names(const QString& sql)
{
    return app().db.load_rows(sql).column(0);
}

QString ConstrucCodeClub::lookup(const QString& sql)
{
    return app().db.load_rows(sql).first();
}

void ConstrucCodeClub::fill(ComboState& combo, const QStringList& items, bool enabled)
{
    combo.items = items;
    combo.enabled = enabled;
    if (!items.contains(combo.value))
        combo.value.clear();
}

void ConstrucCodeClub::country_logic()
{
    const bool france = pays_.value == kFrance;
    for (int entry = InterRegionale; entry <= Departementale; ++entry)
        type_enabled_[size_t(entry)] = france;
    if (!france) {
        // Abroad there is a federal selection or a club; the region only shows
        // the overseas region a country may be attached to.
        inter_ = {{}, {}, false};
        departement_ = {{}, {}, false};
        region_.items = read_names(QStringLiteral("SELECT Region.Libelle ") + QStringLiteral("FROM Region Region, Pays Pays ")
                                   + QStringLiteral("WHERE (Region.Code = Pays.Code_Reg ")
                                   + QStringLiteral("AND Pays.Libelle=") + quote_sql(pays_.value)
                                   + QStringLiteral(" ") + QStringLiteral("AND NOT (Region.Libelle = ") + quote_sql(kNull)
                                   + QStringLiteral("))"));
        region_.value = region_.items.value(0);
        region_.enabled = false;
        changed();
        return;
    }
    if (type_ == Federale) {
        inter_ = {{}, {}, false};
        region_ = {{}, {}, false};
        departement_ = {{}, {}, false};
        changed();
        return;
    }
    fill(inter_,
         read_names(QStringLiteral("SELECT Libelle FROM Inter_Region WHERE not (Libelle = ") + quote_sql(kNull)
                    + QStringLiteral(") ORDER BY Libelle")),
         true);
    inter_logic();
}

void ConstrucCodeClub::inter_logic()
{
    if (type_ == Federale || type_ == InterRegionale || inter_.value.isEmpty() || !inter_.enabled) {
        region_ = {{}, {}, false};
        departement_ = {{}, {}, false};
        changed();
        return;
    }
    fill(region_,
         read_names(QStringLiteral("SELECT Region.Libelle ") + QStringLiteral("FROM Inter_Region Inter_Region, Region Region ")
                    + QStringLiteral("WHERE Inter_Region.Code = Region.CodeInter ")
                    + QStringLiteral("AND Inter_Region.Libelle = ") + quote_sql(inter_.value) + QStringLiteral(" ")
                    + QStringLiteral("ORDER BY Region.Libelle")),
         true);
    region_logic();
}

void ConstrucCodeClub::region_logic()
{
    if (type_ != Club && type_ != Departementale) {
        departement_ = {{}, {}, false};
        changed();
        return;
    }
    if (region_.value.isEmpty() || !region_.enabled) {
        departement_ = {{}, {}, type_ == Club || type_ == Departementale};
        changed();
        return;
    }
    fill(departement_,
         read_names(QStringLiteral("SELECT Departement.Libelle ") + QStringLiteral("FROM Region Region, Departement Departement ")
                    + QStringLiteral("WHERE Region.Libelle=") + quote_sql(region_.value) + QStringLiteral(" ")
                    + QStringLiteral("AND Region.Code = Departement.Region ")
                    + QStringLiteral("ORDER BY Departement.Libelle")),
         true);
    changed();
}

void ConstrucCodeClub::set_type(int entry)
{
    if (entry < Club || entry > Departementale || !type_enabled(entry))
        return;
    type_ = entry;
    inter_.value.clear();
    region_.value.clear();
    departement_.value.clear();
    if (type_ == Club) {
        code_fourni_.clear();
        code_fourni_enabled_ = true;
    } else {
        code_fourni_ = QStringLiteral("0000");
        code_fourni_enabled_ = false;
    }
    country_logic();
}

void ConstrucCodeClub::set_pays(const QString& name)
{
    if (name == pays_.value)
        return;
    pays_.value = name;
    inter_.value.clear();
    region_.value.clear();
    departement_.value.clear();
    country_logic();
}

void ConstrucCodeClub::set_inter(const QString& name)
{
    if (!inter_.enabled || name == inter_.value)
        return;
    inter_.value = name;
    region_.value.clear();
    departement_.value.clear();
    inter_logic();
}

void ConstrucCodeClub::set_region(const QString& name)
{
    if (!region_.enabled || name == region_.value)
        return;
    region_.value = name;
    departement_.value.clear();
    region_logic();
}

void ConstrucCodeClub::set_departement(const QString& name)
{
    if (!departement_.enabled)
        return;
    departement_.value = name;
    changed();
}

bool ConstrucCodeClub::code_key_accepted(QChar c)
{
    return c.isLetterOrNumber() || c == QChar(8) || c == QChar(13);
}

void ConstrucCodeClub::set_code_fourni(const QString& text)
{
    if (!code_fourni_enabled_)
        return;
    QString kept;
    for (const QChar c : text)
        if (code_key_accepted(c) && c.isLetterOrNumber())
            kept += c.toUpper();
    code_fourni_ = kept;
    changed();
}

void ConstrucCodeClub::compose()
{
    auto code_of = [this](const char* table, const QString& name) {
        return lookup(QStringLiteral("select Code from ") + QLatin1String(table) + QStringLiteral(" where Libelle = ")
                      + quote_sql(name));
    };
    const QString country = code_of("Pays", pays_.value);
    const QString inter = inter_.value.isEmpty() ? QStringLiteral("0") : code_of("Inter_Region", inter_.value);
    const QString region = pays_.value == kFrance && !region_.value.isEmpty() ? code_of("Region", region_.value)
                                                                              : QStringLiteral("00");
    const QString department =
        departement_.value.isEmpty() ? QStringLiteral("000") : code_of("Departement", departement_.value);
    // The number reads up to the first character that is not a digit.
    int number = int(text_to_double(code_fourni_));
    if (type_ == Club && number == 0)
        number = 1;
    code_fourni_ = QStringLiteral("%1").arg(number, 4, 10, QLatin1Char('0'));
    codification_ = country + inter + region + department + code_fourni_;
    changed();
}

void ConstrucCodeClub::close_command()
{
    copied_ = msg_confirm(app().ui, QStringLiteral("Copier le code Club ?"), kDefaultYes) == Button::Yes;
    close();
}

}  // namespace plouvarine
