#pragma once

#include "toolkit/text/ansistring.h"

// The host's report engine. The parameters are switches: "/DBN=" with the alias of a session and "/RPTID="
// with the number of a report in the store, in any order: "/DBN=mnFin_Db /RPTID=81". A value ends where the
// next switch begins, with or without a blank before it.
//
// OpenReports reads the report and shows its preview, from where it is printed or saved as PDF; it returns
// when the preview is closed. Raises Exception for parameters that are none, a session or report that does
// not exist and a report without rows; EAbort when the user stops the reading.
void OpenReports(const AnsiString &parameters);

// Ends the engine: closes a preview that is still open. Harmless without one.
void CloseReports();
