#include "support/golden.h"

#include "support/temp_files.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <gtest/gtest.h>

namespace plouvarine::testing {

void expect_golden(const QString& folder, const QString& name, const QByteArray& actual)
{
    const QString path = QDir(QStringLiteral(PLOUVARINE_SOURCE_DIR "/tests")).filePath(folder + QStringLiteral("/golden/") + name);
    if (qEnvironmentVariableIntValue("PLOUVARINE_REGENERATE_GOLDEN") == 1) {
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(write_bytes(path, actual)) << path.toStdString();
        return;
    }
    // Compared as text lines, so that a failure shows the first line that differs.
    const QByteArray expected = read_bytes(path);
    ASSERT_FALSE(expected.isEmpty()) << "no golden file " << path.toStdString()
                                     << ": run with PLOUVARINE_REGENERATE_GOLDEN=1 to write it";
    const QList<QByteArray> want = expected.split('\n');
    const QList<QByteArray> got = actual.split('\n');
    for (qsizetype i = 0; i < std::min(want.size(), got.size()); ++i)
        ASSERT_EQ(got[i].toStdString(), want[i].toStdString()) << name.toStdString() << ", line " << i + 1;
    EXPECT_EQ(got.size(), want.size()) << name.toStdString() << ": not as many lines as the golden file";
}

}  // namespace plouvarine::testing
