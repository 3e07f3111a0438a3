#pragma once

#include "database/books.h"

#include <QJsonObject>
#include <QList>

#include <memory>

// Where books are kept, and what only the engine can do with them as a whole.
//
// New books are always built aside, under other names, and take their place only when they are whole: a
// killed or failed run never leaves half books under the final names.
class TStore {
public:
    virtual ~TStore() = default;

    // The books under their final names.
    const TBooks &books() const { return place; }
    // The same under the names where new ones are built.
    const TBooks &aside() const { return asidePlace; }

    // Where the parts of a backup are unpacked: beside embedded books, which they become by a rename.
    const QString &partsFolder() const { return parts; }

    // How many of the two databases stand under their final names: 0, 1 or 2.
    virtual int present() = 0;

    // Removes what an earlier run may have left aside and makes room: afterwards both databases aside can be
    // opened and are empty. Until the end of the store, or discardAside(), nobody else works aside.
    virtual void prepareAside() = 0;
    // Removes the databases aside and the folder of parts.
    virtual void discardAside() = 0;
    // Gives the databases aside their final names. Books standing there are kept under the names returned.
    // Raises Exception when another program uses them; both keep their names then.
    virtual QStringList adoptAside() = 0;

    // Copies one of the final databases, as it is at one moment, into a file in the engine's own format, and
    // the other way round into the database aside. session is one of books() and aside(). dump() returns the
    // control totals of the database itself at that moment, for the copy to be compared with. On the embedded
    // engine the moments of the two are a little apart: a change between them makes a difference.
    virtual QJsonObject dump(const TSessionSettings &session, const QString &file) = 0;
    virtual void load(const QString &file, const TSessionSettings &session) = 0;

    // Raises Exception when the store holds books already.
    void refuseWhenPresent();
    // Raises Exception when one of the two databases is missing.
    void refuseWhenMissing();

protected:
    TBooks place;
    TBooks asidePlace;
    QString parts;
};

// The two files of a folder, which is created when missing.
std::unique_ptr<TStore> embeddedStore(const QString &folder);

// The two databases of a server.
std::unique_ptr<TStore> serverStore(const QString &connInfo);
