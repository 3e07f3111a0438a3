#pragma once

#include "toolkit/data/database.h"

#include <QHash>

#include <functional>
#include <memory>

class TDataSet;
class TField;

// Texts for the keys of a column, read as a whole on the first use and then found without another statement.
// Several columns, and several lists, may share one.
class TColumnLookup {
public:
    using RowText = std::function<QString(const TDataSet &row)>;

    // The statement gives the key in its first column, and the text as rowText has it of a row; without that,
    // in its second column.
    TColumnLookup(TDatabase *session, const QString &sql, RowText rowText = {});
    // For texts that come from elsewhere: asked once for each key.
    explicit TColumnLookup(std::function<QString(const QVariant &key)> source);

    // Empty for null and for a key that is not found; 5, 5.0 and "5" are one key. Raises what reading raises.
    // It may be asked for by a painting. Where that happens while a statement runs, nothing is read, a text
    // that is not known yet stays empty, and the windows are painted again afterwards.
    QString text(const QVariant &key);
    // The next use reads anew.
    void forget();

    // Makes the column show the texts wherever its display text is asked for: in a grid, a search, a copy, a
    // print.
    static void showIn(TField &field, const std::shared_ptr<TColumnLookup> &lookup);

private:
    void read();
    bool isKnown(const QVariant &key) const;

    TDatabase *session = nullptr;
    QString sql;
    RowText rowText;
    std::function<QString(const QVariant &)> source;
    QHash<double, QString> byNumber;
    QHash<QString, QString> byText;
    bool isRead = false;
};
