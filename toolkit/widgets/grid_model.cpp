#include "toolkit/widgets/grid_model.h"

#include "toolkit/text/format.h"
#include "toolkit/widgets/column_lookup.h"
#include "toolkit/widgets/guard.h"

namespace {

constexpr int smallList = 2000;    // up to here every growth is passed on at once
constexpr int growthPauseMs = 150; // and beyond it after such a pause, or when the list grew by half

QString formatted(const QString &format, const QVariant &value)
{
    if (value.isNull())
        return {};
    switch (value.typeId()) {
    case QMetaType::QDate:
        return FormatDateTime(format, TDateTime(value.toDate()));
    case QMetaType::QDateTime:
        return FormatDateTime(format, TDateTime(value.toDateTime()));
    case QMetaType::Double:
    case QMetaType::Int:
    case QMetaType::LongLong:
        return FormatFloat(format, value.toDouble());
    default:
        return value.toString();
    }
}

} // namespace

TGridModel::TGridModel(QObject *parent) : QAbstractTableModel(parent)
{
    growth.setSingleShot(true);
    growth.setInterval(growthPauseMs);
    connectGuarded(&growth, &QTimer::timeout, this, [this] { catchUp(); });
}

void TGridModel::setDataSet(TDataSet *dataSet)
{
    if (set)
        disconnect(set, nullptr, this, nullptr);
    set = dataSet;
    connectSet();
    startOver();
}

void TGridModel::setColumns(const QList<TGridColumn> &columns)
{
    changing = true;
    beginResetModel();
    described = columns;
    findFields();
    endResetModel();
    changing = false;
}

void TGridModel::connectSet()
{
    if (!set)
        return;
    connectGuarded(set.data(), &TDataSet::modelReset, this, [this] { startOver(); });
    connectGuarded(set.data(), &TDataSet::layoutChanged, this, [this] { startOver(); });
    connectGuarded(set.data(), &TDataSet::rowsMoved, this, [this] { startOver(); });
    connectGuarded(set.data(), &QObject::destroyed, this, [this] { startOver(); });
    connectGuarded(set.data(), &TDataSet::rowsAboutToBeInserted, this,
                   [this](const QModelIndex &, int first, int last) {
                       if (first >= shown)
                           return;
                       changing = true;
                       beginInsertRows({}, first, last);
                   });
    connectGuarded(set.data(), &TDataSet::rowsInserted, this,
                   [this](const QModelIndex &, int first, int last) { onRowsInserted(first, last); });
    connectGuarded(set.data(), &TDataSet::rowsAboutToBeRemoved, this,
                   [this](const QModelIndex &, int first, int last) { onRowsAboutToBeRemoved(first, last); });
    connectGuarded(set.data(), &TDataSet::rowsRemoved, this, [this] { onRowsRemoved(); });
    connectGuarded(set.data(), &TDataSet::dataChanged, this,
                   [this](const QModelIndex &first, const QModelIndex &last) {
                       onDataChanged(first.row(), last.row());
                   });
    connectGuarded(set.data(), &TDataSet::fetched, this, [this] { emit rowsChanged(); });
}

void TGridModel::startOver()
{
    changing = true;
    beginResetModel();
    growth.stop();
    findFields();
    shown = set ? set->rowCount() : 0;
    endResetModel();
    changing = false;
    emit rowsChanged();
}

void TGridModel::findFields()
{
    sources.clear();
    for (const TGridColumn &column : described) {
        const bool open = set && set->Active();
        TField *field = open ? set->FindField(column.field) : nullptr;
        Q_ASSERT_X(!open || field, "TDBGrid", qPrintable("no column " + column.field));
        sources += field ? field->index() : -1;
        if (!column.lookup)
            continue;
        if (field)
            TColumnLookup::showIn(*field, column.lookup);
        else
            column.lookup->forget();
    }
}

TField *TGridModel::fieldOf(int column) const
{
    return set && column >= 0 && column < sources.size() && sources[column] >= 0 ? set->Field(sources[column])
                                                                                 : nullptr;
}

void TGridModel::onRowsInserted(int first, int last)
{
    if (first < shown) {
        shown += last - first + 1;
        endInsertRows();
        changing = false;
        emit rowsChanged();
        return;
    }
    const int there = set->rowCount();
    if (shown < smallList || there >= shown + shown / 2)
        catchUp();
    else if (!growth.isActive())
        growth.start();
}

void TGridModel::catchUp()
{
    growth.stop();
    const int there = set ? set->rowCount() : 0;
    if (there <= shown)
        return;
    beginInsertRows({}, shown, there - 1);
    shown = there;
    endInsertRows();
    emit rowsChanged();
}

void TGridModel::onRowsAboutToBeRemoved(int first, int last)
{
    removing = first < shown;
    if (!removing)
        return;
    changing = true;
    goneRows = std::min(last, shown - 1) - first + 1;
    beginRemoveRows({}, first, first + goneRows - 1);
}

void TGridModel::onRowsRemoved()
{
    if (!removing)
        return;
    removing = false;
    shown -= goneRows;
    endRemoveRows();
    changing = false;
    emit rowsChanged();
}

void TGridModel::onDataChanged(int first, int last)
{
    last = std::min(last, shown - 1);
    if (first <= last && !described.isEmpty())
        emit dataChanged(index(first, 0), index(last, columnCount() - 1));
}

int TGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : shown;
}

int TGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(described.size());
}

QString TGridModel::cellText(const QModelIndex &index) const
{
    const TGridColumn &column = described[index.column()];
    const QModelIndex source = set->index(index.row(), sources[index.column()]);
    if (column.text)
        return column.text(set->data(source, Qt::EditRole));
    if (!column.format.isEmpty())
        return formatted(column.format, set->data(source, Qt::EditRole));
    return set->data(source, Qt::DisplayRole).toString();
}

QVariant TGridModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= shown || !fieldOf(index.column()))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        // A view asks while it paints: an error has no place there, the cell stays empty.
        try {
            return cellText(index);
        } catch (const Exception &) {
            return {};
        }
    case Qt::TextAlignmentRole:
        return toQt(described[index.column()].alignment.value_or(fieldOf(index.column())->Alignment)).toInt();
    case Qt::EditRole:
        return set->data(set->index(index.row(), sources[index.column()]), Qt::EditRole);
    default:
        return {};
    }
}

bool TGridModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    TField *field = fieldOf(index.column());
    if (role != Qt::EditRole || !field)
        return false;
    return runGuarded(widgetOf(this), [&] {
        if (set->RecNo() != index.row())
            set->setRecNo(index.row());
        if (!set->editing())
            set->Edit();
        field->setEditText(value.toString());
    });
}

QVariant TGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= described.size() ||
        role != Qt::DisplayRole)
        return {};
    const TGridColumn &column = described[section];
    if (!column.title.isEmpty())
        return column.title;
    const TField *field = fieldOf(section);
    return field ? field->label() : column.field;
}

Qt::ItemFlags TGridModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    const TField *field = index.isValid() ? fieldOf(index.column()) : nullptr;
    if (editable && field && !described[index.column()].readOnly && !field->ReadOnly &&
        !field->isCalculated() && !set->ReadOnly())
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool TGridModel::canFetchMore(const QModelIndex &parent) const
{
    return !parent.isValid() && set && (shown < set->rowCount() || set->canFetchMore({}));
}

void TGridModel::fetchMore(const QModelIndex &)
{
    runGuarded(widgetOf(this), [this] {
        if (set && shown >= set->rowCount())
            set->fetchMore({});
        catchUp();
    });
}
