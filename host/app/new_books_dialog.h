#pragma once

#include "toolkit/widgets/dialog.h"

#include <QLineEdit>
#include <QRadioButton>

// Asked at the first start, when the folder holds no books yet: demonstration books, those of a new
// institution, which are then set up step by step, books that stand elsewhere already, or empty ones. Empty
// books get their first administrator here, with a password typed twice. Enter in a field goes to the next
// one that is still empty, and creates the books when there is none.
class TNewBooksDlg : public TDialog {
    Q_OBJECT
public:
    TNewBooksDlg(const QString &folder, QWidget *owner);

    bool demonstration() const { return DemoRadio->isChecked(); }
    bool newInstitution() const { return NewRadio->isChecked(); }
    bool existing() const { return ExistingRadio->isChecked(); }
    QString administrator() const { return NameEdit->text().trimmed(); }
    QString password() const { return PassEdit->text(); }

protected:
    void Validate() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showChoice();
    QLineEdit *nextEmpty() const;

    QRadioButton *DemoRadio;
    QRadioButton *NewRadio;
    QRadioButton *ExistingRadio;
    QRadioButton *EmptyRadio;
    QLineEdit *NameEdit;
    QLineEdit *PassEdit;
    QLineEdit *RepeatEdit;
};
