#pragma once

#include "database/nested.h"

// lt_raktas(text): the sort key of people's text.
void sortKey(RoutineCall &call);

// UCASE(text): capital letters, Lithuanian ones too.
void upperCase(RoutineCall &call);

// DATEFORMAT(date, format): in the format yyyy, yy, mm and dd are parts of the date, all else stands as
// written.
void dateAsText(RoutineCall &call);
