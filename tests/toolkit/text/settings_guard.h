#pragma once

#include "toolkit/text/format.h"

#include <gtest/gtest.h>

// A test over the settings of one user: decimal point as given, everything put back afterwards.
class WithSettings : public testing::Test {
protected:
    void SetUp() override { FormatSettings().DecimalSeparator = u'.'; }
    void TearDown() override { FormatSettings() = kept; }

private:
    TFormatSettings kept = FormatSettings();
};

inline std::string str(const QString &text)
{
    return text.toStdString();
}

// The message of the EConvertError that the action raises; empty when it raises none.
template<typename Action> QString conversionError(Action action)
{
    try {
        action();
    } catch (const EConvertError &error) {
        return error.message();
    }
    return {};
}
