#include "toolkit/text/collation.h"

#include <QCollator>
#include <QLocale>
#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

int sign(int value)
{
    return (value > 0) - (value < 0);
}

const QString words =
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
    u"Ų Ū"_s;

QStringList allWords()
{
    QStringList list = words.split(u' ');
    list << QString() << u"Ona Petraitytė"_s << u"Onapetraitytė"_s << u"Ona Šimkutė"_s << u"Ona Simkutė"_s;
    return list;
}

} // namespace

// What differs in its letters, not in marks and case alone, stands as in a dictionary.
TEST(Collation, TheKeyOrdersAsTheLithuanianCollatorDoes)
{
    const QCollator collator(QLocale(QLocale::Lithuanian, QLocale::Lithuania));
    const QStringList list = allWords();
    int compared = 0;
    for (const QString &a : list) {
        for (const QString &b : list) {
            const int byKey = sign(lithuanianSortKey(a).compare(lithuanianSortKey(b)));
            if (byKey == 0)
                continue;
            ++compared;
            EXPECT_EQ(byKey, sign(collator.compare(a, b))) << a.toStdString() << " / " << b.toStdString();
        }
    }
    EXPECT_GT(compared, list.size() * list.size() / 2);
}

TEST(Collation, MarkedVowelsShareTheKeyAndMarkedConsonantsStandApart)
{
    EXPECT_EQ(lithuanianSortKey(u"ąęėįyųū"_s), u"AEEIIUU"_s);
    EXPECT_EQ(lithuanianSortKey(u"Čš Ž"_s), u"C~S~ Z~"_s);
    EXPECT_EQ(lithuanianSortKey(u"Yla 12"_s), u"ILA 12"_s);
    EXPECT_EQ(lithuanianSortKey(QString()), QString());
}

TEST(Collation, TheKeyAloneOrdersPeopleAsADictionary)
{
    const QStringList ordered{u"Cukrus"_s, u"Čekis"_s,   u"Dagys"_s,  u"Sysas"_s,  u"Szymański"_s,
                              u"Šaltis"_s, u"Tamulis"_s, u"Zuokas"_s, u"Žagaras"_s};
    for (qsizetype i = 1; i < ordered.size(); ++i)
        EXPECT_LT(lithuanianSortKey(ordered[i - 1]), lithuanianSortKey(ordered[i])) << i;
}

TEST(Collation, ALetterNeverGrowsIntoTwoInTheKey)
{
    EXPECT_EQ(lithuanianSortKey(u"Straße"_s), u"STRAßE"_s);
}

TEST(Collation, SearchingSeesNeitherCaseNorMarks)
{
    EXPECT_EQ(foldForSearch(u"Žąsytė Čiurlionis-Šlapelis"_s), u"ZASITE CIURLIONIS-SLAPELIS"_s);
    EXPECT_EQ(foldForSearch(u"zasyte"_s), foldForSearch(u"ŽĄSYTĖ"_s));
}
