#include "toolkit/widgets/accelerators.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QShortcut>

#include <functional>

namespace {

// Something with a caption whose mark is a key.
struct Captioned {
    QString caption;
    std::function<void(const QString &)> setCaption;
};

template<typename Widget> Captioned captioned(Widget *widget)
{
    return {widget->text(), [widget](const QString &caption) { widget->setText(caption); }};
}

// The place of the letter behind a mark; -1 when there is no mark. A doubled sign is a sign.
qsizetype markedLetter(const QString &caption)
{
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != u'&')
            continue;
        if (caption[i + 1] != u'&')
            return i + 1;
        ++i;
    }
    return -1;
}

QString withoutMark(QString caption)
{
    const qsizetype letter = markedLetter(caption);
    return letter < 0 ? caption : caption.remove(letter - 1, 1);
}

bool isLatin(QChar c)
{
    return c.isLetter() && c.unicode() < 0x80;
}

// First letters of words are the easiest to find, then any letter; those on every keyboard before the others.
QString withFreeMark(const QString &caption, const QSet<QChar> &taken)
{
    const auto atWord = [&](qsizetype i) { return i == 0 || !caption[i - 1].isLetter(); };
    const std::function<bool(qsizetype)> choices[] = {
        [&](qsizetype i) { return isLatin(caption[i]) && atWord(i); },
        [&](qsizetype i) { return isLatin(caption[i]); },
        [&](qsizetype i) { return caption[i].isLetter(); },
    };
    for (const auto &fits : choices) {
        for (qsizetype i = 0; i < caption.size(); ++i) {
            if (fits(i) && !taken.contains(caption[i].toUpper()))
                return QString(caption).insert(i, u'&');
        }
    }
    return caption;
}

// Buttons that decide about the dialog first: their keys are the same everywhere.
QList<Captioned> captionsIn(QWidget *window)
{
    QList<Captioned> buttons;
    QList<Captioned> fields;
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        if (widget->window() != window)
            continue;
        if (auto *button = qobject_cast<QPushButton *>(widget))
            buttons += captioned(button);
        else if (qobject_cast<QCheckBox *>(widget) || qobject_cast<QRadioButton *>(widget))
            fields += captioned(static_cast<QAbstractButton *>(widget));
        else if (auto *label = qobject_cast<QLabel *>(widget); label && label->buddy())
            fields += captioned(label);
        else if (auto *group = qobject_cast<QGroupBox *>(widget); group && markedLetter(group->title()) >= 0)
            fields += {group->title(), [group](const QString &title) { group->setTitle(title); }};
    }
    return buttons + fields;
}

// Letters that lead somewhere by a key of the screen's own.
QSet<QChar> keysOfShortcuts(const QWidget *window)
{
    QSet<QChar> letters;
    for (const QShortcut *shortcut : window->findChildren<QShortcut *>()) {
        const QKeyCombination key = shortcut->key()[0];
        if (key.keyboardModifiers() == Qt::AltModifier)
            letters += QChar(char16_t(key.key()));
    }
    return letters;
}

} // namespace

void assignAccelerators(QWidget *window)
{
    QSet<QChar> taken = keysOfShortcuts(window);
    QList<Captioned> without;
    for (const Captioned &each : captionsIn(window)) {
        const qsizetype letter = markedLetter(each.caption);
        const QChar key = letter < 0 ? QChar() : each.caption[letter].toUpper();
        if (letter < 0 || taken.contains(key))
            without += each;
        else
            taken += key;
    }
    for (const Captioned &each : without) {
        const QString caption = withFreeMark(withoutMark(each.caption), taken);
        if (const qsizetype letter = markedLetter(caption); letter >= 0)
            taken += caption[letter].toUpper();
        if (caption != each.caption)
            each.setCaption(caption);
    }
}
