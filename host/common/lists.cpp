#include "host/common/lists.h"

#include <vector>

namespace {
constexpr int objectRole = Qt::UserRole;

struct Item {
    QString text;
    Variant object;
};

// Closes the set also when reading it fails.
class OpenSet {
public:
    explicit OpenSet(TDataSet *dataSet) : set(dataSet)
    {
        set->Close();
        set->Open();
    }
    ~OpenSet() { set->Close(); }
    OpenSet(const OpenSet &) = delete;
    OpenSet &operator=(const OpenSet &) = delete;

private:
    TDataSet *set;
};

// All rows are read before the first item is added: a failure half way leaves the items as they were.
template<class MakeItem> std::vector<Item> itemsOf(TDataSet *set, MakeItem makeItem)
{
    const OpenSet open(set);
    std::vector<Item> read;
    for (set->First(); !set->Eof(); set->Next())
        read.push_back(makeItem());
    return read;
}

void addAll(TStrings *items, const std::vector<Item> &read)
{
    if (read.empty())
        return;
    int row = items->rowCount();
    const bool inserted = items->insertRows(row, int(read.size()));
    Q_ASSERT(inserted);
    for (const Item &item : read) {
        const QModelIndex at = items->index(row++, 0);
        items->setData(at, item.text, Qt::DisplayRole);
        items->setData(at, item.object, objectRole);
    }
}

} // namespace

void ReadList(TDataSet *set, TStrings *items)
{
    addAll(items, itemsOf(set, [set] {
               return Item{set->Field(0)->AsString(), set->Field(1)->AsInteger()};
           }));
}

int GetListObject(const TStrings *items, int index)
{
    return items->index(index, 0).data(objectRole).toInt();
}

int IndexOfObject(const TStrings *items, int object)
{
    for (int i = 0; i < items->rowCount(); ++i) {
        if (GetListObject(items, i) == object)
            return i;
    }
    return -1;
}

void ReadListVar(TDataSet *set, TStrings *items, const QString &text, const QString &key)
{
    addAll(items, itemsOf(set, [&] {
               const TReiksme held(set->FieldByName(key)->Value());
               return Item{set->FieldByName(text)->AsString(), Variant::fromValue(held)};
           }));
}

Variant GetListValue(const TStrings *items, int index)
{
    return items->index(index, 0).data(objectRole).value<TReiksme>().value();
}

int GetListIndex(const TStrings *items, const Variant &key)
{
    for (int i = 0; i < items->rowCount(); ++i) {
        const Variant held = items->index(i, 0).data(objectRole);
        if (held.canConvert<TReiksme>() && sameKey(held.value<TReiksme>().value(), key))
            return i;
    }
    return -1;
}

void ClearListVar(TStrings *items)
{
    items->removeRows(0, items->rowCount());
}
