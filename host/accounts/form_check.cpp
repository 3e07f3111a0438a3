#include "host/accounts/form_check.h"

#include "host/common/months.h"
#include "host/data/main_datas.h"
#include "toolkit/data/statement.h"
#include "toolkit/report/preview.h"
#include "toolkit/report/table_report.h"
#include "toolkit/text/amount.h"
#include "toolkit/text/datetime.h"

#include <QHash>
#include <QPointer>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString inNoLine = u"Sąskaitos, neįtrauktos į jokią eilutę"_s;
const QString inSeveral = u"Sąskaitos, įtrauktos kelis kartus"_s;
const QString sides = u"Formos sumos"_s;

constexpr std::array sideLetters{'A', 'P', 'U'};
constexpr double places = 10000;
constexpr qreal periodHeight = 18; // of the line below the caption

struct TPlannedAccount {
    qlonglong id;
    QString number, name;
    bool isDetail;
};

struct TChecked {
    std::vector<TPlannedAccount> chart;
    QHash<qlonglong, QStringList> lines;           // of the form, by account
    QHash<qlonglong, qint64> balances;             // debit less credit, in ten-thousandths
    std::array<qint64, sideLetters.size()> sums{}; // of the sides, debit less credit
};

QString textOf(const TStatement &row, int column)
{
    return QString::fromUtf8(row.utf8(column));
}

void readChart(TDatabase &fin, TChecked &read)
{
    const auto rows =
        fin.prepare(u"select sas_id, sas_sasnr, sas_pavad, sas_tip from bd_sasplan order by sas_sasnr"_s);
    for (rows->exec(); rows->next();)
        read.chart.push_back(
            {rows->integer(0), textOf(*rows, 1), textOf(*rows, 2), textOf(*rows, 3).trimmed() == u"D"});
}

void addBalances(TDatabase &fin, const QString &sql, double period, TChecked &read)
{
    const auto rows = fin.prepare(sql);
    rows->bind(u"perid"_s, period);
    for (rows->exec(); rows->next();)
        read.balances[rows->integer(0)] += tenThousandths(rows->number(1)) - tenThousandths(rows->number(2));
}

// The opening balances, and the period's entries upon them.
void readBalances(TDatabase &fin, double period, TChecked &read)
{
    addBalances(fin,
                u"select ssl_sasid, sum(ssl_sum_db), sum(ssl_sum_kr) from bd_saslik "
                "where ssl_perid = :perid group by ssl_sasid"_s,
                period, read);
    addBalances(fin,
                u"select irs_sasid, sum(irs_sum_db), sum(irs_sum_kr) from bd_irasai "
                "where irs_perid = :perid group by irs_sasid"_s,
                period, read);
}

void readForm(TDatabase &fin, TChecked &read)
{
    const auto rows = fin.prepare(u"select bss_sasid, bel_kod, bel_pavad from bd_balsas, bd_baleil "
                                  "where bel_kod = bss_balkod order by bel_kod, bss_id"_s);
    for (rows->exec(); rows->next();) {
        const QString code = textOf(*rows, 1);
        read.lines[rows->integer(0)] << code + u' ' + textOf(*rows, 2).trimmed();
        const auto side = std::ranges::find(sideLetters, code.front().toLatin1());
        if (side != sideLetters.end())
            read.sums.at(std::size_t(side - sideLetters.begin())) += read.balances.value(rows->integer(0));
    }
}

double amountOf(qint64 sum)
{
    return double(sum) / places;
}

void addAccounts(const TChecked &read, const QString &group, bool several, std::vector<TFormCheckLine> &told)
{
    const std::size_t before = told.size();
    for (const TPlannedAccount &account : read.chart) {
        const QStringList lines = read.lines.value(account.id);
        if (several ? lines.size() > 1 : lines.isEmpty() && account.isDetail)
            told.push_back({group, account.number, account.name, lines.join(u"; "_s),
                            amountOf(read.balances.value(account.id))});
    }
    if (told.size() == before)
        told.push_back({.group = group, .name = u"Tokių nėra"_s});
}

void addSums(const TChecked &read, std::vector<TFormCheckLine> &told)
{
    const auto [assets, liabilities, offBalance] = read.sums;
    const auto add = [&told](const QString &name, qint64 sum) {
        told.push_back({.group = sides, .name = name, .amount = amountOf(sum)});
    };
    add(u"Aktyvas"_s, assets);
    add(u"Pasyvas"_s, -liabilities);
    add(assets == -liabilities ? u"Aktyvas ir pasyvas lygūs"_s : u"Aktyvas ir pasyvas nelygūs, skirtumas"_s,
        assets + liabilities);
    add(u"Užbalansinės sąskaitos"_s, offBalance);
}

class TFormCheckRows : public TReportRows {
public:
    explicit TFormCheckRows(std::vector<TFormCheckLine> found) : lines(std::move(found)) {}

    int count() override { return int(lines.size()); }
    QVariant value(int row, const QString &field) override
    {
        const TFormCheckLine &line = lines.at(std::size_t(row));
        if (field == u"LIKUTIS")
            return line.amount ? QVariant(*line.amount) : QVariant();
        return field == u"GRUPE"      ? line.group
               : field == u"SASKAITA" ? line.number
               : field == u"EILUTES"  ? line.lines
                                      : line.name;
    }

private:
    const std::vector<TFormCheckLine> lines;
};

TReport described()
{
    TReport report = reportOfTable({u"Balanso formos patikrinimas"_s, organisationName(), Date().date()},
                                   {{u"SASKAITA"_s, u"Sąskaita"_s, 62},
                                    {u"PAVAD"_s, u"Pavadinimas"_s, 186},
                                    {u"EILUTES"_s, u"Formos eilutės"_s, 170},
                                    {u"LIKUTIS"_s, u"Likutis"_s, 92, Qt::AlignRight, u"#0.00"_s}});
    report.period = PeriodText(EinPer_Date());
    const qreal width = report.page.paintRect(QPageLayout::Point).width();
    report.title.items.push_back(
        {.y = report.title.height, .width = width, .text = report.period, .alignment = Qt::AlignHCenter});
    report.title.height += periodHeight;
    report.groups.push_back(
        {.name = u"GRUPE"_s,
         .expression = u"GRUPE"_s,
         .header = {.height = 22,
                    .items = {{.y = 7, .width = width, .expression = u"GRUPE"_s, .bold = true}}}});
    return report;
}

} // namespace

std::vector<TFormCheckLine> checkBalanceForm(TDatabase &fin, double period)
{
    TChecked read;
    readChart(fin, read);
    readBalances(fin, period, read);
    readForm(fin, read);
    std::vector<TFormCheckLine> told;
    addAccounts(read, inNoLine, false, told);
    addAccounts(read, inSeveral, true, told);
    addSums(read, told);
    return told;
}

void ShowBalanceFormCheck(QWidget *owner)
{
    Q_ASSERT(MainDatas());
    if (EinPer_Id() <= 0)
        throw Exception(u"Darbo pradžios periodas nenustatytas"_s);
    auto found = std::make_unique<TFormCheckRows>(checkBalanceForm(*MainDatas()->mnFin_Db(), EinPer_Id()));
    const QPointer<TReportPreview> preview = new TReportPreview(described(), std::move(found), owner);
    preview->ShowModal();
    delete preview;
}
