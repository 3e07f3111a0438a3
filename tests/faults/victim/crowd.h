#pragma once

#include "toolkit/data/database.h"

#include <functional>

// Many stations of one program, each with a session of its own, a list that it is reading and its name in the
// history. Says "pradeda" when all are there. They save in turns, typical operations and entries of the month
// that each found at its beginning, until that month is closed and once more; at the end all lists are read
// to their end. Says "operacija NAME" and "irasas NUMBER" for each save that was acknowledged, "atsisakyta
// TEXT" for each refusal. Raises what is no refusal of a save.
void workAsCrowd(const TSessionSettings &settings, int stations,
                 const std::function<void(const QString &)> &say);
