#include "host/data/main_datas.h"

#include "database/backups/replacement.h"
#include "database/schema.h"
#include "database/sqlite_routines.h"
#include "host/common/forms.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<TMainDatas> &current()
{
    static std::unique_ptr<TMainDatas> datas;
    return datas;
}

// SQLite would make an empty database out of a missing file: that would be other books than the ones asked
// for.
void requireFile(const TSessionSettings &settings)
{
    if (settings.engine != Engine::Sqlite)
        return;
    finishReplacement(QFileInfo(settings.file).absolutePath());
    if (!QFileInfo(settings.file).isFile())
        throw EDatabaseError(
            u"Nėra duomenų bazės failo „%1“."_s.arg(QDir::toNativeSeparators(settings.file)));
}

// How the user calls the books of a session.
QString booksName(const TDatabase &database)
{
    return database.AliasName() == u"mnRavl" ? u"vartotojų ir biudžeto knygos"_s : u"apskaitos knygos"_s;
}

void requireSchema(TDatabase &database)
{
    const int revision = revisionOf(database);
    const QString books = booksName(database);
    if (revision > latestRevision())
        throw ENewerDatabase(
            u"Atnaujinkite programą šioje darbo vietoje: knygos atnaujintos naujesne programa "
            "(%1: versija %2, ši programa žino %3)."_s.arg(books)
                .arg(revision)
                .arg(latestRevision()));
    if (revision == 0)
        throw EDatabaseError(u"Kreipkitės į knygų prižiūrėtoją: nėra programos lentelių (%1; jas sukuria "
                             "„velmora-db upgrade“)."_s.arg(books));
    if (revision < latestRevision())
        throw EOlderDatabase(u"Kreipkitės į knygų prižiūrėtoją: knygos senesnės už šią programą, jas reikia "
                             "atnaujinti (%1: versija %2 iš %3; „velmora-db upgrade“)."_s.arg(books)
                                 .arg(revision)
                                 .arg(latestRevision()));
}

void openChecked(TDatabase &database)
{
    requireFile(database.settings());
    database.Open();
    requireSchema(database);
}

std::unique_ptr<TDatabase> readOnlyCopy(const TDatabase &database)
{
    TSessionSettings settings = database.settings();
    settings.readOnly = true;
    auto copy = std::make_unique<TDatabase>(settings);
    copy->Open();
    return copy;
}

// Made for the first that asks.
TQuery *shared(std::unique_ptr<TQuery> &set, TDatabase *database, const QString &sql)
{
    if (!set)
        set = std::make_unique<TQuery>(database, sql);
    return set.get();
}

void reopen(TQuery &set)
{
    if (!set.Active())
        return;
    set.Close();
    set.Open();
}

} // namespace

TCurrentUser &CurrentUser()
{
    static TCurrentUser user;
    return user;
}

TMainDatas::TMainDatas(TSessionSettings mainSettings, TSessionSettings budgetSettings)
{
    TDatabase::setSqliteTeacher(teachSqlite);
    TDatabase::setBusyHook(paintWhileBusy);
    main = std::make_unique<TDatabase>(std::move(mainSettings));
    budget = std::make_unique<TDatabase>(std::move(budgetSettings));
}

TMainDatas::~TMainDatas() = default;

void TMainDatas::Open()
{
    try {
        openChecked(*main);
        openChecked(*budget);
    } catch (...) {
        main->Close();
        budget->Close();
        throw;
    }
    if (MainDatas() == this)
        GetPeriod();
}

TDatabase *TMainDatas::mnFin_Db()
{
    return main.get();
}

TDatabase *TMainDatas::mnRavl()
{
    return budget.get();
}

TQuery *TMainDatas::Tarn()
{
    return shared(tarn, main.get(), u"select * from bd_tarn order by trn_id"_s);
}

void TMainDatas::RefreshTarn()
{
    reopen(*Tarn());
}

TQuery *TMainDatas::Veikl()
{
    return shared(veikl, main.get(), u"select VKL_PAVAD, VKL_ID from du_veikl order by vkl_pavad"_s);
}

void TMainDatas::RefreshVeikl()
{
    reopen(*Veikl());
}

void TMainDatas::makeReadOnly()
{
    auto newMain = readOnlyCopy(*main);
    if (!CurrentUser().userAdmin)
        budget = readOnlyCopy(*budget);
    tarn.reset();
    veikl.reset();
    main = std::move(newMain);
}

TMainDatas *MainDatas()
{
    return current().get();
}

void setMainDatas(std::unique_ptr<TMainDatas> datas)
{
    current() = std::move(datas);
    if (!MainDatas() || MainDatas()->mnFin_Db()->Connected())
        GetPeriod();
}
