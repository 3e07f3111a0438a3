#include "database/backups/backup_folder.h"
#include "database/private_place.h"
#include "database/schema.h"
#include "database/tool/keeping/backup_place.h"
#include "database/tool/keeping/keeper.h"
#include "database/tool/keeping/native_query.h"
#include "database/tool/keeping/new_books.h"
#include "database/tool/keeping/totals.h"

#include <QDateTime>
#include <QFileInfo>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

// A change that somebody makes at the very moment of a copy of the embedded engine may be in it or not.
constexpr int copyAttempts = 5;

QString engineName(const TBooks &books)
{
    return books.fin.engine == Engine::Sqlite ? u"sqlite"_s : u"postgresql"_s;
}

// The copy, open to be read. The copy's own file is the engine's: on the embedded engine it can be opened, on
// a server it is loaded aside.
std::unique_ptr<TDatabase> openCopy(TStore &store, TSessionSettings aside, const QString &part)
{
    if (aside.engine == Engine::Sqlite)
        aside.file = part;
    else
        store.load(part, aside);
    aside.readOnly = true;
    auto copy = std::make_unique<TDatabase>(aside);
    copy->Open();
    return copy;
}

// Room aside that is given back at the end.
class TRoomAside {
public:
    TRoomAside(TStore &aStore, bool isNeeded) : store(aStore), needed(isNeeded)
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

// trouble: what is said of a table that differs, with its name to be put in.
void refuseDifference(const QJsonObject &expected, const QJsonObject &found, const QString &trouble)
{
    for (auto table = expected.begin(); table != expected.end(); ++table) {
        if (found.value(table.key()) != table.value())
            throw EArchiveError(trouble.arg(table.key()));
    }
    if (expected.size() != found.size())
        throw EArchiveError(trouble.arg(u"…"_s));
}

void refuseDamage(TDatabase &copy, const QString &name)
{
    if (copy.engine() != Engine::Sqlite)
        return;
    const QStringList answers = columnOf(copy, u"pragma integrity_check(1)"_s);
    if (answers != QStringList{u"ok"_s})
        throw EArchiveError(u"Duomenų bazės „%1“ kopija pažeista: %2"_s.arg(name, answers.join(u' ')));
}

void refuseNewerProgram(TDatabase &db)
{
    if (revisionOf(db) > latestRevision())
        throw EArchiveError(
            u"Atsarginė kopija padaryta naujesne programa (redakcija %1, o ši programa žino %2). "
            "Atnaujinkite programą."_s.arg(revisionOf(db))
                .arg(latestRevision()));
}

// What the main database says of whose books these are and how far they have come.
void describe(TDatabase &fin, TArchive &archive)
{
    archive.revision = revisionOf(fin);
    if (archive.revision == 0)
        return;
    archive.institution = columnOf(fin, u"select org_pavad from bd_org"_s).value(0).trimmed();
    eachRow(fin,
            u"select per_metai, per_ketv, per_menuo from bd_period where per_menuo > 0 order by per_id"_s,
            [&archive](const QSqlQuery &row) {
                archive.month =
                    u"%1-%2"_s.arg(row.value(0).toInt())
                        .arg((row.value(1).toInt() - 1) * 3 + row.value(2).toInt(), 2, 10, QLatin1Char('0'));
            });
}

// Copies one database into a file and adds what is to be said of it to the archive. The copy, open to be
// read.
std::unique_ptr<TDatabase> copyDatabase(TStore &store, const TPartPlan &part, const QString &file,
                                        TArchive &archive, const TProgress &progress)
{
    const int attempts = store.books().fin.engine == Engine::Sqlite ? copyAttempts : 1;
    for (int attempt = 1;; ++attempt) {
        progress(u"Kopijuojama duomenų bazė %1…"_s.arg(part.name));
        const QJsonObject totals = store.dump(part.source, file);
        progress(u"Tikrinama kopija…"_s);
        std::unique_ptr<TDatabase> copy = openCopy(store, part.aside, file);
        refuseDamage(*copy, part.name);
        const QJsonObject copied = controlTotals(*copy);
        if (copied != totals && attempt < attempts)
            continue;
        refuseDifference(totals, copied,
                         u"%1: lentelės „%2“ kopija nesutampa su pačia lentele."_s.arg(part.name, u"%1"_s));
        archive.parts.append({part.name, 0, 0, {}, copied});
        return copy;
    }
}

// Copies both databases into files of the folder and compares each copy, as it can be read, with what was
// copied. What is to be said of them; their names are added to files.
TArchive copyBooks(TStore &store, const TBackupPlace &folder, QStringList &files, const TProgress &progress)
{
    TArchive archive{.engine = engineName(store.books()),
                     .createdAt = QDateTime::currentDateTime().toString(Qt::ISODate)};
    // The embedded engine reads the copy where it is.
    const TRoomAside room(store, store.books().fin.engine != Engine::Sqlite);
    for (const TPartPlan &part : partsOf(store)) {
        files.append(folder.part(part.name));
        const auto copy = copyDatabase(store, part, files.constLast(), archive, progress);
        if (archive.parts.size() == 1)
            describe(*copy, archive);
    }
    return archive;
}

// Loads a backup aside and compares it with the control totals that it brings.
void buildFrom(TStore &store, const QString &file, const TArchive &archive, const TProgress &progress)
{
    const TPartsFolder folder(store.partsFolder());
    const QList<TPartPlan> plans = partsOf(store);
    for (qsizetype i = 0; i < plans.size(); ++i) {
        progress(u"Atkuriama duomenų bazė %1…"_s.arg(plans.at(i).name));
        const QString part = folder.filePath(plans.at(i).name);
        extractPart(file, archive.parts.at(i), part);
        store.load(part, plans.at(i).aside);
        TDatabase db(plans.at(i).aside);
        db.Open();
        refuseDamage(db, plans.at(i).name);
        refuseNewerProgram(db);
        refuseDifference(archive.parts.at(i).totals, controlTotals(db),
                         u"%1: atkurta lentelė „%2“ nesutampa su atsarginės kopijos kontrolinėmis "
                         "sumomis."_s.arg(plans.at(i).name, u"%1"_s));
    }
    progress(u"Tikrinamos atkurtos duomenų bazės…"_s);
    TOpenBooks books(store.aside());
    for (const QString &problem : findProblems(books.fin, books.ravl, [](const QString &) {}))
        progress(u"Pastaba: "_s + problem);
}

TArchive readFitting(const TStore &store, const QString &file, const TProgress &progress)
{
    progress(u"Tikrinama atsarginė kopija „%1“…"_s.arg(file));
    TArchive archive = readArchive(file);
    refuseOtherEngine(archive, store);
    return archive;
}

void removeSurplus(const QString &folder, const TProgress &progress)
{
    for (const TBackup &old : surplusOf(backupsIn(folder), QDateTime::currentDateTime())) {
        QFile file(old.file);
        progress(file.remove()
                     ? u"Pašalinta sena kopija „%1“."_s.arg(old.file)
                     : u"Nepavyko pašalinti senos kopijos „%1“: %2."_s.arg(old.file, fileTrouble(file)));
    }
}

// A name of a moment that no other backup has: two of one second would not sort as they were made.
QString freeName(const QString &folder, BackupKind kind, const QString &month)
{
    QSet<QDateTime> taken;
    for (const TBackup &backup : backupsIn(folder))
        taken.insert(backup.made);
    QDateTime moment = QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch());
    while (taken.contains(moment))
        moment = moment.addSecs(1);
    return QDir(folder).filePath(backupName(kind, moment, month));
}

QString todaysBackup(const QString &folder)
{
    for (const TBackup &backup : backupsIn(folder))
        if (backup.kind == BackupKind::Day && backup.sound() && backup.made.date() == QDate::currentDate())
            return backup.file;
    return {};
}

} // namespace

void backUpBooks(TStore &store, const QString &file, const TProgress &progress)
{
    store.refuseWhenMissing();
    const TBackupPlace folder(QFileInfo(file).absolutePath());
    refuseExisting(file);
    QStringList files;
    const TArchive archive = copyBooks(store, folder, files, progress);
    progress(u"Rašomas failas „%1“…"_s.arg(file));
    writeArchive(file, archive, files);
}

QString keepBackup(TStore &store, BackupKind kind, const QString &folder, const TProgress &progress)
{
    store.refuseWhenMissing();
    if (!makePrivateFolder(folder))
        throw EFileError(u"Nepavyko sukurti aplanko „%1“."_s.arg(folder));
    const TBackupPlace place(folder);
    if (const QString made = kind == BackupKind::Day ? todaysBackup(folder) : QString(); !made.isEmpty()) {
        progress(u"Šios dienos atsarginė kopija jau padaryta."_s);
        return made;
    }
    QStringList files;
    const TArchive archive = copyBooks(store, place, files, progress);
    const QString file = freeName(folder, kind, archive.month);
    progress(u"Rašomas failas „%1“…"_s.arg(file));
    writeArchive(file, archive, files);
    removeSurplus(folder, progress);
    return file;
}

void verifyBackup(TStore &store, const QString &file, const TProgress &progress)
{
    const TArchive archive = readFitting(store, file, progress);
    const TRoomAside room(store, true);
    buildFrom(store, file, archive, progress);
}

QStringList restoreBooks(TStore &store, const QString &file, const TProgress &progress)
{
    const TArchive archive = readFitting(store, file, progress);
    const QStringList kept = buildAside(store, [&] { buildFrom(store, file, archive, progress); });
    setUpLogins(store, progress);
    return kept;
}
