#include "src/debtors/Dbkrsut.h"

#include "toolkit/widgets/guard.h"

#include <QApplication>
#include <QPushButton>

namespace Dbkrsut {

TUnit unit("DbKrSut");
TDbKrSutart *DbKrSutart = nullptr;
char Tipas = 'B';

namespace {

const QString firstDay = QStringLiteral("2007.01.01"); // of a new contract

QString kind()
{
    return QString(QLatin1Char(Tipas));
}

bool isIn(const QWidget *widget, const QWidget *control)
{
    return widget == control || control->isAncestorOf(widget);
}

} // namespace

void DbKrShow(const Variant &dkaId)
{
    TDbKrSutart(QApplication::activeWindow(), dkaId).run();
}

TDbKrSutart::TDbKrSutart(QWidget *owner, const Variant &counterparty)
    : TDialog(owner),
      dkaId(counterparty.toDouble()),
      qrySutart(MainDatas()->mnFin_Db(), "select * from bd_dbkrsut where dks_dkaid=:DKAID", this)
{
    qrySutart.RequestLive = true;
    qrySutart.setParam("DKAID", dkaId);
    qrySutart.describe("DKS_NUO", [](TField &field) { field.DisplayLabel = "Nuo"; });
    qrySutart.describe("DKS_IKI", [](TField &field) { field.DisplayLabel = "Iki"; });
    qrySutart.describe("DKS_TIPAS", [](TField &field) {
        field.OnChange = [](TField &chosen) { Tipas = chosen.AsString() == "M" ? 'M' : 'B'; };
    });
    qrySutart.describe("DKS_SUMA", [](TField &field) {
        field.DisplayLabel = "Suma";
        field.DisplayFormat = "0.00";
    });
    describe("Sutartis",
             {TFieldRow::edit("Sutarties Nr", "DKS_NR").width(30), TFieldRow::date("Nuo", "DKS_NUO"),
              TFieldRow::edit("Iki", "DKS_IKI"),
              TFieldRow::radio("Sumos tipas", "DKS_TIPAS", {{"Bendras", "B"}, {"Mėnesinis", "M"}}),
              TFieldRow::edit("Suma", "DKS_SUMA")},
             &qrySutart,
             {{"&Išsaugoti", TDialogButton::Save, true, {}, {}},
              {"&Atsisakyti", TDialogButton::Cancel, false, {}, {}}});
    setHelpTopic(9);
    connectGuarded(qApp, &QApplication::focusChanged, this,
                   [this](QWidget *left, QWidget *entered) { checkWhenLeft(left, entered); });
    DbKrSutart = this;
}

TDbKrSutart::~TDbKrSutart()
{
    qApp->disconnect(this); // the focus still changes while the controls go
    DbKrSutart = nullptr;
}

void TDbKrSutart::Load()
{
    qrySutart.Open();
    const bool isNew = qrySutart.IsEmpty();
    Tipas = qrySutart.FieldByName("DKS_TIPAS")->AsString() == "M" ? 'M' : 'B';
    if (isNew) {
        qrySutart.Insert();
        qrySutart.FieldByName("DKS_NUO")->setAsString(firstDay);
    } else {
        qrySutart.Edit();
    }
    qrySutart.FieldByName("DKS_DKAID")->setAsFloat(dkaId);
    qrySutart.FieldByName("DKS_TIPAS")->setAsString(kind());
    if (CurrentUser().viewOnly)
        DisableFormControls(this);
}

void TDbKrSutart::checkDates()
{
    const TField *last = qrySutart.FieldByName("DKS_IKI");
    if (!last->IsNull() && qrySutart.FieldByName("DKS_NUO")->AsDate() > last->AsDate())
        throw Exception("Data nuo negali būti didesnė už datą iki");
}

// Dates that contradict each other hold the focus, unless the user gives the contract up.
void TDbKrSutart::checkWhenLeft(QWidget *left, QWidget *entered)
{
    if (!left || !entered || !isVisible() || !qrySutart.editing() || entered->window() != this ||
        entered == button("Atsisakyti"))
        return;
    for (const char *column : {"DKS_NUO", "DKS_IKI"}) {
        if (!isIn(left, control(column)) || isIn(entered, control(column)))
            continue;
        try {
            checkDates();
        } catch (...) {
            left->setFocus();
            throw;
        }
    }
}

void TDbKrSutart::Validate()
{
    checkDates();
    qrySutart.FieldByName("DKS_TIPAS")->setAsString(kind());
}

} // namespace Dbkrsut
