#pragma once

#include "host/data/code_tree.h"

#include <QAbstractItemModel>

#include <memory>

// The columns of both models: code and name. Summary rows are bold. CodeRowRole gives the row in the tree.
enum TCodeColumn { ccCode, ccName, ccCount };
inline constexpr int CodeRowRole = Qt::UserRole;

// A catalogue of codes as a tree: a level is only looked at when it is opened, so the size does not matter.
class TCodeTreeModel : public QAbstractItemModel {
    Q_OBJECT
public:
    explicit TCodeTreeModel(std::shared_ptr<const TCodeTree> codes, QObject *parent = nullptr);

    QModelIndex indexOf(int row) const; // row in the catalogue; -1 gives none

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    std::shared_ptr<const TCodeTree> codes;
};

// Some rows of a catalogue, one below the other.
class TCodeListModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit TCodeListModel(std::shared_ptr<const TCodeTree> codes, QObject *parent = nullptr);

    void setRows(const QList<int> &rows);
    QModelIndex indexOf(int row) const; // row in the catalogue; none when it is not among the rows shown

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    std::shared_ptr<const TCodeTree> codes;
    QList<int> shown;
};
