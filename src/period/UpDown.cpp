#include "src/period/UpDown.h"

#include <QLineEdit>

#include <algorithm>

TUpDown::TUpDown(int lowest, int highest, const QString &mask, QWidget *parent)
    : QAbstractSpinBox(parent),
      min(lowest),
      max(highest)
{
    lineEdit()->setInputMask(mask);
    setMinimumWidth(fontMetrics().horizontalAdvance(QString::number(max)) * 2 + 40);
    setPosition(min);
}

int TUpDown::Position() const
{
    return lineEdit()->text().toInt();
}

void TUpDown::setPosition(int position)
{
    lineEdit()->setText(QString::number(position));
}

void TUpDown::stepBy(int steps)
{
    setPosition(std::clamp(Position() + steps, min, max));
}

QAbstractSpinBox::StepEnabled TUpDown::stepEnabled() const
{
    StepEnabled enabled = StepNone;
    if (Position() < max)
        enabled |= StepUpEnabled;
    if (Position() > min)
        enabled |= StepDownEnabled;
    return enabled;
}
