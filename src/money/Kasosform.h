#pragma once

#include "src/frame/unit.h"

// Cash desks and the accounts that they are kept on.
namespace Kasosform {

extern TUnit unit;

class TKasosFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TKasosFrm(QWidget *owner);
};

extern TKasosFrm *KasosFrm;

} // namespace Kasosform
