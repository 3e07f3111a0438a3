#pragma once

#include "toolkit/text/errors.h"

#include <QVariant>

#include <functional>
#include <memory>
#include <vector>

// A sum that stays exact for amounts of up to four decimals.
class TExactSum {
public:
    void add(double amount);
    double value() const;

private:
    qint64 tenThousandths = 0;
    double rest = 0; // what is no amount of four decimals, or too large
};

// The expressions of reports:
//   IF((COPY(SAS_SASNR,3,1)<>''),'Saskaitos numeris: ' + COPY(SAS_SASNR,1,3),'')
//   Sum(SSL_SUM_DB)
// Numbers, texts in single quotes (a quote inside is doubled), fields by name, + - * /, comparisons, and the
// functions IF(condition, then, else), COPY(text, from 1, count), SUM(number), COUNT(anything), UPPER(text),
// STR(number). Text plus anything joins texts. Names are case-insensitive. A null reads as '' or 0.
class TReportExpression {
public:
    using Fields = std::function<QVariant(const QString &name)>;
    // One running total per SUM or COUNT of the expression.
    using Totals = std::vector<TExactSum>;

    // Raises EConvertError, naming what was not understood and where.
    explicit TReportExpression(const QString &text);
    ~TReportExpression();
    TReportExpression(TReportExpression &&) noexcept;
    TReportExpression &operator=(TReportExpression &&) noexcept;

    Totals freshTotals() const;
    // Adds the row to the running totals.
    void accumulate(const Fields &row, Totals &totals) const;
    QVariant value(const Fields &row, const Totals &totals = {}) const;

    struct Node;

private:
    std::vector<const Node *> aggregates; // filled while the root is read, so it stands before it
    std::unique_ptr<Node> root;
};
