#include "src/balances/Isllikedit.h"

#include "src/balances/Ilikuciai.h"
#include "toolkit/text/amount.h"
#include "toolkit/widgets/user_input.h"

#include <QScopeGuard>

#include <array>

namespace Isllikedit {

TUnit unit("IslLikEdit");
TIslLikDlg *IslLikDlg = nullptr;

struct TIslLikDlg::TKind {
    const char *side; // the name of its choice
    const char *caption;
    const char *debit, *debitName;
    const char *credit, *creditName;
    bool opensByAmount; // on the side that has the amount
};

// A factual balance opens on its debit side even when it is a credit: that is deliberate.
const std::array<TIslLikDlg::TKind, 3> &TIslLikDlg::kinds()
{
    static constexpr std::array<TKind, 3> all{{{"AsigSide", "Asignavimo išlaidos", "SML_ASIG_DB",
                                                "Asignavimų deb.", "SML_ASIG_KR", "Asignavimų kred.", true},
                                               {"KasSide", "Kasinės išlaidos", "SML_KAS_DB",
                                                "Kasos išl. deb.", "SML_KAS_KR", "Kasos išl. kred.", true},
                                               {"FakSide", "Faktinės išlaidos", "SML_FAK_DB",
                                                "Fakt. išl. deb.", "SML_FAK_KR", "Fakt. išl. kred.", false}}};
    return all;
}

bool EditIslLik(bool edit)
{
    if (!Ilikuciai::IslFrm)
        return false;
    TQuery &balances = Ilikuciai::IslFrm->balances();
    if (!balances.Active() || (edit && (balances.IsEmpty() || balances.FieldByName("SML_ID")->IsNull())))
        return false;
    const auto dropUnsaved = qScopeGuard([&balances] {
        if (balances.editing())
            balances.Cancel();
    });
    if (edit)
        balances.Edit();
    else
        balances.Append();
    return TIslLikDlg(TRecordStart::on(balances)).run();
}

TFieldRow TIslLikDlg::groupOf(const TKind &kind)
{
    const auto amount = [](const char *column, const char *name) {
        return TFieldRow::edit("Suma", column).named(name).money().defaultValue(0).width(16);
    };
    return TFieldRow::group(kind.caption,
                            {TFieldRow::custom({}, kind.side, new TSideChoice("Debetas", "Kreditas")),
                             amount(kind.debit, kind.debitName), amount(kind.credit, kind.creditName)});
}

TIslLikDlg::TIslLikDlg(const TRecordStart &start)
    : TRecordDialog(
          {.name = "TIslLikDlg",
           .newCaption = "Naujas",
           .editCaption = "Koreguojamas",
           .help = 22,
           .table = "bd_isllik",
           .keyColumn = "SML_ID",
           .key = TKeyRule::drawn("select GetNextTableColumnId('dba','bd_isllik','sml_id') from dummy"),
           .rows = {groupOf(kinds()[0]), groupOf(kinds()[1]), groupOf(kinds()[2])}},
          start)
{
    QList<QStringList> together;
    for (const TKind &kind : kinds()) {
        together.append(QStringList{kind.debit, kind.credit});
        control<TSideChoice>(kind.side)->showIn(form(), row(), kind.debit, kind.credit);
        for (const char *column : {kind.debit, kind.credit})
            whenEdited(control(column), this, [this] { settleSides(); });
    }
    row().WrittenTogether = together;
    keepIn(IslLikDlg);
}

void TIslLikDlg::Loaded()
{
    for (const TKind &kind : kinds())
        if (!isNew() && kind.opensByAmount)
            control<TSideChoice>(kind.side)->setDebit(field(kind.debit)->AsFloat() != 0);
}

bool TIslLikDlg::onDebit(const TKind &kind) const
{
    return control<TSideChoice>(kind.side)->isDebit();
}

// Amounts do not move between the sides: the other ones become nothing when an amount is typed. Amounts that
// cancel each other are nothing.
qint64 TIslLikDlg::settleSides()
{
    qint64 sum = 0;
    for (const TKind &kind : kinds()) {
        field(onDebit(kind) ? kind.credit : kind.debit)->setAsFloat(0);
        sum += tenThousandths(field(onDebit(kind) ? kind.debit : kind.credit)->AsFloat());
    }
    return sum;
}

// Nothing to save is passed over in silence.
void TIslLikDlg::Validate()
{
    if (settleSides() == 0)
        throw EAbort();
    if (!isNew())
        return;
    if (EinPer_Id() == 0)
        throw Exception("Darbo pradžios periodas nenustatitas!");
    field("SML_PERID")->setAsFloat(EinPer_Id());
    field("SML_JVEID")->setAsFloat(Ilikuciai::IslFrm->JungId());
}

} // namespace Isllikedit
