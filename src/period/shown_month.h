#pragma once

#include "src/frame/host_services.h"

// The month that a close or a roll-back was begun for. Between its being shown and the work another station
// may have closed it, or a close of this one may have gone through although its answer was lost.
class TShownMonth {
public:
    // The current period, read anew; day 0 and id 0 while none is set. Raises EDatabaseError.
    TShownMonth();

    bool isSet() const { return perId > 0; }
    double id() const { return perId; }
    TDateTime firstDay() const { return date; }

    // Whether it is the last month still. To be asked inside a transaction: no other station that asks the
    // same can change the answer before the transaction ends.
    bool isStillLast() const;

private:
    double perId = 0;
    TDateTime date;
};

// After the last month was changed, or found to be another one: reads the current period anew. A failure is
// told and no more, for what was done stands.
void followLastMonth(QWidget *where);

// Reads the current period anew and tells that the month is it no longer, and which one is.
void tellMonthPassed(const TShownMonth &month, QWidget *where);
