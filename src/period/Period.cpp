#include "src/period/Period.h"

#include "src/period/UpDown.h"
#include "toolkit/text/format.h"

#include <QComboBox>
#include <QLineEdit>

#include <algorithm>

namespace Period {

TUnit unit("Period");
TPeriodDlg *PeriodDlg = nullptr;

namespace {

constexpr int firstYear = 1997;
constexpr int lastYear = 2100;
constexpr int startMonthRow = int(startOfWorkPeriod);
const QStringList monthNames = {"Sausis", "Vasaris",    "Kovas",    "Balandis", "Gegužė",    "Birželis",
                                "Liepa",  "Rugpijūtis", "Rugsėjis", "Spalis",   "Lapkritis", "Gruodis"};

} // namespace

TPeriodDlg::TPeriodDlg(QWidget *owner)
    : TDialog(owner),
      UpDown(new TUpDown(firstYear, lastYear, "0000; ", this)),
      YearEdit(UpDown->edit()),
      qryPer(MainDatas()->mnFin_Db(), "SELECT *\nFROM bd_period", this)
{
    YearEdit->setObjectName("YearEdit");
    describe("Darbo pradžios periodas",
             {TFieldRow::custom("M&etai", "UpDown", UpDown),
              TFieldRow::freeList("&Menuo", "MonthBox", monthNames)},
             &qryPer,
             {{"&Taip", TDialogButton::Save, true, {}, {}}, {"&Ne", TDialogButton::Cancel, false, {}, {}}});
    setHelpTopic(16);
    MonthBox = control<QComboBox>("MonthBox");
    MonthBox->setMaxVisibleItems(int(monthNames.size()));

    qryPer.Open();
    const auto closeQuery = qScopeGuard([this] { qryPer.Close(); });
    if (qryPer.IsEmpty())
        proposeToday();
    else
        readStored();
    PeriodDlg = this;
}

TPeriodDlg::~TPeriodDlg()
{
    PeriodDlg = nullptr;
}

// The statement says nothing of an order.
void TPeriodDlg::goToFirstRow()
{
    double first = qryPer.FieldByName("per_id")->AsFloat();
    for (qryPer.First(); !qryPer.Eof(); qryPer.Next())
        first = std::min(first, qryPer.FieldByName("per_id")->AsFloat());
    qryPer.Locate("per_id", first);
}

// Without a start-of-work row the month is taken from the row the cursor stands on; a year row names no
// month, and then none is selected.
void TPeriodDlg::readStored()
{
    goToFirstRow();
    UpDown->setPosition(qryPer.FieldByName("per_metai")->AsInteger());
    qryPer.Locate("per_id", startMonthRow);
    MonthBox->setCurrentIndex(monthIndexOf(
        {qryPer.FieldByName("per_ketv")->AsInteger(), qryPer.FieldByName("per_menuo")->AsInteger()}));
}

// Year and month are read off the text of the date, which the short date format gives as yyyy.mm.dd.
void TPeriodDlg::proposeToday()
{
    MonthBox->setCurrentIndex(0);
    if (Date() < StrToDate("1998.04.01"))
        throw Exception("Kompiuteryje nekorektiška data");
    const QString today = DateToStr(Date());
    YearEdit->setText(today.mid(0, 4));
    MonthBox->setCurrentIndex(today.mid(5, 2).toInt() - 1);
}

void TPeriodDlg::Validate()
{
    const int year = YearEdit->text().toInt();
    if (year < firstYear || year > lastYear)
        refuse("UpDown", QString("Metai turi būti skaičius nuo %1 iki %2").arg(firstYear).arg(lastYear));
    if (MonthBox->currentIndex() < 0)
        refuse("MonthBox", "Nepasirinktas mėnuo");
}

// Runs inside the dialog's transaction: the rows stand or fall together.
void TPeriodDlg::Save()
{
    const auto closeQuery = qScopeGuard([this] { qryPer.Close(); });
    deleteStored();
    writeRows();
    SealMonth(TSealEvent::StartOfWork, startOfWorkPeriod);
}

void TPeriodDlg::deleteStored()
{
    qryPer.Open();
    if (qryPer.RecordCount() > 0)
        DbiQExecDirect(MainDatas()->mnFin_Db(), "delete from bd_period");
    qryPer.Close();
}

// Row 1 is the year, 2 to 5 its quarters, 6 the month.
void TPeriodDlg::writeRows()
{
    TQuery insert(MainDatas()->mnFin_Db());
    for (int row = 1; row <= startMonthRow; ++row) {
        const TQuarterMonth at =
            row == startMonthRow ? quarterOf(MonthBox->currentIndex()) : TQuarterMonth{row - 1, 0};
        insert.setSQL("insert into bd_period\n" + Format("values (%d, %s, %d, %d) commit",
                                                         {row, YearEdit->text(), at.quarter, at.month}));
        insert.ExecSQL();
    }
}

} // namespace Period
