#pragma once

#include "src/frame/unit.h"

// Cash desks and the accounts that they are kept on.
namespace Kasosform {

class TKasosFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TKasosFrm(QWidget *owner);
};

extern TUnit unit;
extern TKasosFrm *KasosFrm;

} // namespace Kasosform
