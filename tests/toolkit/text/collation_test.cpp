#include "toolkit/text/collation.h"

#include <QCollator>
#include <QLocale>
#include <QStringList>

#include <gtest/gtest.h>

namespace {

int sign(int value)
{
    return (value > 0) - (value < 0);
}

const QString words = QStringLiteral(
    u"abėcėlė Abromaitis ąsotis Ąžuolas asla aslą Asla Ąsla žąsis zuikis Zuikis čekis cukrus Čepaitis "
    u"Cibulskis "
    u"šaltis saltis Šaltis Saltis sąskaita saskaita Sąskaita šeima seima yla ila įla Įla Yla Ila ir yr įr iš "
    u"ys įš "
    u"Yčas Ičas Ivanauskas Įvaras Yvaras ugnis ūgis ugis ūkas ukas ųkas ūkis ežeras ėžeras ęžeras esė ėsė "
    u"ese esę "
    u"Gegužė geguže gegužę Žemaitis Zemaitis Žukauskas Zukauskas Žilinskas Jankauskas Jonaitis Petraitis "
    u"Petraitienė Petraitytė Petraitis-Jonaitis Kazlauskas Kazlauskienė Stankevičius Stankevicius "
    u"Vasiliauskas "
    u"Butkus Urbonas Kavaliauskas Navickas Ramanauskas Rimkus Česnauskas Cesnauskas Šimkus Simkus Žygis žygį "
    u"zigis "
    u"kyšis kišis kįšis Kyšis ką ka kas kąs kūnas kunas skųsti skūsti skusti 1 2 10 2a 12-a a b c č d e f g "
    u"h i j "
    u"k l m n o p r s š t u v z ž A B C Č D E F G H I Y J K L M N O P R S Š T U V Z Ž ą ę ė į y ų ū Ą Ę Ė Į "
    u"Ų Ū");

QStringList allWords()
{
    QStringList list = words.split(u' ');
    list << QString() << QStringLiteral(u"Ona Petraitytė") << QStringLiteral(u"Onapetraitytė")
         << QStringLiteral(u"Ona Šimkutė") << QStringLiteral(u"Ona Simkutė");
    return list;
}

} // namespace

TEST(Collation, OrdersEveryPairAsTheLithuanianCollatorDoes)
{
    const QCollator collator(QLocale(QLocale::Lithuanian, QLocale::Lithuania));
    const QStringList list = allWords();
    for (const QString &a : list) {
        for (const QString &b : list) {
            EXPECT_EQ(sign(compareLithuanian(a, b)), sign(collator.compare(a, b)))
                << a.toStdString() << " / " << b.toStdString();
        }
    }
}

TEST(Collation, MarkedVowelsShareTheKeyAndMarkedConsonantsStandApart)
{
    EXPECT_EQ(lithuanianSortKey(QStringLiteral(u"ąęėįyųū")), QStringLiteral("AEEIIUU"));
    EXPECT_EQ(lithuanianSortKey(QStringLiteral(u"Čš Ž")), QStringLiteral("C~S~ Z~"));
    EXPECT_EQ(lithuanianSortKey(QStringLiteral(u"Yla 12")), QStringLiteral("ILA 12"));
    EXPECT_EQ(lithuanianSortKey(QString()), QString());
}

TEST(Collation, TheKeyAloneOrdersPeopleAsADictionary)
{
    const QStringList ordered{
        QStringLiteral(u"Cukrus"),  QStringLiteral(u"Čekis"),     QStringLiteral(u"Dagys"),
        QStringLiteral(u"Sysas"),   QStringLiteral(u"Szymański"), QStringLiteral(u"Šaltis"),
        QStringLiteral(u"Tamulis"), QStringLiteral(u"Zuokas"),    QStringLiteral(u"Žagaras")};
    for (qsizetype i = 1; i < ordered.size(); ++i)
        EXPECT_LT(lithuanianSortKey(ordered[i - 1]), lithuanianSortKey(ordered[i])) << i;
}

TEST(Collation, ALetterNeverGrowsIntoTwoInTheKey)
{
    EXPECT_EQ(lithuanianSortKey(QStringLiteral(u"Straße")), QStringLiteral(u"STRAßE"));
}

TEST(Collation, SearchingSeesNeitherCaseNorMarks)
{
    EXPECT_EQ(foldForSearch(QStringLiteral(u"Žąsytė Čiurlionis-Šlapelis")),
              QStringLiteral("ZASITE CIURLIONIS-SLAPELIS"));
    EXPECT_EQ(foldForSearch(QStringLiteral(u"zasyte")), foldForSearch(QStringLiteral(u"ŽĄSYTĖ")));
}
