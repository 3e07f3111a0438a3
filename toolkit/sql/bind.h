#pragma once

#include "toolkit/sql/syntax.h"

namespace sql {

// Binds the names of every select that mean one of its items: a column that is the alias of an item stands
// for the item's expression in the items behind it and in the other clauses; an order by names items by
// number or alias. A column of the schema goes before an alias.
//
// Raises ESqlNotUnderstood for a number that is no item's, and for aliases that unfold too deep.
void bindNames(Statement *statement, const SqlCatalog &catalog);

} // namespace sql
