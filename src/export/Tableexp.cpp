#include "src/export/Tableexp.h"

#include "toolkit/export/table_export.h"
#include "toolkit/widgets/progress.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QScopeGuard>

namespace Tableexp {

TUnit unit("TableExp");
TFrRavlExp *FrRavlExp = nullptr;

namespace {

constexpr int longestUsualName = 30;

} // namespace

TFrRavlExp::TFrRavlExp(QWidget *owner)
    : TDialog(owner),
      qryLenteles(
          MainDatas()->mnRavl(),
          "select table_name, table_id FROM systable where table_name not like 'ul_%' and table_name not "
          "like "
          "'spt_%' and table_name not like 'sys_%' and table_name not like 'satmp_%'\n"
          "and table_name not like 'rs_%' and table_name not like 'ml_%' and table_name not like 'ix_%' and "
          "table_name not like 'jdbc_%' and table_name not like 'migrate_%' order by table_name",
          this),
      qryColumns(MainDatas()->mnRavl(), "SELECT * FROM syscolumn where table_id = :tblid", this)
{
    describe("Lenteles eksportas insertui",
             {TFieldRow::freeList("Ravlet bazes lentele", "cmbLenteles").width(longestUsualName),
              TFieldRow::freeCheck("Su dropinimu", "cbxDrop")},
             nullptr,
             {{"Eksportuoti", TDialogButton::Action, true, [this] { btnExportClick(); }, "btnExport"},
              {"Atsisakyti", TDialogButton::Cancel, false, {}, {}}});
    setHelpTopic(80);
    cmbLenteles = control<QComboBox>("cmbLenteles");
    cbxDrop = control<QCheckBox>("cbxDrop");
    ReadListVar(&qryLenteles, cmbLenteles->model(), "table_name", "table_id");
    cmbLenteles->setCurrentIndex(-1); // no table goes out that nobody chose
    keepIn(FrRavlExp);
}

void TFrRavlExp::btnExportClick()
{
    if (cmbLenteles->currentIndex() < 0)
        refuse("cmbLenteles", "Pasirinkite lentelę");
    const QString file = chooseFile();
    if (file.isEmpty())
        return;
    write(chosenTable(), file);
    StdMsgBox(mkInformation, "Letele sėkmingai eksportuota į failą: \"" + file + "\"");
}

// The name of the file; empty when the user thought better of it.
QString TFrRavlExp::chooseFile()
{
    QFileDialog SaveRavlexp(this, "1a SD eksportas");
    SaveRavlexp.setObjectName("SaveRavlexp");
    SaveRavlexp.setAcceptMode(QFileDialog::AcceptSave);
    SaveRavlexp.setNameFilter("SQL failiukas (*.SQL)");
    SaveRavlexp.setDefaultSuffix("ffdata");
    return SaveRavlexp.exec() == Accepted ? SaveRavlexp.selectedFiles().constFirst() : QString();
}

TTableExport TFrRavlExp::chosenTable()
{
    const auto closeSets = qScopeGuard([this] {
        qryColumns.Close();
        qryLenteles.Close();
    });
    TTableExport table;
    const Variant id = GetListValue(cmbLenteles->model(), cmbLenteles->currentIndex());
    qryColumns.setParam("tblid", id);
    for (qryColumns.Open(); !qryColumns.Eof(); qryColumns.Next())
        table.columns << qryColumns.FieldByName("column_name")->AsString();
    qryLenteles.Open();
    if (!qryLenteles.Locate("table_id", id))
        throw Exception(QString("Lentelės „%1“ duomenų bazėje nebėra.").arg(cmbLenteles->currentText()));
    table.table = qryLenteles.FieldByName("table_name")->AsString();
    table.deletesFirst = cbxDrop->isChecked();
    return table;
}

void TFrRavlExp::write(const TTableExport &table, const QString &file)
{
    TDatabase *const database = MainDatas()->mnRavl();
    const int rows = GetFieldResult(database, "select count(*) from " + table.table).toInt();
    TProgressWindow window(windowTitle(), QString("Rašoma lentelė „%1“…").arg(table.table), rows, this);
    TTableExport watched = table;
    watched.progress = [&](qlonglong done) { window.step(int(std::min<qlonglong>(done, rows))); };
    exportTable(*database, watched, file);
}

} // namespace Tableexp
