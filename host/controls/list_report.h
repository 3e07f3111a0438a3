#pragma once

#include "toolkit/data/dataset.h"
#include "toolkit/report/table_report.h"

class TDBGrid;

// A list as a report: the columns as the grid shows them, in its order and in proportion to its widths; an
// item's expression is its field, its mask the field's display format.
TReport reportOfList(const TTableHeading &heading, const TDBGrid &grid, const TDataSet &set);
