#include "src/users/Confpas.h"

#include <QApplication>
#include <QLineEdit>

namespace Confpas {

TUnit unit("confpas");
TConfPassFrm *ConfPassFrm = nullptr;

bool ShowPass(const AnsiString &password)
{
    TConfPassFrm dialog(QApplication::activeWindow());
    dialog.run();
    return dialog.ConfEdit->text() == password.toQString();
}

TConfPassFrm::TConfPassFrm(QWidget *owner) : TDialog(owner)
{
    describe("Patvirtinkite slaptažodį",
             {TFieldRow::freeEdit("S&laptažodis:", "ConfEdit").password().width(30)}, nullptr,
             {{"&Gerai", TDialogButton::Save, true, {}, {}}});
    setHelpTopic(2);
    ConfEdit = control<QLineEdit>("ConfEdit");
    ConfPassFrm = this;
}

TConfPassFrm::~TConfPassFrm()
{
    ConfPassFrm = nullptr;
}

} // namespace Confpas
