#pragma once
// dem_info: a club's name and code, for a new club ("Nouveau") or a change
// ("Modif", "View"). dem_info_obli is its forced form at the first start: the
// base must hold a club before anything else runs.

#include "src/frame/view.h"

namespace plouvarine {

class DemInfo : public View {
public:
    static constexpr QLatin1String kName{"dem_info"};
    static constexpr QLatin1String kObliName{"dem_info_obli"};

    // `name` is kName or kObliName; `num` is the row's Num in "Modif" and "View".
    DemInfo(AppContext& app, const QString& name, const QString& keyword, const QString& num = {},
            const QString& code = {}, const QString& nom = {});

    bool obligatory() const { return name() == kObliName; }
    const QString& keyword() const { return keyword_; }
    const QString& num() const { return num_; }

    // text1 0: the name; a blank is refused as first character.
    const QString& nom() const { return nom_; }
    void set_nom(const QString& text);
    // text1 1: the code, in capitals, letters and digits only.
    const QString& code() const { return code_; }
    void set_code(const QString& text);
    static bool code_key_accepted(QChar c);

    bool fields_locked() const { return keyword_ == QLatin1String("View"); }
    // The confirmation: a name, and a code of at least 13 characters.
    bool ok_enabled() const;
    // "Annuler": a new club may be given up only when a visible club exists.
    bool cancel_enabled() const { return cancel_enabled_; }

    // Command1 2 "Aide": the code construction help on the code field.
    void aide();
    // The confirmation: true when the club was saved and the view closed.
    bool confirm();
    void cancel();
    bool query_close() override;

private:
    QString keyword_;
    QString num_;
    QString nom_;
    QString code_;
    bool cancel_enabled_ = true;
};

}  // namespace plouvarine
