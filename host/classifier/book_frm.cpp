#include "host/classifier/book_frm_private.h"

#include "toolkit/widgets/dialog.h"

#include <QAction>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

// --- the current node

double TBookFrm::JungId() const
{
    return d->current();
}

QString TBookFrm::nodeName() const
{
    return d->path.isEmpty() ? QString() : d->path.last().label();
}

int TBookFrm::level() const
{
    return int(d->path.size());
}

bool TBookFrm::carriesData() const
{
    return !d->path.isEmpty() && d->path.last().carriesData;
}

QString TBookFrm::nodeNameOf(double node) const
{
    const auto found = findNode(Database(), node);
    return found ? found->label() : QString();
}

double TBookFrm::bookId() const
{
    return d->book;
}

double TBookFrm::nodeOf(const QTreeWidgetItem *item)
{
    return TBookTree::nodeOf(item);
}

void TBookFrm::onNodeChange(std::function<void()> subscriber)
{
    d->subscribers.push_back(std::move(subscriber));
}

void TBookFrm::SetJungId(double node)
{
    const double before = d->current();
    const double bookBefore = d->book;
    if (node == before)
        return;
    const auto remember = [&] {
        if (d->book != bookBefore)
            d->back.clear();
        else
            d->back.append(before);
        d->forward.clear();
    };
    readNode(node);
    remember();
    tellSubscribers();
}

// Reads first and changes afterwards: a node that is gone, or a lost server, leaves everything as it was.
void TBookFrm::readNode(double node)
{
    const QList<TBookNode> path = node > 0 ? pathTo(Database(), node) : QList<TBookNode>();
    if (node > 0 && path.isEmpty())
        throw EDatabaseError(u"Klasifikacijos kodas nerastas: jis ištrintas."_s);
    const double book = path.isEmpty() ? d->book : path.first().book;
    const QList<TBookNode> below = book > 0 ? nodesBelow(Database(), book, node) : QList<TBookNode>();
    if (book != d->book)
        loadBook(book);
    d->path = path;
    const QSignalBlocker quiet(d->tree);
    d->tree->goTo(node);
    fillPath();
    fillList(below);
    showPanes();
}

void TBookFrm::loadBook(double book)
{
    const QSignalBlocker quietTree(d->tree);
    const QSignalBlocker quietBooks(d->books);
    d->tree->setBook(Database(), book);
    d->book = book;
    d->books->setCurrentIndex(d->books->findData(book));
}

void TBookFrm::setBook(double book)
{
    loadBook(book);
    d->back.clear();
    d->forward.clear();
    if (book > 0)
        setUserKnyga(book);
    readNode(0);
    tellSubscribers();
}

void TBookFrm::tellSubscribers()
{
    std::exception_ptr first;
    const auto attempt = [&first](const std::function<void()> &action) {
        try {
            action();
        } catch (...) {
            first = first ? first : std::current_exception();
        }
    };
    if (!d->stepping && std::exchange(d->periodWaits, false))
        attempt([this] { ReadPeriods(); });
    for (const auto &subscriber : d->subscribers)
        attempt(subscriber);
    attempt([this] { judgeActions(); });
    if (first)
        std::rethrow_exception(first);
}

void TBookFrm::CheckActions()
{
    const bool viewOnly = CurrentUser().viewOnly;
    acNew->setEnabled(carriesData() && !viewOnly);
    acEdit->setEnabled(carriesData());
    acDelete->setEnabled(carriesData() && !viewOnly);
}

// --- the cycle

void TBookFrm::requireCurrent()
{
    const Variant key = currentKey();
    tellSubscribers();
    if (!sameKey(currentKey(), key))
        throw ERowGone();
}

void TBookFrm::PeriodChanged()
{
    d->periodWaits = true;
    if (!d->stepping)
        tellSubscribers();
}

void TBookFrm::addRecords()
{
    tellSubscribers();
    if (acNew->isEnabled())
        runStep([this] { NewRecord(); });
}

void TBookFrm::changeRecord(const std::function<void()> &step)
{
    requireCurrent();
    runStep(step);
}

void TBookFrm::runStep(const std::function<void()> &step)
{
    TNextOffer next;
    {
        const QScopedValueRollback<bool> running(d->stepping, true);
        step();
    }
    if (next.taken())
        addRecords();
    else
        tellSubscribers();
}

// --- navigation

// Goes along a history and leaves the way back in the other one. Nodes deleted meanwhile are passed over.
void TBookFrm::travel(QList<double> &along, QList<double> &opposite)
{
    while (!along.isEmpty()) {
        const double node = along.takeLast();
        if (node > 0 && pathTo(Database(), node).isEmpty())
            continue;
        const double before = d->current();
        readNode(node);
        opposite.append(before);
        break;
    }
    tellSubscribers();
}

void TBookFrm::goBack()
{
    travel(d->back, d->forward);
}

void TBookFrm::goForward()
{
    travel(d->forward, d->back);
}

void TBookFrm::goUp()
{
    if (!d->path.isEmpty())
        SetJungId(d->path.last().parent);
}

void TBookFrm::RefreshBook()
{
    const QList<TBookNode> former = d->path;
    fillBooks();
    double node = 0;
    for (const TBookNode &each : former) {
        const auto found = findNode(Database(), each.id);
        if (!found || found->book != d->book)
            break;
        node = each.id;
    }
    loadBook(d->book);
    readNode(node);
    tellSubscribers();
}

// The selection of the tree is the user's: when the node cannot be shown it goes back to the one that is.
void TBookFrm::treeSelected()
{
    try {
        SetJungId(d->tree->currentNode());
    } catch (...) {
        const QSignalBlocker quiet(d->tree);
        d->tree->goTo(d->current());
        throw;
    }
}

// --- what is shown

void TBookFrm::fillBooks()
{
    const QSignalBlocker quiet(d->books);
    d->books->clear();
    const QList<TKnyga> books = booksOf(Database());
    for (const TKnyga &book : books)
        d->books->addItem(book.name, book.id);
    int at = d->books->findData(d->book);
    if (at < 0 && !books.isEmpty())
        at = 0;
    d->books->setCurrentIndex(at);
    d->book = at < 0 ? 0 : books.at(at).id;
}

void TBookFrm::fillPath()
{
    const QSignalBlocker quiet(d->pathBox);
    d->pathBox->clear();
    d->pathBox->addItem(d->books->currentText(), 0.0);
    QString indent;
    for (const TBookNode &node : std::as_const(d->path)) {
        indent += u"    "_s;
        d->pathBox->addItem(indent + node.label(), node.id);
    }
    d->pathBox->setCurrentIndex(d->pathBox->count() - 1);
}

void TBookFrm::fillList(const QList<TBookNode> &below)
{
    d->list->clear();
    showReport({});
    QList<QTreeWidgetItem *> items;
    for (const TBookNode &node : below)
        items.append(itemOf(node, this));
    d->list->addTopLevelItems(items);
    setPanel(0, u"Įrašų kiekis: %1"_s.arg(below.size()));
}

void TBookFrm::showReport(const QStringList &titles)
{
    d->list->setColumnCount(int(qMax(qsizetype(1), titles.size())));
    d->list->setHeaderHidden(titles.isEmpty());
    d->list->setHeaderLabels(titles.isEmpty() ? QStringList{u"Pavadinimas"_s} : titles);
    d->list->header()->setStretchLastSection(titles.isEmpty());
    for (int column = 0; column < titles.size(); ++column)
        d->list->resizeColumnToContents(column);
}

// A leaf that carries data has nothing to list; a node that carries none has no content.
void TBookFrm::showPanes()
{
    const bool leaf = d->list->topLevelItemCount() == 0;
    if (d->content)
        d->content->setVisible(carriesData());
    d->list->setVisible(!leaf || !carriesData() || !d->content);
}

QTreeWidget *TBookFrm::list() const
{
    return d->list;
}

TDatabase *TBookFrm::Database() const
{
    Q_ASSERT(MainDatas());
    return MainDatas()->mnFin_Db();
}
