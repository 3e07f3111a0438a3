#pragma once

#include "toolkit/data/field.h"

#include <QHash>

#include <memory>
#include <vector>

// The fields of a data set: those of its statement first, the calculated ones behind them. A field stays the
// same object when the set is opened again with a column of the same name.
class FieldList {
public:
    explicit FieldList(TDataSet *owner) : set(owner) {}

    // For a statement with these columns. Every field that settings were given for must be there.
    void make(const QList<TResultColumn> &columns);
    TField *addCalculated(const TResultColumn &column);
    // Applied at once when the field is there, and at every make().
    void describe(const QString &name, std::function<void(TField &)> settings);

    int size() const { return int(fields.size()); }
    int stored() const { return int(fields.size() - calculatedColumns.size()); } // not calculated
    int calculated() const { return int(calculatedColumns.size()); }
    TField &at(int index) const { return *fields[size_t(index)]; }
    TField *find(const QString &name) const; // null when there is none

    auto begin() const { return fields.begin(); }
    auto end() const { return fields.end(); }

private:
    TField *fieldOf(const TResultColumn &column, int index, bool isCalculated);

    TDataSet *set;
    std::vector<std::unique_ptr<TField>> fields;
    std::vector<std::unique_ptr<TField>> retired; // of earlier openings; somebody may still point to them
    QHash<QString, int> places;                   // by lower-case name; of equal names the first
    QList<TResultColumn> calculatedColumns;
    std::vector<std::pair<QString, std::function<void(TField &)>>> settings;
};
