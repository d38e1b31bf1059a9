#include "src/store/save_writer.h"

#include "src/base/services.h"
#include "src/store/save.h"

#include <QFileInfo>

namespace plouvarine {

SaveWriter::SaveWriter(Services& ui) : ui_(ui) {}

SaveWriter::~SaveWriter()
{
    // The program never leaves a save half written behind it.
    if (worker_.joinable())
        worker_.join();
}

void SaveWriter::start(PinnedRead pinned, const QString& snapshot, const QString& archive, const QString& name,
                       std::function<void(bool)> done)
{
    wait();
    archive_ = archive;
    done_ = std::move(done);
    running_ = true;
    worker_ = std::thread([this, pinned = std::move(pinned), snapshot, archive, name]() mutable {
        std::optional<Error> failure;
        try {
            // Released here, before the owner can learn the save has ended.
            pinned.snapshot_to(snapshot);
            zip_snapshot(snapshot, archive, name, kSaveDeflateLevel);
        } catch (const Error& e) {
            failure = e;
        } catch (const std::exception& e) {
            failure = Error(0, QString::fromLocal8Bit(e.what()));
        }
        {
            const std::lock_guard lock(mutex_);
            failure_ = std::move(failure);
        }
        QMetaObject::invokeMethod(&context_, [this] { finish(); }, Qt::QueuedConnection);
    });
}

bool SaveWriter::wait()
{
    return finish();
}

bool SaveWriter::finish()
{
    if (!running_)
        return true;  // nothing started, or already reported
    running_ = false;
    worker_.join();
    std::optional<Error> failure;
    {
        const std::lock_guard lock(mutex_);
        failure.swap(failure_);
    }
    // Taken before reporting: a message box runs the event loop.
    auto done = std::move(done_);
    done_ = nullptr;
    if (failure)
        report_save_failure(ui_, archive_, &*failure);
    if (done)
        done(!failure);
    return !failure;
}

}  // namespace plouvarine
