#include "host/app/history/history_words.h"

#include "host/app/table_names.h"
#include "host/common/months.h"
#include "toolkit/data/statement.h"
#include "toolkit/text/format.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

// How a column is called and what kind it is of, or what the rows of a table are called by.
struct TWord {
    QString caption;
    QString kind;
};

constexpr auto flag = "taip"_L1;
constexpr auto technicalKey = "Raktas"_L1;

std::map<QString, TWord> readWords(const QString &resource)
{
    std::map<QString, TWord> words;
    QFile file(resource);
    const bool opened = file.open(QIODevice::ReadOnly);
    Q_ASSERT(opened);
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList parts = line.split(u'\t');
        words[parts.at(0)] = {parts.value(1), parts.value(2)};
    }
    return words;
}

const std::map<QString, TWord> &rowWords()
{
    static const auto words = readWords(u":/history/eilutes.tsv"_s);
    return words;
}

const std::map<QString, TWord> &columnWords()
{
    static const auto words = readWords(u":/history/stulpeliai.tsv"_s);
    return words;
}

TWord wordOf(const std::map<QString, TWord> &words, const QString &name)
{
    const auto found = words.find(name);
    return found == words.end() ? TWord{name, {}} : found->second;
}

QJsonObject objectOf(const QString &json)
{
    return QJsonDocument::fromJson(json.toUtf8()).object();
}

QString plainText(const QJsonValue &value, ColumnKind kind)
{
    if (value.isObject())
        return u"paveikslėlis (%1 B)"_s.arg(value[u"baitai"_s].toInteger());
    if (value.isDouble())
        return kind == ColumnKind::Number && value.toDouble() != qRound64(value.toDouble())
                   ? FormatFloat(u"0.00##"_s, value.toDouble())
                   : FloatToStr(value.toDouble());
    const QDate day = QDate::fromString(value.toString(), Qt::ISODate);
    return kind == ColumnKind::Date && day.isValid() ? day.toString(u"yyyy.MM.dd") : value.toString();
}

// The columns of both objects as the table has them, then what is no column: the totals of a routine.
QStringList columnsIn(const QStringList &ofTable, const QJsonObject &before, const QJsonObject &after)
{
    QStringList all = ofTable;
    for (const QJsonObject &object : {before, after})
        for (const QString &name : object.keys())
            if (!all.contains(name))
                all.prepend(name);
    all.removeIf([&](const QString &name) { return !before.contains(name) && !after.contains(name); });
    return all;
}

} // namespace

QList<std::pair<QString, QString>> THistoryWords::tables() const
{
    QList<std::pair<QString, QString>> found;
    const auto listed = db->prepare(u"select table_name from systable"_s);
    listed->exec();
    while (listed->next())
        found.append({listed->value(0).toString(), tableName(listed->value(0).toString())});
    std::ranges::sort(found, {}, &std::pair<QString, QString>::second);
    return found;
}

QString THistoryWords::column(const QString &name)
{
    return wordOf(columnWords(), name).caption;
}

QString THistoryWords::operation(const QString &letter)
{
    static const std::map<QString, QString> words{
        {u"I"_s, u"Įrašyta"_s}, {u"U"_s, u"Pakeista"_s}, {u"D"_s, u"Ištrinta"_s}, {u"R"_s, u"Perkelta"_s}};
    const auto found = words.find(letter);
    return found == words.end() ? letter : found->second;
}

const std::map<QString, THistoryWords::TReference> &THistoryWords::references()
{
    if (!known.empty())
        return known;
    const auto rows = db->prepare(u"select rys_stulpelis, rys_i_lentele, rys_i_stulpelis from sys_rysiai"_s);
    rows->exec();
    while (rows->next())
        known[rows->value(0).toString()] = {rows->value(1).toString(), rows->value(2).toString()};
    return known;
}

QString THistoryWords::referred(const TReference &to, const QVariant &key)
{
    std::shared_ptr<TColumnLookup> &texts = names[to.table];
    if (!texts)
        texts = std::make_shared<TColumnLookup>([this, to](const QVariant &asked) {
            if (to.table == u"bd_period") {
                const QVariant day = db->fieldResult(u"select GetDateByPeriodId(:id) as data from dummy"_s,
                                                     {{u"id"_s, asked}});
                return day.isNull() ? QString() : PeriodText(TDateTime(day.toDate()));
            }
            const auto name = rowWords().find(to.table);
            if (name == rowWords().end())
                return QString();
            return db
                ->fieldResult(
                    u"select %1 from %2 where %3 = :id"_s.arg(name->second.caption, to.table, to.key),
                    {{u"id"_s, asked}})
                .toString();
        });
    return texts->text(key);
}

QString THistoryWords::row(const QString &table, const QString &key)
{
    const QStringList columns = db->keyOf(table);
    const QString name =
        columns.size() == 1 && !key.isEmpty()
            ? referred({table, columns.first()},
                       db->kindOf(columns.first()) != ColumnKind::Number ? QVariant(key) : key.toLongLong())
            : QString();
    return name.isEmpty() ? key : name;
}

QString THistoryWords::value(const QString &name, const QJsonValue &value)
{
    if (value.isNull() || value.isUndefined())
        return {};
    if (wordOf(columnWords(), name).kind == flag)
        return value.toDouble() != 0 ? u"Taip"_s : u"Ne"_s;
    const auto reference = references().find(name);
    const QString called =
        reference == references().end() ? QString() : referred(reference->second, value.toVariant());
    return called.isEmpty() ? plainText(value, db->kindOf(name)) : called;
}

QString THistoryWords::changes(const QString &table, const QString &before, const QString &after)
{
    const QJsonObject was = objectOf(before);
    const QJsonObject is = objectOf(after);
    QStringList parts;
    for (const QString &name : columnsIn(db->columnNames(table), was, is)) {
        const QString caption = column(name);
        const QString old = value(name, was[name]);
        const QString present = value(name, is[name]);
        if ((caption == technicalKey && (was.isEmpty() || is.isEmpty())) ||
            (old.isEmpty() && present.isEmpty()))
            continue;
        if (was.isEmpty())
            parts.append(u"%1: „%2“"_s.arg(caption, present));
        else if (is.isEmpty())
            parts.append(u"%1: buvo „%2“"_s.arg(caption, old));
        else
            parts.append(u"%1: buvo „%2“, yra „%3“"_s.arg(caption, old, present));
    }
    return parts.join(u"; "_s);
}
