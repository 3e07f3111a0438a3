#pragma once

#include "tests/support/files.h"

#include <QDate>
#include <QDir>
#include <QVariantMap>

#include <stdexcept>

// One statement of the corpus; README.md beside this file tells the format.
struct CorpusEntry {
    QString file;
    QString screen;
    QString session; // mnFin_Db, mnRavl or both
    QVariantMap parameters;
    QString statement;

    bool runsOn(const QString &alias) const { return session == alias || session == u"both"; }
};

inline QVariant corpusValue(const QString &text)
{
    if (text == u"null")
        return {};
    if (text.startsWith(u'\''))
        return text.mid(1, text.size() - 2).replace(QStringLiteral("''"), QStringLiteral("'"));
    if (const QDate date = QDate::fromString(text, Qt::ISODate); date.isValid())
        return date;
    bool number = false;
    const double value = text.toDouble(&number);
    if (!number)
        throw std::runtime_error("a value of the corpus cannot be read: " + text.toStdString());
    return value;
}

// Reads the entries of one file; a line that fits nowhere is an error.
inline QList<CorpusEntry> corpusFile(const QString &file)
{
    QList<CorpusEntry> entries;
    CorpusEntry entry;
    entry.file = file;
    bool inside = false;
    const QStringList lines =
        QString::fromUtf8(contentOf(sourceFolder() + QStringLiteral("/tests/corpus/") + file)).split(u'\n');
    for (const QString &line : lines) {
        if (line == u";;") {
            entries.append(std::exchange(entry, CorpusEntry{file, {}, {}, {}, {}}));
            inside = false;
        } else if (!inside && line.startsWith(u"-- screen: ")) {
            entry.screen = line.section(QStringLiteral(": "), 1, 1).section(u',', 0, 0);
            entry.session = line.section(QStringLiteral("session: "), 1);
        } else if (!inside && line.startsWith(u"-- param ")) {
            const QString name = line.section(u' ', 2, 2);
            entry.parameters.insert(name, corpusValue(line.section(QStringLiteral(" = "), 1)));
        } else if (inside || !line.isEmpty()) {
            if (entry.screen.isEmpty() || entry.session.isEmpty())
                throw std::runtime_error("a statement of no screen in " + file.toStdString());
            entry.statement += inside ? u'\n' + line : line;
            inside = true;
        }
    }
    if (inside)
        throw std::runtime_error("no ;; after the last statement of " + file.toStdString());
    return entries;
}

// The rows that the other statements find.
inline QList<CorpusEntry> corpusRows()
{
    return corpusFile(QStringLiteral("rows.sql"));
}

// Every statement of every screen.
inline QList<CorpusEntry> corpusEntries()
{
    QList<CorpusEntry> entries;
    const QDir folder(sourceFolder() + QStringLiteral("/tests/corpus"));
    for (const QString &file : folder.entryList({QStringLiteral("*.sql")}, QDir::Files, QDir::Name)) {
        if (file != u"rows.sql")
            entries.append(corpusFile(file));
    }
    return entries;
}
