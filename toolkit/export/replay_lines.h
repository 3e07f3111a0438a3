#pragma once

#include "toolkit/export/row_lines.h"

#include <memory>

// Rows as statements that give the very same values when they are run: insert into "t" ("a", "b") values (1,
// 'l''ėšos'); in UTF-8. Quotes are doubled, a null is NULL, a number has all the digits that its last bit
// needs, a blob is written as the engine takes it. A text with a NUL is refused.
//
// The rows must come from replaySelect(), which leaves the values as the engine stores them.
class TReplayLines : public TRowLines {
public:
    static std::unique_ptr<TReplayLines> create(TDatabase &database, const QString &table,
                                                const QStringList &columns);
    void append(TLineBuffer &target, const TStatement &row, qlonglong number) const override;

protected:
    TReplayLines(const QString &table, const QStringList &columns);

    virtual void appendReal(TLineBuffer &target, const TStatement &row, int column) const = 0;
    virtual void appendBlob(TLineBuffer &target, QByteArrayView bytes) const = 0;

private:
    void appendValue(TLineBuffer &target, const TStatement &row, int column) const;

    const QString table;
    const QStringList columns;
    const QByteArray head; // all that stands in front of the first value
};

// The statement whose rows are written, in the engine's own wording.
TranslatedSql replaySelect(Engine engine, const QString &table, const QStringList &columns);

// A name between double quotes, as both engines take it.
QString quotedName(const QString &name);
