#pragma once

class QWidget;

// Puts an open screen on the row of that key, or a classification book on the node, in the current period; 0
// leaves it as it is. A row that the screen does not have leaves it on its first.
void standOn(QWidget &document, double key);
