#pragma once

#include "toolkit/data/record.h"

#include <functional>

// The calculated fields of the record that was looked at last.
class CalculatedRecord {
public:
    // The values of a source row, -1: of the record being edited. They are computed by setting them from
    // within the function; what it reads of them meanwhile is null.
    const Record &of(int source, int count, const std::function<void()> &compute)
    {
        if (owner == source || computing)
            return values;
        values.assign(size_t(count), Variant());
        owner = source;
        computing = true;
        const auto done = qScopeGuard([this] { computing = false; });
        compute();
        return values;
    }

    void set(int field, const Variant &value) { values[size_t(field)] = value; }
    bool isComputing() const { return computing; }
    void forget() { owner = nobody; }

private:
    static constexpr int nobody = -2;

    Record values;
    int owner = nobody;
    bool computing = false;
};
