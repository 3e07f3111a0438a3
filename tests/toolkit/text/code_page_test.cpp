#include "toolkit/text/code_page.h"

#include "tests/support/print.h"
#include "toolkit/text/ansistring.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// What the text is in the code page behind "a"; "@" and the place of the sign that it does not hold.
QByteArray converted(const QByteArray &utf8)
{
    QByteArray target = "a" + QByteArray(utf8.size(), '?');
    const TCodePageText text = toCodePage(target.data() + 1, utf8);
    target.truncate(text.end - target.constData());
    return text.refused < 0 ? target : "@" + QByteArray::number(text.refused);
}

TEST(CodePage, IsWrittenWhereThereIsRoom)
{
    EXPECT_EQ(converted(""), "a");
    EXPECT_EQ(converted("abc\n\x7f"), "aabc\n\x7f");
    EXPECT_EQ(converted("ąŽ€"), "a\xe0\xde\x80");
}

TEST(CodePage, IsThatOfTheConverterForEverySign)
{
    for (int code = 1; code < 0x10000; ++code) {
        const QString sign{QChar(char16_t(code))};
        if (sign.front().isSurrogate())
            continue;
        const bool fits = firstOutsideCodePage(sign) < 0;
        ASSERT_EQ(converted(sign.toUtf8()), fits ? "a" + AnsiString(sign).bytes() : "@0") << code;
    }
}

TEST(CodePage, TellsWhereItDoesNotHoldASign)
{
    EXPECT_EQ(converted("ab☃"), "@2");
    EXPECT_EQ(converted("ą😀"), "@2");
    EXPECT_EQ(converted(QByteArray("x\0y", 3)), "@1");
}

TEST(CodePage, TellsWhatIsNoUtf8)
{
    for (const char *broken : {"ab\xc4", "ab\xc4x", "ab\xe2\x82", "ab\xe2x\xac", "ab\x80", "ab\xff",
                               "ab\xc1\x81", "ab\xe0\x84\x85", "ab\xed\xa0\x80"})
        EXPECT_EQ(converted(broken), "@2") << broken;
}

} // namespace
