#pragma once

#include "database/tool/keeping/check.h"
#include "database/tool/keeping/store.h"
#include "toolkit/text/file_error.h"

#include <QStringList>

#include <functional>

// What all that make books or files of books have in common.

// Both databases, open.
struct TOpenBooks {
    explicit TOpenBooks(const TBooks &books) : fin(books.fin), ravl(books.ravl)
    {
        fin.Open();
        ravl.Open();
    }
    TDatabase fin;
    TDatabase ravl;
};

// Raises EFileError when there is such a file.
void refuseExisting(const QString &file);

// Builds books aside with the given builder and puts them in place; whatever fails, nothing is left. Returns
// the names under which the books that stood there are kept.
QStringList buildAside(TStore &store, const std::function<void()> &build);

// On a server: the groups and logins of the books under their final names (server_roles.h); what could not be
// done is told. Books of an older schema get them when they are upgraded.
void setUpLogins(TStore &store, const TProgress &progress);
