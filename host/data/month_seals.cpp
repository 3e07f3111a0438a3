#include "host/data/month_seals.h"

#include "host/data/main_datas.h"

void SealMonth(TSealEvent event, double period)
{
    appendSeal(*MainDatas()->mnFin_Db(), event, qlonglong(period));
}

void SealBudget(TSealEvent event, double period) noexcept
{
    try {
        appendSeal(*MainDatas()->mnRavl(), event, qlonglong(period));
    } catch (const std::exception &) {
        return;
    }
}
