#include "src/period/Period.h"

#include "src/period/UpDown.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/guard.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

namespace Period {

TUnit unit("Period");
TPeriodDlg *PeriodDlg = nullptr;

namespace {

constexpr int firstYear = 1997;
constexpr int lastYear = 2100;
constexpr int startMonthRow = 6; // per_id of the start-of-work month
const QStringList monthNames = {"Sausis", "Vasaris",   "Kovas",    "Balandis", "Gegužė",    "Birželis",
                                "Liepa",  "Rugpjūtis", "Rugsėjis", "Spalis",   "Lapkritis", "Gruodis"};

} // namespace

TPeriodDlg::TPeriodDlg(QWidget *owner)
    : QDialog(owner),
      UpDown(new TUpDown(firstYear, lastYear, "0000; ", this)),
      MonthBox(new QComboBox(this)),
      qryPer(MainDatas()->mnFin_Db(), "SELECT *\nFROM bd_period", this)
{
    setWindowTitle("Darbo pradžios periodas");
    YearEdit = UpDown->edit();
    YearEdit->setObjectName("YearEdit");
    MonthBox->setObjectName("MonthBox");
    MonthBox->addItems(monthNames);
    MonthBox->setMaxVisibleItems(int(monthNames.size()));

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *ok = buttons->addButton("&Taip", QDialogButtonBox::AcceptRole);
    QPushButton *cancel = buttons->addButton("&Ne", QDialogButtonBox::RejectRole);
    ok->setDefault(true);

    auto *form = new QFormLayout(this);
    form->addRow("M&etai", UpDown);
    form->addRow("&Menuo", MonthBox);
    form->addRow(buttons);

    connectGuarded(ok, &QPushButton::clicked, this, [this] { OkBtnClick(); });
    connectGuarded(cancel, &QPushButton::clicked, this, [this] { reject(); });

    FormCreate();
    PeriodDlg = this;
}

TPeriodDlg::~TPeriodDlg()
{
    if (PeriodDlg == this)
        PeriodDlg = nullptr;
}

void TPeriodDlg::FormCreate()
{
    qryPer.Open();
    const auto closeQuery = qScopeGuard([this] { qryPer.Close(); });
    if (qryPer.IsEmpty())
        proposeToday();
    else
        readStored();
}

// Without a start-of-work row the month is taken from the row the cursor stands on; a year row names no
// month, and then none is selected.
void TPeriodDlg::readStored()
{
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

void TPeriodDlg::OkBtnClick()
{
    checkInput();
    TDatabase *books = MainDatas()->mnFin_Db();
    try {
        BeginTran(books);
        deleteStored();
        writeRows();
        CommitTran(books);
    } catch (...) {
        qryPer.Close();
        RollBackTran(books);
        throw;
    }
    accept();
}

void TPeriodDlg::checkInput() const
{
    const int year = YearEdit->text().toInt();
    if (year < firstYear || year > lastYear) {
        YearEdit->setFocus();
        throw Exception(QString("Metai turi būti skaičius nuo %1 iki %2").arg(firstYear).arg(lastYear));
    }
    if (MonthBox->currentIndex() < 0) {
        MonthBox->setFocus();
        throw Exception("Nepasirinktas mėnuo");
    }
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
