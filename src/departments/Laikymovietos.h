#pragma once

#include "src/frame/unit.h"

// Where the assets of one department are kept.
namespace Laikymovietos {

extern TUnit unit;
extern double PadID; // the department shown

// Shows the storage places of a department modally, the department's name in the caption.
void ShowLaikymoVietos(double padId, const AnsiString &name);

class TLaikymoVietosFrm : public TBrowseFrm {
    Q_OBJECT
public:
    TLaikymoVietosFrm(const QString &department, QWidget *owner);
};

extern TLaikymoVietosFrm *LaikymoVietosFrm;

} // namespace Laikymovietos
