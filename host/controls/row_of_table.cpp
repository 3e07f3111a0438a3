#include "host/controls/row_of_table.h"

#include "toolkit/data/query.h"

using namespace Qt::StringLiterals;

namespace {

void fill(TQuery &row, const QVariantMap &values)
{
    for (const auto &[column, value] : values.asKeyValueRange())
        row.FieldByName(column)->setValue(value);
}

// Columns that are neither as they were read nor as they shall be.
void requireUnchanged(TQuery &row, const QVariantMap &values, const QVariantMap &asRead,
                      const TDataSet &shown)
{
    QList<TChangedColumn> changed;
    for (const auto &[column, value] : values.asKeyValueRange()) {
        const TField *field = row.FieldByName(column);
        const Variant before = asRead.value(column);
        if (sameKey(field->Value(), before) || sameKey(field->Value(), value))
            continue;
        changed.append({column, shown.FieldByName(column)->label(), before, field->Value(), value,
                        before.toString(), field->DisplayText(), value.toString()});
    }
    if (!changed.isEmpty())
        throw EChangedElsewhere(changed);
}

} // namespace

Variant TRowOfTable::insert(const QVariantMap &values, const TKeyRule &rule) const
{
    TTransaction transaction(database);
    TQuery row(database, u"select * from %1 where 1 = 0"_s.arg(table));
    row.RequestLive = true;
    row.Open();
    row.Append();
    fill(row, values);
    if (rule.draws(true))
        row.FieldByName(keyColumn)->setValue(rule.next(database));
    row.Post();
    const Variant key = row.FieldByName(keyColumn)->Value();
    transaction.commit();
    return key;
}

Variant TRowOfTable::update(const Variant &key, const QVariantMap &values, const QVariantMap &asRead) const
{
    TTransaction transaction(database);
    TQuery row(database, u"select * from %1 where %2 = :key"_s.arg(table, keyColumn));
    row.RequestLive = true;
    row.setParam(u"key"_s, key);
    row.Open();
    if (row.IsEmpty())
        throw ERowGone();
    requireUnchanged(row, values, asRead, shown);
    row.Edit();
    fill(row, values);
    row.Post();
    transaction.commit();
    return key;
}
