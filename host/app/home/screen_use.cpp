#include "host/app/home/screen_use.h"

#include "host/common/settings_store.h"
#include "toolkit/data/database.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// What tells the books from others, and never the password that the words may hold.
QString addressOf(const TSessionSettings &settings)
{
    if (settings.engine == Engine::Sqlite)
        return QFileInfo(settings.file).absoluteFilePath();
    QStringList words;
    for (const QString &word : settings.connInfo.split(u' ', Qt::SkipEmptyParts))
        for (const QString &name : {u"host="_s, u"hostaddr="_s, u"port="_s, u"dbname="_s})
            if (word.startsWith(name))
                words << word;
    return words.join(u' ');
}

QString groupOf(const TDatabase &books)
{
    const QByteArray address = addressOf(books.settings()).toUtf8();
    return u"ScreenUse/"_s +
           QString::fromLatin1(
               QCryptographicHash::hash(address, QCryptographicHash::Sha256).toHex().first(16)) +
           u'/';
}

int countOf(const TDatabase &books, const QString &name)
{
    return settingsStore().value(groupOf(books) + name).toInt();
}

} // namespace

void countUse(const TDatabase &books, const TPackageEntry &entry)
{
    if (CanSave() && !entry.menu.isEmpty())
        settingsStore().setValue(groupOf(books) + entry.name, countOf(books, entry.name) + 1);
}

TPackageEntries mostUsed(const TDatabase &books, const TPackageEntries &entries, int atMost)
{
    std::vector<std::pair<int, const TPackageEntry *>> used;
    for (const TPackageEntry &entry : entries)
        if (const int count = entry.menu.isEmpty() ? 0 : countOf(books, entry.name))
            used.emplace_back(count, &entry);
    std::ranges::stable_sort(used, std::greater(), &std::pair<int, const TPackageEntry *>::first);
    TPackageEntries most;
    for (const auto &[count, entry] : used)
        if (int(most.size()) < atMost)
            most.push_back(*entry);
    return most;
}
