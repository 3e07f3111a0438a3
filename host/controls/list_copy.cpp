#include "host/controls/list_copy.h"

#include <QHeaderView>
#include <QMimeData>
#include <QRegularExpression>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {
QList<int> shownColumns(const QTableView &grid)
{
    QList<int> columns;
    for (int i = 0; i < grid.horizontalHeader()->count(); ++i) {
        const int column = grid.horizontalHeader()->logicalIndex(i);
        if (!grid.isColumnHidden(column))
            columns << column;
    }
    return columns;
}

QList<int> wantedRows(const QTableView &grid)
{
    QList<int> rows;
    const QModelIndexList selected = grid.selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows << index.row();
    if (rows.isEmpty() && grid.currentIndex().isValid())
        rows << grid.currentIndex().row();
    std::ranges::sort(rows);
    return rows;
}

QStringList titles(const QTableView &grid, const QList<int> &columns)
{
    QStringList cells;
    for (const int column : columns)
        cells << grid.model()->headerData(column, Qt::Horizontal).toString();
    return cells;
}

QStringList cellsOf(const QTableView &grid, const QList<int> &columns, int row)
{
    QStringList cells;
    for (const int column : columns)
        cells << grid.model()->index(row, column).data(Qt::DisplayRole).toString();
    return cells;
}

// A tab or a line break inside a value would tear the table apart.
QString asText(QStringList cells)
{
    static const QRegularExpression breaks(u"[\\t\\r\\n\\v\\f]+"_s);
    for (QString &cell : cells)
        cell.replace(breaks, u" "_s);
    return cells.join(u'\t') + u'\n';
}

QString asHtml(const QStringList &cells, const QString &tag)
{
    QString row;
    for (const QString &cell : cells)
        row += u"<%1>%2</%1>"_s.arg(tag, cell.toHtmlEscaped());
    return u"<tr>"_s + row + u"</tr>\n"_s;
}
} // namespace

QMimeData *copyOfRows(const QTableView &grid)
{
    const QList<int> rows = wantedRows(grid);
    if (rows.isEmpty())
        return nullptr;
    const QList<int> columns = shownColumns(grid);
    QString text = asText(titles(grid, columns));
    QString html = asHtml(titles(grid, columns), u"th"_s);
    for (const int row : rows) {
        const QStringList cells = cellsOf(grid, columns, row);
        text += asText(cells);
        html += asHtml(cells, u"td"_s);
    }
    auto *data = new QMimeData;
    data->setText(text);
    data->setHtml(u"<table>\n"_s + html + u"</table>"_s);
    return data;
}
