#pragma once

#include "src/frame/unit.h"

#include "toolkit/widgets/dialog.h"

class QCheckBox;
class QComboBox;
struct TTableExport;

// The rows of one table of the budget database as a file of insert statements.
namespace Tableexp {

class TFrRavlExp : public TDialog {
    Q_OBJECT
public:
    explicit TFrRavlExp(QWidget *owner);

    // Asks for a file and writes the chosen table to it. The dialog stays open.
    void btnExportClick();

private:
    QString chooseFile();
    TTableExport chosenTable();
    void write(const TTableExport &table, const QString &file);

    QComboBox *cmbLenteles = nullptr;
    QCheckBox *cbxDrop = nullptr;
    TQuery qryLenteles;
    TQuery qryColumns;
};

extern TUnit unit;
extern TFrRavlExp *FrRavlExp;

} // namespace Tableexp
