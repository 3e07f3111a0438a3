#include "toolkit/data/record.h"

namespace {

bool isNumber(const Variant &value)
{
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Bool:
        return true;
    default:
        return false;
    }
}

} // namespace

bool sameKey(const Variant &a, const Variant &b)
{
    if (a.isNull() || b.isNull())
        return a.isNull() && b.isNull();
    if (a.typeId() == b.typeId())
        return a == b;
    if (isNumber(a) && isNumber(b))
        return a.toDouble() == b.toDouble();
    return a.toString() == b.toString();
}
