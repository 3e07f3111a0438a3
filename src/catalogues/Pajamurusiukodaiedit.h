#pragma once

#include "src/frame/unit.h"

namespace Pajamurusiukodaiedit {

// Edits the row with the code in state dsEdit, adds one in state dsInsert; true when the user saved.
bool ShowPajamuRusiuKodaiEdit(AnsiString kod, TDataSetState state);
// The same; kod is then the code as saved.
bool EditPajamuRusiuKodas(AnsiString &kod, bool isNew);

class TPajamuRusiuKodaiEditFrm : public TRecordDialog {
    Q_OBJECT
public:
    explicit TPajamuRusiuKodaiEditFrm(const TRecordStart &start);

protected:
    void Validate() override;
};

extern TUnit unit;
extern TPajamuRusiuKodaiEditFrm *PajamuRusiuKodaiEditFrm;

} // namespace Pajamurusiukodaiedit
