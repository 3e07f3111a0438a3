#pragma once

#include "host/classifier/book_data.h"
#include "host/classifier/classifier.h"
#include "host/controls/document_frm.h"

class QComboBox;
class QTreeWidget;
class QTreeWidgetItem;

// The base of every classification-book screen (unit Bookparent): a document window with tool bar, book
// selector, path box, the tree of the book on the left, and on the right the list of the nodes below the
// current node and the screen's own content for a node that carries data.
//
// The current node is the one whose key JungId() gives; 0 stands for the book itself, above the first level.
// A screen hears of another node through onNodeChange(), describes its content with setContent() and narrows
// what the book allows in CheckActions(). Create it with createForm() of host/controls/browse_frm.h; handlers
// that the user starts are guarded.
//
// Keys: Ins new, Enter (in the content) or F2 edit, Del delete, F5 refresh, Alt+Left back, Alt+Right forward,
// Alt+Up or Backspace up, Alt+Home first level, F1 help, Esc closes.
class TBookFrm : public TDocumentFrm {
    Q_OBJECT
public:
    TBookFrm(const TDocumentDescription &described, QWidget *owner);
    ~TBookFrm() override;

    QSize sizeHint() const override { return {900, 600}; }

    // --- the current node
    double JungId() const;
    // Goes to a node, of another book too; 0 goes above the first level. Raises EDatabaseError when there is
    // no such node, and what a subscriber raises. What stood before can be come back to.
    void SetJungId(double node);
    QString nodeName() const; // code, two blanks and name; empty above the first level
    int level() const;        // 0 above the first level, 1 at it, and so on
    bool carriesData() const; // amounts can be kept for the current node
    // Code, two blanks and name of any node; empty when there is none.
    QString nodeNameOf(double node) const;

    // Called after every change of the node, of the book, and after a refresh; in the order of subscription.
    void onNodeChange(std::function<void()> subscriber);

    double bookId() const;     // the book shown; 0 when there is none
    void setBook(double book); // another book, above its first level; kept for the current user

    // The nodes below the current one. It is filled before the subscribers are called; a screen may then add
    // columns: showReport() gives the titles, the first column holds the nodes' names.
    QTreeWidget *list() const;
    void showReport(const QStringList &titles);
    static double nodeOf(const QTreeWidgetItem *item);

    // Reads the book again and stays on the node, or on the nearest one above it that is still there.
    void RefreshBook();

    // Enables the actions for the current node and user. The book allows new, edit and delete for a node that
    // carries data; new and delete not for a view-only user (his edit only shows). A screen that overrides it
    // calls the base first and only narrows. Status panel 0 is the number of nodes in the list.
    virtual void CheckActions();
    void CheckToolButtons() override { CheckActions(); }

    QAction *acNew, *acEdit, *acDelete, *acRefresh, *acPrint, *acBack, *acForward, *acUp, *acFirst;

protected:
    void FormCreate() override; // shows the book of the current user above its first level
    void PeriodChanged() override;
    void restoreArrangement() override;
    void saveArrangement() override;

    // --- steps. New, edit and delete run between two calls of the subscribers, so that the user changes what
    // is stored by then; a row that is gone by then is told instead. An editor left by saving and going on is
    // followed by that of the next new row.
    virtual void NewRecord() = 0;
    virtual void EditRecord() = 0;
    virtual void DeleteRecord() = 0;
    virtual void PrintRecords() {}
    // The row that edit and delete are about, which a subscriber keeps current; null when there is none.
    virtual Variant currentKey() const = 0;
    // The accounting period is another one; called before the subscribers, also for the first time. A step
    // that runs is not disturbed: it comes after it.
    virtual void ReadPeriods() {}

    // Calls the subscribers and judges the actions. Every one is called; the first error is raised then.
    void tellSubscribers();
    // The same; raises ERowGone when the current row is another one then.
    void requireCurrent();
    // Runs a further step on the current row, as edit is.
    void changeRecord(const std::function<void()> &step);

    // The screen's own grid, below the list: seen only while the current node carries data.
    void setContent(QWidget *content);
    // Shows the print action.
    void SetPrintable(bool on);
    // A control beside the book selector, with a label whose accelerator leads to it.
    void addToToolBar(const QString &label, QWidget *control) override;
    TDatabase *Database() const;

private:
    struct Private;
    std::unique_ptr<Private> d;

    void buildActions();
    QWidget *buildBody();
    QBoxLayout *buildSelectors();
    void buildPanes();

    void readNode(double node);
    void loadBook(double book);
    void addRecords();
    void runStep(const std::function<void()> &step);
    void travel(QList<double> &along, QList<double> &opposite);
    void goBack();
    void goForward();
    void goUp();
    void treeSelected();
    void fillBooks();
    void fillPath();
    void fillList(const QList<TBookNode> &below);
    void showPanes();
};
