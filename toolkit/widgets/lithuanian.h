#pragma once

#include <QString>

class QCoreApplication;

// Makes the program Lithuanian: Qt's own texts (buttons and dialogs, menus of edits, errors of files; the
// catalogue is qt_lt.ts) and the default locale (calendar, numbers of Qt's own widgets). To be called once,
// right after the application object is made.
void speakLithuanian(QCoreApplication *application);

// A caption without its accelerator marks: "&Taip" is "Taip".
QString plainCaption(const QString &caption);
