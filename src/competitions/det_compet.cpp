#include "src/competitions/det_compet.h"

#include "src/clubs/pools.h"
#include "src/competitions/utils_compet.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"
#include "src/frame/choose_date_view.h"

namespace plouvarine {

namespace {

// Columns of "SELECT Rcomp.*, Piscine.Nom", by position.
enum LoadColumn : int {
    kColNum = 1,
    kColType = 2,
    kColNom = 3,
    kColDebut = 4,
    kColFin = 5,
    kColLieu = 6,
    kColLongueur = 7,
    kColNbCouloir = 8,
    kColCodifFede = 9,
    kColNumPiscine = 15,
    kColNomPiscine = 16,
};

const char kCodifLetters[] = "QRA";

int codif_index(const QString& letter)
{
    const int i = int(QByteArray(kCodifLetters).indexOf(letter.toLatin1()));
    return letter.size() == 1 ? i : -1;
}

}  // namespace

QStringList DetCompet::lane_choices()
{
    QStringList lanes;
    for (int n = 3; n <= 10; ++n)
        lanes << QString::number(n);
    return lanes;
}

int DetCompet::FiltreToucheNumero(int key_ascii)
{
    if (key_ascii >= 'a' && key_ascii <= 'z')
        return key_ascii - 'a' + 'A';
    if ((key_ascii >= 'A' && key_ascii <= 'Z') || (key_ascii >= '0' && key_ascii <= '9') || key_ascii == 8 ||
        key_ascii == 13)
        return key_ascii;
    return 0;
}

QString DetCompet::FiltreNumero(const QString& text)
{
    QString out;
    for (const QChar c : text) {
        const int key = c.unicode() < 128 ? FiltreToucheNumero(c.unicode()) : 0;
        if (key >= 32)
            out += QChar(key);
    }
    return out;
}

DetCompet::DetCompet(AppContext& app, const QString& mode, const QString& autonum)
    : View(app, QString(kName)), mode_(mode), autonum_(autonum)
{
    try {
        piscine_nulle_ = NumPiscineNulle(app);
    } catch (const std::exception&) {
        piscine_nulle_.clear();
    }
    num_piscine = piscine_nulle_;
}

DetCompet::~DetCompet()
{
    // The pool list may outlive this view: its answer has nowhere to go.
    if (pool_list_ && app().windows.instance(QString(PoolListView::kName)) == pool_list_)
        pool_list_->on_chosen = nullptr;
}

void DetCompet::load()
{
    AppContext& a = app();
    Rows rows;
    try {
        rows = a.db.load_rows(QStringLiteral("SELECT Rcomp.*, Piscine.Nom ") +
                              QStringLiteral("FROM Piscine Piscine, Rcomp Rcomp ") +
                              QStringLiteral("WHERE Piscine.Num = Rcomp.Num_Piscine ") +
                              QStringLiteral("and AutoNum = ") + sql_key(autonum_));
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
        return;
    }
    if (rows.size() == 0)
        return;
    auto v = [&rows](int c) { return rows.value(0, c); };
    text1[kNom] = v(kColNom);
    text1[kNumero] = v(kColNum);
    text1[kLieu] = v(kColLieu);
    AfficheDate(txt_date[kDebut], txt_date[kDebut + 1], txt_date[kDebut + 2], v(kColDebut));
    AfficheDate(txt_date[kFin], txt_date[kFin + 1], txt_date[kFin + 2], v(kColFin));
    const int lanes = v(kColNbCouloir).toInt();
    Cb_couloir = lanes >= 3 && lanes <= 10 ? QString::number(lanes) : QStringLiteral("8");
    if (v(kColType) == QLatin1String("I")) {
        set_type(kInterclubs);
    } else {
        Option1 = v(kColType) == QLatin1String("C") ? kChampionnats : -1;
        options_enabled_ = true;
        const QString longueur = v(kColLongueur);
        Op_bass = longueur == QLatin1String("25") ? kBassin25 : longueur == QLatin1String("50") ? kBassin50 : -1;
        for (int level = 0; level < kLevelCount; ++level)
            codif[size_t(level)] = codif_index(v(kColCodifFede + level));
    }
    num_piscine = v(kColNumPiscine);
    lbl_piscine = v(kColNomPiscine) == QLatin1String("Null") ? QString() : v(kColNomPiscine);
    changed();
}

void DetCompet::set_type(int index)
{
    Option1 = index;
    options_enabled_ = index != kInterclubs;
    if (index == kInterclubs) {
        Op_bass = kBassin25;
        codif.fill(kAnimation);
    }
    changed();
}

void DetCompet::choose_pool()
{
    pool_list_ = OuvreListePiscines(app(), QString(keyword::kChoisir), QStringLiteral("Choix d'une piscine"),
                                    QStringLiteral("&Choisir"), name());
    if (!pool_list_)
        return;
    pool_list_->on_chosen = [this](const Pool& pool, bool replace) {
        num_piscine = pool.num;
        lbl_piscine = pool.nom;
        if (replace) {
            text1[kLieu] = pool.ville;
            Cb_couloir = QString::number(pool.couloirs);
            // The pool's length sets the option even when the type has
            // disabled it: an interclubs in a 50 m pool is a 50 m meet.
            Op_bass = pool.bassin == 50 ? kBassin50 : kBassin25;
        }
        changed();
    };
}

void DetCompet::clear_pool()
{
    num_piscine = piscine_nulle_;
    lbl_piscine.clear();
    changed();
}

void DetCompet::clear_options()
{
    codif.fill(-1);
    changed();
}

void DetCompet::choose_date(int triple)
{
    if (triple != kDebut && triple != kFin)
        return;
    const size_t t = size_t(triple);
    if (ChoisirDateChamps(app(), txt_date[t], txt_date[t + 1], txt_date[t + 2]))
        changed();
}

void DetCompet::ForceUnloadWindowsEngag(const QString& form_name)
{
    if (form_name == PoolListView::kName)
        pool_list_ = nullptr;
}

bool DetCompet::fail(const QString& text, const QString& focus)
{
    focus_ = focus;
    msg_erreur(app().ui, text);
    changed();
    return false;
}

QString DetCompet::date_of(int triple) const
{
    const size_t t = size_t(triple);
    QString month = txt_date[t + 1];
    QString day = txt_date[t];
    return ComposeDate(txt_date[t + 2], month, day);
}

bool DetCompet::ValideCompet()
{
    focus_.clear();
    auto required = [this](const char* field, const QString& focus) {
        return fail(QStringLiteral("Veuillez spécifier ") + QString::fromUtf8(field) +
                        QStringLiteral(" de la compétition."),
                    focus);
    };
    if (text1[kNom].trimmed().isEmpty())
        return required("le nom", QStringLiteral("text1_0"));
    if (text1[kNumero].trimmed().isEmpty())
        return required("le numéro", QStringLiteral("text1_1"));
    if (text1[kLieu].trimmed().isEmpty())
        return required("le lieu", QStringLiteral("text1_2"));
    if (Option1 < 0)
        return required("le type", QStringLiteral("Option1_0"));
    if (Op_bass < 0)
        return required("le type de bassin", QStringLiteral("Op_bass_0"));
    static const char* const kLevels[] = {"la codification fédérale", "la codification inter régionale",
                                          "la codification régionale", "la codification départementale"};
    static const char* const kGroups[] = {"Op_f_0", "Op_r_0", "Op_rg_0", "Op_d_0"};
    for (int level = 0; level < kLevelCount; ++level)
        if (codif[size_t(level)] < 0)
            return required(kLevels[level], QLatin1String(kGroups[level]));

    for (int triple : {int(kDebut), int(kFin)}) {
        const size_t t = size_t(triple);
        const QDate date(txt_date[t + 2].toInt(), txt_date[t + 1].toInt(), txt_date[t].toInt());
        if (!DateValide(txt_date[t + 2], txt_date[t + 1], txt_date[t]) || !date.isValid())
            return fail(QStringLiteral("Format des dates non valides."), QStringLiteral("txt_date_%1").arg(triple));
    }
    const QDate debut(txt_date[kDebut + 2].toInt(), txt_date[kDebut + 1].toInt(), txt_date[kDebut].toInt());
    const QDate fin(txt_date[kFin + 2].toInt(), txt_date[kFin + 1].toInt(), txt_date[kFin].toInt());
    // Hours from now to the first day's midnight: none left once that day has come.
    if (debut <= app().clock.today())
        return fail(QStringLiteral("Date de début de la compétition est passée."), QStringLiteral("txt_date_0"));
    if (fin < debut)
        return fail(QStringLiteral("La date de fin ne peut être avant la date de début."),
                    QStringLiteral("txt_date_10"));
    return true;
}

CompetRecord DetCompet::LitCompet() const
{
    CompetRecord r;
    r.num = text1[kNumero];
    r.type = Option1 == kInterclubs ? QStringLiteral("I") : QStringLiteral("C");
    r.nom = text1[kNom];
    r.debut = date_of(kDebut);
    r.fin = date_of(kFin);
    r.lieu = text1[kLieu];
    r.longueur = Op_bass == kBassin50 ? QStringLiteral("50") : QStringLiteral("25");
    r.nb_couloir = Cb_couloir;
    QString* const levels[] = {&r.codif_fede, &r.codif_inter, &r.codif_reg, &r.codif_depar};
    static_assert(std::size(levels) == kLevelCount);
    for (int level = 0; level < kLevelCount; ++level) {
        const int c = codif[size_t(level)];
        *levels[level] = c >= 0 && c <= 2 ? QString(QLatin1Char(kCodifLetters[c])) : QStringLiteral(" ");
    }
    r.num_piscine = num_piscine;
    return r;
}

bool DetCompet::save()
{
    AppContext& a = app();
    if (!ValideCompet())
        return false;
    const CompetRecord record = LitCompet();
    if (mode_ == keyword::kNouveau) {
        if (!AjouterCompet(a, record)) {
            msg_erreur(a.ui, QStringLiteral("Erreur lors de la sauvegarde de la compétition."));
            return false;
        }
        msg_info(a.ui, QStringLiteral("Compétition mémorisée avec succès."));
        a.changes.changed(Subject::Competitions, {}, true);
        close();
        return true;
    }
    if (!ModifierCompet(a, record, autonum_)) {
        msg_erreur(a.ui, QStringLiteral("Erreur lors de la modification de la compétition."));
        return false;
    }
    msg_info(a.ui, QStringLiteral("Compétition modifiée avec succès."));
    // Lines on days that no longer exist fall back to day 1, unordered.
    const QString days = QString::number(EcartJours(DateLongue(record.debut), DateLongue(record.fin)) + 1).trimmed();
    try {
        a.db.exec_sql(QStringLiteral("UPDATE Pcomp SET JourCourse = 1, Num_ordre = 0 ") +
                      QStringLiteral("where JourCourse > ") + days + QStringLiteral(" and Num_compet = ") +
                      sql_key(autonum_));
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    a.changes.changed(Subject::Competitions, autonum_);
    close();
    return true;
}

}  // namespace plouvarine
