#pragma once

#include "host/classifier/book_frm.h"
#include "host/classifier/book_tree.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QPointer>
#include <QSplitter>

struct TBookFrm::Private {
    double book = 0;
    QList<TBookNode> path; // from the first level to the current node; empty above the first level
    QList<double> back, forward;
    std::vector<std::function<void()>> subscribers;
    bool stepping = false;
    bool periodWaits = true; // it is another one than the screen shows

    QBoxLayout *selectors = nullptr;
    QComboBox *books = nullptr;
    QComboBox *pathBox = nullptr;
    QSplitter *panes = nullptr;     // the tree, and what belongs to the node
    QSplitter *nodePanes = nullptr; // the list, and the screen's content
    TBookTree *tree = nullptr;
    QTreeWidget *list = nullptr;
    QPointer<QWidget> content;

    // The actions of the window, described: of records, of the way through the book, of the book itself.
    using Actions = std::vector<std::pair<QAction * TBookFrm::*, TFormAction>>;
    static Actions ofRecords(TBookFrm *frm);
    static Actions ofWay(TBookFrm *frm);
    static Actions ofBook(TBookFrm *frm);

    double current() const { return path.isEmpty() ? 0 : path.last().id; }
};
