#include "database/standard/standard.h"

#include "database/filling/table_text.h"
#include "database/seals.h"
#include "database/standard/writing.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct TStepPlan {
    SetUpStep step;
    const char16_t *name;
    QStringList mainTables;
    QStringList budgetTables;
    void (*write)(const TWriting &);
};

// In the order of writing: what others refer to comes first.
const QList<TStepPlan> &plans()
{
    using enum SetUpStep;
    const QString places = u"bd_savivaldybes"_s;
    static const QList<TStepPlan> list{
        {Municipalities, u"Savivaldybės", {places}, {places}, writeMunicipalities},
        {Institution, u"Įstaiga", {u"bd_org"_s}, {}, writeInstitution},
        {Accounts, u"Sąskaitų planas", {u"bd_sasplan"_s}, {}, writeStandardAccounts},
        {Classification, u"Išlaidų klasifikacija", {u"bd_asgisl"_s, u"bd_jve"_s}, {}, writeClassification},
        {Functions, u"Valstybės funkcijos", {u"bd_fun"_s}, {}, writeFunctions},
        {Banks, u"Bankai", {u"bd_bankai"_s}, {}, writeBanks},
        {StartOfWork, u"Darbo pradžios periodas", {u"bd_period"_s}, {}, writeFirstMonth},
        {WorkPlaces, u"Darbo vietos", {}, {u"bd_kdv"_s}, writeWorkPlaces},
        {Sources, u"Finansavimo šaltiniai", {}, {u"bd_fin"_s}, writeSources},
        {Administrator, u"Administratorius", {}, {u"bd_usr"_s}, writeAdministrator}};
    return list;
}

bool holds(TDatabase &db, const QStringList &tables)
{
    return tables.isEmpty() ||
           std::ranges::any_of(tables, [&db](const QString &table) { return hasRows(db, table); });
}

QSet<SetUpStep> wantedSteps(const TSetUp &setUp)
{
    QSet<SetUpStep> steps = setUp.standard;
    const auto want = [&steps](SetUpStep step, bool given) {
        if (given)
            steps.insert(step);
        else
            steps.remove(step);
    };
    want(SetUpStep::Institution, setUp.institution.has_value());
    want(SetUpStep::Administrator, setUp.administrator.has_value());
    want(SetUpStep::StartOfWork, setUp.startOfWork.has_value());
    return steps;
}

// On a server two set-ups could both find the tables empty: the second one waits here for the first.
void waitForOthers(TDatabase &book)
{
    book.ExecSQL(u"update bd_versija set ver_id = ver_id"_s);
}

void refuseDone(const QSet<SetUpStep> &wanted, const QSet<SetUpStep> &done)
{
    for (const TStepPlan &plan : plans()) {
        if (wanted.contains(plan.step) && done.contains(plan.step))
            throw Exception(u"%1: duomenys jau įrašyti ir nekeičiami."_s.arg(stepName(plan.step)));
    }
}

void writeSteps(const TWriting &to, const QSet<SetUpStep> &steps)
{
    for (const TStepPlan &plan : plans()) {
        if (steps.contains(plan.step))
            plan.write(to);
    }
    if (steps.contains(SetUpStep::Administrator) || steps.contains(SetUpStep::Sources))
        writeMissingRights(to.ravl);
}

} // namespace

QSet<SetUpStep> doneSteps(TDatabase &fin, TDatabase &ravl)
{
    QSet<SetUpStep> done;
    for (const TStepPlan &plan : plans()) {
        if (holds(fin, plan.mainTables) && holds(ravl, plan.budgetTables))
            done.insert(plan.step);
    }
    return done;
}

QString stepName(SetUpStep step)
{
    const auto plan = std::ranges::find(plans(), step, &TStepPlan::step);
    Q_ASSERT(plan != plans().end());
    return QString::fromUtf16(plan->name);
}

QList<std::pair<int, QString>> standardMunicipalities()
{
    QList<std::pair<int, QString>> list;
    for (const QStringList &row : TTableText::read(u"standard/savivaldybes"_s).rows)
        list.append({row.at(0).toInt(), row.at(1)});
    std::ranges::sort(list);
    return list;
}

void setUpBooks(TDatabase &fin, TDatabase &ravl, const TSetUp &setUp)
{
    TTransaction finTran(&fin);
    TTransaction ravlTran(&ravl);
    for (TDatabase *book : {&fin, &ravl})
        waitForOthers(*book);
    QSet<SetUpStep> steps = wantedSteps(setUp);
    const QSet<SetUpStep> done = doneSteps(fin, ravl);
    refuseDone(steps, done);
    if (setUp.institution && setUp.institution->savivaldybe && !done.contains(SetUpStep::Municipalities))
        steps.insert(SetUpStep::Municipalities);
    writeSteps({fin, ravl, setUp}, steps);
    for (TDatabase *book : {&fin, &ravl})
        appendSeal(*book, leavesRecords(*book) ? TSealEvent::SetUp : TSealEvent::Beginning);
    ravlTran.commit();
    finTran.commit();
}
