#pragma once

#include "toolkit/data/changed_elsewhere.h"

class QWidget;
class TDataSet;

// Tells what another station changed in the record that is being edited, and lets the user choose. True: his
// own values shall stand, and the record may be posted again. Otherwise raises EAbort; where he took the
// other values they are in the record by then.
bool settleChangedElsewhere(QWidget *window, TDataSet &set, const EChangedElsewhere &conflict);
