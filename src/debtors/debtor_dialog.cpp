#include "src/debtors/debtor_dialog.h"

#include "host/data/sas_edit.h"

#include <QPushButton>

namespace {

// Only a detail account can carry what is owed.
const TSasRule owedOn = {.whenNotDetail = TSasRule::Clear};

} // namespace

TDbKrDialog::TDbKrDialog(QWidget *owner, double id)
    : TDialog(owner),
      qryDbKr(MainDatas()->mnFin_Db(), "select * from Bd_DbKrAsm where DKA_ID =:ID", this),
      SasEdit(new TSasEdit(owedOn, this)),
      SasEdit2(new TSasEdit(owedOn, this)),
      twoAccounts(UAB())
{
    qryDbKr.RequestLive = true;
    qryDbKr.setParam("ID", id);
    setHelpTopic(9);
    describeColumns();
}

double TDbKrDialog::rowId()
{
    return qryDbKr.FieldByName("DKA_ID")->AsFloat();
}

// --- the fields

void TDbKrDialog::describeColumns()
{
    const auto require = [this](const QString &column, const QString &label) {
        qryDbKr.describe(column, [label](TField &field) {
            field.DisplayLabel = label;
            field.Required = true;
        });
    };
    require("DKA_KOD", "Paieškos kodas");
    require("DKA_PAVAD", "Pavadinimas");
    require("DKA_SASID", twoAccounts ? "Gautinų sumų sąs. Nr" : "Sąskaitos");
    require("DKA_SASID_2", "Mokėtinų sumų sąs. Nr");
    qryDbKr.describe("DKA_I_KOD", [](TField &field) {
        field.DisplayLabel = "Įmonės kodas";
        field.DisplayFormat = "#";
    });
    qryDbKr.describe("DKA_BANK_KOD", [](TField &field) { field.DisplayLabel = "Banko kodas"; });
}

QList<TFieldRow> TDbKrDialog::rows(const QStringList &columns)
{
    const QHash<QString, TFieldRow> all = {
        {"DKA_PAVAD", TFieldRow::edit("Pavadinimas", "DKA_PAVAD").width(60)},
        {"DKA_ADR", TFieldRow::edit("Adresas", "DKA_ADR")},
        {"DKA_TEL", TFieldRow::edit("Telefonas", "DKA_TEL")},
        {"DKA_I_KOD", TFieldRow::edit("Įmonės kodas", "DKA_I_KOD").maxLength(11)},
        {"DKA_PVM_KOD", TFieldRow::edit("PVM kodas", "DKA_PVM_KOD")},
        {"DKA_EIN_SAS", TFieldRow::edit("Einamoji sąskaita", "DKA_EIN_SAS").upperCase()},
        {"DKA_KOD", TFieldRow::edit("Paieškos kodas", "DKA_KOD")},
        {"DKA_SASID",
         TFieldRow::custom(twoAccounts ? "Gautinų sumų sąs. Nr" : "Sąskaitos", "DKA_SASID", SasEdit)},
        {"DKA_SASID_2", TFieldRow::custom("Mokėtinų sumų sąs. Nr", "DKA_SASID_2", SasEdit2)},
        {"DKA_KLIENT_INFSIST",
         TFieldRow::edit("Kliento kodas gavėjo informacinjė sistemoje", "DKA_KLIENT_INFSIST")},
        {"DKA_BANK_PAV", TFieldRow::combo("Banko pavadinimas", "DKA_BANK_PAV")},
        {"DKA_BANK_KOD", TFieldRow::combo("Banko kodas", "DKA_BANK_KOD")},
    };
    QList<TFieldRow> chosen;
    for (const QString &column : columns)
        chosen << all.find(column).value();
    return chosen;
}

void TDbKrDialog::build(const AnsiString &caption, const QStringList &columns, const QStringList &hidden,
                        const QList<TDialogButton> &buttons)
{
    describe(caption.toQString(), rows(columns), &qryDbKr, buttons);
    for (const QString &column : hidden)
        form().setRowVisible(column, false);
    form().setRowVisible("DKA_SASID_2", twoAccounts);
    SasEdit->setLabel(twoAccounts ? "Gautinų sumų sąs. Nr" : "Sąskaitos");
    SasEdit2->setLabel("Mokėtinų sumų sąs. Nr");
}

void TDbKrDialog::putButtonsBetween(const QString &before, const QString &after)
{
    QPushButton *cancel = button("Atšaukti");
    setTabOrder(control(before), saveButton());
    setTabOrder(saveButton(), cancel);
    setTabOrder(cancel, control(after));
}

void TDbKrDialog::fillControls()
{
    fillList("DKA_BANK_PAV");
    fillList("DKA_BANK_KOD");
}

void TDbKrDialog::fillList(const QString &column)
{
    TQuery list(MainDatas()->mnFin_Db(),
                QString("select distinct %1, 1 from bd_dbkrasm where ISNULL(%1,'') <> '' order by 1")
                    .arg(column.toLower()));
    auto *box = control<TDBComboBox>(column);
    const QSignalBlocker silently(box);
    ReadList(&list, box->model());
    box->restore();
}

// Who may only look sees the contract as well.
void TDbKrDialog::protectFromViewers()
{
    if (CurrentUser().viewOnly)
        DisableFormControls(this);
}

// --- saving

void TDbKrDialog::checkCode()
{
    const QString code = qryDbKr.FieldByName("DKA_KOD")->AsString();
    QString sql = "select count(dka_id) from bd_dbkrasm where dka_kod =" + TDatabase::quoted(code);
    if (qryDbKr.State() == dsEdit)
        sql += QString(" and dka_id <> %1").arg(qRound64(rowId()));
    if (GetFieldResult(MainDatas()->mnFin_Db(), sql).toInt() > 0)
        refuse("DKA_KOD", QString("Kodas \"%1\" jau egzistuoja").arg(code));
}

bool TDbKrDialog::takesNewKey() const
{
    return qryDbKr.State() == dsInsert;
}

void TDbKrDialog::Validate()
{
    checkCode();
    if (takesNewKey()) {
        const Variant largest = GetFieldResult(MainDatas()->mnFin_Db(), "select max(dka_id) from bd_dbkrasm");
        qryDbKr.FieldByName("DKA_ID")->setValue(qRound64(largest.toDouble()) + 1);
    }
    if (!twoAccounts)
        qryDbKr.FieldByName("DKA_SASID_2")->setValue(qryDbKr.FieldByName("DKA_SASID")->Value());
}

// Between the check and the post another station may have taken the code: it is named then, too.
void TDbKrDialog::saveInTransaction(const std::function<void()> &step)
{
    try {
        TDialog::saveInTransaction(step);
    } catch (const EConstraintError &) {
        checkCode();
        throw;
    }
}
