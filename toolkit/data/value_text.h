#pragma once

#include "toolkit/data/database.h"

// The text of a field that holds the value: a number with the settings' decimal separator, a date in the
// short format, "Taip" and "Ne"; empty for a null and for a blob.
QString valueText(const Variant &value);
