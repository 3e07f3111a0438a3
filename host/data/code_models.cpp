#include "host/data/code_models.h"

#include <QFont>

namespace {

QVariant cell(const TCodeTree &codes, int row, int column, int role)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return column == ccCode ? codes.at(row).code : codes.at(row).name;
    case Qt::AccessibleTextRole:
        return codes.label(row);
    case Qt::FontRole:
        if (codes.isSummary(row)) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        return {};
    case CodeRowRole:
        return row;
    default:
        return {};
    }
}

QVariant title(const TCodeTree &codes, int section, Qt::Orientation orientation, int role)
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == ccCode ? codes.codeTitle() : QStringLiteral("Pavadinimas");
}

} // namespace

TCodeTreeModel::TCodeTreeModel(std::shared_ptr<const TCodeTree> tree, QObject *parent)
    : QAbstractItemModel(parent),
      codes(std::move(tree))
{
}

QModelIndex TCodeTreeModel::indexOf(int row) const
{
    if (row < 0)
        return {};
    return createIndex(int(codes->childrenOf(codes->at(row).parent).indexOf(row)), 0, quintptr(row));
}

QModelIndex TCodeTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const int above = parent.isValid() ? int(parent.internalId()) : -1;
    return createIndex(row, column, quintptr(codes->childrenOf(above).at(row)));
}

QModelIndex TCodeTreeModel::parent(const QModelIndex &child) const
{
    return child.isValid() ? indexOf(codes->at(int(child.internalId())).parent) : QModelIndex();
}

int TCodeTreeModel::rowCount(const QModelIndex &parent) const
{
    if (parent.column() > 0)
        return 0;
    return int(codes->childrenOf(parent.isValid() ? int(parent.internalId()) : -1).size());
}

int TCodeTreeModel::columnCount(const QModelIndex &) const
{
    return ccCount;
}

QVariant TCodeTreeModel::data(const QModelIndex &index, int role) const
{
    return index.isValid() ? cell(*codes, int(index.internalId()), index.column(), role) : QVariant();
}

QVariant TCodeTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return title(*codes, section, orientation, role);
}

TCodeListModel::TCodeListModel(std::shared_ptr<const TCodeTree> tree, QObject *parent)
    : QAbstractTableModel(parent),
      codes(std::move(tree))
{
}

void TCodeListModel::setRows(const QList<int> &rows)
{
    beginResetModel();
    shown = rows;
    endResetModel();
}

QModelIndex TCodeListModel::indexOf(int row) const
{
    const qsizetype at = shown.indexOf(row);
    return at < 0 ? QModelIndex() : index(int(at), 0);
}

int TCodeListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(shown.size());
}

int TCodeListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ccCount);
}

QVariant TCodeListModel::data(const QModelIndex &index, int role) const
{
    return index.isValid() ? cell(*codes, shown.at(index.row()), index.column(), role) : QVariant();
}

QVariant TCodeListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return title(*codes, section, orientation, role);
}
