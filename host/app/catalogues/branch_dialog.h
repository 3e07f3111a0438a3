#pragma once

#include "host/controls/record_dialog.h"

// The editor of one row of a tree, or of a new one below parent (0: at the top). A parent that is gone when
// the row is saved is told.
class TBranchDlg : public TRecordDialog {
    Q_OBJECT
public:
    // What a new row has from the beginning, by column, stands in ofNew.
    TBranchDlg(TRecordDescription described, const TRecordStart &start, const QString &parentColumn,
               double parent, const QVariantMap &ofNew = {});

protected:
    void Loaded() override;
    void Save() override;

    // Raises when the row may not be saved as it is, and does what it brings with it for other rows. Runs in
    // the transaction of the save before anything is written; no other station writes the table meanwhile.
    virtual void Judge() {}

    // What a new row brings with it, told before anything is typed; empty: nothing.
    virtual QString hint() const { return {}; }

    double parentOfNew() const { return isNew() ? above : 0; } // 0 for a row at the top, too

private:
    const QString parentColumn;
    const double above;
    const QVariantMap given;
};
