#include "host/data/sas_edit.h"

#include "host/data/accounts_chart.h"
#include "host/data/main_datas.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int offeredAtMost = 50;

std::optional<TKeyRow> keyRow(const std::optional<TAccount> &account)
{
    if (!account)
        return {};
    return TKeyRow{account->id, account->number, account->name, account->kind == u"D"};
}

TDatabase *books()
{
    Q_ASSERT(MainDatas());
    return MainDatas()->mnFin_Db();
}

} // namespace

TSasEdit::TSasEdit(QWidget *parent) : TSasEdit(TSasRule(), parent) {}

TSasEdit::TSasEdit(const TSasRule &rule, QWidget *parent)
    : TKeyEdit(Typing::Searches,
               {u"Pasirinkti iš sąskaitų plano"_s, u"Sąskaitos „%1“ nėra"_s, u"Sąskaitos nebėra"_s}, parent),
      given(rule)
{
    setLabel(u"Sąskaita"_s);
}

TSasEdit::~TSasEdit() = default;

std::optional<TKeyRow> TSasEdit::rowOf(double key)
{
    return keyRow(findAccount(books(), key));
}

std::optional<TKeyRow> TSasEdit::rowOfText(const QString &text)
{
    const auto account = findAccountByNumber(books(), text);
    if (account && account->kind == u"U")
        throw Exception(u"Sąskaita „%1“ uždaryta"_s.arg(text));
    return keyRow(account);
}

QList<TOffer> TSasEdit::offersFor(const QString &text)
{
    if (!chart)
        chart = std::make_unique<TCodeTree>(chartOfAccounts(books()));
    QList<TOffer> fitting;
    for (const int row : chart->search(text)) {
        if (given.detailOnly && (!chart->at(row).detail || chart->isSummary(row)))
            continue;
        fitting.append({chart->label(row), chart->at(row).id});
        if (fitting.size() == offeredAtMost)
            break;
    }
    return fitting;
}

double TSasEdit::pickFrom(double shownFirst)
{
    return pickAccount(window(), given.picker, shownFirst);
}

void TSasEdit::store(TField &field, const std::optional<TKeyRow> &row)
{
    if (!row && given.zeroKeeps)
        return;
    if (!row || row->detail || given.whenNotDetail == TSasRule::Keep) {
        TKeyEdit::store(field, row);
        return;
    }
    storeNothing(field);
    throw Exception(u"Sąskaita „%1“ yra suminė: pasirinkite detaliąją"_s.arg(row->code));
}

void TSasEdit::storeNothing(TField &field)
{
    if (given.whenNotDetail == TSasRule::Clear)
        field.Clear();
}

bool TSasEdit::refusesGone() const
{
    return given.whenNotDetail != TSasRule::Keep;
}

// The chart is read anew for the next search.
void TSasEdit::showField(TField *field)
{
    chart.reset();
    TKeyEdit::showField(field);
}
