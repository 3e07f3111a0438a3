// velmora-db export: one table of the budget database as insert statements.

#include "tests/database/tool/demo_store.h"
#include "tests/database/tool/velmora_db.h"
#include "tests/support/files.h"
#include "tests/support/private_files.h"

using namespace Qt::StringLiterals;

namespace {

class ToolExport : public OnDemoBooks {
protected:
    TResult exported(const QStringList &words)
    {
        return velmoraDb(QStringList{u"export"_s} + words + place().arguments());
    }
    QTemporaryDir folder{scratchRoot() + u"/velmora-db-XXXXXX"_s};
    QString file = folder.filePath(u"lentele.sql"_s);
};
ON_BOTH_ENGINES(ToolExport);

TEST_P(ToolExport, WritesTheFileOfTheScreen)
{
    const TResult result = exported({u"bd_kdv"_s, file, u"--drop"_s});
    ASSERT_EQ(result.code, 0) << result.err.toStdString();
    const QString rows = value(*ravl, u"select count(*) from bd_kdv"_s);
    EXPECT_TRUE(result.out.contains(u"Įrašyta eilučių: %1."_s.arg(rows))) << result.out.toStdString();
    const QByteArray content = contentOf(file);
    EXPECT_TRUE(content.startsWith("delete from bd_kdv;\ninsert into bd_kdv(kdv_id,kdv_pav) values('1','"))
        << content.toStdString();
    EXPECT_EQ(content.count('\n'), rows.toInt() + 1);
    EXPECT_EQ(openToOthers(file), QStringList());
}

// Every table of the demonstration, run in empty books of the same schema, in the order of their references.
TEST_P(ToolExport, EscapedRunsInEmptyBooksToEqualContents)
{
    TestPlace other(GetParam());
    createBooks(*other.store(), [](const QString &) {});
    const auto target = other.ravl();
    for (const QString &table : {u"bd_savivaldybes"_s, u"bd_fin"_s, u"bd_kdv"_s, u"bd_usr"_s, u"bd_usrkdv"_s,
                                 u"bd_baleil"_s, u"bd_balsas"_s}) {
        const QString name = folder.filePath(table);
        const TResult result = exported({table, name, u"--escaped"_s, u"--drop"_s});
        ASSERT_EQ(result.code, 0) << result.err.toStdString();
        target->nativeExec(QString::fromUtf8(contentOf(name)));
        EXPECT_EQ(dump(*target, table), dump(*ravl, table)) << table.toStdString();
    }
    EXPECT_GT(value(*target, u"select count(*) from bd_fin"_s).toInt(), 0);
}

TEST_P(ToolExport, RefusesAFileThatIsThereAndATableThatIsNot)
{
    writeFile(file, "sena");
    const TResult there = exported({u"bd_kdv"_s, file});
    EXPECT_EQ(there.code, 3);
    EXPECT_TRUE(there.err.contains(u"jau yra."_s)) << there.err.toStdString();
    EXPECT_EQ(contentOf(file), "sena");
    for (const QString &table : {u"nera"_s, u"sys_raktai"_s, u"bd_usr'"_s}) {
        const TResult missing = exported({table, folder.filePath(u"kita.sql"_s), u"--escaped"_s});
        EXPECT_EQ(missing.code, 3);
        EXPECT_TRUE(missing.err.contains(u"Lentelės „%1“ biudžeto duomenų bazėje nėra."_s.arg(table)))
            << missing.err.toStdString();
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList(u"lentele.sql"_s));
}

} // namespace
