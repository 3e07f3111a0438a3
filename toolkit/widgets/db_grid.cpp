#include "toolkit/widgets/db_grid.h"

#include "toolkit/text/format.h"
#include "toolkit/widgets/grid_copy.h"
#include "toolkit/widgets/grid_delegate.h"
#include "toolkit/widgets/grid_model.h"
#include "toolkit/widgets/guard.h"

#include <QApplication>
#include <QClipboard>
#include <QDataStream>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScopedValueRollback>

#include <set>

using namespace Qt::StringLiterals;

TDBGrid::TDBGrid(QWidget *parent)
    : QTableView(parent),
      rows(new TGridModel(this)),
      editors(new TGridDelegate(rows, this))
{
    setModel(rows);
    setItemDelegate(editors);
    setAccessibleName(u"Sąrašas"_s);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->hide();
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    setTitlesCentred(false);
    setMultiSelect(true);
    setCellEditing(false);
    fixRowHeight();
    connectGuarded(horizontalHeader(), &QHeaderView::sectionClicked, this,
                   [this](int column) { emit titleClicked(fieldAt(column)); });
    connectGuarded(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column) {
        if (!layingOut)
            sized += fieldAt(column).toLower();
    });
    // What the fields hold is known only once the set is open.
    connectGuarded(rows, &TGridModel::modelReset, this, [this] { layOutColumns(); });
    connectGuarded(rows, &TGridModel::rowsChanged, this, [this] { followSet(); });
    connectGuarded(this, &QAbstractItemView::activated, this, [this] { emit rowActivated(); });
}

TDBGrid::~TDBGrid()
{
    if (rows->dataSet())
        rows->dataSet()->removeFlusher(flusher);
}

void TDBGrid::setDataSet(TDataSet *set)
{
    if (rows->dataSet()) {
        disconnect(rows->dataSet(), nullptr, this, nullptr);
        rows->dataSet()->removeFlusher(flusher);
    }
    rows->setDataSet(set);
    if (set) {
        connectGuarded(set, &TDataSet::scrolled, this, [this] { followSet(); });
        connectGuarded(set, &TDataSet::stateChanged, this, [this] { followState(); });
        flusher = set->addFlusher([this] { commitCell(); });
    }
    followSet();
    followState();
}

TDataSet *TDBGrid::DataSet() const
{
    return rows->dataSet();
}

void TDBGrid::setColumns(const QList<TGridColumn> &columns)
{
    rows->setColumns(columns);
    followSet();
}

const QList<TGridColumn> &TDBGrid::columns() const
{
    return rows->columns();
}

void TDBGrid::setTitlesCentred(bool on)
{
    horizontalHeader()->setDefaultAlignment(on ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
}

void TDBGrid::setMultiSelect(bool on)
{
    setSelectionMode(on ? ExtendedSelection : SingleSelection);
}

void TDBGrid::layOutColumns()
{
    const QScopedValueRollback<bool> now(layingOut, true);
    for (int i = 0; i < rows->columnCount(); ++i)
        setColumnWidth(i, ownWidth(i));
    shareSpareWidth();
}

int TDBGrid::ownWidth(int column) const
{
    return sized.contains(fieldAt(column).toLower()) ? columnWidth(column) : leastWidth(column);
}

int TDBGrid::leastWidth(int column) const
{
    const TGridColumn &described = rows->columns()[column];
    // Measured over title and format only: measuring the rows would fetch them all.
    return described.width > 0
               ? described.width
               : std::max(horizontalHeader()->sectionSizeHint(column), widthOf(described.format));
}

// The columns that can use more width than they have, and how much each would like to have: those that are
// described so, else the widest of the texts.
QHash<int, int> TDBGrid::thirsty() const
{
    QHash<int, int> flagged;
    QHash<int, int> texts;
    int widest = 0;
    for (int i = 0; i < rows->columnCount(); ++i) {
        const TField *field = rows->fieldOf(i);
        if (!field || isColumnHidden(i) || sized.contains(fieldAt(i).toLower()))
            continue;
        const int wanted = std::max(leastWidth(i), fontMetrics().averageCharWidth() * field->Size());
        if (columns()[i].stretch)
            flagged.insert(i, wanted);
        if (field->Alignment != TAlignment::taLeftJustify || field->DataType() == TFieldType::ftDate)
            continue;
        texts.insert(i, wanted);
        widest = std::max(widest, wanted);
    }
    if (!flagged.isEmpty())
        return flagged;
    texts.removeIf([widest](const auto &each) { return each.value() < widest / 2; });
    return texts;
}

void TDBGrid::shareSpareWidth()
{
    const QHash<int, int> takers = thirsty();
    int spare = viewport()->width() - horizontalHeader()->length();
    int wishes = 0;
    for (const int wanted : takers)
        wishes += wanted;
    for (auto taker = takers.begin(); taker != takers.end() && spare > 0; ++taker) {
        const int share = int(qint64(spare) * taker.value() / wishes);
        setColumnWidth(taker.key(), columnWidth(taker.key()) + share);
        spare -= share;
        wishes -= taker.value();
    }
}

void TDBGrid::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        runGuarded(this, [this] { layOutColumns(); });
}

// Of a usual large amount, or of a date, as the format shows it.
int TDBGrid::widthOf(const QString &format) const
{
    if (format.isEmpty())
        return 0;
    constexpr int margins = 12;
    const bool isDate = format.contains(u'y');
    return fontMetrics().horizontalAdvance(isDate ? format : FormatFloat(format, 999999999.99)) + margins;
}

void TDBGrid::fixRowHeight()
{
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
}

void TDBGrid::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fixRowHeight();
}

QByteArray TDBGrid::arrangement() const
{
    QByteArray kept = arrangedColumns();
    QDataStream stream(&kept, QIODevice::Append);
    stream << QStringList(sized.begin(), sized.end()) << horizontalHeader()->saveState();
    return kept;
}

// What every arrangement of the grid's columns begins with.
QByteArray TDBGrid::arrangedColumns() const
{
    QByteArray names;
    QDataStream stream(&names, QIODevice::WriteOnly);
    stream << fieldNames();
    return names;
}

void TDBGrid::setArrangement(const QByteArray &kept)
{
    // Compared before anything is read: a damaged length would be taken for one.
    const QByteArray columns = arrangedColumns();
    if (!kept.startsWith(columns))
        return;
    QDataStream stream(kept.sliced(columns.size()));
    QStringList sizedByUser;
    QByteArray state;
    stream >> sizedByUser >> state;
    if (stream.status() != QDataStream::Ok)
        return;
    QHeaderView *header = horizontalHeader();
    const bool marked = header->isSortIndicatorShown();
    const int sortedBy = header->sortIndicatorSection();
    const Qt::SortOrder order = header->sortIndicatorOrder();
    const QScopedValueRollback<bool> now(layingOut, true);
    if (!header->restoreState(state))
        return;
    // What the list is ordered by is not a matter of its columns.
    header->setSortIndicator(sortedBy, order);
    header->setSortIndicatorShown(marked);
    sized = {sizedByUser.begin(), sizedByUser.end()};
    layOutColumns();
}

QStringList TDBGrid::fieldNames() const
{
    QStringList names;
    for (const TGridColumn &column : columns())
        names += column.field.toLower();
    return names;
}

QString TDBGrid::fieldAt(int column) const
{
    return column >= 0 && column < columns().size() ? columns()[column].field : QString();
}

int TDBGrid::columnOf(const QString &field) const
{
    for (int i = 0; i < columns().size(); ++i) {
        if (columns()[i].field.compare(field, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

void TDBGrid::setSortMark(const QString &field, Qt::SortOrder order)
{
    const int column = columnOf(field);
    horizontalHeader()->setSortIndicatorShown(column >= 0);
    if (column >= 0)
        horizontalHeader()->setSortIndicator(column, order);
}

// Puts the grid's current row where the set's record is.
void TDBGrid::followSet()
{
    const QScopedValueRollback<bool> now(following, true);
    TDataSet *set = rows->dataSet();
    // Asking fetches the first row, so that an empty list can say that it is.
    const int record = set && set->Active() && !set->IsEmpty() ? set->RecNo() : -1;
    if (record >= rows->rowCount())
        rows->catchUp();
    // Only the text of an empty list is painted by the grid itself; rows that come are the view's affair.
    if (rows->rowCount() == 0)
        viewport()->update();
    if (record < 0 || record >= rows->rowCount()) {
        if (record < 0)
            selectionModel()->clear();
        return;
    }
    if (currentIndex().row() == record)
        return;
    const QModelIndex there = rows->index(record, std::max(currentIndex().column(), 0));
    selectionModel()->setCurrentIndex(there, selecting());
    scrollTo(there);
    openEditor();
}

void TDBGrid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    TDataSet *set = rows->dataSet();
    if (following || rows->isChanging() || !set || !set->Active() || !current.isValid() ||
        current.row() == set->RecNo())
        return;
    const int wanted = current.row();
    const auto move = [&] {
        commitCell();
        set->setRecNo(wanted);
    };
    // A record that cannot be left, because its changes are refused, stays the current one.
    if (!runGuarded(this, move))
        runGuarded(this, [this] { followSet(); });
    if (set->RecNo() == wanted)
        return;
    // A click selects what it hit when all this is over.
    const auto highlight = [this] {
        if (currentIndex().isValid())
            selectionModel()->select(currentIndex(), selecting());
    };
    QMetaObject::invokeMethod(this, guarded(this, highlight), Qt::QueuedConnection);
}

bool TDBGrid::moveSet(const QKeyEvent *event)
{
    TDataSet *set = rows->dataSet();
    const bool whole = !editsCells || event->modifiers() & Qt::ControlModifier;
    if (!set || !set->Active() || !whole || event->modifiers() & Qt::ShiftModifier)
        return false;
    if (event->key() == Qt::Key_Home)
        set->First();
    else if (event->key() == Qt::Key_End)
        set->Last();
    else
        return false;
    return true;
}

void TDBGrid::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy)) {
        runGuarded(this, [this] { copySelection(); });
        return;
    }
    bool moved = false;
    if (!runGuarded(this, [&] { moved = moveSet(event); }) || moved)
        return;
    // Letters belong to the screen's own search.
    if (!editsCells && !event->text().isEmpty() && event->text().front().isPrint() &&
        !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        event->ignore();
        return;
    }
    QTableView::keyPressEvent(event);
}

void TDBGrid::keyboardSearch(const QString &) {}

void TDBGrid::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    const TDataSet *set = rows->dataSet();
    if (!set || !set->Active() || rows->rowCount() > 0 || !set->fetchedAll())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter, u"Įrašų nėra"_s);
}

QList<int> TDBGrid::selectedRows() const
{
    std::set<int> chosen;
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            chosen.insert(row);
    }
    return {chosen.begin(), chosen.end()};
}

void TDBGrid::copySelection() const
{
    if (std::unique_ptr<QMimeData> copied = copyOfRows(*this))
        QApplication::clipboard()->setMimeData(copied.release());
}
