#pragma once
// The user guide of the "?" menu: the folder "guide" of the application
// folder, as HTML when the build could make it, else its Markdown text.

#include <QString>

namespace plouvarine {

class AppContext;

// The guide's first page, or the empty text when the folder holds none.
QString user_guide_path(const AppContext& app);
// Opens the guide with the desktop's program for its kind; says so when it
// cannot.
void user_guide_command(AppContext& app);

}  // namespace plouvarine
