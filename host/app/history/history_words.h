#pragma once

#include "toolkit/widgets/column_lookup.h"

#include <map>

// The history of one book in people's words: tables by the captions of their menus, columns by those of their
// screens, accounts and other references by number and name.
class THistoryWords {
public:
    explicit THistoryWords(TDatabase *book) : db(book) {}

    // The tables of the book in the order of their captions: name and caption.
    QList<std::pair<QString, QString>> tables() const;

    static QString column(const QString &name); // its caption; its name where it has none
    static QString operation(const QString &letter);
    // The row as it is called now; a row that is gone, and one without a name, by its key.
    QString row(const QString &table, const QString &key);
    // "Adresas: buvo „…“, yra „…“; …" of a record's two JSON objects, in the order of the table's columns.
    QString changes(const QString &table, const QString &before, const QString &after);

    void forget() { names.clear(); } // names are read anew

private:
    struct TReference {
        QString table, key;
    };

    QString value(const QString &column, const QJsonValue &value);
    QString referred(const TReference &to, const QVariant &key);
    const std::map<QString, TReference> &references();

    TDatabase *db;
    std::map<QString, TReference> known;
    std::map<QString, std::shared_ptr<TColumnLookup>> names; // by table
};
