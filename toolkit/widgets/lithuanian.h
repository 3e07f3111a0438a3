#pragma once

#include <QString>
#include <QTranslator>

class QCoreApplication;

// Lithuanian words for the texts that Qt itself shows: buttons of dialogs, context menus of edits, the
// calendar, the dialogs for files and printing, the names of keys.
class TLithuanianTranslator : public QTranslator {
public:
    using QTranslator::QTranslator;

    QString translate(const char *context, const char *sourceText, const char *disambiguation = nullptr,
                      int n = -1) const override;
    bool isEmpty() const override { return false; }
};

// Makes the program Lithuanian: the translator above and the default locale (calendar, numbers of Qt's own
// widgets). To be called once, right after the application object is made.
void speakLithuanian(QCoreApplication *application);

// A caption without its accelerator marks: "&Taip" is "Taip".
QString plainCaption(const QString &caption);
