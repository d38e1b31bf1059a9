#include "src/competitions/frm_prog.h"

#include "src/frame/status_lines.h"
#include "src/competitions/prog_models.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/base/utils_date.h"
#include "src/base/sql_text.h"

namespace plouvarine {

namespace {

// The number at the head of a typed text, as the old Val() read it.
qint16 leading_number(const QString& text)
{
    const QString t = text.trimmed();
    qsizetype n = 0;
    while (n < t.size() && t[n].isDigit())
        ++n;
    return qint16(qMin(t.left(n).toInt(), 32767));
}

// A flag raised for the length of a scope.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag), old_(flag) { flag_ = true; }
    ~Raised() { flag_ = old_; }

private:
    bool& flag_;
    bool old_;
};

}  // namespace

FrmProg::FrmProg(AppContext& app, const QString& mode, const QString& key, bool modele)
    : View(app, QString(kName)), mode_(mode), key_(key), modele_(modele)
{
    nage_.setHorizontalHeaderLabels({QStringLiteral("Libelle"), QStringLiteral("Code Nage")});
    prog_.setHorizontalHeaderLabels({QStringLiteral("Libelle"), QStringLiteral("Num Ordre")});
    // A click on an event, or a change of its tick, loads it into the fields.
    QObject::connect(&nage_selection_, &QItemSelectionModel::currentRowChanged, &nage_selection_,
                     [this](const QModelIndex& current) {
                         if (!filling_ && current.isValid())
                             on_select(current.row());
                     });
    QObject::connect(&nage_, &QStandardItemModel::itemChanged, &nage_, [this](QStandardItem* item) {
        if (filling_ || item->column() != 0)
            return;
        select_event(item->row());
    });
}

int FrmProg::code_of(int row) const
{
    const QStandardItem* item = nage_.item(row, 1);
    return item ? item->text().toInt() : -1;
}

QSet<int> FrmProg::listed_codes() const
{
    QSet<int> codes;
    for (int row = 0; row < nage_.rowCount(); ++row)
        codes.insert(code_of(row));
    return codes;
}

void FrmProg::setVisibleControlModele()
{
    if (mode_ == keyword::kView && modele_) {
        det_def_visible_ = chk_modele_visible_ = cmd_modele_visible_ = cmd_charger_visible_ = false;
        cmd_compet_visible_ = journee_visible_ = cmd1_visible_ = false;
    } else {
        det_def_visible_ = true;
        chk_modele_visible_ = cmd_modele_visible_ = !modele_;
        cmd_charger_visible_ = journee_visible_ = modele_;
    }
    changed();
}

void FrmProg::setViewControle(bool visible)
{
    definition_visible_ = visible;
    changed();
}

void FrmProg::setListeNage()
{
    AppContext& a = app();
    try {
        {
            Raised filling(filling_);
            // The pool length is still the one of the last filling (0 when the
            // view opens): the whole catalogue shows the first time.
            fill_collections(a.db, ListeNageSql(longueur_), {{&nage_, {0, 1}, 1, true}});
            nage_.setHorizontalHeaderLabels({QStringLiteral("Libelle"), QStringLiteral("Code Nage")});
            last_index_ = -1;
        }
        days_.clear();
        day_dates_.clear();
        day_index_ = -1;
        if (modele_) {
            longueur_ = 25;
            setTabFromModele(key_);
            txt_nb_journee = QString::number(journee_max_);
            SetListeFromText();
        } else {
            setTabFromTab(key_);
            load_days();
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    {
        Raised filling(filling_);
        select_row_at(nage_selection_, 0);
    }
    RefreshListeNage();
}

void FrmProg::load_days()
{
    days_.clear();
    day_dates_.clear();
    day_index_ = -1;
    const Rows rows =
        app().db.load_rows(QStringLiteral("SELECT Longueur, Debut, Fin from Rcomp where AutoNum = ") + sql_key(key_));
    if (rows.size() > 0) {
        longueur_ = rows.value(0, 0).toInt();
        const QString debut = rows.value(0, 1);
        const int count = EcartJours(DateLongue(debut), DateLongue(rows.value(0, 2))) + 1;
        const QDate first = QDate::fromString(debut, QStringLiteral("yyyyMMdd"));
        for (int d = 0; d < count && first.isValid(); ++d) {
            const QDate day = first.addDays(d);
            day_dates_ << day;
            days_ << DateLongue(day.toString(QStringLiteral("yyyyMMdd")), QStringLiteral("d mmm yyyy"));
        }
        day_index_ = days_.isEmpty() ? -1 : 0;
    } else {
        longueur_ = 50;
    }
}

void FrmProg::apply_loaded(const LoadedProg& loaded)
{
    tab_ = loaded.tab;
    journee_max_ = loaded.journee_max;
}

void FrmProg::setTabFromTab(const QString& num)
{
    apply_loaded(ChargeTabProg(app().db, TabFromTabSql(num)));
}

void FrmProg::setTabFromModele(const QString& num)
{
    apply_loaded(ChargeTabProg(app().db, TabFromModeleSql(num, longueur_)));
}

void FrmProg::RefreshListeNage()
{
    {
        Raised filling(filling_);
        for (int row = 0; row < nage_.rowCount(); ++row) {
            const int code = code_of(row);
            const bool on = code >= 0 && code < kEventSlots && tab_[size_t(code)].JourCourse >= 1;
            nage_.item(row, 0)->setCheckState(on ? Qt::Checked : Qt::Unchecked);
        }
    }
    const QModelIndex current = nage_selection_.currentIndex();
    if (current.isValid()) {
        Raised no_save(no_save_);
        load_fields(current.row());
    }
    if (!definition_visible_)
        show_detail();
    changed();
}

void FrmProg::SetListeFromText()
{
    if (txt_nb_journee.trimmed().toInt() <= 0)
        txt_nb_journee = QStringLiteral("1");
    const int wanted = txt_nb_journee.trimmed().toInt();
    while (days_.size() > wanted)
        days_.removeLast();
    while (days_.size() < wanted)
        days_ << LibelleJournee(int(days_.size()) + 1);
    if (day_index_ >= days_.size())
        day_index_ = int(days_.size()) - 1;
    changed();
}

void FrmProg::loadModeleProg()
{
    try {
        ChargerListeProg(app().db, prog_, QStringLiteral("Pcomp_modele"), QStringLiteral("Num_modele"), key_,
                         [](int day) { return LibelleJournee(day); });
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QString(), &e);
    }
    changed();
}

void FrmProg::select_event(int row)
{
    const QModelIndex current = nage_selection_.currentIndex();
    if (!current.isValid() || current.row() != row)
        select_row_at(nage_selection_, row);  // the selection's signal loads it
    else
        on_select(row);
}

void FrmProg::set_checked(int row, bool checked)
{
    if (QStandardItem* item = nage_.item(row, 0))
        item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

void FrmProg::on_select(int row)
{
    if (!no_save_)
        SaveFormInTab();
    load_fields(row);
}

void FrmProg::clear_fields()
{
    Optclass = 0;
    optNbFinales = 0;
    OptType = -1;
    optclass_enabled_ = finales_enabled_ = false;
    txtordre.clear();
    ordre_enabled_ = false;
    cbo_enabled_ = false;
    day_index_ = days_.isEmpty() ? -1 : 0;
}

void FrmProg::load_fields(int row)
{
    const int code = code_of(row);
    if (code < 0 || code >= kEventSlots)
        return;
    const ProgSlot& slot = tab_[size_t(code)];
    if (nage_.item(row, 0)->checkState() == Qt::Checked) {
        clear_fields();
        optclass_enabled_ = ordre_enabled_ = cbo_enabled_ = true;
        if (slot.Type == 1 || slot.Type == 2 || slot.Type == 3 || slot.Type == 4 || slot.Type == 8)
            set_optclass(slot.Type);
        if (slot.Nb_finales >= 1 && slot.Nb_finales <= 3)
            optNbFinales = slot.Nb_finales;
        if (slot.Type_finale == QLatin1String("T"))
            OptType = kToutesCategories;
        else if (slot.Type_finale == QLatin1String("C"))
            OptType = kCategories;
        txtordre = QString::number(slot.Num_ordre);
        if (slot.JourCourse >= 1)
            day_index_ = int(qMin<qsizetype>(slot.JourCourse, days_.size())) - 1;
        else
            day_index_ = days_.isEmpty() ? -1 : 0;
        if (Optclass == 0)
            set_optclass(1);  // a newly ticked event: "Temps"
    } else {
        clear_fields();
    }
    last_index_ = row;
    changed();
}

void FrmProg::set_optclass(int type)
{
    Optclass = type;
    optNbFinales = 0;
    OptType = -1;
    finales_enabled_ = type != 1;
    if (type != 1) {
        optNbFinales = 1;             // "Finale A"
        OptType = kToutesCategories;  // "Toutes catégories"
    }
    changed();
}

void FrmProg::set_cbo_index(int index)
{
    if (index >= -1 && index < days_.size())
        day_index_ = index;
    changed();
}

void FrmProg::ControleOrdre(int day, int num_ordre)
{
    // Only the slot of event code 0 is looked at.
    const ProgSlot& first = tab_[0];
    if (first.Num_ordre >= 1 && first.JourCourse < day && first.Num_ordre >= num_ordre)
        msg_info(app().ui,
                 QStringLiteral("Le numéro d'ordre spécifié est inférieur au maximum des journées précédentes."));
}

void FrmProg::SaveFormInTab()
{
    if (last_index_ < 0 || last_index_ >= nage_.rowCount())
        return;
    const int code = code_of(last_index_);
    if (code < 0 || code >= kEventSlots)
        return;
    const qint16 ordre = leading_number(txtordre);
    if (day_index_ != 0)
        ControleOrdre(day_index_ + 1, ordre);
    ProgSlot& slot = tab_[size_t(code)];
    slot.Type = qint16(Optclass);
    slot.Nb_finales = qint16(optNbFinales);
    slot.Type_finale = OptType == kToutesCategories ? QStringLiteral("T")
                       : OptType == kCategories     ? QStringLiteral("C")
                                                    : QStringLiteral(" ");
    slot.Num_ordre = ordre;
    slot.JourCourse = cbo_enabled_ ? qint16(day_index_ + 1) : qint16(0);
}

bool FrmProg::SaveTabInTable(const QString& table, const QString& num, bool modele)
{
    return plouvarine::SaveTabInTable(app(), tab_, int(days_.size()), table, num, modele);
}

void FrmProg::show_detail()
{
    AppContext& a = app();
    SaveFormInTab();
    SaveTabInTable(QStringLiteral("Pcomp_tempo"), key_, false);
    try {
        ChargerListeProg(a.db, prog_, QStringLiteral("Pcomp_tempo"), QStringLiteral("Num_compet"), key_,
                         [this](int day) {
                             if (modele_)
                                 return LibelleJournee(day);
                             if (day < 1 || day > day_dates_.size())
                                 return QString();
                             return DateLongue(day_dates_[day - 1].toString(QStringLiteral("yyyyMMdd")),
                                               QString::fromLatin1(kFormatDateLongue));
                         });
        a.db.clear_table(QStringLiteral("Pcomp_tempo"));
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
}

void FrmProg::Cmd_det_def()
{
    if (det_def_caption_ == kCaptionDetail) {
        show_detail();
        setViewControle(false);
        det_def_caption_ = kCaptionDef;
    } else {
        setViewControle(true);
        det_def_caption_ = kCaptionDetail;
    }
    changed();
}

void FrmProg::cmd_ok()
{
    AppContext& a = app();  // the view may be gone once finished
    bool saved = false;
    ProgModelRequest next;
    if (mode_ == keyword::kModif && !modele_) {
        SaveFormInTab();
        saved = SaveTabInTable(QStringLiteral("Pcomp"), key_, false);
        if (Chk_modele) {
            // The programme as saved goes on into a model, once this window
            // has gone.
            next.mode = QString(keyword::kModeleDepuisProgramme);
            next.caption = QStringLiteral("&Nouveau");
            next.title = QStringLiteral("Enregistrement du programme dans un modèle");
            next.save = [&a, tab = tab_, days = int(days_.size())](const QString& num) mutable {
                return plouvarine::SaveTabInTable(a, tab, days, QStringLiteral("Pcomp_modele"), num, true);
            };
        }
    } else if (mode_ == keyword::kModif || mode_ == kNewModele) {
        SaveFormInTab();
        saved = SaveTabInTable(QStringLiteral("Pcomp_modele"), key_, true);
        if (mode_ == keyword::kModif) {
            next.mode = QString(keyword::kModif);
            next.num = key_;
            next.caller = a.windows.caller_of(QString(kName));
            try {
                next.name = a.db.load_rows(QStringLiteral("select Nom_modele from Modele_prog where NumAuto = ") +
                                           sql_key(key_))
                                .first();
            } catch (const std::exception& e) {
                msg_erreur(a.ui, QString(), &e);
                next.mode.clear();
            }
        }
    }
    finish();
    if (saved)
        status_text(a.ui, kStatusProgSaved);
    if (!next.mode.isEmpty())
        open_prog_models(a, next);
}

void FrmProg::cmd_annuler()
{
    if (mode_ == kNewModele) {
        try {
            app().db.exec_sql(QStringLiteral("DELETE from Modele_prog where NumAuto = ") + sql_key(key_));
        } catch (const std::exception& e) {
            msg_erreur(app().ui, QString(), &e);
        }
    }
    finish();
}

void FrmProg::empty_tempo()
{
    try {
        if (app().db.is_open())
            app().db.clear_table(QStringLiteral("Pcomp_tempo"));
    } catch (const std::exception&) {
        // Nothing of the programme depends on it.
    }
}

void FrmProg::finish()
{
    tab_ = TabProg{};
    empty_tempo();
    close();
}

bool FrmProg::query_close()
{
    empty_tempo();
    return true;
}

}  // namespace plouvarine
