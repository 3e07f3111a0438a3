#include "database/tool/keeping/schema_checks.h"

#include "database/tool/keeping/findings.h"
#include "database/tool/keeping/native_query.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

// What the engine's own statistics need is no part of the schema.
QStringList partsOf(TDatabase &db)
{
    return columnOf(
        db, u"select type || ' ' || name || ': ' || tbl_name || ': ' || coalesce(sql, '') "
            "from sqlite_schema where type <> 'trigger' and name not glob 'sqlite_stat*' order by 1"_s);
}

QString nameOfPart(const QString &part)
{
    return part.section(u':', 0, 0);
}

} // namespace

void checkSchema(TDatabase &db, Book book, const QString &title, QStringList &found)
{
    const QTemporaryDir folder;
    TDatabase fresh({.alias = db.AliasName(), .file = folder.filePath(u"schema.db"_s)});
    fresh.Open();
    upgrade(fresh, book);
    const QStringList expected = partsOf(fresh), present = partsOf(db);
    TFindings findings(found);
    for (const QString &part : expected) {
        if (!present.contains(part))
            findings.add(
                u"%1: duomenų bazės schemoje nėra arba pakeista: %2."_s.arg(title, nameOfPart(part)));
    }
    for (const QString &part : present) {
        if (!expected.contains(part))
            findings.add(u"%1: duomenų bazės schemoje nereikalinga: %2."_s.arg(title, nameOfPart(part)));
    }
}
