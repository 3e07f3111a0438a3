#include "src/assets/Editpirktip.h"

#include <QCheckBox>
#include <QLineEdit>

namespace Editpirktip {

TUnit unit("EditPirkTip");
TPirkEditDlg *PirkEditDlg = nullptr;

bool EditPirk(const AnsiString &caption, AnsiString &name, int &tipas, int &pozymis)
{
    TPirkEditDlg dialog(caption, name, tipas, pozymis);
    if (!dialog.run())
        return false;
    name = dialog.name();
    tipas = dialog.setting("Tipas", tipas);
    pozymis = dialog.setting("Pozymis", pozymis);
    return true;
}

TPirkEditDlg::TPirkEditDlg(const AnsiString &caption, const AnsiString &name, int tipas, int pozymis)
    : TValueDialog({.name = "TPirkEditDlg",
                    .caption = caption.toQString(),
                    .help = 68,
                    .rows = {TFieldRow::freeEdit("&Pavadinimas", "Name").maxLength(100).required().width(50),
                             TFieldRow::freeCheck("Įsigyjama už įstaigos &lėšas", "Tipas"),
                             TFieldRow::freeCheck("Gaunama kaip para&ma", "Pozymis")},
                    .buttons = saveAndCancel("Išsaugoti", "Atsisakyti")})
{
    control<QLineEdit>("Name")->setText(name.toQString());
    control<QCheckBox>("Tipas")->setChecked(tipas != 0);
    control<QCheckBox>("Pozymis")->setChecked(pozymis != 0);
    keepIn(PirkEditDlg);
}

int TPirkEditDlg::setting(const QString &name, int before) const
{
    const bool on = control<QCheckBox>(name)->isChecked();
    return on == (before != 0) ? before : int(on);
}

// What the code page cannot hold is refused while the dialog stands.
void TPirkEditDlg::Validate()
{
    confirmed = AnsiString(control<QLineEdit>("Name")->text());
}

} // namespace Editpirktip
