#include "src/accounts/Checksas.h"

#include "toolkit/widgets/db_grid.h"

#include <QApplication>
#include <QVBoxLayout>

namespace Checksas {

TUnit unit("CheckSas");
TCheckSasDlg *CheckSasDlg = nullptr;

namespace {

constexpr int longestAccount = 120; // number, two blanks and name
constexpr int listWidth = 460;
constexpr int listHeight = 320;

} // namespace

void OpenSasChecker()
{
    TCheckSasDlg dialog(QApplication::activeWindow());
    if (dialog.accounts().IsEmpty())
        StdMsgBox(mkInformation, "Visos sąskaitos įtrauktos į balanso forma");
    else
        dialog.exec();
}

TCheckSasDlg::TCheckSasDlg(QWidget *owner)
    : TDialog(owner),
      qrySas(MainDatas()->mnFin_Db(),
             "SELECT SAS_ID, SAS_SASNR, SAS_PAVAD\nFROM BD_SASPLAN\n"
             "WHERE SAS_TIP = 'D' and CheckSasInBalForm(SAS_ID, '%') = 0\nORDER BY SAS_SASNR",
             this)
{
    describe("Sąskaitos, neįtrauktos į balansą", {}, nullptr,
             {{"&Uždaryti", TDialogButton::Cancel, true, {}, "CloseBtn"}});
    setHelpTopic(11);
    qrySas.addCalculated("saskaita", TFieldType::ftString, longestAccount);
    qrySas.OnCalcFields = [](TDataSet &set) {
        set.FieldByName("saskaita")
            ->setAsString(set.FieldByName("SAS_SASNR")->AsString() + "  " +
                          set.FieldByName("SAS_PAVAD")->AsString());
    };
    auto *grid = new TDBGrid(this);
    grid->setObjectName("SasGrid");
    grid->setAccessibleName("Sąskaitos, neįtrauktos į balansą");
    grid->setColumns({{.field = "saskaita", .title = "Sąskaita", .stretch = true}});
    grid->setDataSet(&qrySas);
    grid->setMinimumSize(listWidth, listHeight);
    bodyLayout()->addWidget(grid);
    keepIn(CheckSasDlg);
    qrySas.Open();
}

} // namespace Checksas
