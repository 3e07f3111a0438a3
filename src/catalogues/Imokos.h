#pragma once

#include "src/frame/host_services.h"
#include "src/frame/unit.h"

// Codes of taxes, levies and other payments.
namespace Imokos {

extern TUnit unit;

class TImokosFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TImokosFrm(QWidget *owner);
};

extern TImokosFrm *ImokosFrm;

} // namespace Imokos
