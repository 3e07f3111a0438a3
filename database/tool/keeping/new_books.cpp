#include "database/tool/keeping/new_books.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

void refuseExisting(const QString &file)
{
    if (QFileInfo::exists(file))
        throw EFileError(u"Failas „%1“ jau yra."_s.arg(file));
}

QStringList buildAside(TStore &store, const std::function<void()> &build)
{
    store.prepareAside();
    try {
        build();
        return store.adoptAside();
    } catch (const Exception &) {
        store.discardAside();
        throw;
    }
}
