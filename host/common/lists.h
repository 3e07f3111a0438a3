#pragma once

#include "toolkit/data/dataset.h"

#include <QComboBox>

// A key attached to a list item or a tree node. Held by value in the item's user data, so it goes with the
// item.
class TReiksme {
public:
    TReiksme() = default;
    explicit TReiksme(Variant value) : held(std::move(value)) {}
    const Variant &value() const { return held; }
    void setValue(const Variant &value) { held = value; }

private:
    Variant held;
};
Q_DECLARE_METATYPE(TReiksme)

// The items of a combo box, list or any other item view: one text per item, a key attached to it.
using TStrings = QAbstractItemModel;

// Opens the data set and adds one item per row: its text from the first column, the second column's whole
// number attached as the item's object. The set is closed again.
void ReadList(TDataSet *set, TStrings *items);
// The object attached by ReadList; 0 when there is none. The index of an object; -1 when there is none.
int GetListObject(const TStrings *items, int index);
int IndexOfObject(const TStrings *items, int object);

// The same, the key of each row kept as a TReiksme; the two names are the columns of text and key.
void ReadListVar(TDataSet *set, TStrings *items, const QString &text, const QString &key);
Variant GetListValue(const TStrings *items, int index);      // null when there is no such item
int GetListIndex(const TStrings *items, const Variant &key); // -1 when there is none
void ClearListVar(TStrings *items);
