// A user who may only look opens everything that the package has and tries whatever there is to try; the
// books stay as they were, byte for byte. An ordinary user with the same hands changes them, by every entry
// that can write.

#include "host/controls/browse_frm.h"
#include "tests/src/frame/every_entry.h"
#include "tests/src/hands.h"

#include <QAction>

namespace {

class ViewOnly : public OnEveryEntry {
protected:
    void TearDown() override
    {
        OnEveryEntry::TearDown();
        if (booksAfter != TDemoCopy::unchanged(engine()))
            TDemoCopy::renewShared(engine());
    }
    void tryBound()
    {
        CurrentUser().viewOnly = true;
        MainDatas()->makeReadOnly();
        TryingHands().tryEntry(entry());
        booksAfter = books().fingerprints();
    }

    QList<QByteArray> booksAfter;
};
ON_EVERY_ENTRY(ViewOnly);

// Where he may write, and where not.
class ViewOnlyAdministrator : public ViewOnly {};
INSTANTIATE_TEST_SUITE_P(, ViewOnlyAdministrator,
                         testing::Combine(testing::Values(Engine::Sqlite, Engine::PostgreSql),
                                          testing::Values("TUsersFrm", "Add_ChUser", "TSasLikFrm", "TDbKrFrm",
                                                          "StartPerClose", "TPareigFrm")));

// The lists that are read-only as a whole for who may only look.
class Catalogue : public OnEveryEntry {};
INSTANTIATE_TEST_SUITE_P(, Catalogue,
                         testing::Combine(testing::Values(Engine::Sqlite),
                                          testing::Values("TBankaiFrm", "TFinListFrm", "TPareigFrm",
                                                          "TVTarnFrm", "TVeiklFrm", "TDrbKlasFrm",
                                                          "TObjektFrm", "TPajamuRusiuKodaiFrm", "TPardTipFrm",
                                                          "TPirkTipFrm", "TImokosFrm", "TNuomFrm")),
                         entryAndEngine);

// The same hands without the bonds, in books of their own.
class NotBound : public OnEveryEntry {
protected:
    const TDemoCopy &books() override { return own; }

    // Opening balances are open until the first month is closed.
    void goBackToTheFirstMonth()
    {
        TDatabase &fin = *MainDatas()->mnFin_Db();
        while (fin.fieldResult("select count(*) from bd_period where ISNULL(per_menuo, 0) > 0").toInt() > 1)
            fin.ExecSQL("call Back_Per()");
        GetPeriod();
    }

private:
    const TDemoCopy own{engine()};
};
ON_EVERY_ENTRY(NotBound);

// They tell, or take what is typed, but nothing of it reaches the books.
const QStringList onlyAsk = {"ShowPass", "TFrRavlExp", "OpenSasChecker", "TCloseCheckFrm", "TRollBackFrm"};

} // namespace

TEST_P(ViewOnly, ChangesNothing)
{
    CurrentUser().userAdmin = false;
    tryBound();
    EXPECT_EQ(booksAfter, TDemoCopy::unchanged(engine()));
}

TEST_P(Catalogue, ShowsWhoMayOnlyLookItsRowsAndNothingThatChangesThem)
{
    CurrentUser().viewOnly = true;
    const std::unique_ptr<QWidget> screen(entry().create(nullptr));
    auto &list = dynamic_cast<TBrowseFrm &>(*screen);
    list.show();
    EXPECT_FALSE(list.Editable() || list.acNew->isVisible() || list.acDelete->isVisible());
    EXPECT_EQ(list.acEdit->text(), "&Peržiūrėti");
    EXPECT_TRUE(list.acEdit->isVisible() && list.acEdit->isEnabled());
}

// The users are his to keep, so that he can take the mark from himself again.
TEST_P(ViewOnlyAdministrator, ChangesNothingInTheMainBooks)
{
    tryBound();
    EXPECT_EQ(booksAfter.first(), TDemoCopy::unchanged(engine()).first());
}

TEST_P(NotBound, ChangesTheBooks)
{
    TryingHands hands;
    hands.tryEntry(entry());
    bool changed = books().fingerprints() != TDemoCopy::unchanged(engine());
    const bool cannot = hands.metNothingThatWrites() || onlyAsk.contains(entry().name);
    if (!changed && !cannot) {
        goBackToTheFirstMonth();
        const QList<QByteArray> before = books().fingerprints();
        hands.tryEntry(entry());
        changed = books().fingerprints() != before;
    }
    EXPECT_NE(changed, cannot);
}

TEST(ReadOnlySessions, RefuseToWriteThemselves)
{
    for (const Engine engine : {Engine::Sqlite, Engine::PostgreSql}) {
        const TDemoCopy &books = TDemoCopy::shared(engine);
        setMainDatas(std::make_unique<TMainDatas>(books.fin, books.ravl));
        MainDatas()->Open();
        MainDatas()->makeReadOnly();
        EXPECT_THROW(MainDatas()->mnFin_Db()->ExecSQL("delete from bd_saslik"), EDatabaseError);
        EXPECT_THROW(MainDatas()->mnRavl()->ExecSQL("delete from bd_usrkdv"), EDatabaseError);
        EXPECT_THROW(MainDatas()->mnFin_Db()->ExecSQL("call Close_Per()"), EDatabaseError);
        setMainDatas(nullptr);
    }
}
