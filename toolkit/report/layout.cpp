#include "toolkit/report/layout.h"

#include "toolkit/report/bands.h"
#include "toolkit/report/text_metrics.h"
#include "toolkit/text/format.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int rowsBetweenProgress = 200;
constexpr qreal belowWrapped = 2.5; // keeps a text of several lines off the next row

QString shown(const QVariant &value, const QString &mask)
{
    switch (value.typeId()) {
    case QMetaType::QDate:
        return FormatDateTime(mask.isEmpty() ? u"yyyy.mm.dd"_s : mask, TDateTime(value.toDate()));
    case QMetaType::Double:
        return mask.isEmpty() ? FloatToStr(value.toDouble()) : FormatFloat(mask, value.toDouble());
    case QMetaType::Int:
    case QMetaType::LongLong:
        return mask.isEmpty() ? value.toString() : FormatFloat(mask, value.toDouble());
    default:
        return value.toString();
    }
}

} // namespace

struct TReportLayout::Private {
    Private(const TReport &described, TReportRows &reportRows)
        : report(described),
          sequence(described, reportRows),
          title(described.title),
          columnHeader(described.columnHeader),
          pageFooter(described.pageFooter),
          area(described.page.paintRect(QPageLayout::Point).size())
    {
    }

    const TReport &report;
    TBandSequence sequence;
    TCompiledBand title;
    TCompiledBand columnHeader;
    TCompiledBand pageFooter;
    QSizeF area;
    std::vector<TBandSequence::Position> pageStarts;

    using PageFields = std::function<QVariant(const QString &)>;

    QVariant itemValue(const TBandUse &use, size_t item, const PageFields &page) const
    {
        const auto row = sequence.fieldsOf(use.row);
        const auto fields = [&](const QString &name) {
            const QVariant ofPage = page ? page(name) : QVariant();
            return ofPage.isValid() ? ofPage : row(name);
        };
        const auto &expression = use.band->expressions[item];
        return use.totals ? expression->value(fields, (*use.totals)[item]) : expression->value(fields);
    }

    QString itemText(const TBandUse &use, size_t item, const PageFields &page) const
    {
        const TReportItem &described = use.band->band->items[item];
        return use.band->expressions[item] ? shown(itemValue(use, item, page), described.mask)
                                           : described.text;
    }

    // The band's height; items that wrap make it grow.
    qreal heightOf(const TBandUse &use) const
    {
        qreal height = use.band->band->height;
        for (size_t item = 0; item < use.band->band->items.size(); ++item) {
            const TReportItem &described = use.band->band->items[item];
            if (described.wrap)
                height = std::max(height, described.y + belowWrapped +
                                              wrappedHeight(itemText(use, item, {}), described.width,
                                                            described.fontSize, described.bold));
        }
        return height;
    }

    void place(const TBandUse &use, qreal top, qreal height, TReportPage &page,
               const PageFields &fields = {}) const
    {
        const TReportBand &band = *use.band->band;
        if (band.frameAbove)
            page.push_back({TReportPrimitive::Kind::Line, QRectF(0, top, area.width(), 0), {}});
        for (size_t item = 0; item < band.items.size(); ++item) {
            const TReportItem &at = band.items[item];
            page.push_back(
                {TReportPrimitive::Kind::Text,
                 QRectF(at.x, top + at.y, at.width, at.wrap ? height - at.y : lineHeight(at.fontSize)),
                 itemText(use, item, fields), at.alignment, at.fontSize, at.bold, at.wrap});
        }
        if (band.frameBelow)
            page.push_back({TReportPrimitive::Kind::Line, QRectF(0, top + height, area.width(), 0), {}});
    }

    qreal headHeight(bool firstPage) const
    {
        return report.columnHeader.height + (firstPage ? report.title.height : 0);
    }
    qreal bodyEnd() const { return area.height() - report.pageFooter.height; }

    // Walks one page's bands; position is moved to the start of the next page. Without a page nothing is
    // placed.
    void walkPage(bool firstPage, TBandSequence::Position &position, TReportPage *page) const
    {
        qreal top = headHeight(firstPage);
        bool empty = true;
        while (true) {
            TBandSequence::Position ahead = position;
            const auto use = sequence.next(ahead);
            if (!use) {
                position = std::move(ahead);
                return;
            }
            const qreal height = heightOf(*use);
            if (top + height + use->keepWith > bodyEnd() && !empty)
                return;
            if (top + height > bodyEnd())
                throw Exception(u"Ataskaitos eilutė netelpa lape"_s);
            if (page)
                place(*use, top, height, *page);
            top += height;
            empty = false;
            position = std::move(ahead);
        }
    }
};

TReportLayout::TReportLayout(const TReport &report, TReportRows &rows, const Progress &progress)
    : d(std::make_unique<Private>(report, rows))
{
    TBandSequence::Position position = d->sequence.start();
    int told = 0;
    do {
        d->pageStarts.push_back(position);
        d->walkPage(d->pageStarts.size() == 1, position, nullptr);
        if (progress && position.row - told >= rowsBetweenProgress) {
            told = position.row;
            if (!progress(told))
                throw EAbort();
        }
    } while (position.stage != TBandSequence::Position::Stage::Done);
}

TReportLayout::~TReportLayout() = default;

int TReportLayout::pageCount() const
{
    return int(d->pageStarts.size());
}

TReportPage TReportLayout::page(int number) const
{
    TReportPage page;
    const bool first = number == 0;
    const auto fields = [this, number](const QString &name) -> QVariant {
        if (name.compare(u"PAGENUMBER"_s, Qt::CaseInsensitive) == 0)
            return number + 1;
        if (name.compare(u"PAGECOUNT"_s, Qt::CaseInsensitive) == 0)
            return pageCount();
        return {};
    };
    if (first && d->report.title.height > 0)
        d->place({&d->title}, 0, d->report.title.height, page, fields);
    if (d->report.columnHeader.height > 0)
        d->place({&d->columnHeader}, d->headHeight(first) - d->report.columnHeader.height,
                 d->report.columnHeader.height, page, fields);
    TBandSequence::Position position = d->pageStarts[size_t(number)];
    d->walkPage(first, position, &page);
    if (d->report.pageFooter.height > 0)
        d->place({&d->pageFooter}, d->bodyEnd(), d->report.pageFooter.height, page, fields);
    return page;
}
