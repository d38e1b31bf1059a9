#pragma once
// A text that breaks any statement composed by hand: an apostrophe, a double
// quote, a semicolon, a backslash and letters outside Latin-1. Every text field
// that a detail window saves is written with it and read back from the base.

#include <QString>

namespace plouvarine::testing {

inline QString awkward_text(const char* tag = "")
{
    return QString::fromUtf8(tag) + QStringLiteral("D'Artagnan \"Le\"; C:\\x Ωμέγα 山田");
}

}  // namespace plouvarine::testing
