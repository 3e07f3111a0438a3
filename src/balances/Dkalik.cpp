#include "src/balances/Dkalik.h"

#include "src/balances/Dkaliked.h"
#include "toolkit/text/format.h"

#include <QAction>
#include <QScopeGuard>

namespace Dkalik {

TUnit unit("DKALik");
TDKALikFrm *DKALikFrm = nullptr;

namespace {

TBrowseDescription described()
{
    return {
        .name = "TDKALikFrm",
        .caption = "Debitorių-Kreditorių likučiai",
        .help = 23,
        .keyColumn = "dkl_id",
        .table = "bd_dbkrlik",
        .sql = "select   dkl_id,   ifnull(dkl_dkaid, dkl_i_kod, dka_i_kod) as IKodas,   "
               "ifnull(dkl_dkaid, dkl_pavad, dka_pavad) as IPavad,   dkl_sum_db,   dkl_sum_kr,   "
               "ifnull(dkl_dkaid, dkl_sasid, dka_sasid) as sasid,   "
               "sas_sasnr + ' ' + sas_pavad as Saskaita,   pad_pavad   "
               "from bd_dbkrlik as a left outer join bd_dbkrasm on dkl_dkaid=dka_id,   "
               "bd_dbkrlik as a left outer join bd_pad on dkl_padid = pad_id,   bd_sasplan "
               "where dkl_perid=:PerId and sasid=sas_id order by IPavad",
        .columns = {{"IKodas", "Įmonės kodas", 100, TAlignment::taLeftJustify, "#"},
                    {"IPavad", "Pavadinimas", 240},
                    {.field = "dkl_sum_db", .title = "Debetas", .format = "0.00"},
                    {.field = "dkl_sum_kr", .title = "Kreditas", .format = "0.00"},
                    {"Saskaita", "Sąskaita", 200},
                    {"pad_pavad", "Skyrius", 120}},
        .edit = keyed<double>([](const QString &, bool, double &id) { return Dkaliked::NewDKALik(id); }),
    };
}

} // namespace

TDKALikFrm::TDKALikFrm(QWidget *owner)
    : TPeriodListFrm(described(), TPeriodBox::Order::NewestFirst, "PerId", owner)
{
    keepIn(DKALikFrm);
    acCalc = addListAction({.name = "acCalc",
                            .text = "&Suskaičiuoti...",
                            .hint = "Suskaičiuoti likučius",
                            .picture = TIcon::Calculate,
                            .handler = [this] { calculate(); },
                            .enabled = [this] { return PeriodBox->picksNewest() && !CurrentUser().viewOnly; },
                            .visible = [this] { return Editable(); },
                            .separated = true});
    acDelAll = addListAction({.name = "acDelAll",
                              .text = "Ištrinti &viska",
                              .hint = "Ištrinti visus likučius",
                              .picture = TIcon::Delete,
                              .handler = [this] { deleteAll(); },
                              .enabled = [] { return !CurrentUser().viewOnly; },
                              .place = TActionPlace::DeleteMenu});
}

// Rows of an earlier period than the last one shut the list.
bool TDKALikFrm::rowsMayChange() const
{
    return GetFieldResult(Database(), "select count() from bd_dbkrlik where dkl_perid<>get_last_per_id()")
               .toInt() == 0;
}

double TDKALikFrm::total(const QString &column) const
{
    const QString sql = QString("select sum(isnull(%1,0)) from bd_dbkrlik where dkl_perid=%2");
    return GetFieldResult(Database(), sql.arg(column, PeriodBox->period().toString())).toDouble();
}

void TDKALikFrm::readTotals()
{
    debit = total("dkl_sum_db");
    credit = total("dkl_sum_kr");
}

void TDKALikFrm::showTotals()
{
    setPanel(debitPanel, FormatFloat("\"Debetas: \"0.00", debit));
    setPanel(creditPanel, FormatFloat("\"Kreditas: \"0.00", credit));
}

void TDKALikFrm::calculate()
{
    if (!dataSet()->IsEmpty() &&
        StdMsgBox(mkQuestion, "Vykdant likučių perskaičiavimą bus ištrinti visi dabartiniai likučiai. Ar "
                              "tikrai norite perskaičiuoti?") != mrYes)
        return;
    const QString told = "Likučiu perskaičiavimas";
    EnableAnimation(TCommonAVI::aviCopyFiles, told, true, 0);
    const auto hide = qScopeGuard([told] { DisableAnimation(told); });
    TTransaction transaction(Database());
    DbiQExecDirect(Database(), "call p_CalcDBKRLik(null)");
    transaction.commit();
    RefreshData(Variant());
}

// Asks nothing, deliberately.
void TDKALikFrm::deleteAll()
{
    TTransaction transaction(Database());
    DbiQExecDirect(Database(), "delete from bd_dbkrlik");
    transaction.commit();
    SetEditable(true);
    RefreshData(Variant());
}

} // namespace Dkalik
