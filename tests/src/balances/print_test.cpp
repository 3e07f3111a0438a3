#include "tests/src/balances/balances.h"
#include "toolkit/report/preview.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>

namespace {

class BalanceReport : public Balances {
protected:
    // The texts of all pages, each with its place.
    TReportPage printed()
    {
        TReportPage all;
        OnNextDialog<TReportPreview> preview([&all](TReportPreview &shown) {
            for (int page = 0; page < shown.layout().pageCount(); ++page)
                for (const TReportPrimitive &primitive : shown.layout().page(page))
                    all.push_back(primitive);
            shown.close();
        });
        frm->PrintBtnClick();
        return all;
    }
    static QStringList texts(const TReportPage &page)
    {
        QStringList found;
        for (const TReportPrimitive &primitive : page)
            if (primitive.kind == TReportPrimitive::Kind::Text && !primitive.text.isEmpty())
                found << primitive.text;
        return found;
    }
    static TReportPrimitive find(const TReportPage &page, const QString &text)
    {
        for (const TReportPrimitive &primitive : page)
            if (primitive.text == text)
                return primitive;
        ADD_FAILURE() << "not printed: " << qPrintable(text);
        return {};
    }
};
ON_BOTH_ENGINES(BalanceReport);

} // namespace

TEST_P(BalanceReport, AnEmptyListIsNotPrinted)
{
    openList();
    NextBoxes box{QMessageBox::Ok};
    frm->acPrint->trigger();
    EXPECT_EQ(box.at(0).text, "Nėra duomenu!");
}

TEST_P(BalanceReport, BearsTheDayBeforeThePeriodWhateverTheDateSeparator)
{
    balance(bank, 5, 0);
    balance(capital, 0, 5);
    FormatSettings().DateSeparator = u'-';
    openList();
    const TReportPage page = printed();
    const TReportPrimitive day = find(page, "2003.12.31");
    EXPECT_EQ(day.fontSize, 12);
    EXPECT_EQ(day.rect.top(), 30);
    EXPECT_EQ(FormatSettings().DateSeparator, u'-');
}

TEST_P(BalanceReport, AMonthClosedElsewhereReachesTheListAfterThePreview)
{
    balance(bank, 5, 0);
    balance(capital, 0, 5);
    openList();
    OnNextDialog<TReportPreview> preview([this](TReportPreview &shown) {
        const QStringList before = texts(shown.layout().page(0));
        nextMonth();
        EXPECT_EQ(texts(shown.layout().page(0)), before);
        EXPECT_TRUE(frm->Editable());
        shown.close();
    });
    frm->PrintBtnClick();
    EXPECT_FALSE(frm->Editable());
    EXPECT_EQ(frm->panel(0), "Įrašų kiekis: 0");
}

TEST_P(BalanceReport, AccountsAreGroupedByTheirFirstThreeCharactersWithSums)
{
    const int deeper = account("2411");
    const int shorter = account("01");
    balance(bank, 60.10, 0);
    balance(deeper, 39.90, 0);
    balance(shorter, 7, 0);
    balance(capital, 0, 107);
    openList();
    EXPECT_EQ(texts(printed()).mid(4), QStringList({"Debetas",
                                                    "Kreditas", //
                                                    "01  Sąskaita 01",
                                                    "7.00",
                                                    "0.00",
                                                    "7.00",
                                                    "0.00", //
                                                    "241  Sąskaita 241",
                                                    "60.10",
                                                    "0.00", //
                                                    "2411  Sąskaita 2411",
                                                    "39.90",
                                                    "0.00", //
                                                    "Saskaitos numeris: 241",
                                                    "100.00",
                                                    "0.00", //
                                                    "401  Sąskaita 401",
                                                    "0.00",
                                                    "107.00", //
                                                    "Saskaitos numeris: 401",
                                                    "0.00",
                                                    "107.00", //
                                                    "Viso",
                                                    "107.00",
                                                    "107.00",
                                                    "1 puslapis iš 1"}));
}

TEST_P(BalanceReport, SumsAreBoldAndStandUnderTheirColumns)
{
    balance(bank, 60, 0);
    balance(cash, 47, 0);
    balance(capital, 0, 107);
    openList();
    const TReportPage page = printed();
    const TReportPrimitive row = find(page, "47.00");
    const TReportPrimitive total = find(page, "107.00");
    const TReportPrimitive label = find(page, "Saskaitos numeris: 241");
    EXPECT_FALSE(row.bold);
    EXPECT_TRUE(label.bold);
    EXPECT_EQ(label.rect.left(), 0);
    for (const TReportPrimitive &primitive : page)
        if (primitive.bold && primitive.text == "47.00") {
            EXPECT_EQ(primitive.rect.left(), row.rect.left());
            EXPECT_EQ(primitive.rect.right(), row.rect.right());
            EXPECT_EQ(primitive.alignment, row.alignment);
        }
    EXPECT_GT(total.rect.left(), row.rect.left());
}

TEST_P(BalanceReport, TheTotalsAreReadAnew)
{
    balance(bank, 60, 0);
    balance(capital, 0, 60);
    openList();
    secondFin()->ExecSQL("update bd_saslik set ssl_sum_db = 61 where ssl_id = 1");
    const QStringList all = texts(printed());
    EXPECT_EQ(all.mid(all.indexOf("Viso")).mid(0, 3), QStringList({"Viso", "61.00", "60.00"}));
}

TEST_P(BalanceReport, TenThousandRowsFillTheirPages)
{
    const QString series =
        engine() == Engine::Sqlite
            ? "with recursive n(i) as (select 1 union all select i + 1 from n where i < 10000) "
              "select i, %1, 6, 0.10, 0.10 from n"
            : "select i, %1, 6, 0.10, 0.10 from generate_series(1, 10000) as n(i)";
    books().nativeExec("insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) " +
                       series.arg(bank));
    openList();
    const QStringList all = texts(printed());
    EXPECT_EQ(all.count("241  Sąskaita 241"), 10000);
    EXPECT_EQ(all.count("Debetas"), all.filter(" puslapis iš ").size());
    EXPECT_GT(all.filter(" puslapis iš ").size(), 100);
    EXPECT_EQ(all.mid(all.indexOf("Viso")).mid(0, 3), QStringList({"Viso", "1000.00", "1000.00"}));
    EXPECT_EQ(all.mid(all.indexOf("Saskaitos numeris: 241")).mid(1, 2), QStringList({"1000.00", "1000.00"}));
}
