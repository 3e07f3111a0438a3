#pragma once

#include "toolkit/text/errors.h"

#include <gtest/gtest.h>

// The message that an action raises as E (or a kind of it); the test fails when it raises nothing or
// something else.
template<class E, class Action> QString raised(Action &&action)
{
    try {
        action();
    } catch (const E &error) {
        return error.message();
    } catch (const std::exception &error) {
        ADD_FAILURE() << "raised something else: " << error.what();
        return {};
    }
    ADD_FAILURE() << "nothing was raised";
    return {};
}

inline testing::AssertionResult tells(const QString &message, const QString &words)
{
    if (message.contains(words, Qt::CaseInsensitive))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "\"" << message.toStdString() << "\" does not tell \"" << words.toStdString() << "\"";
}
