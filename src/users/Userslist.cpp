#include "src/users/Userslist.h"

#include "src/users/Usersch.h"

#include <QAction>

namespace Userslist {

TUnit unit("UsersList");
TUsersFrm *UsersFrm = nullptr;

namespace {

constexpr int fewestToDelete = 2;

// On a server where persons have their own logins, passwords are for administrators' eyes.
QString columnsToRead()
{
    const bool all = CurrentUser().userAdmin || !MainDatas()->mnRavl()->isRoutine("tr_usr_prisijungimas");
    return all ? "*" : "usr_id, usr_vardas, usr_pavarde, usr_name";
}

TBrowseDescription described()
{
    return {
        .name = "TUsersFrm",
        .caption = "Vartotojai",
        .help = 2,
        .session = TSession::Budget,
        .keyColumn = "usr_id",
        .table = "bd_usr",
        .sql = QString("select %1\nfrom bd_usr").arg(columnsToRead()),
        .columns = {{"usr_vardas", "Vardas", 200},
                    {"usr_pavarde", "Pavardė", 200},
                    {"usr_name", "Prisijungimo vardas", 160}},
    };
}

} // namespace

TUsersFrm::TUsersFrm(QWidget *owner) : TBrowseFrm(described(), owner)
{
    keepIn(UsersFrm);
}

void TUsersFrm::NewRecord()
{
    TNextOffer next;
    do {
        const int id = GetFieldResult(Database(), "select IsNull(max(usr_id)+1,1) from bd_usr").toInt();
        if (!Usersch::Add_ChUser(false, id))
            return;
        RefreshData(id);
    } while (next.taken() && acNew->isEnabled());
}

void TUsersFrm::EditRecord()
{
    requireRow();
    TNextOffer next;
    Usersch::Add_ChUser(true, currentKey().toInt());
    if (next.taken() && acNew->isEnabled())
        NewRecord();
}

void TUsersFrm::DeleteRow(const Variant &key)
{
    const QString id = QString::number(key.toInt());
    DbiQExecDirect(Database(), "delete from bd_usrkdv where udv_usrid=" + id);
    DbiQExecDirect(Database(), "delete from bd_usr where usr_id=" + id);
}

void TUsersFrm::CheckToolButtons()
{
    TBrowseFrm::CheckToolButtons();
    const bool mayAdminister = CurrentUser().userAdmin;
    acEdit->setText(mayAdminister ? "&Keisti" : "&Peržiūrėti");
    acNew->setEnabled(acNew->isEnabled() && mayAdminister);
    acDelete->setEnabled(acDelete->isEnabled() && mayAdminister &&
                         dataSet()->RecordCount() >= fewestToDelete);
}

} // namespace Userslist
