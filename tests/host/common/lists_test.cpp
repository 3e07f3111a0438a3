#include "host/common/lists.h"
#include "tests/support/engines.h"
#include "toolkit/data/query.h"

#include <QListWidget>

using namespace Qt::StringLiterals;

namespace {
class Lists : public OnEmptyDatabases {
protected:
    void SetUp() override
    {
        OnEmptyDatabases::SetUp();
        mnFin_Db->nativeExec(u"create table bd_kdv (kdv_id integer primary key, kdv_pav varchar(50));"
                             u"insert into bd_kdv values (3, 'Kasa'), (1, 'Buhalterija'), (7, 'Sandėlis')"_s);
    }
    TQuery *query(const QString &sql)
    {
        opened = std::make_unique<TQuery>(mnFin_Db, sql);
        return opened.get();
    }
    std::unique_ptr<TQuery> opened;
};
ON_BOTH_ENGINES(Lists);
} // namespace

TEST_P(Lists, ReadListAttachesTheSecondColumnToEachText)
{
    QListWidget list;
    TDataSet *set = query(u"select kdv_pav, kdv_id from bd_kdv order by kdv_id"_s);
    ReadList(set, list.model());
    EXPECT_FALSE(set->Active());
    ASSERT_EQ(list.count(), 3);
    EXPECT_EQ(list.item(0)->text(), u"Buhalterija"_s);
    EXPECT_EQ(GetListObject(list.model(), 1), 3);
    EXPECT_EQ(IndexOfObject(list.model(), 7), 2);
    EXPECT_EQ(IndexOfObject(list.model(), 2), -1);
    EXPECT_EQ(GetListObject(list.model(), 9), 0);
}

TEST_P(Lists, ReadListVarKeepsTheKeyOfEachText)
{
    QComboBox box;
    ReadListVar(query(u"select kdv_id, kdv_pav from bd_kdv order by kdv_id"_s), box.model(), u"KDV_PAV"_s,
                u"KDV_ID"_s);
    ASSERT_EQ(box.count(), 3);
    EXPECT_EQ(box.itemText(2), u"Sandėlis"_s);
    EXPECT_EQ(GetListValue(box.model(), 2).toInt(), 7);
    EXPECT_EQ(GetListIndex(box.model(), 3.0), 1); // a double holding a whole value is the same key
    EXPECT_EQ(GetListIndex(box.model(), 3), 1);
    EXPECT_EQ(GetListIndex(box.model(), Variant()), -1);
    EXPECT_TRUE(GetListValue(box.model(), -1).isNull());
    ClearListVar(box.model());
    EXPECT_EQ(box.count(), 0);
}

TEST_P(Lists, ReadingAddsToWhatIsThere)
{
    QComboBox box;
    box.addItem(u"Visos"_s);
    ReadList(query(u"select kdv_pav, kdv_id from bd_kdv order by kdv_id"_s), box.model());
    EXPECT_EQ(box.count(), 4);
    EXPECT_EQ(box.itemText(0), u"Visos"_s);
    EXPECT_EQ(GetListObject(box.model(), 0), 0);
}

TEST_P(Lists, AFailureLeavesTheItemsAsTheyWereAndTheSetClosed)
{
    QComboBox box;
    box.addItem(u"Visos"_s);
    TDataSet *set = query(u"select kdv_pav, kdv_id from bd_kdv"_s);
    EXPECT_THROW(ReadListVar(set, box.model(), u"kdv_pav"_s, u"nera"_s), EDatabaseError);
    EXPECT_EQ(box.count(), 1);
    EXPECT_FALSE(set->Active());
}
