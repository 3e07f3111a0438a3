#include "database/demo/demo.h"

#include "database/demo/demo_books.h"
#include "database/history.h"
#include "database/seals.h"

using namespace Qt::StringLiterals;

namespace {

struct TStep {
    const char16_t *title;
    void (*fill)(TDemoBooks &);
};

constexpr TStep steps[] = {
    {u"Sąskaitų planas", fillAccounts},
    {u"Žinynai", fillCatalogues},
    {u"Finansavimo šaltiniai ir vartotojai", fillBudget},
    {u"Išlaidų klasifikacija", fillClassification},
    {u"Asmenys", fillPersons},
    {u"Debitoriai ir kreditoriai", fillCounterparties},
    {u"Balanso forma ir tipinės operacijos", fillFormAndOperations},
    {u"Ilgalaikis turtas", fillAssets},
    {u"Periodai", fillPeriods},
    {u"Sąmatos", fillEstimates},
    {u"Pradiniai likučiai", fillOpeningBalances},
};

constexpr int closedMonths = 6;

void closeMonth(TDemoBooks &books, int month)
{
    TTransaction tran(&books.fin);
    const qlonglong period =
        books.fin.fieldResult(u"select max(per_id) from bd_period where per_menuo > 0"_s).toLongLong();
    fillMonth(books, month, period);
    books.fin.ExecSQL(u"call Close_Per()"_s);
    tran.commit();
}

} // namespace

void fillDemoBooks(TDatabase &fin, TDatabase &ravl, int size,
                   const std::function<void(const QString &)> &progress)
{
    const THistoryPause finPause(fin);
    const THistoryPause ravlPause(ravl);
    TDemoBooks books{fin, ravl, size};
    for (const TStep &step : steps) {
        progress(QString::fromUtf16(step.title));
        TTransaction finTran(&fin);
        TTransaction ravlTran(&ravl);
        step.fill(books);
        ravlTran.commit();
        finTran.commit();
    }
    for (int month = 1; month <= closedMonths; ++month) {
        progress(u"Įrašai ir uždarymas: 2026.%1"_s.arg(month, 2, 10, QLatin1Char('0')));
        closeMonth(books, month);
    }
    for (TDatabase *book : {&fin, &ravl})
        appendSeal(*book, TSealEvent::Beginning);
}
