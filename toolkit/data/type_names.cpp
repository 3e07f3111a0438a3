#include "toolkit/data/type_names.h"

#include "toolkit/sql/text_kind.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

struct TypeWord {
    const char16_t *part;
    TFieldType type;
};

// The first part that the declared name contains decides.
constexpr TypeWord typeWords[] = {
    {u"timestamp", TFieldType::ftDateTime}, {u"datetime", TFieldType::ftDateTime},
    {u"date", TFieldType::ftDate},          {u"bool", TFieldType::ftBoolean},
    {u"char", TFieldType::ftString},        {u"text", TFieldType::ftMemo},
    {u"clob", TFieldType::ftMemo},          {u"blob", TFieldType::ftBlob},
    {u"bytea", TFieldType::ftBlob},         {u"int", TFieldType::ftInteger},
    {u"numeric", TFieldType::ftFloat},      {u"decimal", TFieldType::ftFloat},
    {u"float", TFieldType::ftFloat},        {u"real", TFieldType::ftFloat},
    {u"double", TFieldType::ftFloat},       {u"money", TFieldType::ftFloat},
};

} // namespace

DeclaredType declaredType(const QString &declaration)
{
    static const QRegularExpression sizes(u"\\(\\s*(\\d+)\\s*(?:,\\s*(\\d+)\\s*)?\\)"_s);
    DeclaredType result;
    result.name = declaration.section(u'(', 0, 0).trimmed().toLower();
    for (const TypeWord &word : typeWords) {
        if (result.name.contains(QStringView(word.part))) {
            result.type = word.type;
            break;
        }
    }
    const QRegularExpressionMatch match = sizes.match(declaration);
    if (!match.hasMatch())
        return result;
    if (result.type == TFieldType::ftString)
        result.size = match.captured(1).toInt();
    if (result.type == TFieldType::ftFloat) {
        result.digits = match.captured(1).toInt();
        result.scale = match.captured(2).toInt();
    }
    return result;
}

ColumnKind columnKind(const QString &name, const DeclaredType &type)
{
    switch (type.type) {
    case TFieldType::ftInteger:
    case TFieldType::ftFloat:
    case TFieldType::ftCurrency:
    case TFieldType::ftBoolean:
        return ColumnKind::Number;
    case TFieldType::ftDate:
    case TFieldType::ftDateTime:
        return ColumnKind::Date;
    case TFieldType::ftBlob:
        return ColumnKind::Blob;
    case TFieldType::ftString:
    case TFieldType::ftMemo:
        return textKind(name);
    default:
        return ColumnKind::Unknown;
    }
}
