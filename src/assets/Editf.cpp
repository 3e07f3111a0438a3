#include "src/assets/Editf.h"

#include <QLineEdit>

namespace Editf {

TUnit unit("EditF");
TFinEditDlg *FinEditDlg = nullptr;

bool EditFin(const AnsiString &caption, AnsiString &name, int help)
{
    TFinEditDlg dialog(caption, name, help);
    if (!dialog.run())
        return false;
    name = dialog.name();
    return true;
}

std::function<std::optional<QVariantMap>(const QString &, const QVariantMap &)> askName(const QString &column,
                                                                                        int help)
{
    return [column, help](const QString &caption, const QVariantMap &now) -> std::optional<QVariantMap> {
        AnsiString name(now.value(column).toString());
        if (!EditFin(AnsiString(caption), name, help))
            return {};
        return QVariantMap{{column, name.toQString()}};
    };
}

TFinEditDlg::TFinEditDlg(const AnsiString &caption, const AnsiString &name, int help)
    : TValueDialog({.name = "TFinEditDlg",
                    .caption = caption.toQString(),
                    .help = help,
                    .rows = {TFieldRow::freeEdit("&Pavadinimas", "Name").maxLength(100).required().width(50)},
                    .buttons = saveAndCancel("Išsaugoti", "Atsisakyti")}),
      edit(control<QLineEdit>("Name"))
{
    edit->setText(name.toQString());
    keepIn(FinEditDlg);
}

// What the code page cannot hold is refused while the dialog stands.
void TFinEditDlg::Validate()
{
    confirmed = AnsiString(edit->text());
}

} // namespace Editf
