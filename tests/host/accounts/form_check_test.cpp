#include "host/accounts/form_check.h"
#include "tests/host/books.h"
#include "tests/support/message_box.h"
#include "toolkit/report/preview.h"

using namespace Qt::StringLiterals;

namespace {

class FormCheck : public WithMainDatas {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        addSmallChart(fin);
        run(u"insert into bd_period values (6, 2026, 1, 1)"_s);
        run(u"insert into bd_period values (7, 2026, 1, 2)"_s);
        GetPeriod();
        run(u"insert into bd_baleil values ('A0101', 'Skolos ')"_s);
        run(u"insert into bd_baleil values ('P0101', 'Tiekėjams')"_s);
    }
    void run(const QString &sql) { fin->ExecSQL(sql); }
    void claim(const QString &code, const QString &number)
    {
        fin->ExecSQL(u"insert into bd_balsas values (NULL, :kod, :id, 'D')"_s,
                     {{u"kod"_s, code}, {u"id"_s, idOf(number)}});
    }
    void opening(const QString &number, double debit, double credit, int period = 7)
    {
        add(u"bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr)"_s, number, debit, credit,
            period);
    }
    void entry(const QString &number, double debit, double credit, int period = 7)
    {
        add(u"bd_irasai (irs_id, irs_sasid, irs_perid, irs_sum_db, irs_sum_kr)"_s, number, debit, credit,
            period);
    }
    // The findings, a line each.
    QStringList found()
    {
        QStringList told;
        for (const TFormCheckLine &line : checkBalanceForm(*fin, 7))
            told << QStringList{line.number, line.name, line.lines,
                                line.amount ? QString::number(*line.amount) : QString()}
                        .join(u'|');
        return told;
    }

private:
    void add(const QString &into, const QString &number, double debit, double credit, int period)
    {
        fin->ExecSQL(u"insert into %1 values (:key, :id, :per, :db, :kr)"_s.arg(into),
                     {{u"key"_s, ++key},
                      {u"id"_s, idOf(number)},
                      {u"per"_s, period},
                      {u"db"_s, debit},
                      {u"kr"_s, credit}});
    }
    int idOf(const QString &number)
    {
        return fin->fieldResult(u"select sas_id from bd_sasplan where sas_sasnr = :nr"_s, {{u"nr"_s, number}})
            .toInt();
    }
    int key = 0;
};
ON_BOTH_ENGINES(FormCheck);

} // namespace

TEST_P(FormCheck, FindsAccountsOfNoLineAndOfSeveral)
{
    claim(u"A0101"_s, u"221"_s);
    claim(u"A0101"_s, u"24"_s);
    claim(u"P0101"_s, u"24"_s);
    opening(u"43"_s, 0, 5);
    EXPECT_EQ(found().first(3), (QStringList{u"222|Šilumos skolos||0"_s, u"43|Mokėtinos sumos||-5"_s,
                                             u"24|Pinigai|A0101 Skolos; P0101 Tiekėjams|0"_s}));
}

TEST_P(FormCheck, AddsUpTheSidesOfTheCurrentPeriod)
{
    claim(u"A0101"_s, u"221"_s);
    claim(u"P0101"_s, u"43"_s);
    opening(u"221"_s, 100.10, 0);
    opening(u"221"_s, 1000, 0, 8);
    opening(u"43"_s, 0, 100.10);
    entry(u"221"_s, 0.20, 0);
    entry(u"43"_s, 0, 0.10);
    entry(u"43"_s, 0, 0.10);
    entry(u"43"_s, 0, 9, 8);
    EXPECT_EQ(found().last(4),
              (QStringList{u"|Aktyvas||100.3"_s, u"|Pasyvas||100.3"_s, u"|Aktyvas ir pasyvas lygūs||0"_s,
                           u"|Užbalansinės sąskaitos||0"_s}));
    entry(u"221"_s, 0, 0.01);
    EXPECT_EQ(found().last(2).first(), u"|Aktyvas ir pasyvas nelygūs, skirtumas||-0.01"_s);
}

TEST_P(FormCheck, SaysWhereThereIsNothingToFind)
{
    for (const QString &number : {u"221"_s, u"222"_s, u"24"_s, u"43"_s})
        claim(u"A0101"_s, number);
    EXPECT_EQ(found().first(2), (QStringList{u"|Tokių nėra||"_s, u"|Tokių nėra||"_s}));
}

TEST_P(FormCheck, IsShownAsAReport)
{
    claim(u"A0101"_s, u"221"_s);
    claim(u"P0101"_s, u"43"_s);
    opening(u"221"_s, 12345678901.23, 0);
    opening(u"43"_s, 0, 12345678901.23);
    QStringList texts;
    OnNextDialog<TReportPreview> preview([&texts](TReportPreview &shown) {
        for (const TReportPrimitive &each : shown.layout().page(0)) {
            texts << each.text;
            EXPECT_LE(each.rect.right(), 511) << "beyond a sheet upright: " << qPrintable(each.text);
            EXPECT_FALSE(each.text.startsWith(u'1') && each.rect.height() > 14)
                << "an amount in two lines: " << qPrintable(each.text);
        }
        shown.close();
    });
    ShowBalanceFormCheck(nullptr);
    for (const QString &text :
         {u"Balanso formos patikrinimas"_s, u"2026 m. vasaris"_s, u"Sąskaitos, neįtrauktos į jokią eilutę"_s,
          u"Šilumos skolos"_s, u"Formos sumos"_s, u"12345678901.23"_s})
        EXPECT_TRUE(texts.contains(text)) << qPrintable(text);
}

TEST_P(FormCheck, NeedsAPeriod)
{
    run(u"delete from bd_period"_s);
    GetPeriod();
    EXPECT_THROW(ShowBalanceFormCheck(nullptr), Exception);
}
