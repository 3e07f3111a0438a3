#pragma once

#include "toolkit/data/statement.h"

#include <functional>

class TDataSet;

// How the field's values line up in a grid.
enum class TAlignment { taLeftJustify, taRightJustify, taCenter };
Qt::Alignment toQt(TAlignment alignment); // centred vertically

// One column of a data set at its current record.
//
// Setting a value refuses what the column cannot hold, as EFieldRefused naming the field's label: text that
// is too long (counted in characters of code page 1257), outside the code page or holding a NUL; text that is
// no number; a number that is not finite. Nothing is cut off silently. It also runs OnValidate (which raises
// to refuse) and then OnChange. The set must be in edit or insert state. A refusal leaves the old value.
class TField {
public:
    TField(TDataSet *owner, int index, TResultColumn column, bool calculated);

    const QString &FieldName() const { return column.name; }
    TFieldType DataType() const { return column.type; }
    int Size() const { return column.size; }
    int Decimals() const { return column.scale; } // -1 when unknown
    bool isCalculated() const { return calculated; }
    int index() const { return position; }
    TDataSet *DataSet() const { return owner; }

    QString DisplayLabel; // the field's name in messages and column titles; empty: messages name no field,
                          // a column is titled with the field's own name
    QString DisplayFormat;
    QString EditMask;
    Variant DefaultExpression; // given to a new record
    bool Required = false;
    bool ReadOnly = false;
    bool Visible = true;
    TAlignment Alignment = TAlignment::taLeftJustify;

    std::function<void(TField &, const Variant &proposed)> OnValidate;
    std::function<void(TField &)> OnChange;
    std::function<QString(TField &)> OnGetText;                  // text for display
    std::function<Variant(TField &, const QString &)> OnSetText; // value of a typed text

    QString label() const { return DisplayLabel.isEmpty() ? FieldName() : DisplayLabel; }

    TField(const TField &) = delete;
    TField &operator=(const TField &) = delete;

    bool IsNull() const;
    void Clear();
    Variant Value() const;
    void setValue(const Variant &value);
    Variant OldValue() const; // as it was before Edit; null in a new record
    double AsFloat() const;   // null reads as 0
    void setAsFloat(double value);
    int AsInteger() const;
    void setAsInteger(int value);
    QString AsString() const;
    void setAsString(const QString &value);
    QDate AsDate() const;

    QString DisplayText() const;           // by OnGetText or DisplayFormat
    QString editText() const;              // what an edit control shows while the field is being typed in
    void setEditText(const QString &text); // what the user typed; empty is null. Raises like setValue.

    // Raises EFieldRefused: "Laukas "label": why", or the reason alone, capitalised, without a label.
    [[noreturn]] void refuse(const QString &why) const;

private:
    friend class TDataSet;
    friend class FieldList;

    Variant accepted(const Variant &value) const; // as the column holds it; raises to refuse
    Variant acceptedText(const QString &text) const;
    Variant acceptedWhole(const Variant &value) const;
    Variant acceptedNumber(const Variant &value) const;
    Variant acceptedDay(const Variant &value) const;
    Variant acceptedMoment(const Variant &value) const;
    double numberFrom(const Variant &value) const;
    QString plainText(const Variant &value) const;
    QString formatted(const Variant &value) const;

    TDataSet *owner;
    int position;
    TResultColumn column;
    bool calculated;
};
