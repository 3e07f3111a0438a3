#pragma once

#include <QString>

// A finite number as the decimal digits of the shortest text that reads back as the same number:
// value = ±0.d1d2d3… × 10^point. Zero has no digits and no sign.
class Decimal {
public:
    explicit Decimal(double value);

    bool isZero() const { return digits.isEmpty(); }
    bool isNegative() const { return negative; }

    // Keeps that many digits after the decimal place, half away from zero.
    void round(int decimals);

    // The digits before the decimal place, "" when there are none.
    QString whole() const;
    // The digits after it, without ending zeros.
    QString fraction() const;

    // All digits and the power of ten, as they stand above.
    const QString &allDigits() const { return digits; }
    int pointPosition() const { return point; }

private:
    void trim();

    QString digits;
    int point = 0;
    bool negative = false;
};
