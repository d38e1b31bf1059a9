#pragma once
// Small file helpers for tests that build real files, archives and failing
// folders in temporary directories.

#include <QByteArray>
#include <QString>
#include <functional>

namespace plouvarine::testing {

bool write_bytes(const QString& path, const QByteArray& bytes);
// The whole file, or an empty array if it cannot be read.
QByteArray read_bytes(const QString& path);
// Reproducible bytes that do not compress.
QByteArray random_bytes(qsizetype size, quint32 seed = 1);

// A folder path below `parent` where no file can be created, whoever runs the
// test: a folder without write permission, or, where that does not stop the
// user (root), a path below a regular file.
QString unwritable_folder(const QString& parent);

// Runs `body` in a child process whose files may not grow beyond `limit`
// bytes, as on a full disk: writes past it fail instead of raising SIGXFSZ.
// Gives the child's exit code (body's result), or -1 if it did not exit.
int run_with_file_size_limit(qint64 limit, const std::function<int()>& body);

// A base open in another process, which holds its lock as long as it lives:
// another copy of the program. Built once the child holds the base.
class BaseHeldElsewhere {
public:
    explicit BaseHeldElsewhere(const QString& path);
    ~BaseHeldElsewhere() { crash(); }
    BaseHeldElsewhere(const BaseHeldElsewhere&) = delete;
    BaseHeldElsewhere& operator=(const BaseHeldElsewhere&) = delete;
    // Kills the other process as a crash would: its lock file stays behind.
    void crash();

private:
    int child_ = -1;
};

}  // namespace plouvarine::testing
