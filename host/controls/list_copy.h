#pragma once

class QMimeData;
class QTableView;

// The selected rows of a grid as a table with titles, for the clipboard: as text with tabs and as HTML.
// Without a selection the current row; null when there is neither. The caller becomes the owner.
QMimeData *copyOfRows(const QTableView &grid);
