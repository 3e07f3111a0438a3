#include "database/tool/keeping/new_books.h"

#include "database/schema.h"
#include "database/server_roles.h"

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

void setUpLogins(TStore &store, const TProgress &progress)
{
    if (store.books().fin.engine != Engine::PostgreSql)
        return;
    TOpenBooks books(store.books());
    if (revisionOf(books.fin) != latestRevision() || revisionOf(books.ravl) != latestRevision())
        return;
    for (const QString &remark : setUpServerRoles(books.fin, books.ravl))
        progress(remark);
}
