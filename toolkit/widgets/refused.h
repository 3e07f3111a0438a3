#pragma once

class Exception;
class QWidget;

// After a save that was refused: puts the cursor on the control whose column the error names, which wears a
// red frame with the reason then; else on the first control whose own text was refused before.
void focusRefused(QWidget *window, const Exception &error);
