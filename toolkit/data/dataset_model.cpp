#include "toolkit/data/dataset_private.h"

int TDataSet::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !Active() ? 0 : d->modelRows();
}

int TDataSet::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() || !Active() ? 0 : FieldCount();
}

// Views ask while they paint: a hook that raises leaves its cell empty.
QVariant TDataSet::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    TField &field = d->fields.at(index.column());
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(toQt(field.Alignment));
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    const bool edited = editing() && index.row() == d->cursor.row;
    try {
        const LookAtRow look(d->lookAt, edited ? -1 : d->sourceOfModel(index.row()));
        return role == Qt::EditRole ? field.Value() : QVariant(field.DisplayText());
    } catch (const Exception &) {
        return {};
    }
}

QVariant TDataSet::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= FieldCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    return role == Qt::DisplayRole ? d->fields.at(section).label() : QVariant();
}
