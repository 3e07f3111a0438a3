#pragma once

#include "host/controls/browse_description.h"
#include "toolkit/report/report.h"
#include "toolkit/text/ansistring.h"

#include <QWidget>

#include <memory>

class QAction;
class QKeyEvent;
class TDBGrid;

// The base of every list screen: a document window with tool bar, context menu, search line, grid and status
// bar. It owns the whole cycle of a list; a screen describes itself and overrides a step only where it
// differs:
//
//     class TObjektFrm : public TBrowseFrm {
//     public:
//         explicit TObjektFrm(QWidget *owner) : TBrowseFrm(described(), owner) { keepIn(ObjektFrm); }
//     };
//     TObjektFrm *frm = createForm<TObjektFrm>(owner);
//
// createForm() runs FormCreate, and FormDestroy at the end however the window goes; a screen whose FormCreate
// raises an error is gone again. Handlers that the user starts are guarded: their errors go to the error
// display.
//
// Keys: Ins new, Enter edit, Del or Ctrl+Del delete, F5 refresh, F7 or Ctrl+F find, F3 find next, Ctrl+R
// order by the current column, Ctrl+P print, Ctrl+C copy, Ctrl+Home and Ctrl+End, F1 help, Shift+F10 menu,
// Ctrl+W close; typing searches; Esc stops a search or the loading, else clears the search, else closes.
class TBrowseFrm : public QWidget {
    Q_OBJECT
public:
    TBrowseFrm(TBrowseDescription description, QWidget *owner);
    ~TBrowseFrm() override;

    // --- the list
    TQuery *dataSet() const; // reads aside from transactions
    TDBGrid *grid() const;
    Variant currentKey() const; // null when there is no row

    // Shows or hides the new, edit and delete actions, and the print action.
    void SetEditable(bool on);
    bool Editable() const;
    void SetPrintable(bool on);

    // Re-opens the data set and positions on the row with that key; on the first row when there is none, or
    // key is 0 or null. Raises EDatabaseError; the list is closed then.
    virtual void RefreshData(const Variant &key);
    // Orders by a column of the statement; the current row stays current. A calculated field is refused.
    void OrderData(const QString &column, bool descending = false);
    void OrderData(const AnsiString &column) { OrderData(column.toQString()); }
    // Searches the field's column for a text and goes to the first row that has it; null: the current column.
    void SetFindStr(const QString &text, TField *field = nullptr);
    void SetFindStr(const AnsiString &text, TField *field = nullptr) { SetFindStr(text.toQString(), field); }
    bool loading() const;   // rows are still coming
    bool searching() const; // a search is still going on
    void stopLoading();     // what is there stays; the count then tells that there are more

    // Enables the actions for the current row and user; called whenever either changes.
    virtual void CheckToolButtons();

    // The text of a status panel; panel 0 is the record count. The message stays until the next one.
    void setPanel(int index, const QString &text);
    QString panel(int index) const;
    void setMessage(const QString &text);
    QString message() const;

    QSize sizeHint() const override { return {820, 520}; }

    // Shows the list above all other windows until it is closed; the screen is gone afterwards.
    void ShowModal();

    QAction *acNew, *acEdit, *acDelete, *acRefresh, *acFind, *acFindNext, *acOrder, *acCopy, *acPrint,
        *acFirst, *acPrev, *acNext, *acLast, *acCaptions, *acToolBar, *acHelp, *acClose;

    void FirstBtnClick();
    void PrevBtnClick();
    void NextBtnClick();
    void LastBtnClick();
    void RefreshBtnClick();
    void NewBtnClick();
    void EditBtnClick();
    void DelBtnClick();
    void FindBtnClick();
    void FindNextBtnClick();
    void OrderBtnClick(); // by the current column; once more: the other way round
    virtual void PrintBtnClick();
    void CopyBtnClick();
    void CloseBtnClick();
    void ButtonsCaptionClick(); // tool buttons with or without captions; remembered
    void mnToolsClick();        // tool bar shown or hidden; remembered
    void acHelpExecute();
    virtual void DBGridTitleClick(const QString &column); // a column of the statement
    virtual void DataSourceDataChange();

protected:
    // --- the life of a screen; a screen that overrides one calls the base's
    virtual void FormCreate(); // opens the list
    virtual void FormActivate();
    virtual bool FormClose(); // whether the window may close; remembers placement and widths
    virtual void FormDestroy();
    virtual void FormKeyPress(QChar &Key); // a character typed in the grid; null consumes it

    // --- steps. The first three do what the description says.
    virtual void NewRecord();
    virtual void EditRecord();
    virtual void DeleteRecord();                // checks, asks, deletes in a transaction, repositions
    virtual void CheckUsed();                   // raises when business records refer to the current row
    virtual void DeleteRow(const Variant &key); // the statements; runs inside the transaction
    // Describes the printed list from the grid (see list_report.h); a screen adds its bands to it. Raises
    // when there is nothing to print.
    virtual void BeforePrint(TReport &report);
    virtual void PeriodChanged(); // the accounting period is another one, and the list open

    // The screen's exported global: set while the screen is open, by the activation, and null afterwards.
    template<class T> void keepIn(T *&global)
    {
        hold = [this, &global] { global = static_cast<T *>(this); };
        release = [&global, self = static_cast<T *>(this)] {
            if (global == self)
                global = nullptr;
        };
    }

    TDatabase *Database() const;
    // A further action: a tool button and a line in the menu. Its handler is guarded.
    QAction *addListAction(const QString &text, const QString &hint, const QIcon &icon,
                           const QKeySequence &key, std::function<void()> handler);
    // A line in the drop-down of the delete button, whose default stays the delete of one row.
    void addToDeleteMenu(QAction *action);
    // A control at the end of the tool bar, with a label whose accelerator leads to it.
    void addToToolBar(const QString &label, QWidget *control);
    void addPanel(int width = 150);

    TBrowseDescription description;

    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    template<class T> friend class TCreatedForm;
    void finish(); // FormDestroy, once

    // Building the window.
    void addActions();
    void addToolBarButtons();
    void addMenu();
    void addSearchLine();
    void listen();
    void describeFields();

    // Keeping what the user arranged.
    QWidget *placed();
    QString settingsGroup() const;
    void restorePlacement();
    void restoreArrangement();
    void saveArrangement();
    void showCaptions(bool on);
    void showToolBar(bool on);

    // The data.
    QString statedOrder() const;
    QString orderedSql() const;
    bool rowIsThere(const Variant &key) const;
    bool mayDelete();
    void reposition();
    void showSortArrow();
    void showCount();

    // Searching.
    TField *findField() const;
    void showFindColumn();
    void findTextChanged();
    void startSearch(int fromRow);
    void goOnSearching();
    void rowsCame();
    void showLoading();
    void escape();
    bool gridKey(QKeyEvent *event);

    struct Private;
    std::unique_ptr<Private> d;
    std::function<void()> hold, release;
};

// Runs FormDestroy while the object is still a T.
template<class T> class TCreatedForm final : public T {
public:
    using T::T;
    void create() { this->FormCreate(); }
    ~TCreatedForm() override { this->finish(); }
};

// Creates a list screen. Arguments are those of its constructor.
template<class T, class... Arguments> T *createForm(Arguments &&...arguments)
{
    auto form = std::make_unique<TCreatedForm<T>>(std::forward<Arguments>(arguments)...);
    form->create();
    return form.release();
}
