#pragma once

#include "toolkit/data/statement.h"
#include "toolkit/export/line_buffer.h"

// How the rows of a table are worded in a file: the wording of one row at the end of the target, without the
// end of the line. Raises an Exception that names row, column and sign when a value cannot be written.
class TRowLines {
public:
    TRowLines() = default;
    virtual ~TRowLines() = default;
    TRowLines(const TRowLines &) = delete;
    TRowLines &operator=(const TRowLines &) = delete;

    virtual void append(TLineBuffer &target, const TStatement &row, qlonglong number) const = 0;
};

// "insert into t(a,b) values('1','2');" in code page 1257. Each value is the text of its field between single
// quotes, as it is: quotes inside are not doubled, a null and a blob are ''. Numbers have a decimal point
// whatever the settings say.
class TFieldTextLines final : public TRowLines {
public:
    TFieldTextLines(const QString &table, const QStringList &columns);
    void append(TLineBuffer &target, const TStatement &row, qlonglong number) const override;

private:
    const QString table;
    const QStringList columns;
    QByteArray head; // all that stands in front of the first value
};

// The bytes of a text in code page 1257; raises EConvertError.
QByteArray codePageBytes(const QString &text);

// Appends the text of the field in code page 1257; the offset of the first sign that the code page does not
// hold, -1 when there is none.
qsizetype appendFieldText(TLineBuffer &target, const TStatement &row, int column);

// Where a value stands that cannot be written: "Lentelės „t“ 5 eilutė (a: 17), stulpelis „b“".
QString placeInTable(const QString &table, const QStringList &columns, const TStatement &row, int column,
                     qlonglong number);
