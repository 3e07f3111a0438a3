#include "src/balances/Ilikuciai.h"

#include "src/balances/Isllikedit.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/guard.h"

#include <QAction>

namespace Ilikuciai {

TUnit unit("ILikuciai");
TIslFrm *IslFrm = nullptr;

namespace {

constexpr std::pair<const char *, const char *> amounts[] = {
    {"SML_ASIG_DB", "Asignavimų deb."}, {"SML_ASIG_KR", "Asignavimų kred."},
    {"SML_KAS_DB", "Kasos išl. deb."},  {"SML_KAS_KR", "Kasos išl. kred."},
    {"SML_FAK_DB", "Fakt. išl. deb."},  {"SML_FAK_KR", "Fakt. išl. kred."},
};

QList<TGridColumn> amountColumns()
{
    QList<TGridColumn> columns;
    for (const auto &[field, title] : amounts)
        columns += {.field = field, .title = title, .width = 120, .format = "0.00"};
    return columns;
}

} // namespace

TIslFrm::TIslFrm(QWidget *owner)
    : TBookFrm({.name = "TIslFrm", .caption = "Išlaidų likučiai", .help = 22}, owner),
      qryIslLik(Database(), "SELECT * FROM bd_isllik WHERE sml_perid = :perid AND sml_jveid = :JungId", this),
      PeriodBox(new TPeriodBox(TPeriodBox::Order::OldestFirst, this)),
      DBGrid(new TDBGrid(this))
{
    keepIn(IslFrm);
    qryIslLik.RequestLive = true;
    for (const auto &[column, title] : amounts)
        qryIslLik.describe(column, [label = title](TField &amount) {
            amount.DisplayLabel = label;
            amount.DefaultExpression = 0;
        });
    DBGrid->setAccessibleName("Išlaidų likučiai");
    DBGrid->setColumns(amountColumns());
    DBGrid->setTitlesCentred(true);
    DBGrid->setDataSet(&qryIslLik);
    setContent(DBGrid);
    addToToolBar("&Periodas", PeriodBox);
}

TIslFrm::~TIslFrm()
{
    DBGrid->setDataSet(nullptr);
}

void TIslFrm::FormCreate()
{
    onNodeChange([this] { loadBalances(); });
    TBookFrm::FormCreate();
    connectGuarded(PeriodBox, &QComboBox::currentIndexChanged, this, [this] { tellSubscribers(); });
}

// A row of periods that is empty is no error: there are no balances then.
void TIslFrm::ReadPeriods()
{
    PeriodBox->fill();
}

void TIslFrm::loadBalances()
{
    const TWaiting waiting;
    qryIslLik.Close();
    if (PeriodBox->period().isNull())
        return;
    qryIslLik.setParam("perid", PeriodBox->period());
    qryIslLik.setParam("JungId", JungId());
    qryIslLik.Open();
}

// --- what may be done

Variant TIslFrm::currentKey() const
{
    return qryIslLik.Active() ? qryIslLik.FieldByName("SML_ID")->Value() : Variant();
}

bool TIslFrm::hasBalance() const
{
    return !currentKey().isNull();
}

// What cannot be found out does not hold.
bool TIslFrm::isFirstMonth() const
{
    try {
        const int year = GetFieldResult(Database(), "select max(per_metai) from bd_period").toInt();
        // Whether the year has balances of other periods decides nothing; a database that cannot tell it has
        // no first month, though.
        GetFieldResult(Database(), Format("select count() from bd_isllik key join bd_period where "
                                          "per_id<>%g and per_metai=%u",
                                          {EinPer_Id(), year}));
        return GetFieldResult(
                   Database(),
                   Format("select per_ketv * per_menuo from bd_period where per_id = %g", {EinPer_Id()}))
                   .toInt() == 1;
    } catch (const Exception &) {
        return false;
    }
}

void TIslFrm::CheckActions()
{
    TBookFrm::CheckActions();
    const bool single = PeriodBox->count() == 1;
    const bool mayEnter = single || isFirstMonth();
    const bool has = hasBalance();
    acNew->setEnabled(acNew->isEnabled() && mayEnter && !has && qryIslLik.Active());
    acEdit->setEnabled(acEdit->isEnabled() && mayEnter && has);
    acDelete->setEnabled(acDelete->isEnabled() && single && has);
}

// --- the balances

void TIslFrm::NewRecord()
{
    Isllikedit::EditIslLik(false);
}

void TIslFrm::EditRecord()
{
    Isllikedit::EditIslLik(true);
}

void TIslFrm::DeleteRecord()
{
    if (!hasBalance() || StdMsgBox(mkQuestion, "Ar tikrai norite ištrinti?") != mrYes)
        return;
    TTransaction transaction(Database());
    qryIslLik.Delete();
    transaction.commit();
}

} // namespace Ilikuciai
