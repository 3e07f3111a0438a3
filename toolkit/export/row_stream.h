#pragma once

#include "toolkit/export/export_file.h"
#include "toolkit/export/row_lines.h"

#include <functional>

// Runs the statement and writes its rows, each as a line; returns how many there were. Progress is called at
// most 25 times a second with the rows so far.
qlonglong streamRows(TStatement &rows, const TRowLines &lines, TExportFile &file,
                     const std::function<void(qlonglong rows)> &progress);
