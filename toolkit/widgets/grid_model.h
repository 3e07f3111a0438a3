#pragma once

#include "toolkit/widgets/db_grid.h"

#include <QAbstractTableModel>
#include <QTimer>

// What a grid shows of a data set: its described columns over the set's rows.
//
// A set that fetches in idle time grows by many small steps, and a view recalculates over all of its rows at
// each of them. So growth is passed on in steps that get longer with the list.
class TGridModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit TGridModel(QObject *parent);

    void setDataSet(TDataSet *dataSet);
    TDataSet *dataSet() const { return set; }
    void setColumns(const QList<TGridColumn> &described);
    const QList<TGridColumn> &columns() const { return described; }
    void setEditable(bool on) { editable = on; }

    TField *fieldOf(int column) const; // null when the set has no such field, or is closed

    // Whether rows are coming or going just now: the view's current row is no choice of the user's then.
    bool isChanging() const { return changing; }

    // Passes all growth on at once.
    void catchUp();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;

signals:
    void rowsChanged(); // after any change of rows, when the view has it

private:
    void connectSet();
    void onRowsInserted(int first, int last);
    void onRowsAboutToBeRemoved(int first, int last);
    void onRowsRemoved();
    void onDataChanged(int first, int last);
    void startOver();
    void findFields();
    QString cellText(const QModelIndex &index) const;

    QPointer<TDataSet> set;
    QList<TGridColumn> described;
    QList<int> sources; // the set's column for each of ours; -1: none
    QTimer growth;
    int shown = 0;
    int goneRows = 0;
    bool removing = false;
    bool changing = false;
    bool editable = false;
};
