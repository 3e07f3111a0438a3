#pragma once

#include "src/frame/unit.h"

namespace Imokos { // codes of taxes, levies and other payments

class TImokosFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TImokosFrm(QWidget *owner);
};

extern TUnit unit;
extern TImokosFrm *ImokosFrm;

} // namespace Imokos
