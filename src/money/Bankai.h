#pragma once

#include "src/frame/unit.h"

// Banks.
namespace Bankai {

class TBankaiFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TBankaiFrm(QWidget *owner);
};

extern TUnit unit;
extern TBankaiFrm *BankaiFrm;

} // namespace Bankai
