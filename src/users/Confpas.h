#pragma once

#include "src/frame/unit.h"
#include "toolkit/widgets/dialog.h"

class QLineEdit;

// Typing a new password a second time.
namespace Confpas {

// Asks for the password and tells whether exactly this one was typed, however the dialog was closed.
bool ShowPass(const AnsiString &password);

class TConfPassFrm : public TDialog {
    Q_OBJECT
public:
    explicit TConfPassFrm(QWidget *owner);
    ~TConfPassFrm() override;

    QLineEdit *ConfEdit;
};

extern TUnit unit;
extern TConfPassFrm *ConfPassFrm;

} // namespace Confpas
