#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

// Asked at the first start, when the folder holds no books yet: demonstration books or empty ones. Empty
// books get their first administrator here.
class TNewBooksDlg : public QDialog {
    Q_OBJECT
public:
    TNewBooksDlg(const QString &folder, QWidget *owner);

    bool demonstration() const { return DemoRadio->isChecked(); }
    QString administrator() const { return NameEdit->text().trimmed(); }
    QString password() const { return PassEdit->text(); }

private:
    void OkBtnClick();
    void showChoice();

    QRadioButton *DemoRadio;
    QRadioButton *EmptyRadio;
    QLineEdit *NameEdit;
    QLineEdit *PassEdit;
    QLineEdit *RepeatEdit;
};
