#pragma once

#include "toolkit/data/database.h"

#include <QByteArrayView>

// The type of a column of a result, as far as fields and grids need it.
enum class TFieldType {
    ftUnknown,
    ftString,
    ftMemo,
    ftInteger,
    ftFloat,
    ftCurrency,
    ftDate,
    ftDateTime,
    ftBoolean,
    ftBlob
};

struct TResultColumn {
    QString name; // as the engine gives it
    TFieldType type = TFieldType::ftUnknown;
    int size = 0;   // characters of a varchar; 0 when unknown or no text
    int digits = 0; // of an amount, decimals included; 0 when unknown or no amount
    int scale = -1; // decimals of an amount; -1 when unknown or no amount
};

// One prepared statement on one connection, straight over the engine's C interface.
// Amounts (numeric) arrive as doubles rounded to their scale, dates as QDate, whole numbers as qlonglong.
class TStatement {
public:
    virtual ~TStatement() = default;

    // Binds by name (without the colon, case-insensitive); an unknown name raises EDatabaseError.
    // A NUL inside a text, and a number that is not finite, are refused. What is not bound is null.
    virtual void bind(const QString &name, const Variant &value) = 0;

    // Runs it. next() moves to the first and every further row; false after the last one.
    // exec() of a select on the reading connection fetches piece by piece: the first rows do not wait for the
    // last ones. affected() is the number of rows changed.
    virtual void exec() = 0;
    virtual bool next() = 0;
    virtual qlonglong affected() const = 0;

    virtual const QList<TResultColumn> &columns() const = 0;

    // The current row. Views stay valid until the next call of next(), exec() or reset().
    virtual bool isNull(int column) const = 0;
    virtual double number(int column) const = 0;
    virtual qlonglong integer(int column) const = 0;
    virtual QByteArrayView utf8(int column) const = 0; // text as UTF-8, a blob as its bytes
    // The type of this very value: ftInteger, ftFloat, ftBoolean, ftDate, ftDateTime, ftBlob or ftString; a
    // null is ftUnknown. An expression of SQLite may differ from row to row.
    virtual TFieldType valueType(int column) const = 0;
    Variant value(int column) const;

    virtual void reset() = 0; // ends the reading; parameters stay bound

    virtual const QStringList &parameters() const = 0;
};
