#include "toolkit/report/expression.h"

#include <gtest/gtest.h>

#include <QHash>

namespace {

QVariant valueOf(const QString &text, const QHash<QString, QVariant> &row = {})
{
    return TReportExpression(text).value([&row](const QString &name) { return row.value(name.toUpper()); });
}

const QString groupExpression =
    "IF((COPY(SAS_SASNR,3,1)<>''),'Saskaitos numeris: ' + COPY(SAS_SASNR,1,3),'')";

} // namespace

TEST(ReportExpression, GroupsByTheFirstThreeCharactersOfTheAccount)
{
    EXPECT_EQ(valueOf(groupExpression, {{"SAS_SASNR", "2411"}}).toString(), "Saskaitos numeris: 241");
    EXPECT_EQ(valueOf(groupExpression, {{"SAS_SASNR", "241"}}).toString(), "Saskaitos numeris: 241");
}

TEST(ReportExpression, AShorterAccountGivesNoLabel)
{
    EXPECT_EQ(valueOf(groupExpression, {{"SAS_SASNR", "24"}}).toString(), "");
    EXPECT_EQ(valueOf(groupExpression).toString(), "");
}

TEST(ReportExpression, ReadsFieldsWithoutRegardToCase)
{
    EXPECT_EQ(valueOf("sas_sasnr", {{"SAS_SASNR", "2411"}}).toString(), "2411");
}

TEST(ReportExpression, MultipliesBeforeItAdds)
{
    EXPECT_EQ(valueOf("2 + 3 * 4 - 10 / 4").toDouble(), 11.5);
    EXPECT_EQ(valueOf("(2 + 3) * 4").toDouble(), 20);
}

TEST(ReportExpression, JoinsATextWithAnything)
{
    EXPECT_EQ(valueOf("'Nr. ' + 5").toString(), "Nr. 5");
}

TEST(ReportExpression, ADoubledQuoteStandsForOne)
{
    EXPECT_EQ(valueOf("'d''Artanjanas'").toString(), "d'Artanjanas");
}

TEST(ReportExpression, ComparesNumbersAndTexts)
{
    EXPECT_TRUE(valueOf("10 > 9").toBool());
    EXPECT_FALSE(valueOf("'10' > '9'").toBool());
    EXPECT_TRUE(valueOf("'a' <> 'b'").toBool());
    EXPECT_TRUE(valueOf("2 <= 2").toBool());
}

TEST(ReportExpression, SumsAreExactToFourDecimals)
{
    const TReportExpression sum("Sum(SSL_SUM_DB)");
    auto totals = sum.freshTotals();
    for (int row = 0; row < 100000; ++row)
        sum.accumulate([](const QString &) { return QVariant(0.10); }, totals);
    EXPECT_EQ(sum.value({}, totals).toDouble(), 10000.00);
}

TEST(ReportExpression, KeepsATotalForEachSum)
{
    const TReportExpression balance("SUM(DB) - SUM(KR)");
    auto totals = balance.freshTotals();
    for (int row = 1; row <= 3; ++row)
        balance.accumulate([row](const QString &name) { return QVariant(name == "DB" ? 10.0 * row : 1.0); },
                           totals);
    EXPECT_EQ(balance.value({}, totals).toDouble(), 57);
}

TEST(ReportExpression, RefusesWhatItDoesNotKnow)
{
    for (const QString text : {"", "IF(1,2)", "LIKE(1)", "'open", "(1", "1 +", "1 2", "a..b", "1.2.3"})
        EXPECT_THROW(TReportExpression{text}, EConvertError) << qPrintable(text);
}

TEST(ReportExpression, DeepNestingIsRefusedAndNotACrash)
{
    EXPECT_THROW(TReportExpression(QString(100000, u'(')), EConvertError);
}
