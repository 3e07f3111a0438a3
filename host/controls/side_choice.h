#pragma once

#include <QWidget>

class QRadioButton;
class TDataSet;
class TFieldForm;

// The choice between the debit and the credit side; debit at first.
class TSideChoice : public QWidget {
    Q_OBJECT
public:
    TSideChoice(const QString &debit, const QString &credit, QWidget *parent = nullptr);

    // Shows the amount of the chosen side in the form and hides the other. An amount that is refused keeps
    // its side, so that it stays before the user's eyes; one that comes to stand on the hidden side alone, as
    // another station's does, shows that.
    void showIn(TFieldForm &form, TDataSet &set, const QString &debit, const QString &credit);

    bool isDebit() const { return debitShown; }
    void setDebit(bool on); // tells nobody

    QRadioButton *DebRadio;
    QRadioButton *KredRadio;

signals:
    void chosen(); // the user chose another side than before, which is shown by now

private:
    void leave();
    void show();
    void follow(const TDataSet &set);

    TFieldForm *fields = nullptr;
    QString debitColumn, creditColumn;
    bool debitShown = true;
};
