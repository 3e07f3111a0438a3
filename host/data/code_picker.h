#pragma once

#include "host/data/code_models.h"
#include "toolkit/widgets/dialog.h"

class QLabel;
class QLineEdit;
class QStackedWidget;
class QTableView;
class QToolButton;
class QTreeView;

// Which rows of a catalogue can be chosen, and how the picker looks at first.
struct TCodePick {
    QString caption;
    QString name;       // the picker's name in the settings store
    bool anyRow = true; // false: summary rows, and rows that are no detail rows, only open
    enum class View { Tree, List } view = View::Tree;
    double current = 0; // the row shown first; 0: none
};

// The modal picker of a catalogue of codes: a tree, a list ordered by code, and a search box over both.
//
// Typing in the search box lists the rows whose code begins with the text or whose name has its words. Enter
// and double click choose; a row that cannot be chosen opens in the tree instead. Esc cancels. The size is
// remembered.
class TCodePicker : public TDialog {
    Q_OBJECT
public:
    TCodePicker(QWidget *owner, std::shared_ptr<const TCodeTree> codes, const TCodePick &pick);
    ~TCodePicker() override;

    // Shows it; the key of the chosen row, 0 when cancelled.
    double choose();

    // True when the row of the catalogue may be chosen.
    bool canChoose(int row) const;

    void done(int result) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *buildSearch();
    void buildViews();
    void showView(TCodePick::View view);
    void search(const QString &text);
    void showCount(int found);
    void updateChoice();
    void choiceMade();
    void openInTree(int row);
    void showRow(int row);
    int currentRow() const;

    std::shared_ptr<const TCodeTree> codes;
    TCodePick pick;
    TCodeTreeModel *treeModel;
    TCodeListModel *listModel;
    QLineEdit *searchEdit = nullptr;
    QLabel *countLabel = nullptr;
    QStackedWidget *views = nullptr;
    QTreeView *tree = nullptr;
    QTableView *list = nullptr;
    QToolButton *treeButton = nullptr;
    QToolButton *listButton = nullptr;
};
