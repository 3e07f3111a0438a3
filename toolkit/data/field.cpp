#include "toolkit/data/field.h"

#include "toolkit/data/dataset_private.h"
#include "toolkit/data/value_text.h"
#include "toolkit/text/format.h"

using namespace Qt::StringLiterals;

TField::TField(TDataSet *theOwner, int index, TResultColumn theColumn, bool isCalculatedField)
    : owner(theOwner),
      position(index),
      column(std::move(theColumn)),
      calculated(isCalculatedField)
{
    switch (column.type) {
    case TFieldType::ftInteger:
    case TFieldType::ftFloat:
    case TFieldType::ftCurrency:
        Alignment = TAlignment::taRightJustify;
        break;
    default:
        break;
    }
}

Qt::Alignment toQt(TAlignment alignment)
{
    switch (alignment) {
    case TAlignment::taRightJustify:
        return Qt::AlignRight | Qt::AlignVCenter;
    case TAlignment::taCenter:
        return Qt::AlignCenter;
    case TAlignment::taLeftJustify:
        break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

// --- refusing

void TField::refuse(const QString &why) const
{
    throw EFieldRefused(DisplayLabel.isEmpty() ? why.left(1).toUpper() + why.mid(1)
                                               : u"Laukas \"%1\": %2"_s.arg(DisplayLabel, why),
                        FieldName());
}

// --- reading

bool TField::IsNull() const
{
    return Value().isNull();
}

Variant TField::Value() const
{
    return owner->d->value(position);
}

Variant TField::OldValue() const
{
    if (calculated || owner->State() == dsInsert)
        return {};
    return owner->State() == dsEdit ? owner->d->edited.before[size_t(position)] : Value();
}

double TField::AsFloat() const
{
    const Variant value = Value();
    switch (value.typeId()) {
    case QMetaType::QString:
        return StrToFloat(value.toString());
    case QMetaType::QDate:
        return TDateTime(value.toDate()).value();
    case QMetaType::QDateTime:
        return TDateTime(value.toDateTime()).value();
    default:
        return value.toDouble();
    }
}

int TField::AsInteger() const
{
    const double value = std::trunc(AsFloat());
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
        refuse(u"skaičius per didelis."_s);
    return int(value);
}

QString TField::AsString() const
{
    return plainText(Value());
}

QDate TField::AsDate() const
{
    const Variant value = Value();
    if (value.typeId() == QMetaType::Double || value.typeId() == QMetaType::LongLong)
        return TDateTime(value.toDouble()).date();
    return value.toDate();
}

QString TField::plainText(const Variant &value) const
{
    return valueText(value);
}

QString TField::DisplayText() const
{
    return OnGetText ? OnGetText(const_cast<TField &>(*this)) : formatted(Value());
}

QString TField::formatted(const Variant &value) const
{
    if (DisplayFormat.isEmpty() || value.isNull())
        return plainText(value);
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Int:
    case QMetaType::LongLong:
        return FormatFloat(DisplayFormat, value.toDouble());
    case QMetaType::QDate:
        return FormatDateTime(DisplayFormat, TDateTime(value.toDate()));
    case QMetaType::QDateTime:
        return FormatDateTime(DisplayFormat, TDateTime(value.toDateTime()));
    default:
        return plainText(value);
    }
}

QString TField::editText() const
{
    return plainText(Value());
}

// --- writing

void TField::setValue(const Variant &value)
{
    if (calculated ? !owner->d->calculated.isComputing() : !owner->editing())
        refuse(u"reikšmė dabar nekeičiama, įrašas neredaguojamas."_s);
    const Variant proposed = accepted(value);
    if (OnValidate && !calculated)
        OnValidate(*this, proposed);
    owner->d->setValue(*this, proposed);
    if (OnChange && !calculated)
        OnChange(*this);
}

void TField::Clear()
{
    setValue({});
}

void TField::setAsFloat(double value)
{
    setValue(value);
}

void TField::setAsInteger(int value)
{
    setValue(value);
}

void TField::setAsString(const QString &value)
{
    setValue(value);
}

void TField::setEditText(const QString &text)
{
    if (ReadOnly)
        refuse(u"reikšmė nekeičiama."_s);
    if (OnSetText)
        setValue(OnSetText(*this, text));
    else
        setValue(text.isEmpty() ? Variant() : Variant(text));
}
