#include "toolkit/text/ansistring.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// The bytes to which code page 1257 gives no character.
const QByteArray undefinedBytes = QByteArray::fromHex("8183888a8c909a9c9fa1a5") + QByteArray::fromHex("98");

QString refusal(const QString &text)
{
    try {
        AnsiString converted(text);
    } catch (const EConvertError &error) {
        return error.message();
    }
    return {};
}

} // namespace

TEST(AnsiString, EveryDefinedByteComesBackTheSame)
{
    for (int code = 1; code < 256; ++code) {
        const QByteArray byte(1, char(code));
        if (undefinedBytes.contains(byte))
            continue;
        const QString text = AnsiString::fromBytes(byte).toQString();
        ASSERT_EQ(text.size(), 1) << code;
        EXPECT_EQ(AnsiString(text).bytes(), byte) << code;
        EXPECT_EQ(firstOutsideCodePage(text), -1) << code;
    }
}

TEST(AnsiString, WhatIsAcceptedComesBackTheSameOverTheWholeBasicPlane)
{
    int accepted = 0;
    for (int code = 1; code < 0x10000; ++code) {
        const QString text = QChar(code);
        if (firstOutsideCodePage(text) == 0)
            continue;
        ++accepted;
        ASSERT_EQ(AnsiString(text).toQString(), text) << code;
    }
    EXPECT_GE(accepted, 255 - undefinedBytes.size());
    EXPECT_LE(accepted, 255);
}

TEST(AnsiString, LithuanianTextHasOneByteForACharacter)
{
    const AnsiString text(u"Ąžuolas „Čiobrelis“ – šermukšnis €"_s);
    EXPECT_EQ(text.Length(), 34);
    EXPECT_EQ(text.toQString(), u"Ąžuolas „Čiobrelis“ – šermukšnis €"_s);
    EXPECT_EQ(AnsiString(u"Ą"_s).bytes(), QByteArray("\xC0"));
}

TEST(AnsiString, NamesTheFirstCharacterThatTheCodePageCannotHold)
{
    EXPECT_EQ(refusal(u"Žemaitė Я ж"_s), u"Simbolio „Я“ negalima įrašyti kodų lentele 1257"_s);
    EXPECT_EQ(refusal(u"aš 😀"_s), u"Simbolio „😀“ negalima įrašyti kodų lentele 1257"_s);
    EXPECT_EQ(firstOutsideCodePage(u"Žemaitė Я"_s), 8);
    EXPECT_EQ(firstOutsideCodePage(u"😀ž"_s), 0);
}

TEST(AnsiString, ANulIsRefused)
{
    const QString text = u"a"_s + QChar(u'\0') + u"b"_s;
    EXPECT_EQ(firstOutsideCodePage(text), 1);
    EXPECT_EQ(refusal(text), u"Simbolio „U+0000“ negalima įrašyti kodų lentele 1257"_s);
}

TEST(AnsiString, LookAlikesAreNotTakenForTheirLetters)
{
    EXPECT_EQ(firstOutsideCodePage(u"\uff21"_s), 0);  // a wide A
    EXPECT_EQ(firstOutsideCodePage(u"e\u0307"_s), 1); // a combining dot instead of ė
}

TEST(AnsiString, CopiesShareTheirBytes)
{
    const AnsiString text(u"ąžuolas"_s);
    AnsiString copy;
    copy = text;
    EXPECT_EQ(copy.bytes().constData(), text.bytes().constData());
    EXPECT_EQ(copy, text);
    EXPECT_TRUE(AnsiString().IsEmpty());
    EXPECT_TRUE(AnsiString(QString()).IsEmpty());
}
