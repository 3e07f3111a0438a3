#include "toolkit/widgets/edit_options.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolTip>
#include <QValidator>

using namespace Qt::StringLiterals;

namespace {

bool passes(QChar c, TEditOptions::Allowed allowed)
{
    switch (allowed) {
    case TEditOptions::Digits:
        return c >= u'0' && c <= u'9';
    case TEditOptions::LettersAndDigits:
        return c.isLetterOrNumber();
    case TEditOptions::Anything:
        break;
    }
    return true;
}

// Drops what is not allowed, raises the case, and refuses what is too long.
class TEditRule : public QValidator {
public:
    TEditRule(const TEditOptions &rules, QObject *parent) : QValidator(parent), options(rules) {}

    State validate(QString &text, int &cursor) const override
    {
        QString kept;
        int newCursor = cursor;
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (passes(text[i], options.allowed))
                kept += options.upperCase ? text[i].toUpper() : text[i];
            else if (i < cursor)
                --newCursor;
        }
        if (options.maxLength > 0 && kept.size() > options.maxLength)
            return Invalid;
        text = kept;
        cursor = newCursor;
        return Acceptable;
    }

private:
    TEditOptions options;
};

// Keeps keys for other characters from the edit; what comes from the clipboard passes.
class TKeyFilter : public QObject {
public:
    TKeyFilter(QLineEdit *edit, TEditOptions::Allowed typed) : QObject(edit), allowed(typed)
    {
        edit->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress && drops(static_cast<QKeyEvent *>(event)))
            return true;
        // A composed character (a dead key and its letter) comes as a text of its own.
        if (event->type() == QEvent::InputMethod &&
            drops(static_cast<QInputMethodEvent *>(event)->commitString()))
            return true;
        return QObject::eventFilter(watched, event);
    }

private:
    bool drops(const QString &text) const
    {
        return std::any_of(text.begin(), text.end(), [this](QChar c) { return !passes(c, allowed); });
    }
    bool drops(const QKeyEvent *key) const
    {
        const bool isText = !key->text().isEmpty() && key->text().front().isPrint();
        return isText && !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) && drops(key->text());
    }

    TEditOptions::Allowed allowed;
};

void filterKeys(QLineEdit *edit, TEditOptions::Allowed typed)
{
    for (QObject *child : edit->children()) {
        if (auto *former = dynamic_cast<TKeyFilter *>(child))
            delete former;
    }
    if (typed != TEditOptions::Anything)
        new TKeyFilter(edit, typed);
}

void hintAtLength(QLineEdit *edit, int maxLength)
{
    QToolTip::showText(edit->mapToGlobal(QPoint(0, edit->height())),
                       u"Telpa ne daugiau simbolių kaip %1"_s.arg(maxLength), edit);
}

// The signs of a described mask are those of a classic database form; Qt calls them otherwise.
QString qtMask(const QString &described)
{
    const QStringList parts = described.split(u';');
    const QChar blank = parts.size() > 2 && !parts[2].isEmpty() ? parts[2].front() : QChar(u'_');
    QString mask;
    for (const QChar c : parts.front()) {
        switch (c.unicode()) {
        case u'!':
            break;
        case u'0':
            mask += u'9';
            break;
        case u'9':
            mask += u'0';
            break;
        case u'L':
            mask += u'A';
            break;
        case u'/':
            mask += u'.';
            break;
        default:
            mask += c;
        }
    }
    return mask + u';' + blank;
}

} // namespace

void applyEditOptions(QLineEdit *edit, const TEditOptions &options)
{
    if (options.password) {
        edit->setEchoMode(QLineEdit::Password);
        edit->setStyleSheet(u"QLineEdit { lineedit-password-character: %1 }"_s.arg(int('*')));
    }
    filterKeys(edit, options.typed);
    if (!options.mask.isEmpty()) {
        edit->setInputMask(qtMask(options.mask));
        return;
    }
    const QValidator *previous = edit->validator();
    edit->setValidator(new TEditRule(options, edit));
    delete previous;
    QObject::disconnect(edit, &QLineEdit::inputRejected, nullptr, nullptr);
    if (options.maxLength > 0)
        QObject::connect(edit, &QLineEdit::inputRejected, edit,
                         [edit, length = options.maxLength] { hintAtLength(edit, length); });
}

QString maskedText(const QLineEdit *edit)
{
    QString text = edit->text();
    if (edit->inputMask().isEmpty())
        return text;
    const bool typed = std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetterOrNumber(); });
    return typed ? text : QString();
}
