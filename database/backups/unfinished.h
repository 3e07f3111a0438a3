#pragma once

#include <QStringList>

// What stands where a backup is being made or unpacked.

// The folder beside backups, or beside embedded books, in which the parts of a backup stand meanwhile.
inline constexpr char partsName[] = ".velmora-dalys";

// The files of backups of the folder that were still being written, with their paths.
QStringList unfinishedIn(const QString &folder);
