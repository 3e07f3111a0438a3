#include "host/controls/list_report.h"

#include "toolkit/report/text_metrics.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/db_grid.h"

#include <QHeaderView>

#include <numeric>

using namespace Qt::StringLiterals;

// --- rows

int TDataSetRows::count()
{
    return set && set->Active() ? set->rowCount() : 0;
}

const TDataSetRows::Source &TDataSetRows::sourceOf(const QString &name)
{
    const auto known = sources.constFind(name);
    if (known != sources.constEnd())
        return *known;
    Source source;
    if (const TField *field = set->FindField(name))
        source = {field->index(), field->OnGetText ? Qt::DisplayRole : Qt::EditRole};
    return *sources.insert(name, source);
}

QVariant TDataSetRows::value(int row, const QString &field)
{
    if (row >= count())
        return {};
    const Source &source = sourceOf(field);
    return source.column < 0 ? QVariant() : set->data(set->index(row, source.column), source.role);
}

// --- bands

namespace {

constexpr int smallFont = 8;
constexpr int plainFont = 9;
constexpr int captionFont = 14;
constexpr qreal captionTop = 10;
constexpr qreal titleHeight = 36;
constexpr qreal rowHeight = 13;
constexpr qreal footerHeight = 22;
constexpr qreal cellMargin = 2;
constexpr qreal pointsPerPixel = 0.75;

// One column of the printed list, in points.
struct Column {
    const TField *field;
    QString title;
    qreal x;
    qreal width;
};

Qt::Alignment alignmentOf(const TField &field)
{
    switch (field.Alignment) {
    case TAlignment::taRightJustify:
        return Qt::AlignRight;
    case TAlignment::taCenter:
        return Qt::AlignHCenter;
    case TAlignment::taLeftJustify:
        break;
    }
    return Qt::AlignLeft;
}

std::vector<Column> shownColumns(const TDBGrid &grid, const TDataSet &set)
{
    std::vector<Column> columns;
    for (int place = 0; place < grid.horizontalHeader()->count(); ++place) {
        const int column = grid.horizontalHeader()->logicalIndex(place);
        const TField *field = set.FindField(grid.fieldAt(column));
        if (field && !grid.isColumnHidden(column))
            columns.push_back({field, grid.model()->headerData(column, Qt::Horizontal).toString(), 0,
                               grid.columnWidth(column) * pointsPerPixel});
    }
    return columns;
}

qreal widthOf(const std::vector<Column> &columns)
{
    return std::accumulate(columns.begin(), columns.end(), 0.0,
                           [](qreal sum, const Column &column) { return sum + column.width; });
}

qreal printableWidth(const TReport &report)
{
    return report.page.paintRect(QPageLayout::Point).width();
}

void shareWidth(std::vector<Column> &columns, qreal width)
{
    const qreal factor = width / widthOf(columns);
    qreal x = 0;
    for (Column &column : columns) {
        column.x = x;
        column.width *= factor;
        x += column.width;
    }
}

TReportItem itemIn(const Column &column)
{
    return {.x = column.x + cellMargin,
            .width = column.width - 2 * cellMargin,
            .alignment = alignmentOf(*column.field),
            .fontSize = plainFont};
}

TReportBand titleBand(const TListHeading &heading, qreal width)
{
    const QString date = FormatDateTime(u"yyyy.mm.dd"_s, TDateTime(heading.date));
    return {.height = titleHeight,
            .items = {{.width = width * 3 / 4, .text = heading.institution, .fontSize = smallFont},
                      {.x = width * 3 / 4,
                       .width = width / 4,
                       .text = date,
                       .alignment = Qt::AlignRight,
                       .fontSize = smallFont},
                      {.y = captionTop,
                       .width = width,
                       .text = heading.caption,
                       .alignment = Qt::AlignHCenter,
                       .fontSize = captionFont,
                       .bold = true}}};
}

TReportBand columnHeaderBand(const std::vector<Column> &columns)
{
    TReportBand band{.height = rowHeight, .items = {}, .frameAbove = true, .frameBelow = true};
    for (const Column &column : columns) {
        TReportItem item = itemIn(column);
        item.text = column.title;
        item.alignment = Qt::AlignHCenter;
        item.bold = true;
        item.wrap = true;
        band.items.push_back(item);
        band.height = std::max(band.height, wrappedHeight(item.text, item.width, plainFont, true));
    }
    return band;
}

TReportBand detailBand(const std::vector<Column> &columns)
{
    TReportBand band{.height = rowHeight};
    for (const Column &column : columns) {
        TReportItem item = itemIn(column);
        item.expression = column.field->FieldName();
        item.mask = column.field->DisplayFormat;
        item.wrap = true;
        band.items.push_back(item);
    }
    return band;
}

TReportBand pageFooterBand(qreal width)
{
    return {.height = footerHeight,
            .items = {{.y = footerHeight - lineHeight(smallFont),
                       .width = width,
                       .expression = u"PAGENUMBER + ' puslapis iš ' + PAGECOUNT"_s,
                       .alignment = Qt::AlignRight,
                       .fontSize = smallFont}}};
}

} // namespace

TReport reportOfList(const TListHeading &heading, const TDBGrid &grid, const TDataSet &set)
{
    TReport report;
    report.caption = heading.caption;
    std::vector<Column> columns = shownColumns(grid, set);
    if (widthOf(columns) > printableWidth(report))
        report.page.setOrientation(QPageLayout::Landscape);
    const qreal width = printableWidth(report);
    shareWidth(columns, width);
    report.title = titleBand(heading, width);
    report.columnHeader = columnHeaderBand(columns);
    report.detail = detailBand(columns);
    report.pageFooter = pageFooterBand(width);
    return report;
}
