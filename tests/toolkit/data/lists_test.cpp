// Reading: the cursor, filter, search, calculated fields, piecewise fetching.

#include "tests/toolkit/data/books.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Lists : public OnSmallTable {
protected:
    static constexpr int many = 5000;

    static bool waitForAll(TDataSet &set)
    {
        return QTest::qWaitFor([&set] { return set.fetchedAll(); }, 60000);
    }

    static int id(const TDataSet &set) { return set.FieldByName(u"t_id"_s)->AsInteger(); }
};

ON_BOTH_ENGINES(Lists);

} // namespace

TEST_P(Lists, ALoopSeesEveryRecordOnce)
{
    fill(many);
    const auto set = list();
    double sum = 0;
    int count = 0;
    for (; !set->Eof(); set->Next(), ++count)
        sum += set->FieldByName(u"t_suma"_s)->AsFloat();
    EXPECT_EQ(count, many);
    EXPECT_EQ(sum, many * (many + 1) / 2.0 + many * 0.5);
}

TEST_P(Lists, AnEmptySetIsAtBothEnds)
{
    const auto set = list();
    EXPECT_TRUE(set->Bof());
    EXPECT_TRUE(set->Eof());
    EXPECT_TRUE(set->IsEmpty());
    EXPECT_EQ(set->RecNo(), -1);
    EXPECT_TRUE(set->FieldByName(u"t_id"_s)->IsNull());
}

TEST_P(Lists, TheCursorGoesWhereItIsSent)
{
    fill(many);
    const auto set = list();
    set->setRecNo(1000); // not read yet
    EXPECT_EQ(id(*set), 1001);
    set->Last();
    EXPECT_EQ(id(*set), many);
    EXPECT_TRUE(set->Eof());
    set->Prior();
    EXPECT_EQ(id(*set), many - 1);
    EXPECT_FALSE(set->Eof());
    set->First();
    set->Prior();
    EXPECT_TRUE(set->Bof());
    EXPECT_EQ(id(*set), 1);
    set->setRecNo(4000);
    EXPECT_EQ(id(*set), 4001);
    set->setRecNo(many + 7);
    EXPECT_EQ(id(*set), 4001);
}

TEST_P(Lists, TheFirstRowsDoNotWaitForTheRest)
{
    fill(100000);
    const auto set = list();
    EXPECT_GE(set->rowCount(), 50);
    EXPECT_LE(set->rowCount(), 200);
    EXPECT_FALSE(set->fetchedAll());
    QSignalSpy fetched(set.get(), &TDataSet::fetched);
    ASSERT_TRUE(waitForAll(*set));
    EXPECT_EQ(set->rowCount(), 100000);
    EXPECT_GT(fetched.count(), 5); // in slices
    EXPECT_EQ(set->RecNo(), 0);
}

TEST_P(Lists, WithoutAnEventLoopTheRestIsFetchedWhenItIsNeeded)
{
    fill(many);
    EXPECT_EQ(list()->RecordCount(), many);
    const auto set = list();
    ASSERT_TRUE(set->Locate(u"t_kodas"_s, u"K4321"_s));
    EXPECT_EQ(id(*set), 4321);
    while (set->canFetchMore({}))
        set->fetchMore({});
    EXPECT_EQ(set->rowCount(), many);
}

TEST_P(Lists, AllButListsAreReadAtOnce)
{
    fill(many);
    EXPECT_TRUE(table()->fetchedAll());
}

TEST_P(Lists, CloseStopsTheFetching)
{
    fill(many);
    const auto set = list();
    set->Close();
    QSignalSpy fetched(set.get(), &TDataSet::fetched);
    QTest::qWait(30);
    EXPECT_EQ(fetched.count(), 0);
    EXPECT_EQ(set->rowCount(), 0);
    mnFin_Db->nativeExec(u"drop table bd_t"_s); // no half-read cursor is in the way
}

TEST_P(Lists, AHalfReadListNeverMeetsATransaction)
{
    fill(many);
    const auto set = list();
    mnFin_Db->StartTransaction();
    mnFin_Db->ExecSQL(u"delete from bd_t"_s);
    EXPECT_EQ(set->RecordCount(), many);
    mnFin_Db->Commit();
    set->Close();
    set->Open();
    EXPECT_TRUE(set->IsEmpty());
}

TEST_P(Lists, LocateFindsByValueOrLeavesTheCursor)
{
    fill(10);
    const auto set = list();
    EXPECT_TRUE(set->Locate(u"t_id"_s, 7.0));
    EXPECT_EQ(set->RecNo(), 6);
    EXPECT_TRUE(set->Locate(u"T_KODAS"_s, u"K3"_s));
    EXPECT_EQ(set->RecNo(), 2);
    EXPECT_TRUE(set->Locate(u"t_data"_s, QDate(2004, 1, 1)));
    EXPECT_EQ(set->RecNo(), 0);
    set->setRecNo(5);
    EXPECT_FALSE(set->Locate(u"t_id"_s, 11));
    EXPECT_FALSE(set->Locate(u"t_kodas"_s, u"k3"_s));
    EXPECT_FALSE(set->Locate(u"t_kodas"_s, {}));
    EXPECT_EQ(set->RecNo(), 5);
    EXPECT_THROW(set->Locate(u"nera"_s, 1), EDatabaseError);
}

TEST_P(Lists, ARowCanBeLookedForAmongThoseThatAreHere)
{
    fill(many);
    const auto set = list();
    EXPECT_EQ(set->findRow(u"t_id"_s, 7), 6);
    EXPECT_EQ(set->findRow(u"t_id"_s, 7, 6), 6);
    EXPECT_EQ(set->findRow(u"t_id"_s, 7, 7), -1);
    EXPECT_EQ(set->findRow(u"t_id"_s, many), -1);
    EXPECT_EQ(set->RecNo(), 0);
    EXPECT_FALSE(set->fetchedAll());
}

TEST_P(Lists, AStoppedReadingKeepsWhatIsHereAndEndsASearch)
{
    fill(many);
    const auto set = list();
    const int here = set->fetchedCount();
    set->stopReading();
    EXPECT_TRUE(set->stopped());
    EXPECT_FALSE(set->Locate(u"t_id"_s, many));
    EXPECT_TRUE(set->Locate(u"t_id"_s, here));
    EXPECT_EQ(set->RecordCount(), here);
    set->Close();
    set->Open();
    EXPECT_FALSE(set->stopped());
    EXPECT_EQ(set->RecordCount(), many);
    set->stopReading(); // too late: all rows are here
    EXPECT_FALSE(set->stopped());
}

TEST_P(Lists, OneThatOutlivesItsSessionMayGoBeforeTheSessionIsClosedAgain)
{
    fill(2);
    auto set = list();
    mnFin_Db->Close();
    set.reset();
    mnFin_Db->Open();
    EXPECT_EQ(list()->RecordCount(), 2);
    mnFin_Db->Close();
    mnFin_Db->Open();
    EXPECT_EQ(stored(u"t_kodas"_s, 1), u"K1"_s);
}

TEST_P(Lists, EveryMoveIsToldOnce)
{
    fill(3);
    const auto set = list();
    int hooks = 0;
    set->AfterScroll = [&hooks](TDataSet &) { ++hooks; };
    QSignalSpy scrolled(set.get(), &TDataSet::scrolled);
    set->Next();
    set->Last();
    set->Next(); // there is none
    EXPECT_TRUE(set->Locate(u"t_id"_s, 1));
    EXPECT_FALSE(set->Locate(u"t_id"_s, 9));
    EXPECT_EQ(hooks, 3);
    EXPECT_EQ(scrolled.count(), 3);
}

TEST_P(Lists, ALongSearchCallsTheBusyHookWhichMayStopIt)
{
    constexpr int veryMany = 200000;
    fill(veryMany);
    const auto set = list();
    const TDatabase::BusyHook before = TDatabase::setBusyHook([&set] {
        const int here = set->fetchedCount();
        set->fetchMore({}); // nothing is read inside the hook
        EXPECT_EQ(set->fetchedCount(), here);
        set->stopReading();
    });
    EXPECT_FALSE(set->Locate(u"t_kodas"_s, u"nėra"_s));
    TDatabase::setBusyHook(before);
    EXPECT_TRUE(set->stopped());
    EXPECT_LT(set->fetchedCount(), veryMany);
}

TEST_P(Lists, TheFilterHidesRecordsAndKeepsTheCursorOnItsOwn)
{
    fill(many);
    const auto set = list();
    set->setRecNo(4);
    set->setFilter([](TDataSet &row) { return row.FieldByName(u"t_id"_s)->AsInteger() % 5 == 0; });
    EXPECT_EQ(id(*set), 5);
    EXPECT_EQ(set->RecordCount(), many / 5);
    EXPECT_EQ(set->rowCount(), many / 5);
    EXPECT_EQ(set->index(1, 0).data(Qt::EditRole).toInt(), 10);
    set->Next();
    EXPECT_EQ(id(*set), 10);
    set->setFilter(nullptr);
    EXPECT_EQ(id(*set), 10);
    EXPECT_EQ(set->RecNo(), 9);
    set->setFilter([](TDataSet &) { return false; });
    EXPECT_TRUE(set->IsEmpty());
    EXPECT_EQ(set->RecNo(), -1);
}

TEST_P(Lists, APostedRecordThatNoLongerPassesTheFilterIsHidden)
{
    fill(4);
    const auto set = table();
    set->setFilter([](TDataSet &row) { return row.FieldByName(u"t_kiek"_s)->AsInteger() < 10; });
    const QAbstractItemModelTester tester(set.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    set->setRecNo(1);
    set->Edit();
    set->FieldByName(u"t_kiek"_s)->setAsInteger(20);
    set->Post();
    EXPECT_EQ(set->rowCount(), 3);
    EXPECT_EQ(id(*set), 3);
    EXPECT_EQ(stored(u"t_kiek"_s, 2), u"20"_s);
}

TEST_P(Lists, CalculatedFieldsFollowTheirRow)
{
    fill(3);
    TTable set(mnFin_Db, u"bd_t"_s);
    set.addCalculated(u"dvigubai"_s, TFieldType::ftFloat);
    EXPECT_TRUE(set.FindField(u"DVIGUBAI"_s)); // before it is open
    set.OnCalcFields = [](TDataSet &row) {
        row.FieldByName(u"dvigubai"_s)->setAsFloat(row.FieldByName(u"t_suma"_s)->AsFloat() * 2);
    };
    set.Open();
    const int column = set.FieldByName(u"dvigubai"_s)->index();
    EXPECT_EQ(set.FieldByName(u"dvigubai"_s)->AsFloat(), 3);
    EXPECT_EQ(set.index(2, column).data(Qt::EditRole).toDouble(), 7);
    set.Edit();
    set.FieldByName(u"t_suma"_s)->setAsFloat(10);
    EXPECT_EQ(set.FieldByName(u"dvigubai"_s)->AsFloat(), 20);
    EXPECT_EQ(set.index(1, column).data(Qt::EditRole).toDouble(), 5);
    set.Post();
    EXPECT_EQ(set.index(0, column).data(Qt::EditRole).toDouble(), 20);
}

TEST_P(Lists, TheModelKeepsItsPromisesToTheViews)
{
    fill(300);
    TQuery set(mnFin_Db, u"select * from bd_t order by t_id"_s);
    set.readsAside = true;
    set.RequestLive = true;
    const QAbstractItemModelTester tester(&set, QAbstractItemModelTester::FailureReportingMode::Fatal);
    set.Open();
    set.setRecNo(3);
    set.Insert();
    set.FieldByName(u"t_kodas"_s)->setAsString(u"N"_s);
    ASSERT_TRUE(waitForAll(set));
    EXPECT_EQ(set.rowCount(), 301);
    EXPECT_EQ(set.index(3, 1).data().toString(), u"N"_s);
    EXPECT_EQ(set.index(4, 1).data().toString(), u"K4"_s);
    set.Post();
    EXPECT_EQ(set.rowCount(), 301);
    EXPECT_EQ(set.index(3, 0).data().toInt(), 301);
    set.Delete();
    set.Append();
    set.Cancel();
    set.Last();
    set.Delete();
    EXPECT_EQ(set.rowCount(), 299);
    set.setFilter([](TDataSet &row) { return row.FieldByName(u"t_id"_s)->AsInteger() > 100; });
    set.Insert();
    set.Cancel();
    set.Close();
    set.Open();
    EXPECT_GT(set.rowCount(), 0);
}

TEST_P(Lists, ShowLabelsAndFormattedTexts)
{
    fill(1);
    const auto set = list();
    set->describe(u"t_data"_s, [](TField &date) { date.DisplayLabel = u"Data"_s; });
    const int column = set->FieldByName(u"t_data"_s)->index();
    EXPECT_EQ(set->headerData(column, Qt::Horizontal).toString(), u"Data"_s);
    EXPECT_EQ(set->index(0, column).data().toString(), u"2004.01.01"_s);
    EXPECT_EQ(set->index(0, 0).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
              Qt::AlignRight | Qt::AlignVCenter);
}

TEST_P(Lists, HooksRunInTheirOrder)
{
    fill(2);
    TTable set(mnFin_Db, u"bd_t"_s);
    QStringList order;
    const auto note = [&order](const QString &name) {
        return [&order, name](TDataSet &) { order.append(name); };
    };
    set.BeforeOpen = note(u"BeforeOpen"_s);
    set.AfterOpen = note(u"AfterOpen"_s);
    set.AfterScroll = note(u"AfterScroll"_s);
    set.BeforeEdit = note(u"BeforeEdit"_s);
    set.AfterEdit = note(u"AfterEdit"_s);
    set.BeforeInsert = note(u"BeforeInsert"_s);
    set.AfterInsert = note(u"AfterInsert"_s);
    set.AfterCancel = note(u"AfterCancel"_s);
    set.BeforeDelete = note(u"BeforeDelete"_s);
    set.AfterDelete = note(u"AfterDelete"_s);
    set.Open();
    set.Edit();
    set.Cancel();
    set.Insert();
    set.Cancel();
    set.Delete();
    EXPECT_EQ(order.join(u' '),
              u"BeforeOpen AfterOpen AfterScroll BeforeEdit AfterEdit AfterCancel BeforeInsert "
              "AfterInsert AfterScroll AfterCancel AfterScroll BeforeDelete AfterDelete "
              "AfterScroll"_s);
}

TEST_P(Lists, AWrongParameterIsNamed)
{
    TQuery set(mnFin_Db, u"select * from bd_t where t_id = :id"_s);
    set.setParam(u"kitas"_s, 1);
    EXPECT_ERROR(EDatabaseError, set.Open(), u"kitas"_s);
    EXPECT_FALSE(set.Active());
}

TEST_P(Lists, AListThatBreaksOffSaysSoAndNeverPassesForAWhole)
{
    if (engine() == Engine::Sqlite)
        mnFin_Db->nativeExec(u"create view bd_lux as select t_id, abs(case when t_id = 4000 then "
                             "-9223372036854775808 else t_id end) as t_x from bd_t"_s);
    else
        mnFin_Db->nativeExec(u"create view bd_lux as select t_id, 1 / (4000 - t_id) as t_x from bd_t"_s);
    fill(many);
    TQuery set(mnFin_Db, u"select * from bd_lux"_s);
    set.readsAside = true;
    set.Open();
    QSignalSpy failed(&set, &TDataSet::fetchFailed);
    ASSERT_TRUE(QTest::qWaitFor([&failed] { return failed.count() > 0; }, 60000));
    EXPECT_FALSE(failed.at(0).at(0).toString().isEmpty());
    QTest::qWait(30);
    EXPECT_EQ(failed.count(), 1); // and is told once
    EXPECT_FALSE(set.fetchedAll());
    EXPECT_GT(set.rowCount(), 0);
    EXPECT_THROW(set.RecordCount(), EDatabaseError);
    const auto toTheEnd = [&set] {
        while (!set.Eof())
            set.Next();
    };
    EXPECT_THROW(toTheEnd(), EDatabaseError);
    // Another list reads on as if nothing had been.
    EXPECT_EQ(list()->RecordCount(), many);
}
