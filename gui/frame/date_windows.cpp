#include "gui/frame/date_windows.h"

#include "gui/frame/window_factory.h"
#include "src/frame/choose_date_view.h"
#include "gui/frame/choose_date_window.h"

namespace plouvarine::gui {

void register_date_windows()
{
    register_window(QStringLiteral("frm_choose_date"), [](View& view, QWidget* parent) -> ViewWindow* {
        auto* picker = dynamic_cast<ChooseDateView*>(&view);
        return picker ? new ChooseDateWindow(*picker, parent) : nullptr;
    });
}

}  // namespace plouvarine::gui
