#include "tests/corpus/corpus.h"
#include "tests/toolkit/sql/sample_catalog.h"
#include "toolkit/sql/sort_key.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include <random>

// Random and damaged statements. Whatever comes in, a translation ends soon, either understood or refused,
// and an understood one carries every literal and comment of the wording unchanged.
//
// VELMORA_SQL_PROPERTY_SECONDS makes a run longer, VELMORA_SQL_PROPERTY_SEED repeats or varies it.

using namespace Qt::StringLiterals;

namespace {

// The literals and comments of a text, found by a reader of its own.
struct Quoted {
    QStringList literals; // with the quotes inside undoubled
    QStringList comments; // with their marks
};

qsizetype endOfQuote(const QString &text, qsizetype from)
{
    const QChar quote = text.at(from);
    for (qsizetype i = from + 1; i < text.size(); ++i) {
        if (text.at(i) == quote) {
            if (i + 1 >= text.size() || text.at(i + 1) != quote)
                return i + 1;
            ++i;
        }
    }
    return text.size();
}

Quoted quotedOf(const QString &text, bool doubleQuotesToo)
{
    Quoted found;
    for (qsizetype i = 0; i < text.size();) {
        const QChar c = text.at(i);
        const QStringView next = QStringView(text).mid(i, 2);
        qsizetype end = i + 1;
        if (next == u"--") {
            end = text.indexOf(u'\n', i);
            end = end < 0 ? text.size() : end;
            found.comments.append(text.mid(i, end - i));
        } else if (next == u"/*") {
            end = text.indexOf(u"*/"_s, i + 2);
            end = end < 0 ? text.size() : end + 2;
            found.comments.append(text.mid(i, end - i));
        } else if (c == u'\'' || c == u'"') {
            end = endOfQuote(text, i);
            if (c == u'\'' || doubleQuotesToo)
                found.literals.append(text.mid(i + 1, end - i - 2).replace(QString(2, c), QString(c)));
        }
        i = end;
    }
    return found;
}

// A translation without the literals that the engines' tables put in themselves, each with the words around
// it.
QString withoutOwnLiterals(QString text)
{
    static const QString afterColumn = sortKeyExpression(u"#"_s).section(u'#', 1);
    return text.remove(afterColumn).remove(u", '.', '-')"_s).remove(u" escape ''"_s);
}

// The literals and comments in which a translation differs from its wording; none when it is right. What an
// alias unfolds to may stand more than once.
QStringList differences(const QString &statement, const QString &translation)
{
    const Quoted in = quotedOf(statement, true);
    const Quoted out = quotedOf(withoutOwnLiterals(translation), false);
    QStringList found;
    for (const QString &literal : in.literals)
        if (!out.literals.contains(literal))
            found << u"lost: "_s + literal;
    for (const QString &literal : out.literals)
        if (!in.literals.contains(literal))
            found << u"strange: "_s + literal;
    QStringList wanted = in.comments, given = out.comments;
    wanted.sort();
    given.sort();
    if (wanted != given)
        found << u"comments: "_s + given.join(u' ');
    return found;
}

class Properties : public testing::TestWithParam<SqlDialect> {
protected:
    Properties() : translator(GetParam(), catalog)
    {
        seed = qEnvironmentVariableIntValue("VELMORA_SQL_PROPERTY_SEED");
        if (seed == 0)
            seed = 20050101;
        random.seed(unsigned(seed));
        std::cout << "seed " << seed << std::endl;
    }

    int below(int limit) { return int(random() % unsigned(limit)); }

    template<typename List> auto one(const List &list) { return list.at(below(int(list.size()))); }

    bool timeLeft()
    {
        const int seconds = qMax(2, qEnvironmentVariableIntValue("VELMORA_SQL_PROPERTY_SECONDS"));
        return clock.elapsed() < seconds * 1000LL;
    }

    // Translates and checks; true when the statement was understood.
    bool check(const QString &statement)
    {
        QElapsedTimer each;
        each.start();
        QString text;
        bool understood = true;
        try {
            text = translator.translate(statement).text;
        } catch (const ESqlNotUnderstood &refused) {
            understood = false;
            EXPECT_FALSE(refused.message().isEmpty());
        }
        EXPECT_LT(each.elapsed(), 5000) << statement.toStdString();
        if (understood) {
            EXPECT_EQ(differences(statement, text), QStringList()) << statement.toStdString() << "\n"
                                                                   << text.toStdString();
        }
        return understood;
    }

    SampleCatalog catalog;
    SqlTranslator translator;
    std::mt19937 random;
    int seed = 0;
    QElapsedTimer clock;
};

// Statements of the dialect's own grammar.
class Grammar {
public:
    explicit Grammar(std::mt19937 *generator) : random(generator) {}

    QString statement()
    {
        switch (below(8)) {
        case 0:
            return u"insert into bd_balsas values (NULL, %1, %2, :tip) commit"_s.arg(value(2), value(2));
        case 1:
            return u"update bd_pad set pad_pavad = %1 where %2"_s.arg(value(3), condition(3));
        case 2:
            return u"delete from bd_pad where "_s + condition(4);
        case 3:
            return u"call p_CalcDBKRLik("_s + value(3) + u')';
        default:
            return select(3);
        }
    }

private:
    int below(int limit) { return int((*random)() % unsigned(limit)); }

    QString any(const QStringList &list) { return list.at(below(int(list.size()))); }

    QString gap() { return any({u" "_s, u" "_s, u" "_s, u"\n"_s, u" /* + 'x' \" */ "_s, u" -- :p ''\n"_s}); }

    QString literal()
    {
        return any({u"'x'"_s, u"'O''Brien -- /* \"'"_s, u"\"D\""_s, u"\"it's \"\" \"\"\""_s, u"''"_s,
                    u"'ąčę :p ?'"_s, u"'$1 $$ \\'"_s, u"' order by '"_s});
    }

    QString value(int depth)
    {
        if (depth <= 0 || below(3) == 0)
            return any({u"per_id"_s, u"sas_pavad"_s, u"a.dka_bank_kod"_s, u":p"_s, u"17"_s, u"1.5"_s,
                        u"null"_s, u"data"_s, u"dks_nuo"_s, literal(), literal()});
        const QString a = value(depth - 1);
        const QString b = value(depth - 1);
        switch (below(10)) {
        case 0:
            return u"isnull("_s + a + u',' + b + u')';
        case 1:
            return u"ifnull("_s + a + u',' + b + u',' + value(depth - 1) + u')';
        case 2:
            return u'(' + a + gap() + any({u"+"_s, u"-"_s, u"*"_s, u"/"_s, u"&"_s, u"||"_s}) + gap() + b +
                   u')';
        case 3:
            return u"case when "_s + condition(depth - 1) + u" then "_s + a + gap() + u"else "_s + b +
                   u" end"_s;
        case 4:
            return u"cast("_s + a + u" as "_s + any({u"numeric(11,2)"_s, u"varchar(20)"_s, u"date"_s}) + u')';
        case 5:
            return u"ucase("_s + a + u')';
        case 6:
            return u"max("_s + a + u')';
        case 7:
            return u"- "_s + a;
        case 8:
            return u'(' + select(depth - 2) + u')';
        default:
            return a + u" + "_s + b;
        }
    }

    QString condition(int depth)
    {
        const QString a = value(depth - 1);
        const QString b = value(depth - 1);
        switch (below(depth > 0 ? 8 : 3)) {
        case 0:
            return a + any({u"="_s, u"<>"_s, u" < "_s, u">="_s}) + b;
        case 1:
            return a + any({u" like "_s, u" not like "_s}) + b;
        case 2:
            return a + u" is not null"_s;
        case 3:
            return a + u" between "_s + b + u" and "_s + value(depth - 1);
        case 4:
            return a + u" in ("_s + b + u',' + value(depth - 1) + u')';
        case 5:
            return u"not ("_s + condition(depth - 1) + u')';
        case 6:
            return u"exists ("_s + select(depth - 1) + u')';
        default:
            return condition(depth - 1) + gap() + any({u"and"_s, u"or"_s}) + gap() + condition(depth - 1);
        }
    }

    QString select(int depth)
    {
        QString text = u"select "_s + any({u""_s, u""_s, u"distinct "_s}) + value(depth) + u" as data,"_s +
                       gap() + value(depth) + u" from bd_dbkrasm as a"_s;
        text += any({u""_s, u" key join bd_isllik"_s, u" left outer join bd_pad on "_s + condition(depth - 1),
                     u", bd_pad"_s, u", bd_dbkrasm as a left outer join bd_pad on pad_id = 1"_s});
        if (below(2))
            text += gap() + u"where "_s + condition(depth);
        if (below(3) == 0)
            text += u" order by "_s + any({u"1"_s, u"data desc"_s, u"sas_pavad"_s, value(depth)});
        return text;
    }

    std::mt19937 *random;
};

} // namespace

// The control of what the properties compare by.
TEST(PropertiesControl, OneChangedSignOfALiteralIsSeen)
{
    EXPECT_EQ(differences(u"select 'x' -- a"_s, u"select 'x' -- a"_s), QStringList());
    EXPECT_NE(differences(u"select 'x'"_s, u"select 'y'"_s), QStringList());
    EXPECT_NE(differences(u"select x"_s, u"select x || ' '"_s), QStringList());
    EXPECT_NE(differences(u"select '' from t"_s, u"select x from t"_s), QStringList());
    EXPECT_NE(differences(u"select x -- a"_s, u"select x"_s), QStringList());
    const QString ordered = u"select pad_pavad from bd_pad where dks_nuo = '2007.01.01' order by pad_pavad"_s;
    EXPECT_EQ(differences(ordered, QString::fromStdString(sqlite(ordered))), QStringList());
}

TEST_P(Properties, StatementsOfTheGrammarKeepTheirLiterals)
{
    Grammar grammar(&random);
    int understood = 0;
    for (clock.start(); timeLeft() && !HasFailure();)
        understood += check(grammar.statement()) ? 1 : 0;
    EXPECT_GT(understood, 50);
}

TEST_P(Properties, DamagedStatementsAreUnderstoodOrRefused)
{
    const QList<CorpusEntry> corpus = corpusEntries();
    const QStringList pieces{u"'"_s,       u"\""_s,       u"("_s,           u")"_s,  u","_s, u" + "_s,
                             u"--"_s,      u"/*"_s,       u"*/"_s,          u":"_s,  u";"_s, u" as "_s,
                             u" not "_s,   u" select "_s, u"."_s,           u"|"_s,  u"&"_s, u" from "_s,
                             u" null "_s,  u"\n"_s,       u" order by 1"_s, u"\\"_s, u"ž"_s, u"\t"_s,
                             u" commit"_s, u" case "_s,   u" in ("_s};
    int understood = 0;
    for (clock.start(); timeLeft() && !HasFailure();) {
        QString statement = one(corpus).statement;
        for (int i = below(3); i >= 0 && !statement.isEmpty(); --i) {
            const int at = below(int(statement.size()));
            switch (below(4)) {
            case 0:
                statement.remove(at, 1 + below(5));
                break;
            case 1:
                statement.insert(at, one(pieces));
                break;
            case 2:
                statement.insert(at, one(corpus).statement.mid(below(20), below(40)));
                break;
            default:
                statement.truncate(at);
            }
        }
        understood += check(statement) ? 1 : 0;
    }
    EXPECT_GT(understood, 50);
}

TEST_P(Properties, EveryStatementOfTheCorpusIsUnderstood)
{
    const QList<CorpusEntry> corpus = corpusEntries() + corpusRows();
    ASSERT_GT(corpus.size(), 200);
    for (const CorpusEntry &entry : corpus) {
        EXPECT_NO_THROW(translator.translate(entry.statement))
            << entry.screen.toStdString() << ": " << refusal(entry.statement, GetParam());
        EXPECT_TRUE(check(entry.statement));
        QStringList given = entry.parameters.keys();
        QStringList named = translator.translate(entry.statement).parameters;
        for (QStringList *list : {&given, &named}) {
            for (QString &name : *list)
                name = name.toLower();
            list->sort();
        }
        EXPECT_EQ(given, named) << entry.screen.toStdString() << ": " << entry.statement.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(, Properties, testing::Values(SqlDialect::Sqlite, SqlDialect::PostgreSql),
                         [](const testing::TestParamInfo<SqlDialect> &dialect) {
                             return dialect.param == SqlDialect::Sqlite ? "Sqlite" : "PostgreSql";
                         });
