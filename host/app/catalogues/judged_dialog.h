#pragma once

#include "host/controls/record_dialog.h"

// The editor of a row whose rules other stations' rows can break: what was judged while typing is judged once
// more in the transaction of the save, where no other station writes the table.
class TJudgedDialog : public TRecordDialog {
    Q_OBJECT
public:
    using TRecordDialog::TRecordDialog;

protected:
    void Save() override;

    // Raises when the row may not be saved as it is, and does what it brings with it for other rows. Runs
    // before anything is written.
    virtual void Judge() {}
};
