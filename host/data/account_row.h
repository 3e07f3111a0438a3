#pragma once

#include "host/data/sas_edit.h"
#include "toolkit/widgets/form.h"

// An account of a dialog, with its picker and its rule:
//
//     SasRow(u"&Sąskaita"_s, u"DKA_SASID"_s, {.whenNotDetail = TSasRule::Clear})
TFieldRow SasRow(const QString &label, const QString &column, const TSasRule &rule = {});
