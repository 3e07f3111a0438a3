#include "host/data/main_datas.h"

#include "toolkit/data/connection.h"
#include "toolkit/data/statement.h"

#include <utility>

namespace {

struct TCurrentPeriod {
    double id = 0;
    TDateTime date;

    bool operator==(const TCurrentPeriod &other) const
    {
        return id == other.id && date.value() == other.date.value();
    }
};

TCurrentPeriod &currentPeriod()
{
    static TCurrentPeriod period;
    return period;
}

// Month rows only: year and quarter rows have no month. Ids say nothing about the order of the months.
TCurrentPeriod lastMonth(TDatabase *database)
{
    TCurrentPeriod period;
    const auto set =
        database->prepare(QStringLiteral("select per_id from bd_period where ISNULL(per_menuo, 0) > 0 "
                                         "order by per_metai desc, per_ketv desc, per_menuo desc"));
    set->exec();
    if (!set->next())
        return period;
    period.id = set->number(0);
    set->reset();
    const Variant date = database->fieldResult(QStringLiteral("select GetDateByPeriodId(:id) from dummy"),
                                               {{QStringLiteral("id"), period.id}});
    period.date = TDateTime(date.toDate());
    return period;
}

} // namespace

double EinPer_Id()
{
    return currentPeriod().id;
}

TDateTime EinPer_Date()
{
    return currentPeriod().date;
}

void GetPeriod()
{
    const TCurrentPeriod read = MainDatas() ? lastMonth(MainDatas()->mnFin_Db()) : TCurrentPeriod();
    if (std::exchange(currentPeriod(), read) != read)
        emit periodNotifier().periodChanged();
}

void FollowPeriod() noexcept
{
    // Called by what was posted while a statement runs: the session takes no other one meanwhile.
    if (BusyBeat::isBeating())
        return;
    try {
        if (MainDatas() && MainDatas()->mnFin_Db()->Connected() && !MainDatas()->mnFin_Db()->InTransaction())
            GetPeriod();
    } catch (...) {
    }
}

TPeriodNotifier &periodNotifier()
{
    static TPeriodNotifier notifier;
    return notifier;
}
