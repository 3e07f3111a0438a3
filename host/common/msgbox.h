#pragma once

#include <QString>

// Kinds of message: the high four bits choose the icon, the low four bits the buttons.
enum : unsigned short {
    mkQuestion = 18,      // question, yes and no
    mkInformation = 33,   // information, OK
    mkWarning = 49,       // warning, OK
    mkError = 81,         // error, OK
    mkQuestionCancel = 99 // question, yes, no and cancel
};
enum : int { mrYes = 6, mrNo = 7, mrOk = 1, mrCancel = 2 };

// Shows a modal message box and returns the button pressed: 6 yes, 7 no, anything else is cancel or OK.
// Closing a question with Esc answers cancel, or no when it has no cancel button. Questions to be answered
// with yes or no are about what cannot be taken back, so Enter answers no; where there is a cancel button,
// yes. Where it is "no" that cannot be taken back, safe (mrYes) is what both keys answer. The text can be
// copied, by selecting it or all of it with Ctrl+C. The box has the object name "StdMsgBox" and the property
// "kind".
int StdMsgBox(unsigned short kind, const QString &text, int safe = 0);
