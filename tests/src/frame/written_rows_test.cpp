// That the look at every entry would find a statement that the engine refuses.

#include "tests/src/written_rows.h"

#include "tests/src/open_books.h"
#include "toolkit/data/query.h"

#include <QWidget>

namespace {
class WrittenRows : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        books().ExecSQL("insert into pp_imok (imo_kod, imo_pavad) values ('1', 'Viena')");
        rows = new TQuery(&books(), "select * from pp_imok", &window);
    }
    // The query of the window, with its statements.
    void cached(const QString &inserting, const QString &updating, const QString &removing)
    {
        rows->CachedUpdates = true;
        rows->InsertSQL = inserting;
        rows->ModifySQL = updating;
        rows->DeleteSQL = removing;
        rows->Open();
    }

    QWidget window;
    TQuery *rows = nullptr;
    const QString insert = "insert into pp_imok (imo_kod, imo_pavad) values (:imo_kod, :imo_pavad)";
    const QString update = "update pp_imok set imo_pavad = :imo_pavad where imo_kod = :OLD_imo_kod";
    const QString remove = "delete from pp_imok where imo_kod = :OLD_imo_kod";
};
ON_BOTH_ENGINES(WrittenRows);
} // namespace

TEST_P(WrittenRows, OfRightStatementsAreNotRefusedAndLeaveNothingBehind)
{
    cached(insert, update, remove);
    EXPECT_EQ(writesRefused(window), QStringList());
    EXPECT_EQ(::rows(books(), "select * from pp_imok"), QStringList("1|Viena"));
}

TEST_P(WrittenRows, NameEachStatementThatIsWrong)
{
    cached(insert + ", (:imo_kodas)", update + " and nera = 1", "delete from pp_imokos");
    const QString found = writesRefused(window).join(u'\n');
    for (const char *what : {"insert: ", "update imo_pavad: ", "delete: "})
        EXPECT_TRUE(found.contains(what, Qt::CaseInsensitive)) << what << qPrintable(found);
}
