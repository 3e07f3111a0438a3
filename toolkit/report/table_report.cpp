#include "toolkit/report/table_report.h"

#include "toolkit/report/text_metrics.h"
#include "toolkit/text/format.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int smallFont = 8;
constexpr int captionFont = 14;
constexpr qreal captionTop = 10;
constexpr qreal titleHeight = 36;
constexpr qreal rowSpacing = 4;
constexpr qreal footerHeight = 22;
constexpr qreal cellMargin = 2;

using Columns = std::vector<TTableColumn>;

qreal widthOf(const Columns &columns)
{
    return std::accumulate(columns.begin(), columns.end(), 0.0,
                           [](qreal sum, const TTableColumn &column) { return sum + column.width; });
}

qreal printableWidth(const TReport &report)
{
    return report.page.paintRect(QPageLayout::Point).width();
}

// One item for each column, side by side over the width of the page.
std::vector<TReportItem> itemsOver(const Columns &columns, qreal width, int fontSize)
{
    const qreal factor = width / widthOf(columns);
    std::vector<TReportItem> items;
    qreal x = 0;
    for (const TTableColumn &column : columns) {
        items.push_back({.x = x + cellMargin,
                         .width = column.width * factor - 2 * cellMargin,
                         .alignment = column.alignment,
                         .fontSize = fontSize,
                         .wrap = true});
        x += column.width * factor;
    }
    return items;
}

TReportBand titleBand(const TTableHeading &heading, qreal width)
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

TReportBand columnHeaderBand(const Columns &columns, qreal width, int fontSize)
{
    TReportBand band{.height = fontSize + rowSpacing,
                     .items = itemsOver(columns, width, fontSize),
                     .frameAbove = true,
                     .frameBelow = true};
    for (size_t i = 0; i < columns.size(); ++i) {
        TReportItem &item = band.items[i];
        item.text = columns[i].title;
        item.alignment = Qt::AlignHCenter;
        item.bold = true;
        band.height =
            std::max(band.height, wrappedHeight(item.text, item.width, fontSize, true) + cellMargin);
    }
    return band;
}

TReportBand detailBand(const Columns &columns, qreal width, int fontSize)
{
    TReportBand band{.height = fontSize + rowSpacing, .items = itemsOver(columns, width, fontSize)};
    for (size_t i = 0; i < columns.size(); ++i) {
        band.items[i].expression = columns[i].field;
        band.items[i].mask = columns[i].mask;
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

TReport reportOfTable(const TTableHeading &heading, const std::vector<TTableColumn> &columns, int fontSize)
{
    TReport report;
    report.caption = heading.caption;
    report.date = heading.date;
    if (widthOf(columns) > printableWidth(report))
        report.page.setOrientation(QPageLayout::Landscape);
    const qreal width = printableWidth(report);
    report.title = titleBand(heading, width);
    report.columnHeader = columnHeaderBand(columns, width, fontSize);
    report.detail = detailBand(columns, width, fontSize);
    report.pageFooter = pageFooterBand(width);
    return report;
}
