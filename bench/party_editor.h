#pragma once

#include "host/controls/browse_frm.h"

// Opens the editor of a counterparty, types another address and saves it. Milliseconds from the press of the
// save button to the end of the save; with a list, until that stands on the row again.
double saveInEditor(double id, TBrowseFrm *list = nullptr);
