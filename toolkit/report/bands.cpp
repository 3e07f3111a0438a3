#include "toolkit/report/bands.h"

using Stage = TBandSequence::Position::Stage;

TCompiledBand::TCompiledBand(const TReportBand &described) : band(&described)
{
    for (const TReportItem &item : described.items)
        expressions.push_back(item.expression.isEmpty() ? std::nullopt
                                                        : std::optional<TReportExpression>(item.expression));
}

std::vector<TReportExpression::Totals> TCompiledBand::freshTotals() const
{
    std::vector<TReportExpression::Totals> totals;
    for (const auto &expression : expressions)
        totals.push_back(expression ? expression->freshTotals() : TReportExpression::Totals());
    return totals;
}

void TCompiledBand::accumulate(const TReportExpression::Fields &row,
                               std::vector<TReportExpression::Totals> &totals) const
{
    for (size_t i = 0; i < expressions.size(); ++i)
        if (expressions[i])
            expressions[i]->accumulate(row, totals[i]);
}

TBandSequence::TBandSequence(const TReport &described, TReportRows &reportRows)
    : report(described),
      rows(reportRows),
      detail(described.detail),
      summary(described.summary)
{
    for (const TReportGroup &group : report.groups) {
        keyExpressions.emplace_back(group.expression);
        headers.emplace_back(group.header);
        footers.emplace_back(group.footer);
    }
}

TBandSequence::Position TBandSequence::start() const
{
    Position position;
    position.groupTotals.resize(footers.size());
    position.allTotals = summary.freshTotals();
    return position;
}

TReportExpression::Fields TBandSequence::fieldsOf(int row) const
{
    return [this, row](const QString &name) { return row < 0 ? QVariant() : rows.value(row, name); };
}

QString TBandSequence::keyOf(int level, int row) const
{
    return keyExpressions[size_t(level)].value(fieldsOf(row)).toString();
}

std::optional<TBandUse> TBandSequence::next(Position &position) const
{
    while (true) {
        std::optional<TBandUse> use;
        switch (position.stage) {
        case Stage::FindBreak:
            findBreak(position);
            break;
        case Stage::Footers:
            use = footer(position);
            break;
        case Stage::Headers:
            use = header(position);
            break;
        case Stage::Detail:
            use = detailUse(position);
            break;
        case Stage::Summary:
            position.stage = Stage::Done;
            use = TBandUse{&summary, position.row - 1, &position.allTotals, 0};
            break;
        case Stage::Done:
            return {};
        }
        if (use && use->band->band->height > 0)
            return use;
    }
}

// The outermost group that ends before this row; all groups end before the row behind the last.
void TBandSequence::findBreak(Position &position) const
{
    const int levels = int(keyExpressions.size());
    const bool end = position.row >= rows.count();
    int level = 0;
    while (!end && level < int(position.keys.size()) &&
           keyOf(level, position.row) == position.keys[size_t(level)])
        ++level;
    position.breakLevel = level;
    if (!position.keys.empty() && level < levels) {
        position.stage = Stage::Footers;
        position.level = levels - 1;
        return;
    }
    position.stage = end ? Stage::Summary : Stage::Headers;
    position.level = level;
}

std::optional<TBandUse> TBandSequence::footer(Position &position) const
{
    if (position.level < position.breakLevel) {
        position.stage = position.row >= rows.count() ? Stage::Summary : Stage::Headers;
        position.level = position.breakLevel;
        return {};
    }
    const auto level = size_t(position.level--);
    return TBandUse{&footers[level], position.row - 1, &position.groupTotals[level], 0};
}

std::optional<TBandUse> TBandSequence::header(Position &position) const
{
    const auto level = size_t(position.level);
    if (level >= headers.size()) {
        position.stage = Stage::Detail;
        return {};
    }
    position.keys.resize(std::max(position.keys.size(), level + 1));
    position.keys[level] = keyOf(position.level, position.row);
    position.groupTotals[level] = footers[level].freshTotals();
    ++position.level;
    return TBandUse{&headers[level], position.row, nullptr,
                    headersBelow(position.level) + report.detail.height};
}

qreal TBandSequence::headersBelow(int level) const
{
    qreal height = 0;
    for (auto below = size_t(level); below < headers.size(); ++below)
        height += headers[below].band->height;
    return height;
}

TBandUse TBandSequence::detailUse(Position &position) const
{
    const int row = position.row++;
    const auto fields = fieldsOf(row);
    for (size_t level = 0; level < footers.size(); ++level)
        footers[level].accumulate(fields, position.groupTotals[level]);
    summary.accumulate(fields, position.allTotals);
    position.stage = Stage::FindBreak;
    return {&detail, row, nullptr, 0};
}
