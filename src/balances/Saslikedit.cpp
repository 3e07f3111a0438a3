#include "src/balances/Saslikedit.h"

#include "host/data/account_row.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/guard.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>

namespace Saslikedit {

TUnit unit("SasLikEdit");
TSasLikDlg *SasLikDlg = nullptr;

namespace {

constexpr int startOfWorkPeriod = 6; // new rows belong to it whatever period the list shows

QWidget *besideEachOther(QRadioButton *debit, QRadioButton *credit)
{
    auto *choice = new QWidget;
    auto *line = new QHBoxLayout(choice);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(debit);
    line->addWidget(credit);
    line->addStretch();
    choice->setFocusProxy(debit);
    return choice;
}

QString fieldNamed(const TField &field, const QString &complaint)
{
    return QString("Laukas \"%1\" %2").arg(field.label(), complaint);
}

// An amount has no parts of a cent: they would be hidden in the list and show up in its totals.
bool inWholeCents(double amount)
{
    return StrToFloat(FormatFloat("0.00", amount)) == amount;
}

} // namespace

bool EditLik(bool edit, double &id)
{
    TSasLikDlg dialog(QApplication::activeWindow(), edit ? id : 0);
    if (!dialog.run())
        return false;
    id = dialog.rowId();
    return true;
}

TSasLikDlg::TSasLikDlg(QWidget *owner, double id)
    : TDialog(owner),
      isNew(id == 0),
      qryLik(MainDatas()->mnFin_Db(), "select *\nfrom bd_saslik\nwhere ssl_id=:id", this),
      DebRadio(new QRadioButton("Debetinis likutis")),
      KredRadio(new QRadioButton("Kreditinis likutis"))
{
    qryLik.RequestLive = true;
    qryLik.setParam("id", id);
    setRules();
    DebRadio->setObjectName("DebRadio");
    DebRadio->setChecked(true);
    KredRadio->setObjectName("KredRadio");
    describe(
        isNew ? "Naujas likutis" : "Keisti sąskaitos likutį",
        {SasRow("&Sąskaita", "SSL_SASID", {.picker = {false, 1}}).width(52),
         TFieldRow::group("Likučiai", {TFieldRow::custom({}, "Side", besideEachOther(DebRadio, KredRadio))}),
         TFieldRow::edit("Suma", "SSL_SUM_DB").width(16), TFieldRow::edit("Suma", "SSL_SUM_KR").width(16)},
        &qryLik);
    setHelpTopic(17);
    showSide();
    connectGuarded(DebRadio, &QRadioButton::toggled, this, [this] { sideChosen(); });
    SasLikDlg = this;
}

TSasLikDlg::~TSasLikDlg()
{
    SasLikDlg = nullptr;
}

void TSasLikDlg::setRules()
{
    const auto rule = [this](const QString &column, const QString &label) {
        qryLik.describe(column, [this, label](TField &field) {
            field.DisplayLabel = label;
            field.OnValidate = [this](TField &checked, const Variant &value) { validate(checked, value); };
        });
    };
    rule("SSL_SASID", "Sąskaita");
    rule("SSL_SUM_DB", "Debetinis likutis");
    rule("SSL_SUM_KR", "Kreditinis likutis");
    for (const char *amount : {"SSL_SUM_DB", "SSL_SUM_KR"})
        qryLik.describe(amount, [](TField &field) {
            field.DisplayFormat = "0.00";
            field.DefaultExpression = 0;
        });
}

void TSasLikDlg::Load()
{
    qryLik.Open();
    if (isNew) {
        qryLik.Append();
    } else {
        if (qryLik.IsEmpty())
            throw Exception("Įrašas jau ištrintas kitoje darbo vietoje");
        if (qryLik.FieldByName("SSL_SUM_DB")->AsFloat() != 0)
            DebRadio->setChecked(true);
        if (qryLik.FieldByName("SSL_SUM_KR")->AsFloat() != 0)
            KredRadio->setChecked(true);
        qryLik.Edit();
    }
    if (CurrentUser().viewOnly)
        DisableFormControls(this);
}

double TSasLikDlg::rowId()
{
    return qryLik.FieldByName("SSL_ID")->AsFloat();
}

TField *TSasLikDlg::chosen()
{
    return qryLik.FieldByName(debitChosen ? "SSL_SUM_DB" : "SSL_SUM_KR");
}

TField *TSasLikDlg::other()
{
    return qryLik.FieldByName(debitChosen ? "SSL_SUM_KR" : "SSL_SUM_DB");
}

// --- the rules

void TSasLikDlg::validate(const TField &field, const Variant &proposed)
{
    if (proposed.isNull())
        throw Exception(fieldNamed(field, "negali būti tuščias!"));
    if (field.FieldName().compare("SSL_SASID", Qt::CaseInsensitive) != 0)
        checkAmount(field, proposed.toDouble());
    else if (SasHasChildren(GetSasById(proposed.toDouble(), true).section(u' ', 0, 0)))
        throw Exception("Sąskaita negali būti suminė!");
}

void TSasLikDlg::checkAmount(const TField &field, double proposed)
{
    const TField *second = &field == chosen() ? other() : chosen();
    if (!(proposed + second->AsFloat() > 0))
        throw Exception(fieldNamed(*chosen(), "turi būti didesnis už 0!"));
    if (!inWholeCents(proposed))
        throw Exception(fieldNamed(field, "gali turėti tik du skaitmenis po kablelio!"));
}

// --- the side

// An amount that is refused keeps its side, so that it stays before the user's eyes.
void TSasLikDlg::sideChosen()
{
    if (debitChosen == DebRadio->isChecked())
        return;
    try {
        control<TDBEdit>(chosen()->FieldName())->commit();
    } catch (...) {
        (debitChosen ? DebRadio : KredRadio)->setChecked(true);
        throw;
    }
    debitChosen = DebRadio->isChecked();
    showSide();
    if (qryLik.editing())
        carryAmount();
    saveButton()->setEnabled(chosen()->AsFloat() != 0 && qryLik.FieldByName("SSL_SASID")->AsFloat() > 0);
}

void TSasLikDlg::showSide()
{
    form().setRowVisible("SSL_SUM_DB", debitChosen);
    form().setRowVisible("SSL_SUM_KR", !debitChosen);
}

// Both sides are nothing while no amount is typed: then there is none to carry.
void TSasLikDlg::carryAmount()
{
    if (other()->AsFloat() == 0)
        return;
    chosen()->setAsFloat(other()->AsFloat());
    other()->setAsFloat(0);
}

// --- saving

// The other side becomes nothing first: that runs the rule of amounts, which refuses one of 0 or less. The
// key is read outside any lock; two stations may read the same one, and the later post is refused then.
void TSasLikDlg::Validate()
{
    other()->setAsFloat(0);
    const TField *account = qryLik.FieldByName("SSL_SASID");
    validate(*account, account->Value());
    if (qryLik.State() != dsInsert)
        return;
    const Variant largest = GetFieldResult(MainDatas()->mnFin_Db(), "select max(ssl_id) from bd_saslik");
    qryLik.FieldByName("SSL_ID")->setValue(qRound64(largest.toDouble()) + 1);
    qryLik.FieldByName("SSL_PERID")->setAsInteger(startOfWorkPeriod);
}

} // namespace Saslikedit
