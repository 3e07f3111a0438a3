#pragma once

#include "toolkit/data/query.h"
#include "toolkit/data/record_writer.h"

// Writes the records of an open query: by the statements that the query gives, else into the one table that a
// live query selects from. What the database made of a record is read back into the change.
class QueryWriter {
public:
    // Raises EDatabaseError when the query is live over more or less than one table. The parameters are those
    // of the query's own statement; both must outlive the writer.
    QueryWriter(TQuery *query, const QVariantMap &parameters);

    // All or nothing.
    void write(TRecordChange &change);
    // Puts the row with the record's key into it as the query's own statement shows it now; false when that
    // shows no such row, or the statements name no table with a key.
    bool reread(Record &record) const;

private:
    using Cells = RecordWriter::Cells;

    const QString &wordingFor(TChangeKind kind) const;
    void writeAsWorded(const QString &wording, TRecordChange &change);
    void bindChange(TStatement &statement, const TRecordChange &change) const;
    bool takeKey(TStatement &statement, const QStringList &key, Record &record) const;
    void mergeElsewhere(const QString &tableName, TRecordChange &change);
    bool readAsShown(const Cells &key, Record &record) const;
    QStringList withCompanions(const QString &column) const;
    bool isChanged(const TRecordChange &change, const QString &column) const;
    Cells keyIn(const Record &record, const QStringList &columns) const;

    void insert(TRecordChange &change);
    void update(TRecordChange &change);
    void remove(const TRecordChange &change);
    void checkUnchangedElsewhere(const Cells &asRead, const QList<Variant> &stored,
                                 const TRecordChange &change) const;
    void readBack(const Cells &key, Record &record);
    RecordWriter &table();
    Cells liveKey(const Record &record);
    Cells columnsIn(const Record &record, const RecordWriter &written) const;

    TQuery *query;
    TDatabase *database;
    const QVariantMap &parameters;
    QString liveTable;
    std::unique_ptr<RecordWriter> writer;
};
