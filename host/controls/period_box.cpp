#include "host/controls/period_box.h"

#include "host/common/lists.h"
#include "host/common/months.h"
#include "host/data/main_datas.h"
#include "toolkit/text/format.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

TPeriodBox::TPeriodBox(Order listed, QWidget *parent) : QComboBox(parent), order(listed)
{
    setObjectName(u"PeriodBox"_s);
}

void TPeriodBox::fill()
{
    const QSignalBlocker silently(this);
    ClearListVar(model());
    TQuery periods(MainDatas()->mnFin_Db(),
                   u"select GetDateByPeriodId(per_id) as data, per_id from bd_period "
                   "where per_metai<>0 and per_ketv<>0 and per_menuo<>0 order by 1"_s +
                       (order == Order::NewestFirst ? u" desc"_s : QString()));
    ReadListVar(&periods, model(), u"data"_s, u"per_id"_s);
    for (int item = 0; item < count(); ++item)
        setItemText(item, PeriodText(StrToDate(itemText(item))));
    setCurrentIndex(order == Order::NewestFirst ? 0 : count() - 1);
}

void TPeriodBox::fillOrRaise()
{
    fill();
    if (count() == 0)
        throw Exception(u"Darbo pradžios periodas nenustatitas!"_s);
}

Variant TPeriodBox::period() const
{
    return GetListValue(model(), currentIndex());
}

bool TPeriodBox::picksNewest() const
{
    return currentIndex() == (order == Order::NewestFirst ? 0 : count() - 1);
}
