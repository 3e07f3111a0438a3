#include "toolkit/text/code_page.h"

#include "toolkit/text/ansistring.h"

#include <array>
#include <optional>

namespace {

constexpr int firstBeyondAscii = 0x80;

// The byte of every character beyond ASCII, as the converter has it; 0 for what the code page does not hold.
using Bytes = std::array<char, 0x10000>;

Bytes readConverter()
{
    Bytes bytes{};
    for (int byte = firstBeyondAscii; byte <= 0xff; ++byte) {
        const QString text = AnsiString::fromBytes(QByteArray(1, char(byte))).toQString();
        if (text.size() == 1 && firstOutsideCodePage(text) < 0)
            bytes[text.front().unicode()] = char(byte);
    }
    return bytes;
}

struct Character {
    char16_t code = 0;
    int length = 0; // bytes of UTF-8
};

// The character of two or three bytes of UTF-8 at the beginning; nothing when there is none.
std::optional<Character> characterAt(const uchar *at, const uchar *end)
{
    const auto follows = [&](int offset) { return end - at > offset && (at[offset] & 0xc0) == 0x80; };
    if ((at[0] & 0xe0) == 0xc0 && follows(1))
        return Character{char16_t((at[0] & 0x1f) << 6 | (at[1] & 0x3f)), 2};
    if ((at[0] & 0xf0) == 0xe0 && follows(1) && follows(2)) {
        constexpr int leastOfThreeBytes = 0x800;
        const int code = (at[0] & 0x0f) << 12 | (at[1] & 0x3f) << 6 | (at[2] & 0x3f);
        if (code >= leastOfThreeBytes)
            return Character{char16_t(code), 3};
    }
    return {};
}

} // namespace

TCodePageText toCodePage(char *out, QByteArrayView utf8)
{
    static const Bytes beyondAscii = readConverter();
    const auto *const begin = reinterpret_cast<const uchar *>(utf8.data());
    const uchar *const end = begin + utf8.size();
    const uchar *at = begin;
    while (at != end) {
        if (*at < firstBeyondAscii && *at != 0) {
            *out++ = char(*at++);
            continue;
        }
        const std::optional<Character> character = *at ? characterAt(at, end) : std::nullopt;
        const char byte = character ? beyondAscii[character->code] : '\0';
        if (!byte)
            return {out, at - begin};
        *out++ = byte;
        at += character->length;
    }
    return {out, -1};
}
