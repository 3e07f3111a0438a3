#include "database/history_json.h"

#include "database/value_prints.h"

#include <QCryptographicHash>

#include <charconv>
#include <sqlite3.h>

namespace {

constexpr char secretText[] = "\"pakeista\"";

QByteArrayView bytesOf(sqlite3_value *value)
{
    const auto *bytes = static_cast<const char *>(sqlite3_value_blob(value));
    return {bytes, sqlite3_value_bytes(value)};
}

QByteArrayView textOf(sqlite3_value *value)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return {text, sqlite3_value_bytes(value)};
}

bool isNumber(sqlite3_value *value)
{
    const int type = sqlite3_value_type(value);
    return type == SQLITE_INTEGER || type == SQLITE_FLOAT;
}

void addText(QByteArray &to, QByteArrayView text)
{
    to += '"';
    for (const char sign : text) {
        if (sign == '"' || sign == '\\')
            (to += '\\') += sign;
        else if (static_cast<unsigned char>(sign) < 0x20)
            to += "\\u00" + QByteArray::number(sign, 16).rightJustified(2, '0');
        else
            to += sign;
    }
    to += '"';
}

void addNumber(QByteArray &to, double number)
{
    char digits[400];
    const auto end = std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed);
    to.append(digits, end.ptr - digits);
}

void addPicture(QByteArray &to, QByteArrayView bytes)
{
    to += "{\"baitai\": " + QByteArray::number(bytes.size()) + ", \"sha256\": \"" +
          QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex() + "\"}";
}

void addValue(QByteArray &to, sqlite3_value *value)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        to += "null";
        break;
    case SQLITE_INTEGER:
        to += QByteArray::number(sqlite3_value_int64(value));
        break;
    case SQLITE_FLOAT:
        addNumber(to, sqlite3_value_double(value));
        break;
    case SQLITE_BLOB:
        addPicture(to, bytesOf(value));
        break;
    default:
        addText(to, textOf(value));
    }
}

} // namespace

void HistoryJson::add(const QByteArray &column, sqlite3_value *value)
{
    text += text.isEmpty() ? "{" : ", ";
    addText(text, column);
    text += ": ";
    if (column == secretColumn)
        text += secretText;
    else
        addValue(text, value);
}

QByteArray HistoryJson::finish()
{
    return text.isEmpty() ? QByteArrayLiteral("{}") : text + '}';
}

bool isSameValue(sqlite3_value *one, sqlite3_value *other)
{
    if (isNumber(one) && isNumber(other)) {
        if (sqlite3_value_type(one) == SQLITE_INTEGER && sqlite3_value_type(other) == SQLITE_INTEGER)
            return sqlite3_value_int64(one) == sqlite3_value_int64(other);
        return sqlite3_value_double(one) == sqlite3_value_double(other);
    }
    if (sqlite3_value_type(one) != sqlite3_value_type(other))
        return false;
    return sqlite3_value_type(one) == SQLITE_BLOB ? bytesOf(one) == bytesOf(other)
                                                  : textOf(one) == textOf(other);
}
