#pragma once

#include "src/frame/unit.h"

// Banks.
namespace Bankai {

extern TUnit unit;

class TBankaiFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TBankaiFrm(QWidget *owner);
};

extern TBankaiFrm *BankaiFrm;

} // namespace Bankai
