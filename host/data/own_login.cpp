#include "host/data/own_login.h"

#include "host/data/main_datas.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isWord(const QString &word, const QString &name)
{
    return word.section(u'=', 0, 0) == name;
}

// The server calls a login as the books do, in small letters.
QString userWord(const QString &login)
{
    return u"user="_s + quotedWord(login.trimmed().toLower());
}

} // namespace

bool haveOwnLogins(const TBooksSettings &books)
{
    const QStringList words = connectionWords(books.connection);
    return !books.isEmbedded() && std::none_of(words.begin(), words.end(),
                                               [](const QString &word) { return isWord(word, u"user"_s); });
}

TBooksSettings booksAs(const TBooksSettings &books, const QString &login, const QString &password)
{
    QStringList words = connectionWords(books.connection);
    words.removeIf([](const QString &word) { return isWord(word, u"password"_s); });
    words << userWord(login) << u"password="_s + quotedWord(password);
    return {{}, words.join(u' ')};
}

bool hasOwnLogin()
{
    return MainDatas() && MainDatas()->mnFin_Db()->engine() == Engine::PostgreSql &&
           connectionWords(MainDatas()->mnFin_Db()->settings().connInfo)
               .contains(userWord(CurrentUser().name));
}

QString quotedWord(QString value)
{
    value.replace(u'\\', u"\\\\"_s).replace(u'\'', u"\\'"_s);
    return u'\'' + value + u'\'';
}
