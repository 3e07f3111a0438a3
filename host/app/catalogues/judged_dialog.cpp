#include "host/app/catalogues/judged_dialog.h"

#include "host/app/catalogues/table_lock.h"

void TJudgedDialog::Save()
{
    lockTable(Database(), description.table);
    Validate();
    Judge();
    TRecordDialog::Save();
}
