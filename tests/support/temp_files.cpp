#include "support/temp_files.h"

#include "src/store/database.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <csignal>
#include <cstdio>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace plouvarine::testing {

bool write_bytes(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

QByteArray read_bytes(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QByteArray random_bytes(qsizetype size, quint32 seed)
{
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator gen(seed);
    for (char& b : bytes)
        b = char(gen.bounded(256));
    return bytes;
}

QString unwritable_folder(const QString& parent)
{
    const QString locked = QDir(parent).filePath(QStringLiteral("locked"));
    QDir().mkpath(locked);
    QFile::setPermissions(locked, QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::ReadGroup |
                                      QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther);
    QFile probe(QDir(locked).filePath(QStringLiteral("probe")));
    if (!probe.open(QIODevice::WriteOnly))
        return locked;
    // Permissions do not stop this user: no one can create a file below a file.
    probe.close();
    probe.remove();
    const QString blocker = QDir(parent).filePath(QStringLiteral("blocker"));
    write_bytes(blocker, "not a folder");
    return QDir(blocker).filePath(QStringLiteral("folder"));
}

int run_with_file_size_limit(qint64 limit, const std::function<int()>& body)
{
    std::fflush(nullptr);
    const pid_t pid = fork();
    if (pid < 0)
        return -1;
    if (pid == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit rl{rlim_t(limit), rlim_t(limit)};
        int code = 100;
        if (setrlimit(RLIMIT_FSIZE, &rl) == 0) {
            try {
                code = body();
            } catch (...) {
                code = 101;
            }
        }
        std::fflush(nullptr);
        _exit(code);
    }
    int status = 0;
    if (waitpid(pid, &status, 0) != pid)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

BaseHeldElsewhere::BaseHeldElsewhere(const QString& path)
{
    int ready[2];
    if (pipe(ready) != 0)
        return;
    child_ = fork();
    if (child_ == 0) {
        Database db;
        db.open(path);
        char c = 1;
        (void)!write(ready[1], &c, 1);
        pause();
        _exit(0);
    }
    char c = 0;
    if (child_ < 0 || read(ready[0], &c, 1) != 1)
        crash();
    ::close(ready[0]);
    ::close(ready[1]);
}

void BaseHeldElsewhere::crash()
{
    if (child_ > 0) {
        kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
    }
    child_ = -1;
}

}  // namespace plouvarine::testing
