#include "src/period/Period.h"

#include "src/period/UpDown.h"
#include "tests/src/open_books.h"
#include "tests/support/clock.h"
#include "tests/support/message_box.h"
#include "tests/support/refusal.h"

#include <QTest>

using Period::TPeriodDlg;

namespace {

class StartOfWork : public OnOpenBooks {
protected:
    static QLineEdit *year(TPeriodDlg &dialog) { return dialog.findChild<QLineEdit *>("YearEdit"); }
    static QComboBox *month(TPeriodDlg &dialog) { return dialog.findChild<QComboBox *>("MonthBox"); }
    QStringList periods() { return rows(books(), "select * from bd_period order by per_id"); }

    // Presses the default button and expects the refusal to be shown; the dialog stays as it was.
    static QString refusal(TPeriodDlg &dialog)
    {
        dialog.show();
        NextBoxes shown{QMessageBox::Ok};
        pressButton(dialog, "&Taip");
        EXPECT_TRUE(dialog.isVisible());
        return shown.at(0).text;
    }
};
ON_BOTH_ENGINES(StartOfWork);

} // namespace

TEST_P(StartOfWork, AnEmptyTableProposesTheComputersMonth)
{
    ClockAt clock(QDate(2026, 7, 31));
    TPeriodDlg dialog(nullptr);
    EXPECT_EQ(year(dialog)->text(), "2026");
    EXPECT_EQ(month(dialog)->currentText(), "Liepa");
}

TEST_P(StartOfWork, AComputerDateBeforeApril1998RefusesToOpen)
{
    ClockAt clock(QDate(1998, 3, 31));
    EXPECT_EQ(refusalOf([] { TPeriodDlg(nullptr); }), "Kompiuteryje nekorektiška data");
    EXPECT_EQ(Period::PeriodDlg, nullptr);
}

TEST_P(StartOfWork, TheFirstOfApril1998Opens)
{
    ClockAt clock(QDate(1998, 4, 1));
    TPeriodDlg dialog(nullptr);
    EXPECT_EQ(year(dialog)->text(), "1998");
    EXPECT_EQ(month(dialog)->currentText(), "Balandis");
}

TEST_P(StartOfWork, WritesTheYearItsQuartersAndTheMonth)
{
    TPeriodDlg dialog(nullptr);
    dialog.show();
    type(year(dialog), "2026");
    month(dialog)->setCurrentText("Gruodis");
    pressButton(dialog, "&Taip");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(periods(), QStringList({"1|2026|0|0", "2|2026|1|0", "3|2026|2|0", "4|2026|3|0", "5|2026|4|0",
                                      "6|2026|4|3"}));
}

TEST_P(StartOfWork, EveryMonthFallsInItsQuarter)
{
    const QStringList expected = {"1|1", "1|2", "1|3", "2|1", "2|2", "2|3",
                                  "3|1", "3|2", "3|3", "4|1", "4|2", "4|3"};
    for (int index = 0; index < 12; ++index) {
        TPeriodDlg dialog(nullptr);
        dialog.show();
        type(year(dialog), "2025");
        month(dialog)->setCurrentIndex(index);
        pressButton(dialog, "&Taip");
        EXPECT_EQ(rows(books(), "select per_ketv, per_menuo from bd_period where per_id = 6"),
                  QStringList(expected.at(index)));
    }
    EXPECT_EQ(periods().size(), 6);
}

TEST_P(StartOfWork, ShowsWhatIsStored)
{
    startOfWork(2024, 3, 2);
    TPeriodDlg dialog(nullptr);
    EXPECT_EQ(year(dialog)->text(), "2024");
    EXPECT_EQ(month(dialog)->currentText(), "Rugpijūtis");
}

TEST_P(StartOfWork, RunAgainReplacesEveryRow)
{
    startOfWork(2024, 3, 2);
    books().ExecSQL("insert into bd_period values (7, 2024, 3, 3)");
    TPeriodDlg dialog(nullptr);
    dialog.show();
    type(year(dialog), "2025");
    month(dialog)->setCurrentText("Sausis");
    pressButton(dialog, "&Taip");
    EXPECT_EQ(periods(), QStringList({"1|2025|0|0", "2|2025|1|0", "3|2025|2|0", "4|2025|3|0", "5|2025|4|0",
                                      "6|2025|1|1"}));
}

TEST_P(StartOfWork, KeepsTheBalancesOfTheStartOfWorkMonth)
{
    startOfWork(2024, 1, 1);
    balance(account("241"), 100, 0);
    TPeriodDlg dialog(nullptr);
    dialog.show();
    type(year(dialog), "2025");
    pressButton(dialog, "&Taip");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(rows(books(), "select ssl_perid, ssl_sum_db from bd_saslik"), QStringList("6|100"));
}

TEST_P(StartOfWork, ATableWithoutTheMonthRowSelectsNoMonthAndAsksForOne)
{
    books().ExecSQL("insert into bd_period values (1, 2024, 0, 0)");
    TPeriodDlg dialog(nullptr);
    EXPECT_EQ(year(dialog)->text(), "2024");
    EXPECT_EQ(month(dialog)->currentIndex(), -1);
    EXPECT_EQ(refusal(dialog), "Nepasirinktas mėnuo");
    EXPECT_EQ(periods(), QStringList("1|2024|0|0"));
}

TEST_P(StartOfWork, RefusesAYearOutsideTheRangeAndKeepsWhatWasTyped)
{
    for (const QString typed : {"1996", "2101", "19", "0000"}) {
        TPeriodDlg dialog(nullptr);
        dialog.show();
        type(year(dialog), typed);
        EXPECT_EQ(refusal(dialog), "Metai turi būti skaičius nuo 1997 iki 2100");
        EXPECT_EQ(year(dialog)->text(), typed);
    }
    EXPECT_EQ(periods(), QStringList());
}

TEST_P(StartOfWork, RefusesAYearLeftEmpty)
{
    TPeriodDlg dialog(nullptr);
    dialog.show();
    year(dialog)->clear();
    EXPECT_EQ(refusal(dialog), "Metai turi būti skaičius nuo 1997 iki 2100");
    EXPECT_EQ(periods(), QStringList());
}

TEST_P(StartOfWork, LettersCannotBeTypedAsAYear)
{
    TPeriodDlg dialog(nullptr);
    dialog.show();
    type(year(dialog), "2o2x6");
    EXPECT_EQ(year(dialog)->text(), "226");
    EXPECT_EQ(refusal(dialog), "Metai turi būti skaičius nuo 1997 iki 2100");
}

TEST_P(StartOfWork, TheArrowsStepTheYearWithinItsRange)
{
    TPeriodDlg dialog(nullptr);
    dialog.show();
    auto *upDown = dialog.findChild<TUpDown *>();
    type(year(dialog), "2099");
    QTest::keyClick(upDown, Qt::Key_Up);
    QTest::keyClick(upDown, Qt::Key_Up);
    EXPECT_EQ(year(dialog)->text(), "2100");
    type(year(dialog), "1998");
    QTest::keyClick(upDown, Qt::Key_Down);
    QTest::keyClick(upDown, Qt::Key_Down);
    EXPECT_EQ(year(dialog)->text(), "1997");
}

TEST_P(StartOfWork, EnterOnTheRefusalLeavesThePeriodsAsTheyAre)
{
    startOfWork(2024, 1, 1);
    books().ExecSQL("call Close_Per()");
    const QStringList before = dump(books());
    TPeriodDlg dialog(nullptr);
    dialog.show();
    type(year(dialog), "2025");
    for (int step = 0; step < 10 && dialog.focusWidget()->objectName() != "Ne"; ++step)
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(dialog.focusWidget()->objectName(), "Ne");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_EQ(dump(books()), before);
}

TEST_P(StartOfWork, EnterInAFieldSavesAndEscCloses)
{
    TPeriodDlg refused(nullptr);
    refused.show();
    QTest::keyClick(year(refused), Qt::Key_Escape);
    EXPECT_EQ(refused.result(), QDialog::Rejected);
    EXPECT_FALSE(refused.isVisible());
    EXPECT_EQ(periods(), QStringList());

    TPeriodDlg dialog(nullptr);
    dialog.show();
    type(year(dialog), "2025");
    QTest::keyClick(year(dialog), Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(periods().size(), 6);
}

TEST_P(StartOfWork, TheYearIsThatOfTheLowestRowInWhateverOrderTheyCome)
{
    startOfWork(2025, 4, 3);
    books().ExecSQL("call Close_Per()");
    // A server puts a row that was written again behind the others.
    books().ExecSQL("update bd_period set per_metai = 2025 where per_id <= 6");
    TPeriodDlg dialog(nullptr);
    EXPECT_EQ(year(dialog)->text(), "2025");
    EXPECT_EQ(month(dialog)->currentText(), "Gruodis");
}

TEST_P(StartOfWork, ItsTitleIsReadWhole)
{
    TPeriodDlg dialog(nullptr);
    dialog.show();
    EXPECT_GE(dialog.width(), dialog.fontMetrics().horizontalAdvance(dialog.windowTitle()) + 60);
}

TEST_P(StartOfWork, CancellingWritesNothing)
{
    TPeriodDlg dialog(nullptr);
    dialog.show();
    pressButton(dialog, "&Ne");
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_EQ(periods(), QStringList());
}

TEST_P(StartOfWork, AFailureHalfWayLeavesTheOldRows)
{
    startOfWork(2024, 1, 1);
    refuseInserting("bd_period", "per_id = 4");
    const QStringList before = dump(books());
    TPeriodDlg dialog(nullptr);
    EXPECT_TRUE(refusal(dialog).contains("sugadinta tyčia"));
    EXPECT_EQ(dump(books()), before);
    EXPECT_FALSE(books().InTransaction());
}
