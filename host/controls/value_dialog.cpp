#include "host/controls/value_dialog.h"

#include "host/common/forms.h"
#include "host/controls/record_dialog.h"
#include "host/data/main_datas.h"

TValueDialog::TValueDialog(const TValueDescription &described, QWidget *owner) : TDialog(owner)
{
    setObjectName(described.name);
    setHelpTopic(described.help);
    describe(described.caption, described.rows, nullptr, described.buttons);
    offerSaveAndNew();
    TRecordDialog::takeNextWanted(); // what an earlier editor wished is over
}

void TValueDialog::Load()
{
    if (CurrentUser().viewOnly)
        DisableFormControls(this);
}

void TValueDialog::saveAndNew()
{
    if (trySave())
        TRecordDialog::wantNext();
}
