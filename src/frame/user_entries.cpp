#include "src/frame/entries.h"
#include "src/users/Confpas.h"
#include "src/users/Usersch.h"
#include "src/users/Userslist.h"

TPackageEntries userEntries()
{
    return {
        listScreen<Userslist::TUsersFrm>(Userslist::unit, {Menu::catalogues}, "&Vartotojai…", 2),
        editor("Add_ChUser", Usersch::unit, 2,
               [] { Usersch::Add_ChUser(true, int(firstKey(TSession::Budget, "bd_usr", "usr_id"))); }),
        editor("ShowPass", Confpas::unit, 2, [] { Confpas::ShowPass(AnsiString("slaptas")); }),
    };
}
