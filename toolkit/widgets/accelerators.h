#pragma once

class QWidget;

// Gives every label with a buddy, button, check box and titled choice of a window a key of its own (Alt and a
// letter of its caption). Keys that captions name already stay, but two alike do not: a button keeps its key
// before a field does, the first before the second, and the other's mark moves to a free letter. A caption
// never changes but for its mark; where all its letters are taken it goes without a key.
void assignAccelerators(QWidget *window);
