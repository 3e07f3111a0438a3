#include "database/text_functions.h"

#include "toolkit/text/collation.h"

void sortKey(RoutineCall &call)
{
    if (!call.isNull(0))
        call.give(lithuanianSortKey(QString::fromUtf8(call.text(0))).toUtf8());
}

void upperCase(RoutineCall &call)
{
    if (!call.isNull(0))
        call.give(QString::fromUtf8(call.text(0)).toUpper().toUtf8());
}

void dateAsText(RoutineCall &call)
{
    if (call.isNull(0) || call.isNull(1))
        return;
    const QByteArray date = call.text(0); // yyyy-mm-dd, a time may follow
    QByteArray text = call.text(1);
    text.replace("yyyy", date.left(4));
    text.replace("yy", date.mid(2, 2));
    text.replace("mm", date.mid(5, 2));
    text.replace("dd", date.mid(8, 2));
    call.give(text);
}
