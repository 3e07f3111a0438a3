#include "toolkit/widgets/db_edit.h"

#include "toolkit/widgets/guard.h"

TDBEdit::TDBEdit(QWidget *parent) : QLineEdit(parent), TDBControl(this)
{
    setReadOnly(true);
    connect(this, &QLineEdit::textEdited, this, [this] { changedByUser(); });
}

void TDBEdit::setOptions(const TEditOptions &options)
{
    given = options;
    haveApplied = false;
    applyFor(Field());
    refresh();
}

// The options of this edit, completed by what the column itself knows.
void TDBEdit::applyFor(const TField *field)
{
    TEditOptions wanted = given;
    if (field && wanted.mask.isEmpty())
        wanted.mask = field->EditMask;
    if (field && wanted.maxLength == 0 && field->DataType() == TFieldType::ftString)
        wanted.maxLength = field->Size();
    if (haveApplied && wanted.mask == applied.mask && wanted.maxLength == applied.maxLength)
        return;
    applied = wanted;
    haveApplied = true;
    applyEditOptions(this, applied);
}

void TDBEdit::showField(TField *field)
{
    applyFor(field);
    const QString wanted = !field                     ? QString()
                           : isFocused() && canEdit() ? field->editText()
                                                      : field->DisplayText();
    if (field)
        setAlignment(toQt(field->Alignment));
    if (text() != wanted)
        setText(wanted);
    if (!isFocused())
        setCursorPosition(0);
}

bool TDBEdit::showsValue() const
{
    return !maskedText(this).trimmed().isEmpty();
}

void TDBEdit::storeField(TField &field)
{
    field.setEditText(maskedText(this));
}

void TDBEdit::setEditable(bool on)
{
    setReadOnly(!on);
}

TDBMemo::TDBMemo(QWidget *parent) : QPlainTextEdit(parent), TDBControl(this)
{
    setReadOnly(true);
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (!showing)
            changedByUser();
    });
}

void TDBMemo::showField(TField *field)
{
    const QString wanted = field ? field->editText() : QString();
    showing = true;
    if (toPlainText() != wanted)
        setPlainText(wanted);
    showing = false;
}

void TDBMemo::storeField(TField &field)
{
    field.setEditText(toPlainText());
}

void TDBMemo::setEditable(bool on)
{
    setReadOnly(!on);
}

TDBText::TDBText(QWidget *parent) : QLabel(parent), TDBControl(this)
{
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void TDBText::showField(TField *field)
{
    setText(field ? field->DisplayText() : QString());
}

void TDBText::storeField(TField &) {}

void TDBText::setEditable(bool) {}
