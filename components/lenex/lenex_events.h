#pragma once
// The catalogue's events as Lenex swim styles: the table lives with the
// competitions, where a programme is also read from a meet file.

#include "src/competitions/lenex_styles.h"
