#include "host/controls/value_dialog.h"

#include "host/common/forms.h"
#include "host/data/main_datas.h"

TValueDialog::TValueDialog(const TValueDescription &described, QWidget *owner) : TDialog(owner)
{
    setObjectName(described.name);
    setHelpTopic(described.help);
    describe(described.caption, described.rows, nullptr, described.buttons);
}

void TValueDialog::Load()
{
    if (CurrentUser().viewOnly)
        DisableFormControls(this);
}
