#pragma once
// frmMonitorDef: the position, refresh interval and "always visible" option
// of the performance monitor, for the current profile.

#include "src/frame/view.h"

#include <array>

namespace plouvarine {

class FrmMonitorDef : public View {
public:
    static constexpr QLatin1String kName{"frmMonitorDef"};
    static inline const QString kIntervalNul =
        QStringLiteral("L'intervalle de rafraîchissement doit être supérieur à 0.");

    // The fields are filled from the settings in memory.
    explicit FrmMonitorDef(AppContext& app);

    // txtParam 0, 1, 2: x, y and the interval, digits only.
    std::array<QString, 3> txtParam;
    bool chkAlwaysVisible = false;

    // Command1 0: the values of the running component into the fields.
    void recuperer();
    // Command1 1: the fields into memory, to the component if loaded, to the
    // menu's tick and to the profile (when a base is open). False, with nothing kept, for an
    // interval of 0 or a save that fails.
    bool appliquer();
    // Command1 2
    void fermer() { close(); }
};

FrmMonitorDef* OuvrirMonitorDef(AppContext& app);

}  // namespace plouvarine
