#include "src/balances/Saslikedit.h"

#include "toolkit/widgets/guard.h"

namespace Saslikedit {

TUnit unit("SasLikEdit");
TSasLikDlg *SasLikDlg = nullptr;

namespace {

QString fieldNamed(const TField &field, const QString &complaint)
{
    return QString("Laukas \"%1\" %2").arg(field.label(), complaint);
}

TFieldRow amount(const QString &column, const QString &name)
{
    return TFieldRow::edit("Suma", column).named(name).money().defaultValue(0).width(16);
}

} // namespace

bool EditLik(bool edit, double &id)
{
    return editRecord<TSasLikDlg>(id, TRecordStart::rowOrNew(!edit, id));
}

TSasLikDlg::TSasLikDlg(const TRecordStart &start)
    : TRecordDialog(
          {.name = "TSasLikDlg",
           .newCaption = "Naujas likutis",
           .editCaption = "Keisti sąskaitos likutį",
           .help = 17,
           .table = "bd_saslik",
           .keyColumn = "SSL_ID",
           .key = TKeyRule::largestPlusOne("select max(ssl_id) from bd_saslik"),
           .sql = "select *\nfrom bd_saslik\nwhere ssl_id=:id",
           .rows = {SasRow("&Sąskaita", "SSL_SASID", {.picker = {false, 1}}).width(52).holdsFocus(),
                    TFieldRow::group("Likučiai", {TFieldRow::custom({}, "Side",
                                                                    new TSideChoice("Debetinis likutis",
                                                                                    "Kreditinis likutis"))}),
                    amount("SSL_SUM_DB", "Debetinis likutis"), amount("SSL_SUM_KR", "Kreditinis likutis")},
           .prepare = [this](TQuery &balance) { setRules(balance); }},
          start),
      side(control<TSideChoice>("Side"))
{
    side->showIn(form(), row(), "SSL_SUM_DB", "SSL_SUM_KR");
    connectGuarded(side, &TSideChoice::chosen, this, [this] { sideChosen(); });
    keepIn(SasLikDlg);
}

void TSasLikDlg::setRules(TQuery &balance)
{
    balance.WrittenTogether = {{"SSL_SUM_DB", "SSL_SUM_KR"}};
    for (const char *column : {"SSL_SASID", "SSL_SUM_DB", "SSL_SUM_KR"})
        balance.describe(column, [this](TField &checked) {
            checked.OnValidate = [this](TField &proposedFor, const Variant &value) {
                validate(proposedFor, value);
            };
        });
}

// What is stored is shown as it is: no amount moves.
void TSasLikDlg::Loaded()
{
    side->setDebit(field("SSL_SUM_KR")->AsFloat() == 0);
}

TField *TSasLikDlg::chosen()
{
    return field(side->isDebit() ? "SSL_SUM_DB" : "SSL_SUM_KR");
}

TField *TSasLikDlg::other()
{
    return field(side->isDebit() ? "SSL_SUM_KR" : "SSL_SUM_DB");
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
}

// --- the side

void TSasLikDlg::sideChosen()
{
    if (row().State() == dsBrowse || other()->AsFloat() == 0)
        return;
    chosen()->setAsFloat(other()->AsFloat());
    other()->setAsFloat(0);
    amountMoved = true;
    judgeSave();
}

// An amount that went to the other side waits for its account.
bool TSasLikDlg::CanSave() const
{
    return !amountMoved || field("SSL_SASID")->AsFloat() > 0 || form().isFilled("SSL_SASID");
}

// --- saving

// The other side becomes nothing first: that runs the rule of amounts, which refuses one of 0 or less.
void TSasLikDlg::Validate()
{
    other()->setAsFloat(0);
    const TField *account = field("SSL_SASID");
    validate(*account, account->Value());
    if (isNew())
        field("SSL_PERID")->setAsFloat(startOfWorkPeriod);
}

} // namespace Saslikedit
