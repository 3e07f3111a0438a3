#pragma once

#include "host/data/connections.h"

#include <QFile>

// The two databases of a test as the settings name books: embedded ones get the usual names in the folder.
inline TBooksSettings settingsOf(const TSessionSettings &fin, const TSessionSettings &ravl,
                                 const QString &folder)
{
    if (fin.engine == Engine::Sqlite) {
        const TBooks named = embeddedBooks(folder);
        QFile::link(fin.file, named.fin.file);
        QFile::link(ravl.file, named.ravl.file);
        return TBooksSettings::embedded(folder);
    }
    const QStringList parts = fin.connInfo.split(QStringLiteral("dbname="));
    return TBooksSettings::server(parts.first().trimmed(), parts.last(),
                                  ravl.connInfo.section(QStringLiteral("dbname="), 1));
}
