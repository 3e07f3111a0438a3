#pragma once

#include "toolkit/data/database.h"
#include "toolkit/text/ansistring.h"

// How a row gets its key when it is saved.
class TKeyRule {
public:
    // Typed by the user, or given by the database; nothing is drawn.
    TKeyRule() = default;
    // One more than what the statement finds: "select max(nuom_id) from bd_nuomasm". 1 in an empty table.
    static TKeyRule largestPlusOne(const QString &largest) { return {largest, 1, false}; }
    // What the statement gives: "select GetNextTableColumnId('dba','bd_tarn','trn_id') from dummy".
    static TKeyRule drawn(const QString &next) { return {next, 0, false}; }
    // The same, also for a row that is only changed.
    static TKeyRule drawnAtEverySave(const QString &next) { return {next, 0, true}; }

    bool draws(bool isNew) const { return !sql.isEmpty() && (isNew || always); }
    // Asks the database; to be called inside the saving transaction.
    Variant next(TDatabase *database) const;

private:
    TKeyRule(QString statement, int step, bool everySave)
        : sql(std::move(statement)),
          plus(step),
          always(everySave)
    {
    }

    QString sql;
    int plus = 0;
    bool always = false;
};

// A key between its type in the books and the type that an entry function has for it. No key is 0, or empty.
template<class Key> struct TKeyOf {
    static Key from(const Variant &key) { return key.value<Key>(); }
    static Variant to(Key key) { return Variant::fromValue(key); }
};
template<> struct TKeyOf<AnsiString> {
    static AnsiString from(const Variant &key) { return AnsiString(key.toString()); }
    static Variant to(const AnsiString &key) { return key.toQString(); }
};
