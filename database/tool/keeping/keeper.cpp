#include "database/tool/keeping/keeper.h"

#include "database/backups/archive.h"
#include "database/demo/demo.h"
#include "database/history.h"
#include "database/schema.h"
#include "database/tool/keeping/totals.h"
#include "toolkit/data/statement.h"
#include "toolkit/export/table_export.h"

#include <QDateTime>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

// Both databases, open.
struct TOpenBooks {
    explicit TOpenBooks(const TBooks &books) : fin(books.fin), ravl(books.ravl)
    {
        fin.Open();
        ravl.Open();
    }
    TDatabase fin;
    TDatabase ravl;
};

TBooks readOnly(TBooks books)
{
    books.fin.readOnly = true;
    books.ravl.readOnly = true;
    return books;
}

void refuseExisting(const QString &file)
{
    if (QFileInfo::exists(file))
        throw EFileError(u"Failas „%1“ jau yra."_s.arg(file));
}

// The columns of one of the tables that people fill, in their order.
QStringList columnsOf(TDatabase &db, const QString &table)
{
    const auto found = db.prepare(u"select column_name from syscolumn join systable on "
                                  "syscolumn.table_id = systable.table_id where table_name = :name "
                                  "order by column_id"_s);
    found->bind(u"name"_s, table);
    QStringList columns;
    for (found->exec(); found->next();)
        columns << found->value(0).toString();
    if (columns.isEmpty())
        throw EDatabaseError(u"Lentelės „%1“ biudžeto duomenų bazėje nėra."_s.arg(table));
    return columns;
}

void applySchema(TDatabase &db, Book book, const TProgress &progress)
{
    const QString title = QLatin1String(book == Book::Main ? BooksNames::fin : BooksNames::ravl);
    upgrade(db, book, [&](int number, int last) {
        progress(u"%1: redakcija %2 iš %3…"_s.arg(title).arg(number).arg(last));
    });
}

// Builds books aside with the given builder and puts them in place; whatever fails, nothing is left.
QStringList buildAside(TStore &store, const std::function<void()> &build)
{
    store.prepareAside();
    try {
        build();
        return store.adoptAside();
    } catch (const Exception &) {
        store.discardAside();
        throw;
    }
}

void createFilledBooks(TStore &store, const TProgress &progress,
                       const std::function<void(TOpenBooks &)> &fill)
{
    store.refuseWhenPresent();
    buildAside(store, [&] {
        TOpenBooks books(store.aside());
        applySchema(books.fin, Book::Main, progress);
        applySchema(books.ravl, Book::Budget, progress);
        fill(books);
    });
}

QString engineName(const TBooks &books)
{
    return books.fin.engine == Engine::Sqlite ? u"sqlite"_s : u"postgresql"_s;
}

QJsonObject totalsOf(const TSessionSettings &settings)
{
    TDatabase db(settings);
    db.Open();
    return controlTotals(db);
}

// A folder for the parts, in the given one.
QTemporaryDir partsFolder(const QString &place)
{
    QTemporaryDir folder(place + u"/velmora-XXXXXX"_s);
    if (!folder.isValid())
        throw EFileError(u"Nepavyko rašyti į katalogą „%1“: %2."_s.arg(place, folder.errorString()));
    return folder;
}

// The copy's own file is the engine's: on the embedded engine it can be opened, on a server it is loaded
// aside.
QJsonObject totalsOfCopy(TStore &store, TSessionSettings aside, const QString &part)
{
    if (aside.engine == Engine::Sqlite)
        aside.file = part;
    else
        store.load(part, aside);
    aside.readOnly = true;
    return totalsOf(aside);
}

// A server's copy is loaded aside to be read; the embedded engine reads the copy where it is.
class TRoomAside {
public:
    explicit TRoomAside(TStore &aStore) : store(aStore), needed(engineName(store.books()) != u"sqlite")
    {
        if (needed)
            store.prepareAside();
    }
    ~TRoomAside()
    {
        try {
            if (needed)
                store.discardAside();
        } catch (const Exception &) { // the next run removes what is left
        }
    }
    TRoomAside(const TRoomAside &) = delete;
    TRoomAside &operator=(const TRoomAside &) = delete;

private:
    TStore &store;
    bool needed;
};

// Where the parts of a backup are unpacked: beside the embedded books, which they become by a rename.
QString partsPlace(const TStore &store)
{
    return store.books().fin.engine == Engine::Sqlite ? QFileInfo(store.books().fin.file).absolutePath()
                                                      : QDir::tempPath();
}

struct TPartPlan {
    QString name;
    TSessionSettings source;
    TSessionSettings aside;
};

QList<TPartPlan> partsOf(const TStore &store)
{
    return {{QLatin1String(BooksNames::fin), store.books().fin, store.aside().fin},
            {QLatin1String(BooksNames::ravl), store.books().ravl, store.aside().ravl}};
}

void refuseOtherEngine(const TArchive &archive, const TStore &store)
{
    if (archive.engine != engineName(store.books()))
        throw EArchiveError(
            u"Atsarginė kopija padaryta kito variklio duomenų bazėje (%1) ir čia netinka."_s.arg(
                archive.engine));
    if (archive.parts.size() != 2)
        throw EArchiveError(u"Atsarginėje kopijoje turi būti dvi duomenų bazės."_s);
}

void refuseDifference(const QJsonObject &expected, const QJsonObject &found, const QString &name)
{
    for (auto table = expected.begin(); table != expected.end(); ++table) {
        if (found.value(table.key()) != table.value())
            throw EArchiveError(
                u"%1: atkurta lentelė „%2“ nesutampa su atsarginės kopijos kontrolinėmis sumomis."_s.arg(
                    name, table.key()));
    }
    if (expected.size() != found.size())
        throw EArchiveError(u"%1: atkurtos ne tos lentelės."_s.arg(name));
}

} // namespace

void createBooks(TStore &store, const TProgress &progress)
{
    createFilledBooks(store, progress, [](TOpenBooks &) {});
}

void createStandardBooks(TStore &store, const TSetUp &setUp, const TProgress &progress)
{
    createFilledBooks(store, progress, [&](TOpenBooks &books) {
        progress(u"Rašomi naujos įstaigos duomenys…"_s);
        const THistoryPause finPause(books.fin);
        const THistoryPause ravlPause(books.ravl);
        setUpBooks(books.fin, books.ravl, setUp);
    });
}

void createDemoBooks(TStore &store, int size, const TProgress &progress)
{
    createFilledBooks(store, progress,
                      [&](TOpenBooks &books) { fillDemoBooks(books.fin, books.ravl, size, progress); });
}

void upgradeBooks(TStore &store, const TProgress &progress)
{
    store.refuseWhenMissing();
    TOpenBooks books(store.books());
    applySchema(books.fin, Book::Main, progress);
    applySchema(books.ravl, Book::Budget, progress);
}

QStringList checkBooks(TStore &store, const TProgress &progress)
{
    store.refuseWhenMissing();
    TOpenBooks books(readOnly(store.books()));
    return findProblems(books.fin, books.ravl, progress);
}

qlonglong exportTableOf(TStore &store, const TTableChoice &choice, const QString &file,
                        const TProgress &progress)
{
    store.refuseWhenMissing();
    refuseExisting(file);
    TDatabase ravl(readOnly(store.books()).ravl);
    ravl.Open();
    const TTableExport table{choice.table, columnsOf(ravl, choice.table), choice.deletesFirst};
    progress(u"Rašoma lentelė „%1“…"_s.arg(choice.table));
    return (choice.escaped ? exportForReplay : exportTable)(ravl, table, file);
}

void backUpBooks(TStore &store, const QString &file, const TProgress &progress)
{
    store.refuseWhenMissing();
    refuseExisting(file);
    const QTemporaryDir folder = partsFolder(QFileInfo(file).absolutePath());
    TArchive archive{engineName(store.books()), QDateTime::currentDateTime().toString(Qt::ISODate), {}};
    QStringList files;
    const TRoomAside room(store);
    for (const TPartPlan &part : partsOf(store)) {
        progress(u"Kopijuojama duomenų bazė %1…"_s.arg(part.name));
        files.append(folder.filePath(part.name));
        store.dump(part.source, files.constLast());
        progress(u"Tikrinama kopija…"_s);
        archive.parts.append({part.name, 0, 0, {}, totalsOfCopy(store, part.aside, files.constLast())});
    }
    progress(u"Rašomas failas „%1“…"_s.arg(file));
    writeArchive(file, archive, files);
}

QStringList restoreBooks(TStore &store, const QString &file, const TProgress &progress)
{
    progress(u"Tikrinama atsarginė kopija „%1“…"_s.arg(file));
    const TArchive archive = readArchive(file);
    refuseOtherEngine(archive, store);
    return buildAside(store, [&] {
        const QTemporaryDir folder = partsFolder(partsPlace(store));
        const QList<TPartPlan> plans = partsOf(store);
        for (qsizetype i = 0; i < plans.size(); ++i) {
            progress(u"Atkuriama duomenų bazė %1…"_s.arg(plans.at(i).name));
            const QString part = folder.filePath(plans.at(i).name);
            extractPart(file, archive.parts.at(i), part);
            store.load(part, plans.at(i).aside);
            refuseDifference(archive.parts.at(i).totals, totalsOf(plans.at(i).aside), plans.at(i).name);
        }
        progress(u"Tikrinamos atkurtos duomenų bazės…"_s);
        TOpenBooks books(store.aside());
        for (const QString &problem : findProblems(books.fin, books.ravl, [](const QString &) {}))
            progress(u"Pastaba: "_s + problem);
    });
}
