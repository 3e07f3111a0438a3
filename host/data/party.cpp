#include "host/data/party.h"

#include "toolkit/data/statement.h"
#include "toolkit/sql/sort_key.h"
#include "toolkit/text/collation.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString parties = u"select dka_id, dka_kod, dka_pavad, dka_i_kod, dka_sasid from bd_dbkrasm where "_s;
const QString nameKey = u"lt_raktas(dka_pavad)"_s;
const QString foldedName = u"replace(lt_raktas(dka_pavad), '~', '')"_s;
constexpr int longestCompanyCode = 11;
const QChar afterAllOthers(0xFFFD);

QString textAt(const TStatement &set, int column)
{
    return QString::fromUtf8(set.utf8(column));
}

TParty partyAt(const TStatement &set)
{
    TParty party;
    party.id = set.number(0);
    party.code = textAt(set, 1);
    party.name = textAt(set, 2);
    party.companyCode = set.isNull(3) ? Variant() : Variant(set.integer(3));
    party.account = set.isNull(4) ? 0 : set.number(4);
    return party;
}

// The name's sort key in the words of the index over it: only so it is found without reading all names.
TranslatedSql worded(TDatabase *database, const QString &statement)
{
    TranslatedSql sql = database->translator().translate(statement);
    sql.text.replace(nameKey, database->engine() == Engine::Sqlite ? sortKeyExpression(u"dka_pavad"_s)
                                                                   : nameKey + u" collate \"C\""_s);
    return sql;
}

// Appends rows that are not there yet, until there are so many.
void readParties(TDatabase *database, const TranslatedSql &sql, const QVariantMap &values, int limit,
                 QList<TParty> &found)
{
    const auto set = database->prepareNative(sql, TDatabase::Connection::Reading);
    for (auto value = values.begin(); value != values.end(); ++value)
        set->bind(value.key(), value.value());
    set->exec();
    while (found.size() < limit && set->next()) {
        const TParty party = partyAt(*set);
        if (std::none_of(found.begin(), found.end(), [&](const TParty &each) { return each.id == party.id; }))
            found.append(party);
    }
    set->reset();
}

void readParties(TDatabase *database, const QString &statement, const QVariantMap &values, int limit,
                 QList<TParty> &found)
{
    readParties(database, database->translator().translate(statement), values, limit, found);
}

// The whole numbers whose digits begin with those of the text, as conditions over an indexed column.
QString beginningWith(const QString &digits, QVariantMap &values)
{
    QStringList ranges;
    qlonglong from = digits.toLongLong();
    qlonglong width = 1;
    for (qsizetype length = digits.size(); length <= longestCompanyCode; ++length) {
        const QString number = QString::number(length);
        ranges.append(u"dka_i_kod between :nuo%1 and :iki%1"_s.arg(number));
        values.insert(u"nuo"_s + number, from);
        values.insert(u"iki"_s + number, from + width - 1);
        from *= 10;
        width *= 10;
    }
    return u'(' + ranges.join(u" or "_s) + u')';
}

bool isCompanyCode(const QString &text)
{
    return !text.isEmpty() && text.size() <= longestCompanyCode && text.front() != u'0' &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

} // namespace

QString TParty::textOf(const QString &column) const
{
    if (column.compare(u"dka_i_kod"_s, Qt::CaseInsensitive) == 0)
        return companyCode.isNull() ? QString() : QString::number(companyCode.toLongLong());
    return column.compare(u"dka_kod"_s, Qt::CaseInsensitive) == 0 ? code : name;
}

QString TParty::label() const
{
    const QString company = textOf(u"dka_i_kod"_s);
    return code + u"  "_s + name + (company.isEmpty() ? QString() : u", "_s + company);
}

std::optional<TParty> findParty(TDatabase *database, double id)
{
    const auto set = database->prepare(parties + u"dka_id = :id"_s);
    set->bind(u"id"_s, id);
    set->exec();
    if (!set->next())
        return {};
    const TParty party = partyAt(*set);
    set->reset();
    return party;
}

QList<TParty> partiesOf(TDatabase *database, const QString &column, const QString &text)
{
    QList<TParty> found;
    const QString wanted = text.trimmed();
    if (column.compare(u"dka_i_kod"_s, Qt::CaseInsensitive) == 0) {
        if (isCompanyCode(wanted))
            readParties(database, parties + u"dka_i_kod = :kodas"_s, {{u"kodas"_s, wanted.toLongLong()}}, 2,
                        found);
    } else if (column.compare(u"dka_kod"_s, Qt::CaseInsensitive) == 0) {
        readParties(database, parties + u"dka_kod = :kodas"_s, {{u"kodas"_s, wanted}}, 2, found);
    } else {
        readParties(database, worded(database, parties + nameKey + u" = :vardas"_s),
                    {{u"vardas"_s, lithuanianSortKey(wanted)}}, 2, found);
    }
    return found;
}

QList<TParty> partiesLike(TDatabase *database, const QString &text, int limit)
{
    QList<TParty> found;
    const QString wanted = text.trimmed();
    if (wanted.isEmpty()) {
        readParties(database, parties + u"dka_id > 0 order by dka_pavad"_s, {}, limit, found);
        return found;
    }
    for (const QString &code : QStringList{wanted, wanted.toUpper()})
        readParties(database, parties + u"dka_kod >= :nuo and dka_kod < :iki order by dka_kod"_s,
                    {{u"nuo"_s, code}, {u"iki"_s, code + afterAllOthers}}, limit, found);
    if (isCompanyCode(wanted)) {
        QVariantMap values;
        const QString condition = beginningWith(wanted, values);
        readParties(database, parties + condition + u" order by dka_i_kod"_s, values, limit, found);
    }
    QStringList conditions;
    QVariantMap values;
    for (const QString &word : foldForSearch(wanted).split(u' ', Qt::SkipEmptyParts)) {
        const QString name = u"zodis%1"_s.arg(values.size());
        conditions.append(foldedName + u" like :"_s + name);
        values.insert(name, u'%' + word + u'%');
    }
    readParties(database, parties + conditions.join(u" and "_s) + u" order by dka_pavad"_s, values, limit,
                found);
    return found;
}
