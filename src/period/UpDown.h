#pragma once

#include <QAbstractSpinBox>

// An up-down control over a whole number that is typed in a masked edit. What is typed is left alone, also
// when it is outside the range: whoever reads it says so. A step from outside goes to the nearest end.
class TUpDown : public QAbstractSpinBox {
    Q_OBJECT
public:
    TUpDown(int min, int max, const QString &mask, QWidget *parent = nullptr);

    int Position() const;
    void setPosition(int position);
    QLineEdit *edit() const { return lineEdit(); }

    void stepBy(int steps) override;

protected:
    StepEnabled stepEnabled() const override;

private:
    int min;
    int max;
};
