#pragma once

#include "src/frame/unit.h"

// The dialog of one way of acquisition.
namespace Editpirktip {

// Asks for the name of an acquisition method, of 1 to 100 characters, and its two settings: tipas, 1 when
// the institution pays for it, and pozymis, 1 when it is a donation; else 0. True when the user confirmed;
// otherwise all three stay as they were. A setting that the user did not touch stays as it was, too.
bool EditPirk(const AnsiString &caption, AnsiString &name, int &tipas, int &pozymis);

class TPirkEditDlg : public TValueDialog {
    Q_OBJECT
public:
    TPirkEditDlg(const AnsiString &caption, const AnsiString &name, int tipas, int pozymis);

    const AnsiString &name() const { return confirmed; }
    int setting(const QString &name, int before) const;

protected:
    void Validate() override;

private:
    AnsiString confirmed;
};

extern TUnit unit;
extern TPirkEditDlg *PirkEditDlg;

} // namespace Editpirktip
