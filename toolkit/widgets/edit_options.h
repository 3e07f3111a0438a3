#pragma once

#include <QString>

class QLineEdit;

// What a line edit lets through while the user types or pastes.
struct TEditOptions {
    enum Allowed { Anything, Digits, LettersAndDigits };

    int maxLength = 0; // characters; 0: as many as the bound column holds
    bool upperCase = false;
    Allowed allowed = Anything; // other characters are dropped, from a paste as well
    Allowed typed = Anything;   // keys for other characters do nothing; a paste is not filtered
    bool password = false;
    // "!9999/99/00;1;_": 0 a digit, 9 a digit or nothing, L a letter; then what stands for a blank
    QString mask;
};

// Applies the options. A text longer than maxLength is refused as a whole, with a hint; nothing is cut off.
void applyEditOptions(QLineEdit *edit, const TEditOptions &options);

// The text of an edit with a mask: empty when nothing but the mask's own characters stands in it.
QString maskedText(const QLineEdit *edit);
