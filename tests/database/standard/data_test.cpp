#include "database/filling/code_tree.h"
#include "toolkit/text/ansistring.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

using namespace Qt::StringLiterals;

// The files that new books start from.

namespace {

TTableText standard(const QString &name)
{
    return TTableText::read(u"standard/"_s + name);
}

// The rows that a condition finds fault with, for a message that names them.
template<typename Faulty> QStringList faults(const QString &name, Faulty faulty)
{
    QStringList found;
    for (const QStringList &row : standard(name).rows) {
        if (faulty(row))
            found.append(row.join(u' '));
    }
    return found;
}

bool fits(const QString &text, qsizetype size)
{
    return !text.isEmpty() && text == text.trimmed() && text.size() <= size && firstOutsideCodePage(text) < 0;
}

QStringList repeated(QStringList values)
{
    for (const QString &value : QSet<QString>(values.begin(), values.end()))
        values.removeOne(value);
    return values;
}

} // namespace

TEST(StandardChart, NumbersAreDigitsAndNamesFit)
{
    const QRegularExpression number(u"^[0-9]{1,10}$"_s);
    EXPECT_EQ(faults(u"sasplan"_s,
                     [&](const QStringList &row) {
                         return !number.match(row.at(0)).hasMatch() || !fits(row.at(1), 100) ||
                                (row.at(2) != u"0" && row.at(2) != u"1");
                     }),
              QStringList());
}

TEST(StandardChart, EveryNumberStandsOnceAndBelowAnother)
{
    EXPECT_EQ(repeated(standard(u"sasplan"_s).column(u"sas_sasnr"_s)), QStringList());
    QString classes;
    for (const TCode &account : accountTree(standard(u"sasplan"_s))) {
        if (account.parent < 0)
            classes += account.code + u' ';
    }
    EXPECT_EQ(classes, u"0 1 2 3 4 5 6 7 8 9 "_s);
}

TEST(StandardChart, EveryGroupEndsInDetailAccountsOfSevenDigits)
{
    for (const TCode &account : accountTree(standard(u"sasplan"_s)))
        EXPECT_EQ(account.leaf, account.code.size() == 7) << account.code.toStdString();
}

TEST(StandardChart, AnAccountStandsBelowTheLongestNumberThatBeginsItsOwn)
{
    TTableText text{{u"sas_sasnr"_s, u"sas_pavad"_s}, {}};
    for (const QString &number : {u"20"_s, u"1201001"_s, u"12"_s, u"1"_s, u"1201"_s, u"2"_s, u"121"_s})
        text.rows.append({number, u"x"_s});
    QStringList found;
    const QList<TCode> tree = accountTree(text);
    for (const TCode &account : tree)
        found.append(account.code + u'<' + (account.parent < 0 ? QString() : tree.at(account.parent).code));
    EXPECT_EQ(found, (QStringList{u"1<"_s, u"12<1"_s, u"1201<12"_s, u"1201001<1201"_s, u"121<12"_s, u"2<"_s,
                                  u"20<2"_s}));
}

class StandardTree : public testing::TestWithParam<const char *> {};
INSTANTIATE_TEST_SUITE_P(, StandardTree, testing::Values("ekonomine", "funkcine"),
                         [](const testing::TestParamInfo<const char *> &tree) { return tree.param; });

TEST_P(StandardTree, CodesStandOnceFitAndFollowTheirParents)
{
    const QString name = QLatin1String(GetParam());
    EXPECT_EQ(repeated(standard(name).column(u"kodas"_s)), QStringList());
    QStringList before;
    EXPECT_EQ(faults(name,
                     [&before](const QStringList &row) {
                         const QString above =
                             row.at(0).contains(u'.') ? row.at(0).section(u'.', 0, -2) : QString(tableNull);
                         const bool known = above == tableNull || before.contains(above);
                         before.append(row.at(0));
                         return !fits(row.at(0), 20) || !fits(row.at(2), 150) || row.at(1) != above || !known;
                     }),
              QStringList());
}

TEST(StandardCatalogues, CodesStandOnceAndNamesFit)
{
    EXPECT_EQ(repeated(standard(u"bankai"_s).column(u"bnk_kodas"_s)), QStringList());
    EXPECT_EQ(faults(u"bankai"_s, [](const QStringList &row) { return !fits(row.at(2), 40); }),
              QStringList());
    EXPECT_EQ(repeated(standard(u"savivaldybes"_s).column(u"sav_kod"_s)), QStringList());
    EXPECT_EQ(faults(u"savivaldybes"_s, [](const QStringList &row) { return !fits(row.at(1), 50); }),
              QStringList());
    EXPECT_EQ(repeated(standard(u"saltiniai"_s).column(u"fin_pavad"_s)), QStringList());
    EXPECT_EQ(faults(u"saltiniai"_s, [](const QStringList &row) { return !fits(row.at(0), 100); }),
              QStringList());
}
