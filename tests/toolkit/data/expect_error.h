#pragma once

#include "toolkit/text/errors.h"

#include <gtest/gtest.h>

// The action raises this kind of error, and its message contains the text.
#define EXPECT_ERROR(Kind, action, text)                                                                     \
    do {                                                                                                     \
        try {                                                                                                \
            static_cast<void>(action);                                                                       \
            ADD_FAILURE() << "no error was raised";                                                          \
        } catch (const Kind &raised) {                                                                       \
            EXPECT_TRUE(raised.message().contains(text)) << raised.what();                                   \
        } catch (const Exception &raised) {                                                                  \
            ADD_FAILURE() << "another kind of error: " << raised.what();                                     \
        }                                                                                                    \
    } while (false)
