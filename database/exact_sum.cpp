#include "database/exact_sum.h"

#include <sqlite3.h>

#include <cmath>
#include <limits>

namespace {

// The engine gives memory that is aligned to eight bytes only.
__extension__ typedef __int128 Wide __attribute__((aligned(8)));

constexpr double scale = 10000.0;
// Amounts stay below this: there a double still tells ten-thousandths apart.
constexpr double largestAmount = 1e11;
// How far from a whole number of ten-thousandths an amount may be: differences of amounts are off by a little
// anyway, large amounts by the width of their doubles.
constexpr double tolerance = 1e-3;
constexpr double relativeTolerance = 4e-16;
// Adding and taking away 1.5 * 2^52 rounds a double to a whole number.
constexpr double rounder = 6755399441055744.0;

struct Sum {
    Wide tenThousandths;  // the exact part
    double rest;          // the sum of all other values …
    double restError;     // … and what its additions lost
    sqlite3_int64 values; // all but nulls
    sqlite3_int64 reals;
};

// Adds and keeps what the addition loses (Neumaier).
void addRest(Sum &sum, double value)
{
    const double total = sum.rest + value;
    if (std::isfinite(total)) {
        sum.restError +=
            std::fabs(sum.rest) >= std::fabs(value) ? (sum.rest - total) + value : (value - total) + sum.rest;
    }
    sum.rest = total;
}

void addReal(Sum &sum, double value, int sign)
{
    if (std::fabs(value) < largestAmount) {
        const double scaled = value * scale;
        const double whole = (scaled + rounder) - rounder;
        if (std::fabs(scaled - whole) <= tolerance + std::fabs(scaled) * relativeTolerance) {
            const auto exact = static_cast<sqlite3_int64>(whole);
            sum.tenThousandths += sign < 0 ? -exact : exact;
            return;
        }
    }
    addRest(sum, sign * value);
}

void add(sqlite3_context *context, sqlite3_value *value, int sign)
{
    const int type = sqlite3_value_numeric_type(value);
    if (type == SQLITE_NULL)
        return;
    auto *sum = static_cast<Sum *>(sqlite3_aggregate_context(context, sizeof(Sum)));
    if (!sum) {
        sqlite3_result_error_nomem(context);
        return;
    }
    sum->values += sign;
    if (type == SQLITE_INTEGER) {
        sum->tenThousandths += static_cast<Wide>(sqlite3_value_int64(value)) * 10000 * sign;
    } else {
        sum->reals += sign;
        addReal(*sum, sqlite3_value_double(value), sign);
    }
}

void step(sqlite3_context *context, int, sqlite3_value **values)
{
    add(context, values[0], 1);
}

void inverse(sqlite3_context *context, int, sqlite3_value **values)
{
    add(context, values[0], -1);
}

void giveWhole(sqlite3_context *context, Wide value)
{
    if (value > std::numeric_limits<sqlite3_int64>::max() ||
        value < std::numeric_limits<sqlite3_int64>::min())
        sqlite3_result_error(context, "integer overflow", -1);
    else
        sqlite3_result_int64(context, static_cast<sqlite3_int64>(value));
}

// The quotient of a whole number by the scale is the double nearest to the amount.
double amountOf(const Sum &sum)
{
    const double exact = static_cast<double>(sum.tenThousandths) / scale;
    const double rest = std::isfinite(sum.rest) ? sum.rest + sum.restError : sum.rest;
    return exact + rest;
}

void result(sqlite3_context *context)
{
    const auto *sum = static_cast<const Sum *>(sqlite3_aggregate_context(context, 0));
    if (!sum || sum->values == 0)
        sqlite3_result_null(context);
    else if (sum->reals == 0)
        giveWhole(context, sum->tenThousandths / 10000);
    else
        sqlite3_result_double(context, amountOf(*sum));
}

} // namespace

void teachExactSum(sqlite3 *db)
{
    sqlite3_create_window_function(db, "sum", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                   nullptr, step, result, result, inverse, nullptr);
}
