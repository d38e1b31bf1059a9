#pragma once
// The application: one object that the frame owns and every operation is given.
// It holds the state, the one connection, the person's services and the clock.

#include "src/frame/app_state.h"
#include "src/frame/change_notifier.h"
#include "src/frame/clock.h"
#include "src/frame/command_table.h"
#include "src/frame/menu_state.h"
#include "src/base/services.h"
#include "src/frame/window_registry.h"
#include "src/store/database.h"
#include "src/store/save.h"
#include "src/store/save_writer.h"

#include <QString>
#include <functional>
#include <vector>

namespace plouvarine {

class AppContext;

// The steps that later subsystems add to the opening of a base. Each is run in
// its place by the open and new sequences when it is set.
struct OpeningHooks {
    // "Contrôle Club": declares the first club when the base has none.
    std::function<void(AppContext&)> check_club;
    // "Lecture profil": reads the current profile into the state.
    std::function<void(AppContext&)> read_profile;
    // "Mise à jour des compétitions", run at each opening.
    std::function<void(AppContext&)> competitions_rollover;
    // "Mise à jour des licences": the purge, then the yearly roll-over.
    std::function<void(AppContext&)> licences_maintenance;
    // Release of the performance monitor at the end of work.
    std::function<void(AppContext&)> release_monitor;
};

class AppContext {
public:
    AppContext(Services& ui, QString app_dir);

    AppState state;
    Database db;
    Services& ui;
    // The save copy being compressed, if any: the base is not closed, restored
    // or left before it is written.
    SaveWriter saves{ui};
    Clock clock;
    OpeningHooks hooks;
    // The main window's menu: base state and lock counters.
    MenuState menus;
    // The open windows, one instance each, with their callers and locks.
    WindowRegistry windows{*this};
    // The menu commands that the frame and each subject register.
    CommandTable commands;
    // What the views changed in the base, for the lists that show it.
    ChangeNotifier changes;

    // The application folder: the folder of the executable.
    const QString& app_dir() const { return app_dir_; }
    QString app_file(const QString& name) const;
    // The work folder "tempo" of the application folder.
    QString tempo_dir() const;
    // The base in use as the store's save and restore see it.
    BaseFile base_file() { return {db, ui, state.base_path, tempo_dir()}; }

    // Sets the menus for a base open or closed (menus.enable_menus), then tells
    // on_enable_menus.
    void enable_menus(bool base_open);
    bool menus_base_open() const { return menus.base_open(); }
    // The main window's title: "Plouvarine", and the open base's file name
    // after it ("Plouvarine - club.mdb").
    QString main_title() const;
    std::function<void(bool)> on_enable_menus;

    bool is_busy() const { return state.busy_count >= 1; }
    void busy_inc() { ++state.busy_count; }
    void busy_dec() { if (state.busy_count > 0) --state.busy_count; }

private:
    QString app_dir_;
};

}  // namespace plouvarine
