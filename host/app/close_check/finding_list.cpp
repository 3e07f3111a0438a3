#include "host/app/close_check/finding_list.h"

#include "toolkit/data/statement.h"
#include "toolkit/text/amount.h"
#include "toolkit/text/format.h"

using namespace Qt::StringLiterals;

void TFindingList::add(const TCloseFinding &finding)
{
    if (tellsNext())
        told.push_back(finding);
    ++count;
}

std::vector<TCloseFinding> TFindingList::all() const
{
    std::vector<TCloseFinding> whole = told;
    if (count > toldOneByOne)
        whole.push_back({.about = u"…"_s,
                         .text = u"Ir dar tokių pat: %1."_s.arg(count - toldOneByOne),
                         .place = {.screen = told.back().place.screen},
                         .count = count - toldOneByOne});
    return whole;
}

void eachRowOf(TDatabase &db, const QString &sql, const QVariantMap &parameters,
               const std::function<void(const TStatement &)> &consumer)
{
    const auto rows = db.prepare(sql);
    for (auto each = parameters.cbegin(); each != parameters.cend(); ++each)
        rows->bind(each.key(), each.value());
    for (rows->exec(); rows->next();)
        consumer(*rows);
}

QString textAt(const TStatement &row, int column)
{
    return QString::fromUtf8(row.utf8(column)).trimmed();
}

std::vector<TCloseFinding> findByStatement(const TClosing &closing, const TCheckStatement &described)
{
    TFindingList found;
    eachRowOf(closing.fin, described.sql, {{u"perid"_s, closing.period}}, [&](const TStatement &row) {
        QString text = described.sentence;
        for (int column = 2; column < row.columns().size(); ++column)
            text = text.arg(amountText(tenThousandths(row.number(column))));
        found.add({textAt(row, 1), text, {described.screen, row.number(0)}});
    });
    return found.all();
}

QHash<qlonglong, qint64> amountsByKey(TDatabase &db, const QString &sql, const QVariantMap &parameters)
{
    QHash<qlonglong, qint64> amounts;
    eachRowOf(db, sql, parameters, [&amounts](const TStatement &row) {
        amounts[row.integer(0)] += tenThousandths(row.number(1));
    });
    return amounts;
}

QString amountText(qint64 amount)
{
    constexpr double places = 10000;
    return FormatFloat(u"0.00##"_s, double(amount) / places);
}
