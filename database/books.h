#pragma once

#include "toolkit/data/database.h"

#include <QDir>
#include <QStringList>

// Where the books of one institution stand: two databases, reached by the sessions mnFin_Db and mnRavl.
//
// Embedded, they are two files of one folder. On a server they are two databases reached with the same
// connection words; the words fin= and ravl= name them when they are not called as usual.
struct TBooks {
    TSessionSettings fin;  // the main accounting database
    TSessionSettings ravl; // the budget database
};

namespace BooksNames {
inline constexpr char fin[] = "velmora_fin";
inline constexpr char ravl[] = "velmora_ravl";
} // namespace BooksNames

// The files velmora_fin.db and velmora_ravl.db of the folder. Nothing is opened or created.
inline TBooks embeddedBooks(const QString &folder)
{
    TBooks books;
    books.fin.alias = QStringLiteral("mnFin_Db");
    books.fin.file = QDir(folder).filePath(QLatin1String(BooksNames::fin) + QLatin1String(".db"));
    books.ravl.alias = QStringLiteral("mnRavl");
    books.ravl.file = QDir(folder).filePath(QLatin1String(BooksNames::ravl) + QLatin1String(".db"));
    return books;
}

// The key=value words of a connection text, each as it was written: a value between single quotes may hold
// blanks, and a backslash keeps the sign after it. Raises EConvertError when it is no list of such words.
inline QStringList connectionWords(const QString &connInfo)
{
    QStringList words;
    QString word;
    bool quoted = false;
    for (qsizetype i = 0; i < connInfo.size(); ++i) {
        const QChar c = connInfo.at(i);
        if (c.isSpace() && !quoted) {
            if (!word.isEmpty())
                words.append(word);
            word.clear();
            continue;
        }
        word += c;
        if (c == u'\'')
            quoted = !quoted;
        else if (c == u'\\' && i + 1 < connInfo.size())
            word += connInfo.at(++i);
    }
    if (!word.isEmpty())
        words.append(word);
    for (const QString &each : words) {
        if (quoted || each.indexOf(u'=') < 1)
            throw EConvertError(
                QStringLiteral("Neteisingi prisijungimo prie serverio žodžiai: reikia „vardas=reikšmė“."));
    }
    return words;
}

// Both databases of a server. The word dbname= is refused: the two databases are named by fin= and ravl=.
inline TBooks serverBooks(const QString &connInfo)
{
    QString fin = QLatin1String(BooksNames::fin);
    QString ravl = QLatin1String(BooksNames::ravl);
    QStringList common;
    for (const QString &word : connectionWords(connInfo)) {
        const QString name = word.section(u'=', 0, 0);
        if (name == u"fin")
            fin = word.section(u'=', 1);
        else if (name == u"ravl")
            ravl = word.section(u'=', 1);
        else if (name == u"dbname")
            throw EConvertError(
                QStringLiteral("Duomenų bazės nurodomos žodžiais fin= ir ravl=, ne dbname=."));
        else
            common.append(word);
    }
    TBooks books;
    const auto session = [&common](const QString &alias, const QString &database) {
        TSessionSettings settings;
        settings.alias = alias;
        settings.engine = Engine::PostgreSql;
        settings.connInfo = (common + QStringList{QStringLiteral("dbname=") + database}).join(u' ');
        return settings;
    };
    books.fin = session(QStringLiteral("mnFin_Db"), fin);
    books.ravl = session(QStringLiteral("mnRavl"), ravl);
    return books;
}
