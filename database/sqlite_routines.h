#pragma once

struct sqlite3;

// Teaches a connection what the schema of the server knows by itself: the routines Close_Per, Back_Per,
// p_CalcDBKRLik and updMatAsmUnq, the functions f_CheckUsed, GetNextTableColumnId, GetDateByPeriodId,
// get_last_per_id, CheckSasInBalForm, lt_raktas, DATEFORMAT and UCASE, and a sum() exact to four decimals.
// A routine is all or nothing, inside a transaction and without one; its errors carry Lithuanian texts.
//
// Loading this library installs it for every session that opens from then on (TDatabase::setSqliteTeacher).
void teachSqlite(sqlite3 *db);
