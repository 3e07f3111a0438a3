#include "tests/toolkit/widgets/window_fixture.h"
#include "toolkit/widgets/db_grid.h"

namespace {

constexpr int many = 200'000;

class BigGrid : public InWindow {
protected:
    void SetUp() override
    {
        InWindow::SetUp();
        numbers = std::make_unique<TQuery>(db.get());
        db->nativeExec(u"create table skaiciai (sk_id integer primary key, sk_pavad varchar(20));"
                       "with recursive n(i) as (select 1 union all select i + 1 from n where i < %1)"
                       "insert into skaiciai select i, 'Eilutė ' || i from n"_s.arg(many));
        db->forgetCatalogue();
        numbers->setSQL(u"select sk_id, sk_pavad from skaiciai order by sk_id"_s);
        numbers->readsAside = true; // as lists do: piece by piece
        grid = add<TDBGrid>();
        grid->setColumns({{.field = u"sk_id"_s}, {.field = u"sk_pavad"_s}});
        grid->setDataSet(numbers.get());
    }
    void TearDown() override
    {
        window.reset();
        numbers.reset();
        InWindow::TearDown();
    }

    std::unique_ptr<TQuery> numbers;
    TDBGrid *grid = nullptr;
};

// Counts how often a view has to lay out its rows anew.
class Insertions : public QObject {
public:
    explicit Insertions(QAbstractItemModel *model)
    {
        connect(model, &QAbstractItemModel::rowsInserted, this, [this] { ++count; });
    }
    int count = 0;
};

} // namespace

TEST_F(BigGrid, GrowsByFewStepsWhileTheRestIsFetched)
{
    numbers->Open();
    EXPECT_LT(grid->model()->rowCount(), many) << "the list is there before its last rows";
    const Insertions steps(grid->model());
    const Insertions pieces(numbers.get());
    show(grid);
    ASSERT_TRUE(QTest::qWaitFor([&] { return numbers->fetchedAll(); }, 60'000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return grid->model()->rowCount() == many; }, 5'000));
    EXPECT_GT(steps.count, 0);
    EXPECT_LT(steps.count, 40);
    EXPECT_GT(pieces.count, steps.count) << "the set itself grows by more and smaller pieces";
}

TEST_F(BigGrid, TheLastRowIsReachedAtOnceByKey)
{
    numbers->Open();
    show(grid);
    QTest::keyClick(grid, Qt::Key_End);
    EXPECT_EQ(numbers->RecNo(), many - 1);
    EXPECT_EQ(grid->currentIndex().row(), many - 1);
    EXPECT_EQ(grid->currentIndex().siblingAtColumn(1).data().toString(), u"Eilutė %1"_s.arg(many));
    EXPECT_TRUE(grid->viewport()->rect().intersects(grid->visualRect(grid->currentIndex())));
}

TEST_F(BigGrid, ARecordBeyondTheShownRowsIsShownWhenTheSetGoesThere)
{
    numbers->Open();
    numbers->setRecNo(150'000);
    EXPECT_EQ(grid->currentIndex().row(), 150'000);
    numbers->Prior();
    EXPECT_EQ(grid->currentIndex().row(), 149'999);
}
