#include "host/classifier/book_picker.h"
#include "host/classifier/classifier.h"
#include "host/common/settings_store.h"

#include <QApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Users are known by their number: a login name may hold characters that mean something in a path.
QString keptKey()
{
    QString key = GetRegPath() + u"\\Users\\%1\\Knyga"_s.arg(CurrentUser().id);
    return key.replace(u'\\', u'/');
}

bool holds(const QList<TKnyga> &books, double id)
{
    return std::any_of(books.begin(), books.end(), [id](const TKnyga &book) { return book.id == id; });
}

double keptOrFirst(const QList<TKnyga> &books)
{
    const double kept = settingsStore().value(keptKey()).toDouble();
    if (holds(books, kept))
        return kept;
    return books.isEmpty() ? 0 : books.first().id;
}

} // namespace

double userKnyga()
{
    Q_ASSERT(MainDatas());
    return keptOrFirst(booksOf(MainDatas()->mnFin_Db()));
}

void setUserKnyga(double book)
{
    if (CanSave())
        settingsStore().setValue(keptKey(), book);
}

double GetUserKnygaId()
{
    Q_ASSERT(MainDatas());
    const QList<TKnyga> books = booksOf(MainDatas()->mnFin_Db());
    const double chosen = TBookPicker(QApplication::activeWindow(), books, keptOrFirst(books)).choose();
    if (chosen > 0)
        setUserKnyga(chosen);
    return chosen;
}
