#pragma once
// Golden files: the expected output of a report, kept in tests/<folder>/golden/.
// With PLOUVARINE_REGENERATE_GOLDEN=1 in the environment the test writes what it
// got over the file instead of comparing (review the change with git diff).

#include <QByteArray>
#include <QString>

namespace plouvarine::testing {

// Compares `actual` with the golden file `name` of tests/`folder`/golden/, or
// writes it there when asked to regenerate.
void expect_golden(const QString& folder, const QString& name, const QByteArray& actual);

}  // namespace plouvarine::testing
