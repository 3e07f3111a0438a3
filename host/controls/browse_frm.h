#pragma once

#include "host/controls/browse_description.h"
#include "host/controls/document_frm.h"
#include "toolkit/report/report.h"

class QKeyEvent;
class TColumnLookup;
class TDBGrid;

// The base of every list screen: a document window with search line, grid and status bar. It owns the whole
// cycle of a list; a screen describes itself and overrides a step only where it differs:
//
//     TObjektFrm::TObjektFrm(QWidget *owner)
//         : TBrowseFrm({.name = "TObjektFrm", .caption = "Objektų sąrašas", …}, owner)
//     {
//         keepIn(ObjektFrm);
//     }
//
// Keys: Ins new, Enter edit, Del or Ctrl+Del delete, F5 refresh, F7 or Ctrl+F find, F3 find next, Ctrl+R
// order by the current column, Ctrl+P print, Ctrl+C copy, Ctrl+Home and Ctrl+End, Shift+F10 menu; typing
// searches; Esc stops a search or the loading, else clears the search, else closes.
class TBrowseFrm : public TDocumentFrm {
    Q_OBJECT
public:
    TBrowseFrm(TBrowseDescription description, QWidget *owner);
    ~TBrowseFrm() override;

    // The open list of that class ("TKasosFrm") with a row in insert or edit state; null when there is none.
    static TBrowseFrm *listInEdit(const QString &name);

    // --- the list
    TQuery *dataSet() const; // reads aside from transactions
    TDBGrid *grid() const;
    Variant currentKey() const; // null when there is no row

    // Shows or hides the new, edit and delete actions, and the print action. Editing stays, as a look at the
    // row, where the list is described so.
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

    void CheckToolButtons() override; // status panel 0 is the record count

    QSize sizeHint() const override { return {820, 520}; }

    QAction *acNew, *acEdit, *acDelete, *acRefresh, *acFind, *acFindNext, *acOrder, *acCopy, *acPrint,
        *acFirst, *acPrev, *acNext, *acLast;

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
    virtual void DBGridTitleClick(const QString &column); // a column of the statement
    virtual void DataSourceDataChange();

protected:
    void FormCreate() override; // opens the list
    void FormActivate() override;
    void FormDestroy() override;
    virtual void FormKeyPress(QChar &Key); // a character typed in the grid; null consumes it
    void PeriodChanged() override;         // reads the list anew
    void escape() override;

    // --- steps. The first three do what the description says.
    virtual void NewRecord();
    virtual void EditRecord();
    virtual void DeleteRecord(); // checks, asks, deletes in a transaction, repositions
    // Reads the list anew and raises ERowGone when another station deleted the current row meanwhile.
    void requireRow();
    virtual void CheckUsed(); // raises when business records refer to the current row
    // The data set's DeleteSQL, or one by the key; runs inside the transaction.
    virtual void DeleteRow(const Variant &key);
    // Describes the printed list from the grid (see list_report.h); a screen adds its bands to it. Raises
    // when there is nothing to print.
    virtual void BeforePrint(TReport &report);

    TDatabase *Database() const;
    // A further action of the list; in DeleteMenu it stands in the window's menu too.
    QAction *addListAction(const TFormAction &described);
    // A control beside the search line, with a label whose accelerator leads to it.
    void addToToolBar(const QString &label, QWidget *control) override;

    TBrowseDescription description;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Building the window.
    void addActions();
    void addSearchLine(class QBoxLayout *layout);
    void listen();
    void describeFields();
    void describeField(const TBrowseColumn &column);
    std::shared_ptr<TColumnLookup> textsOf(const TBrowseColumn &column);

    // The data.
    QString statedOrder() const;
    QString orderedSql() const;
    bool mayDelete();
    void reposition();
    void forgetTexts();
    void showSortArrow();
    void showCount();

    // The cycle.
    bool askFor(bool isNew, Variant &key);
    void editListRow(bool isNew);
    bool askForValues(bool isNew, Variant &key);
    Variant insertValues(const QVariantMap &given);
    Variant updateValues(const Variant &key, const QVariantMap &given, const QVariantMap &asRead);

    // Searching.
    TField *findField() const;
    void showFindColumn();
    void findTextChanged();
    void startSearch(int fromRow);
    void goOnSearching();
    void rowsCame();
    void showLoading();
    bool gridKey(QKeyEvent *event);

    struct Private;
    std::unique_ptr<Private> d;
};
