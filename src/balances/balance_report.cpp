#include "src/balances/balance_report.h"

#include "toolkit/text/format.h"

#include <algorithm>

namespace Slikuciai {

namespace {

constexpr qreal titleTop = 30;
constexpr int titleFont = 12;
constexpr qreal lineHeight = 16;

const QString amountMask = "#0.00";
const QString groupText = "IF((COPY(SAS_SASNR,3,1)<>''),'Saskaitos numeris: ' + COPY(SAS_SASNR,1,3),'')";

// The item of the list's own row that shows a column; a column that the user hid has none.
const TReportItem *itemOf(const TReport &report, const QString &column)
{
    const auto found = std::ranges::find_if(report.detail.items, [&column](const TReportItem &item) {
        return item.expression.compare(column, Qt::CaseInsensitive) == 0;
    });
    return found == report.detail.items.end() ? nullptr : &*found;
}

// Puts a bold amount under a column of the list.
void addUnder(TReportBand &band, const TReportItem *column, TReportItem amount)
{
    if (!column)
        return;
    amount.x = column->x;
    amount.y = 2;
    amount.width = column->width;
    amount.alignment = column->alignment;
    amount.bold = true;
    band.items.push_back(amount);
}

TReportBand totalsBand(const TReport &report, TReportItem label, const TReportItem &debit,
                       const TReportItem &credit)
{
    const TReportItem *debitColumn = itemOf(report, "SSL_SUM_DB");
    label.y = 2;
    label.width = debitColumn ? debitColumn->x : report.page.paintRect(QPageLayout::Point).width();
    label.bold = true;
    TReportBand band{.height = lineHeight, .items = {label}, .frameAbove = true};
    addUnder(band, debitColumn, debit);
    addUnder(band, itemOf(report, "SSL_SUM_KR"), credit);
    return band;
}

} // namespace

void addBalanceBands(TReport &report, const QString &day, double debit, double credit)
{
    const qreal width = report.page.paintRect(QPageLayout::Point).width();
    report.title.items.push_back({.x = width / 4,
                                  .y = titleTop,
                                  .width = width / 2,
                                  .text = day,
                                  .alignment = Qt::AlignHCenter,
                                  .fontSize = titleFont});
    report.title.height = std::max(report.title.height, titleTop + 2 * titleFont);
    const TReportBand QRFotterBand1 =
        totalsBand(report, {.expression = groupText}, {.expression = "Sum(SSL_SUM_DB)", .mask = amountMask},
                   {.expression = "Sum(SSL_SUM_KR)", .mask = amountMask});
    report.groups.push_back({.name = "QRGroup1", .expression = groupText, .footer = QRFotterBand1});
    report.summary = totalsBand(report, {.text = "Viso"}, {.text = FormatFloat(amountMask, debit)},
                                {.text = FormatFloat(amountMask, credit)});
}

} // namespace Slikuciai
