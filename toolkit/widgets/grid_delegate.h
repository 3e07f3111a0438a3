#pragma once

#include <QLineEdit>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>
#include <QTimer>

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
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;

    // The cell that is typed in, wherever the grid's current one is; null when there is none.
    QWidget *openEditor() const { return open; }
    // Gives what the user typed into it to the record; false when it was refused, which is told then: once
    // for each key or click, however often it asks for the text.
    bool commitOpen() const;

    // The whole text of a cell that is cut.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    bool eventFilter(QObject *editor, QEvent *event) override;

private:
    void addBrowse(QLineEdit *edit, int column) const;
    QString typedText(const QModelIndex &index) const;

    TGridModel *rows;
    mutable QPointer<QLineEdit> open;
    mutable QPersistentModelIndex place; // of the open editor
    QTimer *told;                        // runs until the key or click that met a refusal is dealt with
};
