#pragma once

#include <QWidget>

class QRadioButton;

// The choice between the debit and the credit side; debit at first.
class TSideChoice : public QWidget {
    Q_OBJECT
public:
    TSideChoice(const QString &debit, const QString &credit, QWidget *parent = nullptr);

    bool isDebit() const;
    void setDebit(bool on); // tells as the user's choice does

    QRadioButton *DebRadio;
    QRadioButton *KredRadio;

signals:
    void chosen(); // another side than before
};
