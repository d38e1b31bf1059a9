#pragma once
// The lengths of a rich text. A QTextDocument counts its indents, tab stops,
// paragraph spacing, pictures and tables in its layout unit, the 96th of an
// inch, on screen as on paper (the printer scales the drawing, not the
// layout). RTF counts in twips, the 1440th of an inch, and a page in points,
// the 72nd. Every conversion goes through here, so that a template read and
// written back keeps its twips exactly.

#include <QtGlobal>

#include <cmath>

namespace plouvarine {

constexpr double kUnitsPerInch = 96.0;
constexpr double kTwipsPerUnit = 1440.0 / kUnitsPerInch;
constexpr double kTwipsPerPoint = 20.0;

constexpr qreal units_from_twips(double twips)
{
    return twips / kTwipsPerUnit;
}

inline int twips_from_units(qreal units)
{
    return int(std::lround(units * kTwipsPerUnit));
}

constexpr qreal points_from_twips(double twips)
{
    return twips / kTwipsPerPoint;
}

inline int twips_from_points(qreal points)
{
    return int(std::lround(points * kTwipsPerPoint));
}

}  // namespace plouvarine
