#include "host/data/login.h"

#include "database/history.h"
#include "toolkit/data/statement.h"

#include <optional>

namespace {

QString text(const TStatement &set, int column)
{
    return QString::fromUtf8(set.utf8(column));
}

// Names are compared here and not by the engine: an engine may not know the capital of every letter.
std::optional<TCurrentUser> userOf(TDatabase *users, const QString &name, const QString &password)
{
    const auto set = users->prepare(QStringLiteral("select usr_id, usr_name, usr_vardas, usr_pavarde, "
                                                   "usr_pasw, usr_perziurai, usr_user_admin from bd_usr "
                                                   "order by usr_id"));
    set->exec();
    while (set->next()) {
        const QString login = text(*set, 1).trimmed();
        if (login.compare(name, Qt::CaseInsensitive) != 0 || text(*set, 4) != password)
            continue;
        TCurrentUser user;
        user.id = int(set->integer(0));
        user.name = login;
        user.fullName = QStringLiteral("%1 %2").arg(text(*set, 2), text(*set, 3)).simplified();
        user.viewOnly = !set->isNull(5) && set->integer(5) == 1;
        user.userAdmin = !set->isNull(6) && set->integer(6) == 1;
        set->reset();
        return user;
    }
    return {};
}

quint16 workPlacesOf(TDatabase *users, int user)
{
    const auto set = users->prepare(QStringLiteral("select udv_kdv from bd_usrkdv where udv_usrid = :id"));
    set->bind(QStringLiteral("id"), user);
    set->exec();
    quint16 mask = 0;
    while (set->next())
        mask |= set->isNull(0) ? quint16(0) : quint16(set->integer(0) & 0xFFFF);
    return mask;
}

// A view-only user's main session is about to be opened read-only, his budget session too unless he may
// administer users.
void keepHistoryOf(TMainDatas &datas, const TCurrentUser &user)
{
    const TPerson person{user.name, QSysInfo::machineHostName()};
    if (!user.viewOnly)
        keepHistory(*datas.mnFin_Db(), person);
    if (!user.viewOnly || user.userAdmin)
        keepHistory(*datas.mnRavl(), person);
}

} // namespace

bool logIn(TMainDatas &datas, const QString &name, const QString &password)
{
    const QString login = name.trimmed();
    if (login.isEmpty())
        return false;
    std::optional<TCurrentUser> user = userOf(datas.mnRavl(), login, password);
    if (!user)
        return false;
    user->workPlaces = workPlacesOf(datas.mnRavl(), user->id);
    keepHistoryOf(datas, *user);
    CurrentUser() = *user;
    return true;
}

void RefreshRights()
{
    if (CurrentUser().id != 0)
        CurrentUser().workPlaces = workPlacesOf(MainDatas()->mnRavl(), CurrentUser().id);
}
