#include "toolkit/text/ansistring.h"

#include <QList>
#include <QStringDecoder>
#include <QStringEncoder>

using namespace Qt::StringLiterals;

namespace {

constexpr char codePage[] = "windows-1257";

bool isAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return uchar(c) < 0x80; });
}

bool isPlain(QStringView text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c.unicode() > 0 && c.unicode() < 0x80; });
}

// The encoder puts a substitute for what it cannot hold; only hasError() tells. Reading the bytes back
// catches the look-alikes that a converter may fall back to.
bool encode(QStringView text, QByteArray &bytes)
{
    if (text.contains(QChar(u'\0')))
        return false;
    QStringEncoder encoder(codePage);
    Q_ASSERT(encoder.isValid());
    bytes = encoder.encode(text);
    if (encoder.hasError())
        return false;
    QStringDecoder decoder(codePage);
    const QString back = decoder.decode(bytes);
    return !decoder.hasError() && back == text;
}

bool fits(QStringView text)
{
    QByteArray bytes;
    return isPlain(text) || encode(text, bytes);
}

// How a character is named to the user: itself, or its number when it has no shape.
QString shown(QStringView character)
{
    const char32_t code = character.toUcs4().constFirst();
    if (QChar::isPrint(code))
        return character.toString();
    return u"U+%1"_s.arg(uint(code), 4, 16, QLatin1Char('0')).toUpper();
}

qsizetype characterLength(QStringView text, qsizetype at)
{
    const bool pair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
    return pair ? 2 : 1;
}

} // namespace

AnsiString::AnsiString(const QString &text)
{
    if (isPlain(text)) {
        data = text.toLatin1();
        return;
    }
    if (encode(text, data))
        return;
    const qsizetype at = firstOutsideCodePage(text);
    Q_ASSERT(at >= 0);
    throw EConvertError(u"Simbolio „%1“ negalima įrašyti kodų lentele 1257"_s.arg(
        shown(QStringView(text).mid(at, characterLength(text, at)))));
}

AnsiString AnsiString::fromBytes(QByteArray bytes)
{
    AnsiString result;
    result.data = std::move(bytes);
    return result;
}

QString AnsiString::toQString() const
{
    if (isAscii(data))
        return QString::fromLatin1(data);
    QStringDecoder decoder(codePage);
    Q_ASSERT(decoder.isValid());
    return decoder.decode(data);
}

qsizetype firstOutsideCodePage(const QString &text)
{
    if (fits(text))
        return -1;
    const QStringView view(text);
    for (qsizetype at = 0; at < view.size(); at += characterLength(view, at)) {
        if (!fits(view.mid(at, characterLength(view, at))))
            return at;
    }
    return -1;
}
