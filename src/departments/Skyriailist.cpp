#include "src/departments/Skyriailist.h"

#include "src/departments/Laikymovietos.h"
#include "src/departments/Paditem.h"
#include "toolkit/widgets/icons.h"

#include <QAction>

namespace Skyriailist {

TUnit unit("SkyriaiList");
TSkyriaiFrm *SkyriaiFrm = nullptr;

namespace {

// One reading of the chart serves both columns of accounts.
TBrowseColumn account(const char *column, const QString &title)
{
    return {.field = column,
            .title = title,
            .width = 200,
            .lookup = "select * from bd_sasplan",
            .lookupText = [](const TDataSet &row) {
                return row.FieldByName("SAS_SASNR")->AsString() + "  " +
                       row.FieldByName("SAS_PAVAD")->AsString();
            }};
}

void blankToNull(TField &text)
{
    if (!text.IsNull() && text.AsString().trimmed().isEmpty())
        text.Clear();
}

// Codes that differ only in case are one code.
void requireFreeCode(const TField &code, const Variant &proposed)
{
    const QString value = proposed.toString();
    if (value.trimmed().isEmpty())
        return;
    const auto *departments = static_cast<const TQuery *>(code.DataSet());
    const TField *id = departments->FieldByName("PAD_ID");
    const QString others = id->IsNull() ? QString() : "pad_id <> " + id->AsString() + " and ";
    const QString sql = "select count(pad_kodas) from bd_pad where " + others + "UCASE(pad_kodas)=UCASE(" +
                        TDatabase::quoted(value) + ")";
    if (GetFieldResult(departments->Database(), sql).toInt() > 0)
        throw Exception("Kodas: \"" + value + "\" jau egzistuoja!");
}

void setRules(TQuery &departments)
{
    for (const char *column : {"PAD_PAVAD", "PAD_ADR", "PAD_KODAS"})
        departments.describe(column, [](TField &text) { text.OnChange = blankToNull; });
    departments.describe("PAD_KODAS", [](TField &code) { code.OnValidate = requireFreeCode; });
}

TBrowseDescription described()
{
    return {
        .name = "TSkyriaiFrm",
        .caption = "Skyriai",
        .help = 5,
        .keyColumn = "pad_id",
        .table = "bd_pad",
        .sql = "select * from bd_pad order by pad_pavad",
        .columns = {{"PAD_PAVAD", "Pavadinimas", 220},
                    {"PAD_ADR", "Adresas", 180},
                    {.field = "PAD_IST", .title = "Istaiga", .width = 60, .text = yesOrNo},
                    {"PAD_KODAS", "Kodas", 60},
                    account("PAD_SASID", "Sąskaita"),
                    {.field = "PAD_FUNID",
                     .title = "Valstybės funkcija",
                     .width = 160,
                     .text = [](const Variant &id) { return GetFunById(id.toDouble()); }},
                    {.field = "PAD_ISLID",
                     .title = "Knyga",
                     .width = 120,
                     .lookup = "select   isl_id,   isl_pavad from bd_asgisl"},
                    account("PAD_SASID2", "Būsimų laikotarpių sąskaita")},
        .used = {"Skyrius \"%s\" yra naudojamas!", "PAD_PAVAD"},
        .editRow = [](const QString &, bool) { Paditem::ChangePad(); },
        .statements = {.insert =
                           "insert into bd_pad (PAD_ID, PAD_PAVAD, PAD_ADR, PAD_IST, PAD_KODAS, PAD_VKLID, "
                           "PAD_SASID, PAD_FUNID, PAD_ISLID, PAD_SASID2) "
                           "values (:PAD_ID, :PAD_PAVAD, :PAD_ADR, :PAD_IST, :PAD_KODAS, :PAD_VKLID, "
                           ":PAD_SASID, :PAD_FUNID, :PAD_ISLID, :PAD_SASID2)",
                       .update =
                           "update bd_pad set   PAD_ID = :PAD_ID,   PAD_PAVAD = :PAD_PAVAD,   "
                           "PAD_ADR = :PAD_ADR,   PAD_IST = :PAD_IST,   PAD_KODAS = :PAD_KODAS,   "
                           "PAD_VKLID = :PAD_VKLID,   PAD_SASID = :PAD_SASID,   PAD_FUNID = :PAD_FUNID,   "
                           "PAD_ISLID = :PAD_ISLID,   PAD_SASID2 = :PAD_SASID2 where   PAD_ID = :OLD_PAD_ID",
                       .remove = "delete from bd_pad where   PAD_ID = :OLD_PAD_ID"},
        .prepare = setRules,
    };
}

} // namespace

TSkyriaiFrm::TSkyriaiFrm(QWidget *owner) : TBrowseFrm(described(), owner)
{
    keepIn(SkyriaiFrm);
    addListAction({.name = "acLaikymoVietos",
                   .text = "&Turto laikymo vieta",
                   .picture = TIcon::Browse,
                   .keys = {Qt::CTRL | Qt::Key_L},
                   .handler =
                       [this] {
                           Laikymovietos::ShowLaikymoVietos(
                               currentKey().toDouble(),
                               AnsiString(dataSet()->FieldByName("PAD_PAVAD")->AsString()));
                       },
                   .enabled = [this] { return !currentKey().isNull(); }});
}

} // namespace Skyriailist
