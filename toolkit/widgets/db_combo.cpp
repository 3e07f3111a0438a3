#include "toolkit/widgets/db_combo.h"

#include "toolkit/data/query.h"
#include "toolkit/widgets/guard.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

namespace {

// Whether a key only moves about or opens the list, as against changing the choice.
bool changesChoice(const QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return false;
    default:
        return !(event->modifiers() & (Qt::AltModifier | Qt::ControlModifier));
    }
}

void forEachRow(TDatabase *session, const QString &sql, const std::function<void(TQuery &)> &visit)
{
    TQuery query(session, sql);
    for (query.Open(); !query.Eof(); query.Next())
        visit(query);
}

} // namespace

TDBComboBox::TDBComboBox(QWidget *parent) : QComboBox(parent), TDBControl(this)
{
    QComboBox::setEditable(true);
    setInsertPolicy(NoInsert);
    lineEdit()->setReadOnly(true);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { changedByUser(); });
    connect(this, &QComboBox::activated, this, [this] { chosenByUser(); });
}

void TDBComboBox::setItems(const QStringList &items)
{
    const QString shown = currentText();
    clear();
    addItems(items);
    setEditText(shown);
}

void TDBComboBox::readItems(TDatabase *session, const QString &sql)
{
    QStringList items;
    forEachRow(session, sql, [&](TQuery &row) { items += row.Field(0)->DisplayText(); });
    setItems(items);
}

bool TDBComboBox::showsValue() const
{
    return !currentText().trimmed().isEmpty();
}

void TDBComboBox::setOptions(const TEditOptions &options)
{
    given = options;
    applyEditOptions(lineEdit(), options);
    refresh();
}

void TDBComboBox::showField(TField *field)
{
    if (field && given.maxLength == 0 && field->Size() > 0) {
        given.maxLength = field->Size();
        applyEditOptions(lineEdit(), given);
    }
    const QString wanted = field ? field->editText() : QString();
    const int index = findText(wanted, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    setCurrentIndex(wanted.isEmpty() ? -1 : index);
    setEditText(wanted);
}

void TDBComboBox::storeField(TField &field)
{
    field.setEditText(currentText());
}

void TDBComboBox::setEditable(bool on)
{
    lineEdit()->setReadOnly(!on);
}

void TDBComboBox::keyPressEvent(QKeyEvent *event)
{
    // The arrow keys would choose another item of a column that cannot be changed.
    if (!canEdit() &&
        (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down || event->key() == Qt::Key_F4)) {
        event->ignore();
        return;
    }
    QComboBox::keyPressEvent(event);
}

void TDBComboBox::wheelEvent(QWheelEvent *event)
{
    // Turning the wheel over a form must not change what the pointer happens to cross.
    event->ignore();
}

void TDBComboBox::showPopup()
{
    if (canEdit())
        QComboBox::showPopup();
}

TDBLookupComboBox::TDBLookupComboBox(QWidget *parent) : QComboBox(parent), TDBControl(this)
{
    connect(this, &QComboBox::activated, this, [this] { chosenByUser(); });
}

void TDBLookupComboBox::setList(TDataSet *dataSet, const QString &key, const QString &shown)
{
    if (list)
        disconnect(list, nullptr, this, nullptr);
    list = dataSet;
    keyColumn = key;
    shownColumn = shown;
    if (!list)
        return;
    connectGuarded(list.data(), &TDataSet::modelReset, this, [this] { readList(); });
    if (list->Active())
        readList();
    else
        list->Open();
    if (count() == 0)
        readList();
}

void TDBLookupComboBox::readList()
{
    clear();
    if (list && list->Active()) {
        const TField *key = list->FieldByName(keyColumn);
        TField *shown = list->FieldByName(shownColumn);
        for (list->First(); !list->Eof(); list->Next())
            addItem(shown->DisplayText(), key->Value());
    }
    refresh();
}

void TDBLookupComboBox::setChoices(const TChoices &choices)
{
    clear();
    for (const auto &[text, key] : choices)
        addItem(text, key);
    refresh();
}

void TDBLookupComboBox::readChoices(TDatabase *session, const QString &sql)
{
    TChoices choices;
    forEachRow(session, sql, [&](TQuery &row) {
        choices += {row.Field(0)->DisplayText(), row.Field(1)->Value()};
    });
    setChoices(choices);
}

bool TDBLookupComboBox::showsValue() const
{
    return currentIndex() >= 0 && !currentText().trimmed().isEmpty();
}

int TDBLookupComboBox::indexOf(const Variant &key) const
{
    for (int i = 0; !key.isNull() && i < count(); ++i)
        if (sameKey(itemData(i), key))
            return i;
    return -1;
}

QString TDBLookupComboBox::textFor(const Variant &value)
{
    return itemText(indexOf(value));
}

void TDBLookupComboBox::showField(TField *field)
{
    setCurrentIndex(field ? indexOf(field->Value()) : -1);
}

void TDBLookupComboBox::storeField(TField &field)
{
    if (currentIndex() < 0)
        field.Clear();
    else
        field.setValue(currentData());
}

void TDBLookupComboBox::setEditable(bool on)
{
    // Disabling would take the control from the tab order; it only stops reacting.
    setProperty("readOnly", !on);
}

void TDBLookupComboBox::keyPressEvent(QKeyEvent *event)
{
    if (!canEdit() && changesChoice(event)) {
        event->ignore();
        return;
    }
    const bool clears = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace;
    if (clears && canEdit() && !Field()->Required && currentIndex() >= 0) {
        setCurrentIndex(-1);
        chosenByUser();
        return;
    }
    QComboBox::keyPressEvent(event);
}

void TDBLookupComboBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

void TDBLookupComboBox::showPopup()
{
    if (canEdit())
        QComboBox::showPopup();
}
