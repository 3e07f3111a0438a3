#pragma once

#include <QDate>
#include <QPageLayout>
#include <QString>
#include <QVariant>

#include <optional>
#include <vector>

// What a banded report says about itself. Lengths are points (1/72 inch); bands are as wide as the page's
// printable area and hold items placed from their top left corner.

// One text of a band: either a fixed text or an expression (see expression.h) shown by a picture.
struct TReportItem {
    qreal x = 0;
    qreal y = 0;
    qreal width = 0; // text that is wider is cut at the item's edge
    QString text;
    QString expression;
    QString mask; // picture of a number or date, as FormatFloat and FormatDateTime take it
    Qt::Alignment alignment = Qt::AlignLeft;
    int fontSize = 9;
    bool bold = false;
    bool wrap = false; // long text goes on in the next line; the band grows
};

struct TReportBand {
    qreal height = 0; // 0: the band is not printed
    std::vector<TReportItem> items;
    bool frameAbove = false; // a line along the upper edge
    bool frameBelow = false;
};

// Rows that follow each other with the same value of the expression form a group.
struct TReportGroup {
    QString name;
    QString expression;
    TReportBand header; // printed before the group's first row
    TReportBand footer; // sums of its expressions run over the group
};

struct TReport {
    QString caption;
    QDate date;     // the day it is made
    QString period; // the period it tells of, in words; empty where it tells of none
    QPageLayout page{QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(42, 42, 42, 42)};
    TReportBand title;                // once, before everything
    TReportBand columnHeader;         // on every page
    std::vector<TReportGroup> groups; // from the outermost
    TReportBand detail;               // for every row
    TReportBand summary;              // once, at the end; sums run over all rows
    TReportBand pageFooter;           // on every page; the fields PAGENUMBER and PAGECOUNT are known here
};

// The rows of a report, by number.
class TReportRows {
public:
    virtual ~TReportRows() = default;
    virtual int count() = 0;
    // The value of a field in a row; null when there is no such field.
    virtual QVariant value(int row, const QString &field) = 0;
};
