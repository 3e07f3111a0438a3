#pragma once

#include "toolkit/data/database.h"

#include <QDateTime>

#include <optional>

// When the youngest backup of embedded books was made, by the names of those that stand beside them; empty
// files and days to come do not count. Nothing where there is none, and for books of a server.
std::optional<QDateTime> lastBackup(const TDatabase &fin);
