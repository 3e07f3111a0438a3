#include "src/estimates/Samform.h"

#include "src/estimates/Korlist.h"
#include "src/estimates/Newsam.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/guard.h"

#include <QAction>
#include <QComboBox>
#include <QTreeWidget>

namespace Samform {

TUnit unit("SamForm");
TSamFrm *SamFrm = nullptr;

namespace {

constexpr int rowsOfYear = 5;
constexpr int quarterPanel = 1;
constexpr int yearPanel = 2;

} // namespace

const QStringList &quarterNames()
{
    static const QStringList names{"Metinė", "Pirmas", "Antras", "Trečias", "Ketvirtas"};
    return names;
}

TSamFrm::TSamFrm(QWidget *owner)
    : TBookFrm({.name = "TSamFrm", .caption = "Sąmatos", .help = 73}, owner),
      YearBox(new QComboBox(this)),
      DBGrid(new TDBGrid(this)),
      qryRows(
          Database(),
          "select * from bd_samatos where sam_perid >= :perid and sam_perid < :perid + 5 order by sam_perid",
          this),
      qryYearSum(Database(),
                 "select SUM(sam_samata) as sum_sam, SUM(sam_sam_kor) as sum_kor from bd_samatos "
                 "where sam_perid=:perid and sam_jveid=:sam_jveid group by sam_perid",
                 this),
      qryQuarterSum(Database(),
                    "select cast(SUM(sam_samata) as numeric(11,2)) as sum_sam, "
                    "cast(SUM(sam_sam_kor) as numeric(11,2)) as sum_kor from bd_samatos "
                    "where sam_jveid=:sjveid and sam_perid>:perid and sam_perid<:perid+5 group by sam_jveid",
                    this),
      qryPeriods(Database(), "select * from bd_period where per_menuo=0", this)
{
    keepIn(SamFrm);
    qryRows.RequestLive = true;
    DBGrid->setAccessibleName("Sąmatos");
    DBGrid->setColumns(
        {{.field = "SAM_PERID",
          .title = "Ketvirtis",
          .width = 120,
          .alignment = TAlignment::taLeftJustify,
          .text = [this](const QVariant &period) { return quarterNames().value(quarterOf(period)); }},
         {.field = "SAM_SAMATA", .title = "Sąmatos suma", .width = 140, .format = "0.00"},
         {.field = "SAM_SAM_KOR", .title = "Koreguota sąmata", .width = 140, .format = "0.00"}});
    DBGrid->setDataSet(&qryRows);
    setContent(DBGrid);
    SetPrintable(true);
    addToToolBar("&Metinis periodas", YearBox);
    addPanel(220);
    addPanel(220);
    acKor = addFormAction({.name = "acKor",
                           .text = "&Koregavimas",
                           .hint = "Sąmatos koregavimas",
                           .picture = TIcon::Calculate,
                           .keys = {Qt::CTRL | Qt::Key_K},
                           .handler = [this] { changeRecord([this] { showCorrections(); }); },
                           .enabled = [this] { return acEdit->isEnabled(); },
                           .separated = true});
}

TSamFrm::~TSamFrm()
{
    DBGrid->setDataSet(nullptr);
}

// --- years

void TSamFrm::FormCreate()
{
    onNodeChange([this] { showNode(); });
    TBookFrm::FormCreate();
    connectGuarded(YearBox, &QComboBox::currentIndexChanged, this, [this] { tellSubscribers(); });
}

void TSamFrm::ReadPeriods()
{
    const QSignalBlocker quiet(YearBox);
    YearBox->clear();
    TQuery years(Database(), "SELECT per_id, per_metai FROM bd_period WHERE per_menuo=0 and per_ketv=0");
    years.Open();
    QMap<int, double> byYear;
    for (years.First(); !years.Eof(); years.Next())
        byYear.insert(years.FieldByName("per_metai")->AsInteger(), years.FieldByName("per_id")->AsFloat());
    for (const auto &[year, id] : byYear.asKeyValueRange())
        YearBox->addItem(QString("%1 m.").arg(year), id);
    YearBox->setCurrentIndex(YearBox->count() - 1);
}

double TSamFrm::yearId() const
{
    return YearBox->currentData().toDouble();
}

bool TSamFrm::picksLastYear() const
{
    return YearBox->count() > 0 && YearBox->currentIndex() == YearBox->count() - 1;
}

// Which row of its year a period stands for: 0 the yearly one, 1 to 4 the quarters; -1: no such period.
int TSamFrm::quarterOf(const Variant &period)
{
    return qryPeriods.Locate("per_id", period) ? qryPeriods.FieldByName("per_ketv")->AsInteger() : -1;
}

// --- rows

Variant TSamFrm::currentKey() const
{
    return qryRows.Active() ? qryRows.FieldByName("sam_id")->Value() : Variant();
}

// The current row stays current while it is one of the node's.
void TSamFrm::readRows()
{
    const TWaiting waiting;
    const Variant key = currentKey();
    for (TQuery *query : {&qryPeriods, &qryRows})
        query->Close();
    qryPeriods.Open();
    qryRows.setParam("perid", yearId());
    showRowsOf(JungId());
    qryRows.Open();
    qryRows.Locate("sam_id", key);
}

void TSamFrm::showRowsOf(double node)
{
    shownNode = node;
    qryRows.setFilter([node](TDataSet &row) { return row.FieldByName("sam_jveid")->AsFloat() == node; });
}

void TSamFrm::showNode()
{
    readRows();
    showSums();
    if (level() == 1)
        completeChildren();
}

void TSamFrm::showSums()
{
    setPanel(quarterPanel, QString());
    setPanel(yearPanel, QString());
    qryQuarterSum.setParam("sjveid", JungId());
    showSum(qryQuarterSum, quarterPanel, "Sąmatos suma: ");
    qryYearSum.setParam("sam_jveid", JungId());
    showSum(qryYearSum, yearPanel, "Metinės sąmatos suma: ");
}

void TSamFrm::showSum(TQuery &sums, int panel, const QString &caption)
{
    sums.Close();
    sums.setParam("perid", yearId());
    sums.Open();
    setPanel(panel, caption + FormatFloat("0.00", sums.FieldByName("sum_sam")->AsFloat()));
}

QList<TSamFrm::TEstimate> TSamFrm::rowsOfNode()
{
    QList<TEstimate> rows(rowsOfYear);
    const int here = qryRows.RecNo();
    for (qryRows.First(); !qryRows.Eof(); qryRows.Next()) {
        const int quarter = quarterOf(qryRows.FieldByName("sam_perid")->Value());
        if (quarter >= 0 && quarter < rowsOfYear)
            rows[quarter] = {qryRows.FieldByName("sam_samata")->AsFloat(),
                             qryRows.FieldByName("sam_sam_kor")->AsFloat()};
    }
    if (here >= 0)
        qryRows.setRecNo(here);
    return rows;
}

// Five cells for each node below one of the first level: a cell for each amount above 0. The rows of all of
// them are read at once; those of the last one are left to be seen.
void TSamFrm::completeChildren()
{
    setPanel(quarterPanel, QString());
    setPanel(yearPanel, QString());
    showReport({"Ekonominė kl.", "Metinė", "I ketvirtis", "II ketvirtis", "III ketvirtis", "IV ketvirtis"});
    QHash<qint64, QTreeWidgetItem *> items;
    for (int i = 0; i < list()->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = list()->topLevelItem(i);
        items.insert(qRound64(nodeOf(item)), item);
        for (int row = 0; row < rowsOfYear; ++row)
            item->setText(1 + row, QString());
    }
    TQuery amounts(Database(), "select sam_jveid, sam_perid, sam_samata from bd_samatos "
                               "where sam_perid >= :perid and sam_perid < :perid + 5 and sam_samata > 0 "
                               "and sam_jveid in (select jve_id from bd_jve where jve_tevid = :jveid)");
    amounts.setParam("perid", yearId());
    amounts.setParam("jveid", JungId());
    amounts.Open();
    for (amounts.First(); !amounts.Eof(); amounts.Next()) {
        QTreeWidgetItem *item = items.value(qRound64(amounts.FieldByName("sam_jveid")->AsFloat()));
        const int quarter = quarterOf(amounts.FieldByName("sam_perid")->Value());
        if (!item || quarter < 0)
            continue;
        item->setText(1 + quarter, FormatFloat("0.00", amounts.FieldByName("sam_samata")->AsFloat()));
        item->setTextAlignment(1 + quarter, Qt::AlignRight | Qt::AlignVCenter);
    }
    const int last = list()->topLevelItemCount() - 1;
    if (last < 0)
        return;
    list()->setCurrentItem(list()->topLevelItem(0));
    showRowsOf(nodeOf(list()->topLevelItem(last)));
}

// --- actions

void TSamFrm::CheckActions()
{
    TBookFrm::CheckActions();
    const bool own = qryRows.Active() && shownNode == JungId();
    const int rows = own ? qryRows.RecordCount() : 0;
    const bool may = own && picksLastYear();
    acNew->setEnabled(acNew->isEnabled() && may && rows < rowsOfYear);
    acEdit->setEnabled(acEdit->isEnabled() && may && rows > 0);
    acDelete->setEnabled(acDelete->isEnabled() && may && rows > 0);
}

// A row whose period is none could be neither shown nor deleted.
void TSamFrm::NewRecord()
{
    const int next = qryRows.RecordCount();
    if (quarterOf(yearId() + next) != next)
        throw Exception(QString("Tarp %1 periodų nėra eilutės \"%2\"!")
                            .arg(YearBox->currentText(), quarterNames()[next]));
    Newsam::EditSam(false);
}

void TSamFrm::EditRecord()
{
    Newsam::EditSam(true);
}

// Only the last row of the node may go.
void TSamFrm::requireLast()
{
    const int quarter = quarterOf(qryRows.FieldByName("sam_perid")->Value());
    if (quarter < 0)
        throw Exception("Negali surasti įrašo!");
    if (qryRows.RecordCount() > quarter + 1)
        throw Exception("Šis ketvirtis nėra paskutinis!");
}

// Another station may have added a row, or taken this one, while the question stood.
void TSamFrm::DeleteRecord()
{
    requireLast();
    if (StdMsgBox(mkQuestion, "Ar tikrai norite ištrinti?") != mrYes)
        return;
    TTransaction transaction(Database());
    requireCurrent();
    requireLast();
    qryRows.Delete();
    transaction.commit();
}

void TSamFrm::PrintRecords()
{
    CloseReports();
    OpenReports(AnsiString("/DBN=" + Database()->AliasName() + "/RPTID=86"));
}

// Corrections belong to the yearly row.
void TSamFrm::showCorrections()
{
    qryRows.First();
    const double yearly = qryRows.FieldByName("sam_id")->AsFloat();
    Korlist::SamKorList(yearly, picksLastYear());
}

} // namespace Samform
