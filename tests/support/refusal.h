#pragma once

#include "toolkit/text/errors.h"

#include <gtest/gtest.h>

#include <QString>

// What the user is told by the error of the named kind that the action raises. Without one the test fails and
// the text is empty.
template<class Kind = Exception, class Action> QString refusalOf(Action action)
{
    try {
        action();
    } catch (const Kind &refusal) {
        return refusal.message();
    }
    ADD_FAILURE() << "nothing was refused";
    return {};
}
