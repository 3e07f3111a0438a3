#pragma once

#include "toolkit/data/dataset.h"
#include "toolkit/widgets/edit_options.h"

#include <QPointer>
#include <QSet>
#include <QTableView>

#include <functional>
#include <memory>
#include <optional>

class TColumnLookup;
class TGridDelegate;
class TGridModel;

// One column of a grid, described.
struct TGridColumn {
    QString field;
    QString title;        // empty: the field's label
    int width = 0;        // pixels, at least; 0: fits the title and what the format usually shows
    bool stretch = false; // it can use width that is left over; none: the widest texts can
    std::optional<TAlignment> alignment;                // none: as the field says
    QString format;                                     // display format; empty: the field's
    bool readOnly = false;                              // in a grid with cell editing
    TEditOptions edit;                                  // what may be typed into a cell
    std::function<QString(const QVariant &value)> text; // the cell's text instead of the field's
    // Texts for the field's keys; the field itself shows them then, so search, copy and print have them, too.
    // Read anew whenever the set is opened.
    std::shared_ptr<TColumnLookup> lookup;
    std::function<void()> browse; // a button in the cell: the value is chosen elsewhere; EAbort: none was
};

// A grid over a data set. The grid's current row and the set's record are always the same one: moving in the
// grid moves the set, and the other way round. It stays quick with a million rows: all rows are of one
// height, columns are never measured over all rows, and more rows are fetched as they come into view.
//
// The columns take the width that is there: none is narrower than described, and what is left over goes to
// the columns that can use it. A width that the user gives stays. A cell that is cut shows its text as a tool
// tip. A column that the opened set does not have is asserted.
class TDBGrid : public QTableView {
    Q_OBJECT
public:
    explicit TDBGrid(QWidget *parent = nullptr);
    ~TDBGrid() override;

    // Neither takes the set over; null unbinds.
    void setDataSet(TDataSet *set);
    TDataSet *DataSet() const;
    void setColumns(const QList<TGridColumn> &columns);
    const QList<TGridColumn> &columns() const;

    // Whole rows are selected and cells are not edited (the default), or cells are.
    void setCellEditing(bool on);
    bool cellEditing() const { return editsCells; }
    // The mode follows the set: while a record is being inserted or edited its cells are, the current one at
    // once; otherwise whole rows are selected. Tab leaves the grid then, after left().
    void setEditsInPlace(bool on);
    // Gives what is being typed into a cell to the record, as the set's Post does, too. Raises EAbort when it
    // is refused, which is told before.
    void commitCell();
    void setTitlesCentred(bool on);
    // Whether Ctrl and Shift select several rows (the default: yes).
    void setMultiSelect(bool on);

    // Order and widths of the columns as the user arranged them, for keeping them between sessions. An
    // arrangement of other columns is passed over.
    QByteArray arrangement() const;
    void setArrangement(const QByteArray &kept);

    // The column's width without its share of what the window has left over: as the user gave it or as
    // described.
    int ownWidth(int column) const;

    // The selected rows in their order, as rows of the set.
    QList<int> selectedRows() const;
    // Puts the selected rows, else the current one, into the clipboard (see grid_copy.h).
    void copySelection() const;

    QString fieldAt(int column) const;                           // the field of a grid column
    int columnOf(const QString &field) const;                    // -1 when there is none
    void setSortMark(const QString &field, Qt::SortOrder order); // an arrow in the title; empty: none

signals:
    void titleClicked(const QString &field);
    void rowActivated(); // Enter or a double click on a record
    void entered();      // the keyboard came to the grid
    // It went to another control; one that is only borrowing it (a message, a picker, another program) is
    // none. In a grid that is edited in place also before Tab leaves the record that is being edited, which
    // only goes on when the record is not being edited any more.
    void left();

protected:
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyboardSearch(const QString &typed) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void followSet();
    void followState();
    QItemSelectionModel::SelectionFlags selecting() const;
    QWidget *cellEditor() const; // null while no cell is being typed in
    void openEditor();
    void tellIfLeft();
    void layOutColumns();
    QStringList fieldNames() const; // in small letters
    QByteArray arrangedColumns() const;
    int leastWidth(int column) const;
    QHash<int, int> thirsty() const;
    void shareSpareWidth();
    int widthOf(const QString &format) const;
    void fixRowHeight();
    bool moveSet(const QKeyEvent *event);

    TGridModel *rows;
    TGridDelegate *editors;
    QSet<QString> sized; // fields, in small letters, whose columns the user gave a width
    bool layingOut = false;
    int flusher = 0;
    bool editsCells = false;
    bool inPlace = false;
    bool following = false;
};
