#include "host/data/login.h"

#include "database/history.h"
#include "host/data/own_login.h"
#include "toolkit/data/statement.h"

#include <optional>

namespace {

QString text(const TStatement &set, int column)
{
    return QString::fromUtf8(set.utf8(column));
}

const QString userColumns =
    QStringLiteral("usr_id, usr_name, usr_vardas, usr_pavarde, usr_perziurai, usr_user_admin");
constexpr int passwordColumn = 6;

// The user whose row stands there.
TCurrentUser userAt(const TStatement &set)
{
    TCurrentUser user;
    user.id = int(set.integer(0));
    user.name = text(set, 1).trimmed();
    user.fullName = QStringLiteral("%1 %2").arg(text(set, 2), text(set, 3)).simplified();
    user.viewOnly = !set.isNull(4) && set.integer(4) == 1;
    user.userAdmin = !set.isNull(5) && set.integer(5) == 1;
    return user;
}

// Names are compared here and not by the engine: an engine may not know the capital of every letter. Without
// a password the server has checked it already, and not everybody may read it there.
std::optional<TCurrentUser> userOf(TDatabase *users, const QString &name,
                                   const std::optional<QString> &password = {})
{
    const auto set =
        users->prepare(QStringLiteral("select %1%2 from bd_usr order by usr_id")
                           .arg(userColumns, password ? QStringLiteral(", usr_pasw") : QString()));
    set->exec();
    while (set->next()) {
        if (text(*set, 1).trimmed().compare(name, Qt::CaseInsensitive) != 0 ||
            (password && text(*set, passwordColumn) != *password))
            continue;
        const TCurrentUser user = userAt(*set);
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

void enter(TMainDatas &datas, TCurrentUser user)
{
    user.workPlaces = workPlacesOf(datas.mnRavl(), user.id);
    keepHistoryOf(datas, user);
    CurrentUser() = user;
}

// The server tells these refusals in its own words only.
bool saysThat(const EDatabaseError &error, const char *words)
{
    return error.serverText.contains(QLatin1String(words));
}

[[noreturn]] void tellNoRights(const EDatabaseError &error)
{
    throw EDatabaseError(QStringLiteral("Serveris jus priėmė, bet teisių dirbti su šiomis knygomis neturite. "
                                        "Kreipkitės į vartotojų administratorių."),
                         error.serverText, error.statement);
}

} // namespace

bool logIn(TMainDatas &datas, const QString &name, const QString &password)
{
    const QString login = name.trimmed();
    if (login.isEmpty())
        return false;
    const std::optional<TCurrentUser> user = userOf(datas.mnRavl(), login, password);
    if (user)
        enter(datas, *user);
    return user.has_value();
}

bool logIn(const TBooksSettings &settings, const QString &name, const QString &password)
try {
    const QString login = name.trimmed();
    if (login.isEmpty() || password.isEmpty())
        return false;
    const TBooks books = booksAs(settings, login, password).books();
    auto datas = std::make_unique<TMainDatas>(books.fin, books.ravl);
    datas->Open();
    const std::optional<TCurrentUser> user = userOf(datas->mnRavl(), login);
    if (!user)
        throw EDatabaseError(
            QStringLiteral("Serveris jus priėmė, bet tarp šių knygų vartotojų vardo „%1“ nėra. Kreipkitės į "
                           "vartotojų administratorių.")
                .arg(login));
    enter(*datas, *user);
    setMainDatas(std::move(datas));
    return true;
} catch (const EDatabaseError &error) {
    if (saysThat(error, "password authentication failed"))
        return false;
    if (saysThat(error, "permission denied"))
        tellNoRights(error);
    throw;
}

void RefreshRights()
{
    if (CurrentUser().id != 0)
        CurrentUser().workPlaces = workPlacesOf(MainDatas()->mnRavl(), CurrentUser().id);
}
