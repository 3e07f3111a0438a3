#include "host/controls/row_of_table.h"

#include "toolkit/data/query.h"

using namespace Qt::StringLiterals;

namespace {

void fill(TQuery &row, const QVariantMap &values)
{
    for (const auto &[column, value] : values.asKeyValueRange())
        row.FieldByName(column)->setValue(value);
}

// A value as the list shows it.
QString textOf(TQuery &row, const TField &shown, const Variant &value)
{
    TField *field = row.FieldByName(shown.FieldName());
    field->OnGetText = shown.OnGetText;
    field->DisplayFormat = shown.DisplayFormat;
    row.Edit();
    field->setValue(value);
    const QString text = field->DisplayText();
    row.Cancel();
    return text;
}

// Columns that are neither as they were read nor as they shall be.
void requireUnchanged(TQuery &row, const QVariantMap &values, const QVariantMap &asRead,
                      const TDataSet &shown)
{
    QList<TChangedColumn> changed;
    for (const auto &[column, value] : values.asKeyValueRange()) {
        const Variant before = asRead.value(column);
        const Variant theirs = row.FieldByName(column)->Value();
        if (sameKey(theirs, before) || sameKey(theirs, value))
            continue;
        const TField &told = *shown.FieldByName(column);
        changed.append({column, told.label(), before, theirs, value, textOf(row, told, before),
                        textOf(row, told, theirs), textOf(row, told, value)});
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
