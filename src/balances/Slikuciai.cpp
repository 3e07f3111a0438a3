#include "src/balances/Slikuciai.h"

#include "src/balances/Saslikedit.h"
#include "src/balances/balance_report.h"
#include "toolkit/text/format.h"

#include <QScopeGuard>

namespace Slikuciai {

TUnit unit("SLikuciai");
TSasLikFrm *SasLikFrm = nullptr;

namespace {

TBrowseDescription described()
{
    return {
        .name = "TSasLikFrm",
        .caption = "Sąskaitų likučiai",
        .help = 17,
        .keyColumn = "ssl_id",
        .table = "bd_saslik",
        .sql = "SELECT Bd_sasplan.SAS_SASNR, Bd_saslik.SSL_ID, Bd_saslik.SSL_SUM_DB, Bd_saslik.SSL_SUM_KR, "
               "(Bd_sasplan.SAS_SASNR + '  ')  + Bd_sasplan.SAS_PAVAD as SASKAITA "
               "FROM BD_SASLIK Bd_saslik, BD_SASPLAN Bd_sasplan "
               "WHERE (Bd_saslik.ssl_perid = :perid) AND (Bd_saslik.SSL_SASID = Bd_sasplan.SAS_ID) "
               "ORDER BY SASKAITA",
        .columns = {{.field = "SASKAITA", .title = "Sąskaita", .width = 262},
                    {.field = "SSL_SUM_DB", .title = "Debetas", .format = "0.00"},
                    {.field = "SSL_SUM_KR", .title = "Kreditas", .format = "0.00"}},
        .titleOrder = false,
        .titlesCentred = true,
        .edit = keyed<double>(
            [](const QString &, bool isNew, double &id) { return Saslikedit::EditLik(!isNew, id); }),
    };
}

} // namespace

TSasLikFrm::TSasLikFrm(QWidget *owner)
    : TPeriodListFrm(described(), TPeriodBox::Order::OldestFirst, "perid", owner),
      qrySum(MainDatas()->mnFin_Db(),
             "SELECT ssl_perid, sum(ssl_sum_db) as suma_deb, sum(ssl_sum_kr) as suma_kerd "
             "FROM bd_saslik WHERE ssl_perid=:id GROUP BY ssl_perid",
             this)
{
    keepIn(SasLikFrm);
}

bool TSasLikFrm::rowsMayChange() const
{
    return PeriodBox->count() == 1;
}

void TSasLikFrm::readTotals()
{
    const auto closeQuery = qScopeGuard([this] { qrySum.Close(); });
    qrySum.Close();
    qrySum.setParam("id", PeriodBox->period());
    qrySum.Open();
    debit = qrySum.FieldByName("suma_deb")->AsFloat();
    credit = qrySum.FieldByName("suma_kerd")->AsFloat();
}

void TSasLikFrm::showTotals()
{
    setPanel(debitPanel, "Debetų suma: " + FormatFloat("0.00", debit));
    setPanel(creditPanel, "Kreditų suma: " + FormatFloat("0.00", credit));
    if (debit != credit)
        StdMsgBox(mkError, "Debeto ir kredito likučių sumos nelygios!");
}

// --- printing

// The balances are those at the end of the day before the period begins.
QString TSasLikFrm::dayBeforePeriod() const
{
    const Variant first = GetFieldResult(MainDatas()->mnFin_Db(), "SELECT DATEFORMAT(GetDateByPeriodId(" +
                                                                      PeriodBox->period().toString() +
                                                                      "),'yyyy.mm.dd') FROM dummy");
    const QChar separator = std::exchange(FormatSettings().DateSeparator, u'.');
    const auto restore = qScopeGuard([separator] { FormatSettings().DateSeparator = separator; });
    return FormatDateTime("yyyy.mm.dd", TDateTime(StrToDate(first.toString()).value() - 1));
}

void TSasLikFrm::BeforePrint(TReport &report)
{
    TPeriodListFrm::BeforePrint(report);
    addBalanceBands(report, dayBeforePeriod(), debit, credit);
}

} // namespace Slikuciai
