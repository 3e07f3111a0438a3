#pragma once

#include "host/data/dka_combo.h"
#include "toolkit/widgets/form.h"

// A counterparty of a dialog; the row is called after its free-text column:
//
//     DkaRow(u"Kodas"_s, {u"DKL_DKAID"_s, u"DKL_I_KOD"_s, u"DKA_I_KOD"_s}),
//     DkaRow(u"Pavadinimas"_s, {u"DKL_DKAID"_s, u"DKL_PAVAD"_s, u"DKA_PAVAD"_s}),
TFieldRow DkaRow(const QString &label, const TDKAColumns &columns);
