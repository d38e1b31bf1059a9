#pragma once
// The events of the catalogue (Nage.Code_Nage) as Lenex swim styles, shared
// by the Lenex components and the programme read from a meet file. The codes
// follow the catalogue's layout: women's 0 to 49 by stroke in tens, men's the
// same plus 50, relays 7 to 9 and 43 to 44, mixed relays 45 to 49.

#include <QString>

namespace plouvarine::lenex {

struct SwimStyle {
    int distance = 0;   // of one swimmer, as Lenex gives it
    int relaycount = 1;
    QString stroke;     // FREE, BACK, BREAST, FLY, MEDLEY
};

// The event code of a style for a gender ("F", "M", "X" for a mixed relay);
// -1 when the catalogue has no such event.
int event_code(const SwimStyle& style, QChar gender);

// The style of an event code and its gender ("F", "M" or "X"); false when the
// code is not one of the catalogue.
bool event_style(int code, SwimStyle& style, QChar& gender);

// The individual event swum by the first swimmer of a relay event, for a
// swimmer of `gender` ("F" or "M"): the free style of a free relay, the
// backstroke of a medley relay; -1 when none.
int first_leg_code(int relay_code, QChar gender);

// The pool length of a Lenex course: 25 (SCM), 50 (LCM), 0 for another one.
int course_length(const QString& course);
QString course_name(int length);

}  // namespace plouvarine::lenex
