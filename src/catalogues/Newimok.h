#pragma once

#include "src/frame/unit.h"

namespace Newimok {

// Edits the row with the code, or adds one; true when the user saved, kodas is then the code as saved.
bool EditImokos(AnsiString &kodas, bool isNew);

class TNewImokDlg : public TRecordDialog {
    Q_OBJECT
public:
    explicit TNewImokDlg(const TRecordStart &start);
};

extern TUnit unit;
extern TNewImokDlg *NewImokDlg;

} // namespace Newimok
