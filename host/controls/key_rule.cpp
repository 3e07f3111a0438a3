#include "host/controls/key_rule.h"

Variant TKeyRule::next(TDatabase *database) const
{
    return qRound64(database->fieldResult(sql).toDouble()) + plus;
}
