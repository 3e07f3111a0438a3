#include "toolkit/widgets/db_grid.h"

#include "toolkit/text/format.h"
#include "toolkit/widgets/grid_delegate.h"
#include "toolkit/widgets/grid_model.h"
#include "toolkit/widgets/guard.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>

#include <set>

TDBGrid::TDBGrid(QWidget *parent)
    : QTableView(parent),
      rows(new TGridModel(this)),
      emptyText(QStringLiteral(u"Įrašų nėra"))
{
    setModel(rows);
    setItemDelegate(new TGridDelegate(rows, this));
    setAccessibleName(QStringLiteral(u"Sąrašas"));
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
    connectGuarded(horizontalHeader(), &QHeaderView::sectionResized, this,
                   [this](int column, int, int width) {
                       keptWidths[fieldAt(column).toLower()] = width;
                       emit columnWidthsChanged();
                   });
    connectGuarded(rows, &TGridModel::rowsChanged, this, [this] { followSet(); });
    connectGuarded(this, &QAbstractItemView::activated, this, [this] { emit rowActivated(); });
}

TDBGrid::~TDBGrid() = default;

void TDBGrid::setDataSet(TDataSet *set)
{
    if (rows->dataSet())
        disconnect(rows->dataSet(), nullptr, this, nullptr);
    rows->setDataSet(set);
    if (set)
        connectGuarded(set, &TDataSet::scrolled, this, [this] { followSet(); });
    followSet();
}

TDataSet *TDBGrid::DataSet() const
{
    return rows->dataSet();
}

void TDBGrid::setColumns(const QList<TGridColumn> &columns)
{
    rows->setColumns(columns);
    layOutColumns();
    followSet();
}

const QList<TGridColumn> &TDBGrid::columns() const
{
    return rows->columns();
}

void TDBGrid::setCellEditing(bool on)
{
    editsCells = on;
    rows->setEditable(on);
    setSelectionBehavior(on ? SelectItems : SelectRows);
    setEditTriggers(on ? DoubleClicked | EditKeyPressed | AnyKeyPressed : NoEditTriggers);
    // Tab leaves a list; among cells that are typed in it goes to the next one.
    setTabKeyNavigation(on);
}

void TDBGrid::setTitlesCentred(bool on)
{
    horizontalHeader()->setDefaultAlignment(on ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
}

void TDBGrid::setMultiSelect(bool on)
{
    setSelectionMode(on ? ExtendedSelection : SingleSelection);
}

void TDBGrid::setEmptyText(const QString &text)
{
    emptyText = text;
    viewport()->update();
}

void TDBGrid::layOutColumns()
{
    const QSignalBlocker quiet(horizontalHeader());
    for (int i = 0; i < rows->columnCount(); ++i) {
        const TGridColumn &column = rows->columns()[i];
        const int kept = keptWidths.value(column.field.toLower()).toInt();
        const int wanted = kept > 0 ? kept : column.width;
        // Measured over title and format only: measuring the rows would fetch them all.
        const int fitting = std::max(horizontalHeader()->sectionSizeHint(i), widthOf(column.format));
        setColumnWidth(i, wanted > 0 ? wanted : fitting);
    }
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

QVariantMap TDBGrid::columnWidths() const
{
    QVariantMap widths;
    for (int i = 0; i < rows->columnCount(); ++i)
        widths[fieldAt(i).toLower()] = columnWidth(i);
    return widths;
}

void TDBGrid::setColumnWidths(const QVariantMap &widths)
{
    for (auto width = widths.begin(); width != widths.end(); ++width) {
        if (width->toInt() > 0)
            keptWidths[width.key().toLower()] = width->toInt();
    }
    layOutColumns();
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
    selectionModel()->setCurrentIndex(there, editsCells ? QItemSelectionModel::ClearAndSelect
                                                        : QItemSelectionModel::ClearAndSelect |
                                                              QItemSelectionModel::Rows);
    scrollTo(there);
}

void TDBGrid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    TDataSet *set = rows->dataSet();
    if (following || rows->isChanging() || !set || !set->Active() || !current.isValid() ||
        current.row() == set->RecNo())
        return;
    // A record that cannot be left, because its changes are refused, stays the current one.
    if (!runGuarded(this, [&] { set->setRecNo(current.row()); }))
        runGuarded(this, [this] { followSet(); });
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
    painter.drawText(viewport()->rect(), Qt::AlignCenter, emptyText);
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

QString TDBGrid::selectedText() const
{
    QStringList lines;
    for (const int row : selectedRows()) {
        QStringList cells;
        for (int visual = 0; visual < rows->columnCount(); ++visual) {
            const int column = horizontalHeader()->logicalIndex(visual);
            // A tab or a line end inside a text would fall apart into cells.
            if (!isColumnHidden(column))
                cells += rows->index(row, column).data().toString().simplified();
        }
        lines += cells.join(u'\t');
    }
    return lines.join(u'\n');
}

void TDBGrid::copySelection() const
{
    const QString text = selectedText();
    if (!text.isEmpty())
        QApplication::clipboard()->setText(text);
}
