#include "toolkit/report/dataset_rows.h"

#include "toolkit/widgets/progress.h"

using namespace Qt::StringLiterals;

int TDataSetRows::count()
{
    return set && set->Active() ? set->rowCount() : 0;
}

const TDataSetRows::Source &TDataSetRows::sourceOf(const QString &name)
{
    const auto known = sources.constFind(name);
    if (known != sources.constEnd())
        return *known;
    Source source;
    if (const TField *field = set->FindField(name))
        source = {field->index(), field->OnGetText ? Qt::DisplayRole : Qt::EditRole};
    return *sources.insert(name, source);
}

QVariant TDataSetRows::value(int row, const QString &field)
{
    if (row >= count())
        return {};
    const Source &source = sourceOf(field);
    return source.column < 0 ? QVariant() : set->data(set->index(row, source.column), source.role);
}

void fetchAll(TDataSet &set, const QString &title, QWidget *owner)
{
    TProgressWindow progress(title, u"Skaitomi duomenys…"_s, 0, owner);
    while (set.canFetchMore({})) {
        const int before = set.fetchedCount();
        set.fetchMore({});
        if (set.fetchedCount() == before && set.canFetchMore({}))
            throw EAbort();
        progress.step(0);
    }
}
