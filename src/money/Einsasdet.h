#pragma once

#include "src/frame/unit.h"

namespace Einsasdet {

// Edits the account whose ein_id is id, or adds one; true when the user saved, id is then the ein_id as
// saved.
bool ShowEinSas(const AnsiString &caption, double &id, bool isNew);

class TEinSasItem : public TRecordDialog {
    Q_OBJECT
public:
    TEinSasItem(const AnsiString &caption, const TRecordStart &start);
};

extern TUnit unit;
extern TEinSasItem *EinSasItem;

} // namespace Einsasdet
