#pragma once

#include <QStyledItemDelegate>

class TGridModel;

// The cells of a grid while they are edited: a line edit with the column's options and its button.
class TGridDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    TGridDelegate(TGridModel *model, QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    // Gives what the user typed to the record; false when it was refused, which is told then.
    bool commit(QWidget *editor, const QModelIndex &index) const;

    // The whole text of a cell that is cut.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    bool eventFilter(QObject *editor, QEvent *event) override;

private:
    void addBrowse(class QLineEdit *edit, int column) const;
    QString typedText(const QModelIndex &index) const;
    TGridModel *rows;
};
