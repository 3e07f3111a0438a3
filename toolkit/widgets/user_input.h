#pragma once

#include <functional>

class QObject;
class QWidget;

// What a form knows of any control, be it bound to a column, a plain one of Qt or one of a screen's own
// (which tells its value by its user property).

// Calls the handler, guarded, after every keystroke and choice of the user in the control or in the controls
// inside it, until context goes. A control that only tells of a changed property is heard by that.
void whenEdited(QWidget *control, QObject *context, const std::function<void()> &handler);

// Whether the control shows something; blanks, and a number that is 0, are nothing.
bool showsValue(const QWidget *control);
