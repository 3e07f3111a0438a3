// Rows kept encoded: every value comes back as it was, in little more memory than its data.

#include "tests/toolkit/data/books.h"
#include "toolkit/data/row_store.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

TEST(RowArena, EveryValueComesBackAsItWas)
{
    const std::vector<Variant> row{Variant(),
                                   true,
                                   false,
                                   qlonglong(0),
                                   std::numeric_limits<qlonglong>::min(),
                                   std::numeric_limits<qlonglong>::max(),
                                   0.1,
                                   -1e300,
                                   100.0,
                                   QDate(1, 1, 1),
                                   QDate(9999, 12, 31),
                                   QDateTime(QDate(2004, 2, 29), QTime(23, 59, 59, 999)),
                                   QString(u""_s),
                                   QString(245, u'a'),
                                   QString(246, u'ž'),
                                   QByteArray("\0\1\2", 3),
                                   QByteArray(300, 'x')};
    RowArena arena;
    const RowArena::Address address = arena.append(row);
    const std::vector<Variant> back = arena.values(address, int(row.size()));
    for (size_t i = 0; i < row.size(); ++i) {
        EXPECT_EQ(back[i].typeId(), row[i].typeId()) << i;
        EXPECT_EQ(back[i], row[i]) << i;
        EXPECT_EQ(arena.value(address, int(i)), row[i]) << i;
    }
}

TEST(RowArena, MinusZeroKeepsItsSign)
{
    RowArena arena;
    EXPECT_TRUE(std::signbit(arena.value(arena.append({-0.0}), 0).toDouble()));
}

TEST(RowArena, RowsLargerThanAPieceOfMemoryStandAmongSmallOnes)
{
    RowArena arena;
    std::vector<RowArena::Address> addresses;
    std::vector<int> sizes;
    for (const int size : {10, 300 * 1024, 20, 262144, 262140, 262136, 700 * 1024, 1, 256 * 1024 * 3, 5}) {
        sizes.push_back(size);
        addresses.push_back(arena.append({QByteArray(size, char('a' + sizes.size())), qlonglong(size)}));
    }
    for (size_t i = 0; i < sizes.size(); ++i) {
        EXPECT_EQ(arena.value(addresses[i], 0), Variant(QByteArray(sizes[i], char('b' + i)))) << sizes[i];
        EXPECT_EQ(arena.value(addresses[i], 1), Variant(qlonglong(sizes[i])));
    }
}

namespace {

using EncodedRows = OnSmallTable;
ON_BOTH_ENGINES(EncodedRows);

// What the values themselves are worth: eight bytes a number, four a date, the bytes of a text.
qsizetype dataBytes(const std::vector<Variant> &row)
{
    qsizetype bytes = 0;
    for (const Variant &value : row) {
        switch (value.typeId()) {
        case QMetaType::QString:
            bytes += value.toString().toUtf8().size();
            break;
        case QMetaType::QDate:
            bytes += 4;
            break;
        default:
            bytes += value.isNull() ? 0 : 8;
        }
    }
    return bytes;
}

} // namespace

TEST_P(EncodedRows, TakeLessThanOneAndAHalfTimesTheirData)
{
    fill(100000);
    mnFin_Db->ExecSQL(u"update bd_t set t_suma = t_suma + 0.1234"_s);
    const auto statement =
        mnFin_Db->prepare(u"select a.t_id, a.t_kodas, a.t_pavad, a.t_suma, a.t_kiek, a.t_data,"
                          " a.t_id as i, a.t_kodas as k, a.t_pavad as p, a.t_suma as s,"
                          " a.t_kiek as q, a.t_data as d from bd_t a"_s,
                          TDatabase::Connection::Reading);
    statement->exec();
    const int columns = int(statement->columns().size());
    RowArena arena;
    qsizetype data = 0;
    qsizetype count = 0;
    for (; statement->next(); ++count)
        data += dataBytes(arena.values(arena.append(*statement, columns), columns));
    ASSERT_EQ(count, 100000);
    const qsizetype memory = arena.encodedBytes() + count * qsizetype(sizeof(RowArena::Address));
    EXPECT_LT(memory, data * 3 / 2);
}
