#pragma once

#include "toolkit/data/connection.h"

#include <QHash>
#include <QSet>

// The tables of a database as the engine's own catalogue describes them, read once at first use.
class Catalogue {
public:
    explicit Catalogue(std::shared_ptr<EngineConnection> connection, Engine engine);

    QList<TColumnInfo> columnsOf(const QString &table);
    QStringList keyOf(const QString &table);
    ColumnKind kindOf(const QString &column);
    bool isGivenByDatabase(const QString &table, const QString &column);
    bool isRequired(const QString &column);
    bool isRoutine(const QString &name);

    // The pairs of columns by which one table refers to the other, whichever of the two holds the reference.
    struct Pair {
        QString left;
        QString right;
    };
    QList<Pair> references(const QString &left, const QString &right);

    void forget();

private:
    struct Column {
        TColumnInfo info;
        bool given = false;
    };
    struct Reference {
        QString from;
        QString to;
        QList<Pair> columns; // left: the referring column
    };

    void load();
    void loadColumns();
    void loadReferences();
    void completeReferences();
    void loadRoutines();

    std::shared_ptr<EngineConnection> connection;
    const Engine engine;
    bool loaded = false;
    QHash<QString, QList<Column>> tables;
    QHash<QString, ColumnKind> kinds; // by column
    QSet<QString> required;           // columns
    QSet<QString> routines;
    QList<Reference> foreignKeys;
};
