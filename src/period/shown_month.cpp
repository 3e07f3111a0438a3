#include "src/period/shown_month.h"

#include "toolkit/widgets/guard.h"

TShownMonth::TShownMonth()
{
    GetPeriod();
    perId = EinPer_Id();
    date = EinPer_Date();
}

// Writing the row locks it on a server until the transaction ends; what is read afterwards holds as long. The
// first day is compared too, for a start of work that was set anew has the same id.
bool TShownMonth::isStillLast() const
{
    TDatabase *books = MainDatas()->mnFin_Db();
    books->ExecSQL("update bd_period set per_menuo = per_menuo where per_id = :id", {{"id", perId}});
    const Variant last = books->fieldResult("select get_last_per_id() from dummy");
    if (last.isNull() || last.toDouble() != perId)
        return false;
    return books->fieldResult("select GetDateByPeriodId(:id) from dummy", {{"id", perId}}).toDate() ==
           date.date();
}

void followLastMonth(QWidget *where)
{
    runGuarded(where, [] { GetPeriod(); });
}

void tellMonthPassed(const TShownMonth &month, QWidget *where)
{
    if (!runGuarded(where, [] { GetPeriod(); }))
        return;
    const QString current =
        EinPer_Id() > 0
            ? QString("Dabar einamasis periodas yra %1; jis nepakeistas.").arg(PeriodText(EinPer_Date()))
            : QString("Darbo pradžios periodas nenustatytas.");
    StdMsgBox(mkWarning,
              QString("Periodas %1 jau nebe einamasis. ").arg(PeriodText(month.firstDay())) + current);
}
