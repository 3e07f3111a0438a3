#pragma once

#include "src/frame/unit.h"

namespace Chmatasm {

extern TUnit unit;
extern const QString NoEdit; // told when the row cannot be opened or saved

using ::EErrorNoOpen;

// Edits the person whose mat_id is id, or adds one; true when the user saved, id is then the mat_id as saved.
// Raises EErrorNoOpen when the row cannot be opened.
bool EditMatAsm(const AnsiString &caption, bool isNew, double &id);

class TEditMatAsmDlg : public TRecordDialog {
    Q_OBJECT
public:
    TEditMatAsmDlg(const AnsiString &caption, const TRecordStart &start);
};

extern TEditMatAsmDlg *EditMatAsmDlg;

} // namespace Chmatasm
