#pragma once

#include "host/controls/browse_frm.h"

// The journal of the current month, to be looked at: entries come from the other parts of the books.
class TIrasaiFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TIrasaiFrm(QWidget *owner);

protected:
    void PeriodChanged() override;
};
