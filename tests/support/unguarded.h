#pragma once

#include "tests/support/engines.h"

// Takes the guards of closed months away, as somebody who means to falsify the books and owns them could.
inline void takeGuardsAway(TDatabase &db)
{
    const bool embedded = db.engine() == Engine::Sqlite;
    const QString named = QStringLiteral("like 'tr\\_bd\\_%\\_uzdaryta\\_%' escape '\\'");
    const QStringList triggers =
        nativeValue(db,
                    (embedded ? QStringLiteral("select group_concat(name || ' ' || tbl_name) "
                                               "from sqlite_schema where type = 'trigger' and name ")
                              : QStringLiteral("select string_agg(tgname || ' ' || tgrelid::regclass, ',') "
                                               "from pg_trigger where tgname ")) +
                        named)
            .split(u',', Qt::SkipEmptyParts);
    for (const QString &trigger : triggers) {
        const QString name = trigger.section(u' ', 0, 0), table = trigger.section(u' ', 1);
        db.nativeExec(QStringLiteral("drop trigger ") + name +
                      (embedded ? QString() : QStringLiteral(" on ") + table));
    }
}
