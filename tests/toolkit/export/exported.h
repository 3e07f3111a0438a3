#pragma once

#include "tests/support/engines.h"
#include "tests/support/files.h"
#include "toolkit/export/table_export.h"
#include "toolkit/text/format.h"

#include <QDir>

// Small tables of a test's own on either engine, and the files that they are exported to.
class OnTablesToExport : public OnEmptyDatabases {
protected:
    // What the file of the table holds.
    QByteArray exported(const QString &table, const QStringList &columns, bool deletesFirst = false)
    {
        exportTable(*mnRavl, {table, columns, deletesFirst}, file());
        return contentOf(file());
    }
    QString file() const { return folder() + QStringLiteral("/eksportas/lentele.sql"); }
    // Every file of the folder that is exported to.
    QStringList files() const
    {
        return QDir(QFileInfo(file()).path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    void SetUp() override
    {
        OnEmptyDatabases::SetUp();
        ASSERT_TRUE(QDir().mkpath(QFileInfo(file()).path()));
    }
    void TearDown() override
    {
        FormatSettings() = settings;
        OnEmptyDatabases::TearDown();
    }

    // The type of a column as the engine calls it.
    QString blob() const
    {
        return engine() == Engine::Sqlite ? QStringLiteral("blob") : QStringLiteral("bytea");
    }
    // So many rows with a key and a text of a hundred letters.
    void manyRows(int count)
    {
        mnRavl->nativeExec(QStringLiteral("create table t (a integer primary key, b varchar(100));"
                                          "insert into t with recursive n(i) as (select 1 union all select "
                                          "i + 1 from n where i < %1) "
                                          "select i, '%2' from n")
                               .arg(count)
                               .arg(QString(100, u'x')));
    }

private:
    const TFormatSettings settings = FormatSettings();
};
