#pragma once
// The save copy, written off the person's thread. The base is pinned on the
// main thread, at once (PinnedRead); the worker copies what was pinned into a
// snapshot file and releases the pin, checks the snapshot as a base, zips it
// over the save file (libzip writes a temporary file and renames it over the
// save only when whole) and removes it. Until then the old save stays as it
// was, and so it does after a failure or a kill.
//
// The outcome reaches the person on the owner's thread: through the event loop
// when the worker ends, or at the latest in wait(). Whatever closes the base,
// restores or deletes the save, or ends the program waits first.

#include <QObject>
#include <QString>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include "src/base/errors.h"
#include "src/store/pinned_read.h"

namespace plouvarine {

class Services;

class SaveWriter {
public:
    explicit SaveWriter(Services& ui);
    ~SaveWriter();
    SaveWriter(const SaveWriter&) = delete;
    SaveWriter& operator=(const SaveWriter&) = delete;

    // Waits for the save in progress, then hands `pinned` to a worker that
    // copies it to `snapshot` and zips that over `archive` under `name`; the
    // pin is released by then, whatever happened. `done(saved)` runs on the
    // owner's thread once a failure, if any, has been shown.
    void start(PinnedRead pinned, const QString& snapshot, const QString& archive, const QString& name,
               std::function<void(bool)> done);
    bool pending() const { return running_; }
    // Blocks until the save in progress has ended and been reported.
    // True when there was none or it succeeded.
    bool wait();

private:
    bool finish();

    Services& ui_;
    // Receives the worker's "done" in the owner's event loop.
    QObject context_;
    std::thread worker_;
    bool running_ = false;
    QString archive_;
    std::function<void(bool)> done_;
    std::mutex mutex_;
    std::optional<Error> failure_;
};

}  // namespace plouvarine
