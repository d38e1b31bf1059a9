#pragma once
// construc_code_club: composes a club code from the kind of club and the
// country, inter-region, region and department chosen by name.

#include "src/frame/view.h"

#include <QStringList>
#include <array>

namespace plouvarine {

// A drop-down list of the view: its lines, the value shown, and whether the
// person may change it.
struct ComboState {
    QStringList items;
    QString value;
    bool enabled = true;
};

class ConstrucCodeClub : public View {
public:
    static constexpr QLatin1String kName{"construc_code_club"};
    static constexpr QLatin1String kFrance{"FRANCE"};
    // The entries of Opt_type.
    enum Type { Club = 0, Federale = 1, InterRegionale = 2, Regionale = 3, Departementale = 4 };
    static const std::array<QString, 5>& type_captions();
    // The kind a code tells by its inter-region digit and its zeros.
    static int type_of_code(const QString& code);

    // Opens on the text of the field that asked for help.
    ConstrucCodeClub(AppContext& app, const QString& code);

    int type() const { return type_; }
    bool type_enabled(int entry) const { return type_enabled_.at(size_t(entry)); }
    const ComboState& pays() const { return pays_; }
    const ComboState& inter() const { return inter_; }
    const ComboState& region() const { return region_; }
    const ComboState& departement() const { return departement_; }
    const QString& code_fourni() const { return code_fourni_; }
    bool code_fourni_enabled() const { return code_fourni_enabled_; }
    const QString& codification() const { return codification_; }

    void set_type(int entry);
    void set_pays(const QString& name);
    void set_inter(const QString& name);
    void set_region(const QString& name);
    void set_departement(const QString& name);
    // The typed text, through the key filter: letters in capitals, digits.
    void set_code_fourni(const QString& text);
    static bool code_key_accepted(QChar c);

    // Command1 0 (and "Generate"): composes the code into txt_codification.
    void compose();
    // Command1 1: asks whether to copy the code, then closes.
    void close_command();
    // True when the person chose to copy the composed code.
    bool copied() const { return copied_; }

private:
    QStringList read_names(const QString& sql);
    QString lookup(const QString& sql);
    void country_logic();
    void inter_logic();
    void region_logic();
    static void fill(ComboState& combo, const QStringList& items, bool enabled);

    int type_ = Club;
    std::array<bool, 5> type_enabled_{true, true, true, true, true};
    ComboState pays_, inter_, region_, departement_;
    QString code_fourni_;
    bool code_fourni_enabled_ = true;
    QString codification_;
    bool copied_ = false;
};

}  // namespace plouvarine
