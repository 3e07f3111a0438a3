#include "toolkit/data/statement.h"

#include "toolkit/data/connection.h"

Variant TStatement::value(int column) const
{
    switch (valueType(column)) {
    case TFieldType::ftInteger:
        return integer(column);
    case TFieldType::ftBoolean:
        return integer(column) != 0;
    case TFieldType::ftFloat:
    case TFieldType::ftCurrency:
        return number(column);
    case TFieldType::ftDate:
        return dateOf(utf8(column));
    case TFieldType::ftDateTime:
        return momentOf(utf8(column));
    case TFieldType::ftBlob:
        return utf8(column).toByteArray();
    case TFieldType::ftString:
    case TFieldType::ftMemo:
        return QString::fromUtf8(utf8(column));
    case TFieldType::ftUnknown:
        break;
    }
    return {};
}
