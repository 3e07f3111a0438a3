#include "host/data/reports.h"

#include "tests/host/books.h"
#include "tests/support/clock.h"
#include "tests/support/message_box.h"
#include "toolkit/report/preview.h"
#include "toolkit/report/text_metrics.h"

using namespace Qt::StringLiterals;

namespace {

class Reports : public WithMainDatas {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        addSmallChart(fin);
    }
    void addParty(int id, const QString &code, const QString &name)
    {
        fin->ExecSQL(
            u"insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_i_kod, dka_sasid, dka_sasid_2) "
            "values (:id, :kod, :pavad, 123456789, 3, 7)"_s,
            {{u"id"_s, id}, {u"kod"_s, code}, {u"pavad"_s, name}});
    }
    static QString refusal(const QString &parameters)
    {
        try {
            OpenReports(AnsiString(parameters));
        } catch (const Exception &error) {
            return error.message();
        }
        return {};
    }
    // What the report's pages show, empty texts left out.
    static QStringList shown(const QString &parameters)
    {
        QStringList texts;
        OnNextDialog<TReportPreview> preview([&texts](TReportPreview &window) {
            for (int page = 0; page < window.layout().pageCount(); ++page)
                for (const TReportPrimitive &primitive : window.layout().page(page))
                    if (!primitive.text.isEmpty())
                        texts << primitive.text;
            window.close();
        });
        OpenReports(AnsiString(parameters));
        return texts;
    }
};
ON_BOTH_ENGINES(Reports);

} // namespace

TEST_P(Reports, TheRegisterIsListedByCodeWithACount)
{
    ClockAt clock(QDate(2007, 1, 2));
    addParty(1, u"B2"_s, u"Žalgirio baldai"_s);
    addParty(2, u"A1"_s, u"Ąžuolas"_s);
    EXPECT_EQ(shown(u"/DBN=mnFin_Db /RPTID=81"_s), QStringList({u"2007.01.02"_s,
                                                                u"Debitoriai ir kreditoriai"_s,
                                                                u"Kodas"_s,
                                                                u"Pavadinimas"_s,
                                                                u"Adresas"_s,
                                                                u"Telefonas"_s,
                                                                u"Įmonės kodas"_s,
                                                                u"PVM Kodas"_s,
                                                                u"Einamoji sąskaita"_s,
                                                                u"Banko pavadinimas"_s,
                                                                u"Sąskaita"_s,
                                                                u"Mok. sumų sąskaita"_s,
                                                                u"A1"_s,
                                                                u"Ąžuolas"_s,
                                                                u"123456789"_s,
                                                                u"221"_s,
                                                                u"43"_s,
                                                                u"B2"_s,
                                                                u"Žalgirio baldai"_s,
                                                                u"123456789"_s,
                                                                u"221"_s,
                                                                u"43"_s,
                                                                u"Iš viso: 2"_s,
                                                                u"1 puslapis iš 1"_s}));
}

TEST_P(Reports, SwitchesStandInAnyOrderAndCase)
{
    addParty(1, u"A1"_s, u"Ąžuolas"_s);
    EXPECT_TRUE(shown(u" /rptid=81   /dbn=MNFIN_DB "_s).contains(u"Ąžuolas"_s));
    EXPECT_TRUE(shown(u"/DBN= mnFin_Db/RPTID= 81"_s).contains(u"Ąžuolas"_s));
    EXPECT_EQ(refusal(u"/DBN=mnFin_Db/RPTID=9999"_s), u"Ataskaitos Nr. 9999 nėra"_s);
}

TEST_P(Reports, AnEmptyReportIsNotShown)
{
    EXPECT_EQ(refusal(u"/DBN=mnFin_Db /RPTID=81"_s), u"Nėra duomenu!"_s);
}

TEST_P(Reports, ParametersThatAreNoneAreRefused)
{
    const QStringList malformed = {u""_s,
                                   u"mnFin_Db 81"_s,
                                   u"/DBN=mnFin_Db"_s,
                                   u"/RPTID=81"_s,
                                   u"/DBN= /RPTID=81"_s,
                                   u"/DBN=mnFin_Db /RPTID=81 /RPTID=81"_s,
                                   u"/DBN=mnFin_Db /RPTID=81 /KITA=1"_s,
                                   u"/DBN=mnFin_Db/RPTID=81/KITA=1"_s,
                                   u"/DBN=/RPTID=81"_s,
                                   u"žodis /DBN=mnFin_Db /RPTID=81"_s};
    for (const QString &parameters : malformed)
        EXPECT_EQ(refusal(parameters), u"Netinkami ataskaitos parametrai: „%1“"_s.arg(parameters));
}

TEST_P(Reports, AnUnknownReportOrSessionIsNamed)
{
    EXPECT_EQ(refusal(u"/DBN=mnFin_Db /RPTID=9999"_s), u"Ataskaitos Nr. 9999 nėra"_s);
    EXPECT_EQ(refusal(u"/DBN=mnFin_Db /RPTID=81x"_s), u"Ataskaitos Nr. 81x nėra"_s);
    EXPECT_EQ(refusal(u"/DBN=kita /RPTID=81"_s), u"Duomenų bazės „kita“ nėra"_s);
}

// A long name or address takes a second line; numbers and codes never do.
TEST_P(Reports, ARowOfTheRegisterTakesTwoLinesAtMost)
{
    fin->ExecSQL(
        u"update bd_sasplan set sas_pavad = 'Trumpalaikės ir ilgalaikės mokėtinos sumos tiekėjams'"_s);
    const auto add = [this](int id, const QString &name, const QString &address) {
        fin->ExecSQL(
            u"insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_adr, dka_tel, dka_i_kod, "
            "dka_pvm_kod, dka_ein_sas, dka_bank_pav, dka_sasid, dka_sasid_2) values (:id, 'T00012' + :nr, "
            ":pavad, :adr, '+37060000123', 990600123, 'LT990600123', 'LT809900000000000123', "
            "'Žemaičių taupomasis bankas', 3, 7)"_s,
            {{u"id"_s, id}, {u"nr"_s, QString::number(id)}, {u"pavad"_s, name}, {u"adr"_s, address}});
    };
    add(1, u"UAB „Žuvėdrų šaltinėlis“"_s, u"Čiobrelių g. 64, Ąžuolkalnis"_s);
    add(2, u"Viešoji įstaiga „Žemaitijos regiono švietimo pagalbos ir kultūros centras“"_s,
        u"Antrojo tūkstantmečio g. 118, Naujoji Akmenė"_s);
    QHash<QString, qreal> heights;
    OnNextDialog<TReportPreview> preview([&heights](TReportPreview &window) {
        for (const TReportPrimitive &primitive : window.layout().page(0))
            heights[primitive.text] = primitive.rect.height();
        EXPECT_EQ(window.fileName(),
                  u"Debitoriai ir kreditoriai "_s + QDate::currentDate().toString(u"yyyy.MM.dd"_s));
        window.close();
    });
    OpenReports(AnsiString(u"/DBN=mnFin_Db /RPTID=81"_s));
    ASSERT_TRUE(heights.contains(u"T000121"_s) && heights.contains(u"T000122"_s));
    EXPECT_LT(heights[u"T000121"_s], 2 * lineHeight(7));
    EXPECT_LT(heights[u"T000122"_s], 3 * lineHeight(7));
}

TEST_P(Reports, ClosingTheEngineClosesItsPreview)
{
    CloseReports();
    addParty(1, u"A1"_s, u"Ąžuolas"_s);
    OnNextDialog<TReportPreview> preview([](TReportPreview &) { CloseReports(); });
    OpenReports(AnsiString(u"/DBN=mnFin_Db /RPTID=81"_s));
}
