#pragma once

#include "toolkit/report/expression.h"
#include "toolkit/report/report.h"

#include <QRectF>

#include <functional>
#include <memory>

// One thing on a page, placed from the top left corner of the printable area.
struct TReportPrimitive {
    enum class Kind { Text, Line };
    Kind kind = Kind::Text;
    QRectF rect; // of a line: from its top left to its bottom right
    QString text;
    Qt::Alignment alignment = Qt::AlignLeft;
    int fontSize = 9;
    bool bold = false;
    bool wrap = false;
};
using TReportPage = std::vector<TReportPrimitive>;

// Lays bands out on pages. Only where each page begins is kept; a page is laid out again whenever it is asked
// for, so memory does not grow with the rows. A group header is never left alone at the foot of a page.
class TReportLayout {
public:
    // Called with the rows done so far; false stops the layout, which then raises EAbort.
    using Progress = std::function<bool(int rowsDone)>;

    // report and rows must outlive the layout. Raises EConvertError for an expression that is none, and
    // Exception when a band is higher than the page.
    TReportLayout(const TReport &report, TReportRows &rows, const Progress &progress = {});
    ~TReportLayout();

    int pageCount() const;
    TReportPage page(int number) const; // from 0

private:
    struct Private;
    std::unique_ptr<Private> d;
};
