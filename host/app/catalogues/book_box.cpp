#include "host/app/catalogues/book_box.h"

#include "host/classifier/book_data.h"

using namespace Qt::StringLiterals;

TBookBox::TBookBox()
{
    setObjectName(u"BookBox"_s);
    setMinimumContentsLength(22);
}

QString TBookBox::nodes() const
{
    return u"select jve_id, jve_tevid, jve_kodas, jve_pavad, jve_duom from bd_jve where jve_islid = %1"_s.arg(
        qRound64(book()));
}

void TBookBox::read(TDatabase *database, double chosen)
{
    clear();
    for (const TKnyga &each : booksOf(database))
        addItem(each.name, each.id);
    setCurrentIndex(qMax(0, findData(chosen)));
}
