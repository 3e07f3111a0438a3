#pragma once

#include <memory>

class QMimeData;
class TDBGrid;

// The selected rows of a grid, else the current one, as a table with titles for the clipboard: as text with
// tabs and as HTML, columns in the order shown. Blanks stay as they are; a tab or a line end inside a value
// becomes a blank. Null when there is no row.
std::unique_ptr<QMimeData> copyOfRows(const TDBGrid &grid);
