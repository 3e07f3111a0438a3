#include "toolkit/data/field_list.h"

TField *FieldList::fieldOf(const TResultColumn &column, int index, bool isCalculated)
{
    for (std::unique_ptr<TField> &old : retired) {
        if (!old || old->calculated != isCalculated ||
            old->column.name.compare(column.name, Qt::CaseInsensitive) != 0)
            continue;
        old->column = column;
        old->position = index;
        fields.push_back(std::move(old));
        return fields.back().get();
    }
    fields.push_back(std::make_unique<TField>(set, index, column, isCalculated));
    return fields.back().get();
}

void FieldList::make(const QList<TResultColumn> &columns)
{
    for (std::unique_ptr<TField> &field : fields)
        retired.push_back(std::move(field));
    fields.clear();
    places.clear();
    for (const TResultColumn &column : columns + calculatedColumns) {
        const int index = size();
        fieldOf(column, index, index >= columns.size());
        if (!places.contains(column.name.toLower()))
            places.insert(column.name.toLower(), index);
    }
    std::erase(retired, nullptr);
    for (const auto &[name, apply] : settings) {
        TField *field = find(name);
        Q_ASSERT_X(field, "TDataSet::describe: no such column", qPrintable(name));
        if (field)
            apply(*field);
    }
}

TField *FieldList::addCalculated(const TResultColumn &column)
{
    calculatedColumns.append(column);
    places.insert(column.name.toLower(), size());
    return fieldOf(column, size(), true);
}

void FieldList::describe(const QString &name, std::function<void(TField &)> apply)
{
    if (TField *field = find(name))
        apply(*field);
    settings.emplace_back(name, std::move(apply));
}

TField *FieldList::find(const QString &name) const
{
    const int index = places.value(name.toLower(), -1);
    return index < 0 ? nullptr : fields[size_t(index)].get();
}
