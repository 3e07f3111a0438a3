#include "src/balances/Dkaliked.h"

#include "toolkit/widgets/guard.h"

namespace Dkaliked {

TUnit unit("DKALikEd");
TDKALikDlg *DKALikDlg = nullptr;

namespace {

const QString debitColumn = QStringLiteral("DKL_SUM_DB");
const QString creditColumn = QStringLiteral("DKL_SUM_KR");

// What the picker offers.
bool isDetail(double sasId)
{
    return GetSasKind(sasId) == "D" && !SasHasChildren(GetSasById(sasId, false));
}

} // namespace

bool NewDKALik(double &id)
{
    return editRecord<TDKALikDlg>(id, TRecordStart::row(id));
}

TDKALikDlg::TDKALikDlg(const TRecordStart &start)
    : TRecordDialog(
          {.name = "TDKALikDlg",
           .newCaption = "Debitorių-Kreditorių likučiai",
           .help = 23,
           .table = "bd_dbkrlik",
           .keyColumn = "DKL_ID",
           .key = TKeyRule::largestPlusOne("select max(dkl_id) from bd_dbkrlik"),
           .sql = "select * from bd_dbkrlik where dkl_id=:id",
           .addsMissing = true,
           .byKeyOnly = true,
           .rows = {DkaRow("&Kodas", {"DKL_DKAID", "DKL_I_KOD", "DKA_I_KOD"}).width(50),
                    DkaRow("&Pavadinimas", {"DKL_DKAID", "DKL_PAVAD", "DKA_PAVAD"}),
                    SasRow("&Sąskaita", "DKL_SASID", {.picker = {false, 1}}),
                    TFieldRow::custom({}, "Side", new TSideChoice("Debetas", "Kreditas")),
                    TFieldRow::edit("S&uma", debitColumn).named("Debetas").money().defaultValue(0),
                    TFieldRow::edit("S&uma", creditColumn)
                        .named("Kreditas")
                        .money()
                        .defaultValue(0)
                        .buttonsAfter(),
                    TFieldRow::lookup("Sk&yrius", "DKL_PADID", MainDatas()->mnFin_Db(),
                                      "select pad_id,   pad_pavad from bd_pad", "pad_id", "pad_pavad")},
           .buttons = saveAndCancel("&Gerai", "&Atsisakyti")},
          start),
      code(control<TDKAComboBox>("DKL_I_KOD")),
      account(control<TSasEdit>("DKL_SASID")),
      side(control<TSideChoice>("Side"))
{
    row().WrittenTogether = {{debitColumn, creditColumn}};
    side->showIn(form(), row(), debitColumn, creditColumn);
    connectGuarded(code, &TDKAComboBox::changed, this, [this] { showAccount(); });
    connectGuarded(&row(), &TDataSet::fieldChanged, this,
                   [this](const QString &column) { rowChanged(column); });
    keepIn(DKALikDlg);
}

void TDKALikDlg::Loaded()
{
    side->setDebit(field(creditColumn)->AsFloat() == 0);
    showAccount();
}

bool TDKALikDlg::isFree() const
{
    return field("DKL_DKAID")->IsNull();
}

// A credit that the row gets shows itself; what the user chose stays otherwise.
void TDKALikDlg::rowChanged(const QString &column)
{
    if (column.compare(creditColumn, Qt::CaseInsensitive) == 0 && field(creditColumn)->AsFloat() != 0)
        side->setDebit(false);
    showAccount();
}

// A counterparty of the register has its account there.
void TDKALikDlg::showAccount()
{
    account->showInstead(isFree() ? 0 : code->Get_dkaSASID());
    account->setEnabled(isFree() && mayChange());
}

// --- saving: the checks stand in this order

void TDKALikDlg::Validate()
{
    requireParty();
    requireAccount();
    if (side->isDebit() || field(creditColumn)->IsNull())
        field(creditColumn)->setAsFloat(0);
    if (!side->isDebit() || field(debitColumn)->IsNull())
        field(debitColumn)->setAsFloat(0);
    if (side->isDebit())
        requireAmount(debitColumn, "Debeto suma negali būti lygi nuliui!");
    else
        requireAmount(creditColumn, "Kredito suma negali būti lygi nuliui!");
    if (isNew())
        field("DKL_PERID")->setAsFloat(EinPer_Id());
    if (field("DKL_PERID")->AsFloat() == 0)
        throw Exception("Darbo pradžios periodas nenustatitas!");
}

void TDKALikDlg::requireParty()
{
    if (isFree() && field("DKL_I_KOD")->IsNull() && field("DKL_PAVAD")->IsNull())
        refuse("DKL_I_KOD", "Nėra įmonės duomenų!");
}

void TDKALikDlg::requireAccount()
{
    if (!isFree())
        field("DKL_SASID")->Clear();
    else if (!(account->value() > 0))
        refuse("DKL_SASID", "Nenurodyta sąskaita!");
    else if (!isDetail(account->value()))
        refuse("DKL_SASID", "Sąskaita negali būti suminė!");
}

void TDKALikDlg::requireAmount(const QString &column, const QString &message)
{
    if (field(column)->AsFloat() == 0)
        refuse(column, message);
}

} // namespace Dkaliked
