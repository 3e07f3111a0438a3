#pragma once

#include "host/controls/browse_frm.h"
#include "host/data/code_tree.h"

class QSplitter;
class TMoveTree;

// What a list whose rows stand one below another says of its tree, beyond its list.
struct TTreeDescription {
    QString root;         // the tree's first line, which stands for all rows: "Visos sąskaitos"
    QString codeTitle;    // what a code is called
    QString parentColumn; // the key of the row above; null at the top
    QString nodes;        // all rows, as TCodeTree::read() takes them
    // The editor of a row, or of a new one below parent (0: at the top); true when the user saved, key is
    // then that of the saved row.
    std::function<bool(const QString &caption, bool isNew, double &key, double parent)> edit;
    // Raises when a branch, given by the keys of its row and of all below it, may not come to stand below
    // parent (0: at the top), and does what that brings with it for other rows. Runs in the transaction that
    // moves the row, before it is moved. A row that is loose, because its parent is missing or stands below
    // it, has no place in the tree that it could be kept in.
    std::function<void(const QList<double> &branch, double parent, bool loose)> place;
    // What becomes of the parent when a row comes to stand below it, as a sentence for the question; empty:
    // nothing that need be told. May be left out.
    std::function<QString(double parent)> consequence;
};

// The base of a catalogue whose rows form a tree: the tree on the left, and the list of TBrowseFrm beside it.
// The list shows the current node and what stands right below it; above the first level it shows all rows, so
// that a search goes through the whole catalogue. The list's statement takes the node as its parameter tevas,
// 0 for all.
//
// A new row stands below the current node. Rows are moved by dragging them in the tree, or with the picker;
// the user is asked first. Every row is in the tree: one whose parent is missing, or that stands below
// itself, is at the top and can be moved from there.
//
// Further keys: Ctrl+Ins new below the current row, Ctrl+Right into the current row, Ctrl+Left up, Ctrl+M
// move, Ctrl+Shift+M move to the top.
class TTreeFrm : public TBrowseFrm {
    Q_OBJECT
public:
    TTreeFrm(TBrowseDescription listed, TTreeDescription described, QWidget *owner);

    QSize sizeHint() const override { return {1040, 600}; }

    double node() const; // the current one; 0 above the first level
    void showNode(double key);

    // Reads tree and list anew; the node becomes one at which the row with the key is seen.
    void RefreshData(const Variant &key) override;
    void CheckToolButtons() override;

    // Asks, and puts the row below parent (0: at the top) with all that stands below it. Refused in words:
    // below itself, below a row that is gone, and what the description refuses. ERowGone when the row is
    // gone.
    void moveRow(double key, double parent);

    QAction *acNewBelow, *acInto, *acUp, *acMove, *acMoveTop;

protected:
    void CheckUsed() override; // rows below are a use of their own
    void DeleteRow(const Variant &key) override;
    void restoreArrangement() override;
    void saveArrangement() override;

    // The codes from the first level down to that of the row; empty when there is none.
    QString pathOf(double key) const;

    TTreeDescription tree;

private:
    void buildTree();
    void addTreeActions();
    bool movable() const; // the current row
    void addMoves();
    void addSteps();
    void nodeChosen();
    void showCurrent(double key);
    void moveByPicker();
    void place(double key, double parent);
    static QList<double> branchOf(const TCodeTree &codes, int row);

    std::shared_ptr<const TCodeTree> codes;
    TMoveTree *view;
    QSplitter *panes;
};
