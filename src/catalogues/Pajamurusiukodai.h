#pragma once

#include "src/frame/unit.h"

// Codes of the kinds of income.
namespace Pajamurusiukodai {

class TPajamuRusiuKodaiFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TPajamuRusiuKodaiFrm(QWidget *owner);
};

extern TUnit unit;
extern TPajamuRusiuKodaiFrm *PajamuRusiuKodaiFrm;

} // namespace Pajamurusiukodai
