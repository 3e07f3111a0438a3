#pragma once

#include "host/app/catalogues/judged_dialog.h"

// The editor of one row of a tree, or of a new one below parent (0: at the top). A parent that is gone when
// the row is saved is told.
class TBranchDlg : public TJudgedDialog {
    Q_OBJECT
public:
    // What a new row has from the beginning, by column, stands in ofNew.
    TBranchDlg(TRecordDescription described, const TRecordStart &start, const QString &parentColumn,
               double parent, const QVariantMap &ofNew = {});

protected:
    void Loaded() override;
    void Judge() override;

    // What a new row brings with it, told before anything is typed; empty: nothing.
    virtual QString hint() const { return {}; }

    double parentOfNew() const { return isNew() ? above : 0; } // 0 for a row at the top, too

private:
    const QString parentColumn;
    const double above;
    const QVariantMap given;
};

// Opens the editor of a row of a tree, or of a new one below parent, as TTreeDescription::edit asks for it.
template<class Dialog, class... More>
bool editBranch(const QString &caption, bool isNew, double &key, double parent, More... more)
{
    return editRecord<Dialog>(key, caption, TRecordStart::rowOrNew(isNew, key), parent, more...);
}
