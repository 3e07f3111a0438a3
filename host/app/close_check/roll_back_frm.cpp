#include "host/app/close_check/roll_back_frm.h"

#include "database/carried_balances.h"
#include "host/app/close_check/finding_list.h"
#include "host/app/table_names.h"
#include "host/common/months.h"
#include "host/data/main_datas.h"
#include "toolkit/data/statement.h"
#include "toolkit/text/amount.h"

#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

struct TBalanceTable {
    QString name, period;
    struct TSides {
        QString kind; // empty: the table has amounts of one kind
        QString debit, credit;
    };
    QList<TSides> sides;
};

const QList<TBalanceTable> &balanceTables()
{
    static const QList<TBalanceTable> tables{
        {u"bd_saslik"_s, u"ssl_perid"_s, {{{}, u"ssl_sum_db"_s, u"ssl_sum_kr"_s}}},
        {u"bd_isllik"_s,
         u"sml_perid"_s,
         {{u"asignavimai"_s, u"sml_asig_db"_s, u"sml_asig_kr"_s},
          {u"kasinės išlaidos"_s, u"sml_kas_db"_s, u"sml_kas_kr"_s},
          {u"faktinės išlaidos"_s, u"sml_fak_db"_s, u"sml_fak_kr"_s}}},
        {u"bd_dbkrlik"_s, u"dkl_perid"_s, {{{}, u"dkl_sum_db"_s, u"dkl_sum_kr"_s}}},
    };
    return tables;
}

void addBalances(TDatabase &fin, qlonglong period, std::vector<TRolledBack> &told)
{
    for (const TBalanceTable &table : balanceTables())
        for (const TBalanceTable::TSides &sides : table.sides)
            eachRowOf(fin,
                      u"select count(*) as eilutes, sum(%1) as debetas, sum(%2) as kreditas from %3 "
                      "where %4 = :perid"_s.arg(sides.debit, sides.credit, table.name, table.period),
                      {{u"perid"_s, period}}, [&](const TStatement &row) {
                          const QString kind = sides.kind.isEmpty() ? QString() : u": "_s + sides.kind;
                          told.push_back({tableName(table.name) + kind, row.integer(0),
                                          tenThousandths(row.number(1)), tenThousandths(row.number(2))});
                      });
}

// The year and its quarters go with their only month, unless estimates refer to them.
qlonglong yearRowsGone(TDatabase &fin, const TBookMonth &last)
{
    return fin
        .fieldResult(u"select count(*) from bd_period where per_metai = :metai and ISNULL(per_menuo, 0) = 0 "
                     "and not exists (select 1 from bd_period m where m.per_metai = :metai "
                     "and m.per_menuo > 0 and m.per_id <> :perid) and not exists (select 1 from bd_samatos, "
                     "bd_period s where s.per_id = sam_perid and s.per_metai = :metai)"_s,
                     {{u"metai"_s, last.year()}, {u"perid"_s, last.id}})
        .toLongLong();
}

QString shown(const std::optional<qint64> &amount)
{
    return amount ? amountText(*amount) : QString();
}

} // namespace

std::optional<TRollBack> rollBackOf(TDatabase &fin)
{
    const QList<TBookMonth> months = monthsOfBooks(fin);
    if (months.size() < 2)
        return {};
    const TBookMonth &last = months.last();
    TRollBack told{.month = TDateTime(last.firstDay()),
                   .before = TDateTime((months.cend() - 2)->firstDay()),
                   .deleted = {}};
    addBalances(fin, last.id, told.deleted);
    told.deleted.push_back({.what = u"Mėnuo: %1"_s.arg(PeriodText(told.month)), .rows = 1});
    if (const qlonglong rows = yearRowsGone(fin, last))
        told.deleted.push_back({.what = u"Metai %1 ir jų ketvirčiai"_s.arg(last.year()), .rows = rows});
    return told;
}

TRollBackFrm::TRollBackFrm(QWidget *owner)
    : TSheetFrm({.name = u"TRollBackFrm"_s, .caption = u"Kas bus ištrinta atsukus periodą"_s, .help = 128},
                {{u"Kas trinama"_s},
                 {u"Eilučių"_s, 12, Qt::AlignRight},
                 {u"Debetas"_s, 20, Qt::AlignRight},
                 {u"Kreditas"_s, 20, Qt::AlignRight}},
                owner)
{
    lines()->setRootIsDecorated(false);
}

void TRollBackFrm::Read()
{
    lines()->clear();
    const auto rollBack = rollBackOf(*MainDatas()->mnFin_Db());
    if (!rollBack) {
        setHeadline(u"Atsukti nėra ko: darbo pradžios periodas neatsukamas."_s);
        return;
    }
    for (const TRolledBack &each : rollBack->deleted)
        addLine(lines(), {each.what, QString::number(each.rows), shown(each.debit), shown(each.credit)});
    setHeadline(u"Atsukus periodą „%1“, einamuoju vėl taps „%2“. Mėnesio įrašai nebus trinami."_s.arg(
        PeriodText(rollBack->month), PeriodText(rollBack->before)));
}
