#include "toolkit/widgets/grid_copy.h"

#include "toolkit/widgets/db_grid.h"

#include <QHeaderView>
#include <QMimeData>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QList<int> shownColumns(const TDBGrid &grid)
{
    QList<int> columns;
    for (int i = 0; i < grid.horizontalHeader()->count(); ++i) {
        const int column = grid.horizontalHeader()->logicalIndex(i);
        if (!grid.isColumnHidden(column))
            columns << column;
    }
    return columns;
}

QList<int> wantedRows(const TDBGrid &grid)
{
    const QList<int> selected = grid.selectedRows();
    if (selected.isEmpty() && grid.currentIndex().isValid())
        return {grid.currentIndex().row()};
    return selected;
}

// A tab or a line break inside a value would tear the table apart.
QString inOneCell(QString value)
{
    static const QRegularExpression breaks(u"[\\t\\r\\n\\v\\f]+"_s);
    return value.replace(breaks, u" "_s);
}

QStringList titles(const TDBGrid &grid, const QList<int> &columns)
{
    QStringList cells;
    for (const int column : columns)
        cells << inOneCell(grid.model()->headerData(column, Qt::Horizontal).toString());
    return cells;
}

QStringList cellsOf(const TDBGrid &grid, const QList<int> &columns, int row)
{
    QStringList cells;
    for (const int column : columns)
        cells << inOneCell(grid.model()->index(row, column).data(Qt::DisplayRole).toString());
    return cells;
}

// Without the style two blanks would come out as one.
QString asHtml(const QStringList &cells, const QString &tag)
{
    QString row;
    for (const QString &cell : cells)
        row += u"<%1 style=\"white-space:pre\">%2</%1>"_s.arg(tag, cell.toHtmlEscaped());
    return u"<tr>"_s + row + u"</tr>\n"_s;
}

} // namespace

std::unique_ptr<QMimeData> copyOfRows(const TDBGrid &grid)
{
    const QList<int> rows = wantedRows(grid);
    if (rows.isEmpty())
        return nullptr;
    const QList<int> columns = shownColumns(grid);
    QString text = titles(grid, columns).join(u'\t') + u'\n';
    QString html = asHtml(titles(grid, columns), u"th"_s);
    for (const int row : rows) {
        const QStringList cells = cellsOf(grid, columns, row);
        text += cells.join(u'\t') + u'\n';
        html += asHtml(cells, u"td"_s);
    }
    auto data = std::make_unique<QMimeData>();
    data->setText(text);
    data->setHtml(u"<table>\n"_s + html + u"</table>"_s);
    return data;
}
