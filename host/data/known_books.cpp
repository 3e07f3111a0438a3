#include "host/data/known_books.h"

#include "database/backups/replacement.h"
#include "database/private_place.h"
#include "database/schema.h"
#include "host/data/settings_file.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>

#include <algorithm>

using namespace Qt::StringLiterals;

// The file has one entry on each line, an object of texts: so one that is damaged harms no other, and can be
// kept as it is. A sum over its texts tells a folder that damage made another folder of. An entry that
// somebody writes by hand goes without.

namespace {

constexpr int lockWaitMs = 10'000;
constexpr auto nameKey = "name"_L1;
constexpr auto folderKey = "folder"_L1;
constexpr auto serverKey = "server"_L1;
constexpr auto sumKey = "sum"_L1;
constexpr int bytesOfSum = 8;
constexpr int bytesOfKey = 16;

[[noreturn]] void refuse(const QString &file, const QString &why)
{
    throw EConvertError(u"Įstaigų sąrašas „%1“: %2."_s.arg(QDir::toNativeSeparators(file), why));
}

QString hashOf(const QByteArray &text, qsizetype bytes)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(text, QCryptographicHash::Sha256).first(bytes).toHex());
}

// Of all texts of the entry but the sum itself.
QString sumOf(QJsonObject entry)
{
    entry.remove(sumKey);
    return hashOf(QJsonDocument(entry).toJson(QJsonDocument::Compact), bytesOfSum);
}

bool isSecret(const QString &word)
{
    return word.section(u'=', 0, 0).contains("password"_L1, Qt::CaseInsensitive);
}

// Raises EConvertError with what is wrong.
void requireKnownTexts(const QJsonObject &entry)
{
    for (auto each = entry.begin(); each != entry.end(); ++each) {
        if (each.key() != nameKey && each.key() != folderKey && each.key() != serverKey &&
            each.key() != sumKey)
            throw EConvertError(u"Įraše yra nežinomas žodis „%1“."_s.arg(each.key()));
        if (!each.value().isString())
            throw EConvertError(u"Įrašo reikšmė „%1“ yra ne tekstas."_s.arg(each.key()));
    }
}

// Raises EConvertError with what is wrong.
TBooksSettings booksOf(const QJsonObject &entry)
{
    requireKnownTexts(entry);
    if (entry.contains(sumKey) && entry.value(sumKey).toString() != sumOf(entry))
        throw EConvertError(u"Įrašas pakeistas ne programos: jo kontrolinė suma kita."_s);
    TBooksSettings books{entry.value(folderKey).toString(), entry.value(serverKey).toString()};
    if (books.folder.isEmpty() == books.connection.isEmpty())
        throw EConvertError(u"Įraše turi būti nurodytas aplankas arba serveris."_s);
    if (books.isEmbedded() && QDir::isRelativePath(books.folder))
        throw EConvertError(u"Įraše nurodytas ne visas kelias iki aplanko."_s);
    books.books();
    return books;
}

TKnownBooks entryOf(const QByteArray &line)
{
    const QJsonDocument read = QJsonDocument::fromJson(line);
    if (!read.isObject())
        return {.damage = u"Įrašas sugadintas."_s, .line = line};
    TKnownBooks entry{.name = read[nameKey].toString()};
    try {
        entry.books = booksOf(read.object());
    } catch (const EConvertError &error) {
        entry.damage = error.message();
        entry.line = line;
    }
    return entry;
}

// The same from wherever the program is started.
QString wholePath(const QString &folder)
{
    return QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
}

QByteArray lineOf(const TKnownBooks &entry)
{
    if (!entry.readable())
        return entry.line;
    const bool embedded = entry.books.isEmbedded();
    QJsonObject object{{nameKey, entry.name},
                       {embedded ? folderKey : serverKey,
                        embedded ? wholePath(entry.books.folder) : entry.books.connection}};
    object.insert(sumKey, sumOf(object));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

bool isSame(const TKnownBooks &left, const TKnownBooks &right)
{
    if (left.readable() != right.readable())
        return false;
    return left.readable() ? placeOf(left.books) == placeOf(right.books) : left.line == right.line;
}

// Reads, changes and writes the list while no other program does.
void change(const QString &file, const std::function<void(QList<TKnownBooks> &)> &step)
{
    makePrivateFolder(QFileInfo(file).absolutePath());
    QLockFile lock(file + u".lock"_s);
    if (!lock.tryLock(lockWaitMs))
        refuse(file, lock.error() == QLockFile::LockFailedError ? u"jį keičia kita programa"_s
                                                                : u"jo negalima įrašyti"_s);
    QList<TKnownBooks> list = readKnownBooks(file);
    step(list);
    writeKnownBooks(file, list);
}

void takeOut(QList<TKnownBooks> &list, const TKnownBooks &known)
{
    list.removeIf([&known](const TKnownBooks &each) { return isSame(each, known); });
}

} // namespace

QString placeOf(const TBooksSettings &books)
{
    if (books.isEmbedded())
        return QDir::toNativeSeparators(wholePath(books.folder));
    QStringList words = connectionWords(books.connection);
    words.removeIf(isSecret);
    return words.join(u' ');
}

QString keyOf(const TBooksSettings &books)
{
    const QString place = (books.isEmbedded() ? folderKey : serverKey) + u' ' + placeOf(books);
    return hashOf(place.toUtf8(), bytesOfKey);
}

void requireThere(const TKnownBooks &known)
{
    if (!known.readable())
        throw EConvertError(u"%1 Nežinia, kur šios įstaigos knygos: pamirškite įrašą ir įstaigą pridėkite iš "
                            "naujo."_s.arg(known.damage));
    if (known.books.isEmbedded() && !embeddedBooksExist(known.books.folder))
        throw EDatabaseError(u"Aplanke „%1“ įstaigos „%2“ knygų nėra. Gal neprijungtas diskas arba aplankas "
                             "perkeltas kitur."_s.arg(placeOf(known.books), known.name));
}

QString nameInBooks(const TBooksSettings &books)
{
    if (books.isEmbedded())
        finishReplacement(books.folder);
    TSessionSettings settings = books.books().fin;
    settings.readOnly = true;
    TDatabase fin(settings);
    fin.Open();
    if (revisionOf(fin) == 0)
        throw EDatabaseError(u"„%1“: tai ne šios programos knygos."_s.arg(placeOf(books)));
    return fin.fieldResult(u"select org_pavad from bd_org"_s).toString().trimmed();
}

QList<TKnownBooks> readKnownBooks(const QString &file)
{
    const QFileInfo info(file);
    if (!info.exists())
        return {};
    QFile in(file);
    if (!info.isFile() || !in.open(QIODevice::ReadOnly))
        refuse(file, u"jo negalima perskaityti"_s);
    QList<TKnownBooks> list;
    for (const QByteArray &line : in.readAll().split('\n')) {
        if (!line.trimmed().isEmpty())
            list.append(entryOf(line));
    }
    if (in.error() != QFile::NoError || info.size() == 0)
        refuse(file, u"jo negalima perskaityti"_s);
    return list;
}

void writeKnownBooks(const QString &file, const QList<TKnownBooks> &list)
{
    QByteArray content(list.isEmpty() ? "\n" : ""); // an empty file is one that was lost
    for (const TKnownBooks &entry : list)
        content += lineOf(entry) + '\n';
    writeSettingsFile(file, content);
}

void rememberBooks(const QString &file, const TKnownBooks &known)
{
    change(file, [&known](QList<TKnownBooks> &list) {
        takeOut(list, known);
        list.prepend(known);
    });
}

void forgetBooks(const QString &file, const TKnownBooks &known)
{
    change(file, [&known](QList<TKnownBooks> &list) { takeOut(list, known); });
}
