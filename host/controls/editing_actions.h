#pragma once

#include "host/controls/form_action.h"

// The actions of a document that is edited where it is shown: one begins, two end it. A screen gives them
// hints and keys of its own before it adds them.
struct TEditingActions {
    TFormAction edit, save, cancel;
};

// What they do and when; none of it may be empty.
struct TEditingSteps {
    std::function<bool()> mayEdit, editing;
    std::function<void()> edit, save, cancel;
};

TEditingActions editingActions(const TEditingSteps &steps);
