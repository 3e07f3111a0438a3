#pragma once

#include "src/frame/unit.h"

// The corrections of one estimate.
namespace Korlist {

// Shows the corrections of the yearly estimate with that sam_id modally; they may be changed when editable is
// true.
void SamKorList(const double samId, const bool editable);

class TKorListDlg : public TBrowseFrm {
    Q_OBJECT
public:
    TKorListDlg(double samId, QWidget *owner);

protected:
    void restoreArrangement() override;
};

extern TUnit unit;
extern TKorListDlg *KorListDlg;

} // namespace Korlist
