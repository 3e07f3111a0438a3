#pragma once

#include "src/frame/unit.h"

class QLineEdit;

// The dialog of one name, for lists that have nothing else.
namespace Editf {

// Asks for a name of 1 to 100 characters. True when the user confirmed; name is then what he typed, and
// otherwise stays as it was. help is the topic of the list that asks.
bool EditFin(const AnsiString &caption, AnsiString &name, int help = 66);

// The same as a list asks for the values of its rows; column (in small letters) is that of the name.
std::function<std::optional<QVariantMap>(const QString &caption, const QVariantMap &now)>
askName(const QString &column, int help);

class TFinEditDlg : public TValueDialog {
    Q_OBJECT
public:
    TFinEditDlg(const AnsiString &caption, const AnsiString &name, int help);

    const AnsiString &name() const { return confirmed; }

protected:
    void Validate() override;

private:
    QLineEdit *edit;
    AnsiString confirmed;
};

extern TUnit unit;
extern TFinEditDlg *FinEditDlg;

} // namespace Editf
