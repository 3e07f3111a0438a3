#pragma once

#include "toolkit/report/expression.h"
#include "toolkit/report/report.h"

#include <optional>

// A band with its expressions read.
struct TCompiledBand {
    explicit TCompiledBand(const TReportBand &band);

    const TReportBand *band;
    std::vector<std::optional<TReportExpression>> expressions; // one per item

    std::vector<TReportExpression::Totals> freshTotals() const;
    void accumulate(const TReportExpression::Fields &row,
                    std::vector<TReportExpression::Totals> &totals) const;
};

// A band about to be placed: which, with the values of which row and of which running totals.
struct TBandUse {
    const TCompiledBand *band = nullptr;
    int row = -1; // -1: no row
    const std::vector<TReportExpression::Totals> *totals = nullptr;
    qreal keepWith = 0; // height that must follow on the same page
};

// The bands of a report in the order in which they are printed, title and page bands aside. Copies of the
// position are cheap, so a page can be laid out again from where it began.
class TBandSequence {
public:
    // report and rows must outlive the sequence.
    TBandSequence(const TReport &report, TReportRows &rows);

    // Where the sequence stands.
    struct Position {
        enum class Stage { FindBreak, Footers, Headers, Detail, Summary, Done };
        Stage stage = Stage::FindBreak;
        int row = 0;
        int level = 0;
        int breakLevel = 0;
        std::vector<QString> keys; // of the open groups
        std::vector<std::vector<TReportExpression::Totals>> groupTotals;
        std::vector<TReportExpression::Totals> allTotals;
    };
    Position start() const;

    // The next band, or none at the end. The use refers into the position until the next call.
    std::optional<TBandUse> next(Position &position) const;

    TReportExpression::Fields fieldsOf(int row) const;

private:
    QString keyOf(int level, int row) const;
    void findBreak(Position &position) const;
    std::optional<TBandUse> footer(Position &position) const;
    std::optional<TBandUse> header(Position &position) const;
    TBandUse detailUse(Position &position) const;
    qreal headersBelow(int level) const;

    const TReport &report;
    TReportRows &rows;
    std::vector<TReportExpression> keyExpressions;
    std::vector<TCompiledBand> headers;
    std::vector<TCompiledBand> footers;
    TCompiledBand detail;
    TCompiledBand summary;
};
