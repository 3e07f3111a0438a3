#pragma once

#include <QtGlobal>

// An amount of money in ten-thousandths, the places that the books keep: as whole numbers amounts compare and
// add up exactly. For amounts below 9e14.
inline qint64 tenThousandths(double amount)
{
    return qRound64(amount * 10000);
}
