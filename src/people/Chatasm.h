#pragma once

#include "src/frame/unit.h"

namespace Chatasm {

// Edits the person whose ats_id is id, or adds one; true when the user saved, id is then the ats_id as saved.
bool ChAtsAsm(const AnsiString &caption, double &id, bool isNew);

class TEditAtAsmDlg : public TRecordDialog {
    Q_OBJECT
public:
    TEditAtAsmDlg(const AnsiString &caption, const TRecordStart &start);
};

extern TUnit unit;
extern TEditAtAsmDlg *EditAtAsmDlg;

} // namespace Chatasm
