#pragma once

#include "toolkit/data/database.h"

#include <QHash>

#include <functional>

// The texts that a column of keys shows: each is looked up once, however often its cells are painted, until
// they are forgotten. An unknown or null key has no text.
class TLookupTexts {
public:
    // Looks one key up.
    explicit TLookupTexts(std::function<QString(const Variant &key)> text);
    // Looks all up at the first use, by a statement with the key in its first column and the text in its
    // second.
    TLookupTexts(std::function<TDatabase *()> database, const QString &sql);

    QString of(const Variant &key);
    void forget();

private:
    void readAll();

    std::function<QString(const Variant &)> lookUp;
    std::function<TDatabase *()> session;
    QString statement;
    QHash<QString, QString> known;
    bool complete = false;
};
