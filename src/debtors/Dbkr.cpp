#include "src/debtors/Dbkr.h"

#include "src/debtors/Chdbkr.h"
#include "src/debtors/Copydbkr.h"
#include "toolkit/widgets/icons.h"

#include <QAction>

namespace Dbkr {

TUnit unit("DbKr");
TDbKrFrm *DbKrFrm = nullptr;

namespace {

constexpr auto right = TAlignment::taRightJustify;
const QString newCaption = QStringLiteral("Naujas debitorius ar kreditorius");

TBrowseDescription described()
{
    return {
        .name = "TDbKrFrm",
        .caption = "Debitoriai ir kreditoriai",
        .help = 9,
        .keyColumn = "dka_id",
        .table = "bd_dbkrasm",
        .sql = "select    DKA_ID,    DKA_KOD,    (a.SAS_SASNR+'  '+a.SAS_PAVAD) as SASKAITA,   DKA_PAVAD,    "
               "DKA_ADR,    DKA_TEL,    DKA_I_KOD,    DKA_PVM_KOD,    DKA_EIN_SAS,    DKA_BANK_KOD,    "
               "DKA_BANK_PAV,   (b.SAS_SASNR+'  '+b.SAS_PAVAD) as SASKAITA_2 "
               "from Bd_DbKrAsm, bd_sasplan as a, bd_sasplan as b, where    "
               "a.sas_id=dka_sasid and b.sas_id=dka_sasid_2 ORDER BY DKA_KOD",
        .columns = {{"DKA_KOD", "Kodas", 70, right},
                    {"SASKAITA", "Sąskaita", 170},
                    {"DKA_PAVAD", "Pavadinimas", 240},
                    {"DKA_ADR", "Adresas", 180},
                    {"DKA_TEL", "Telefonas", 115, right},
                    {"DKA_I_KOD", "Įmonės kodas", 100, {}, "#"},
                    {"DKA_PVM_KOD", "PVM Kodas", 120, right},
                    {"DKA_EIN_SAS", "Einamoji sąskaita", 170, right},
                    {"DKA_BANK_KOD", "Banko kodas", 90},
                    {"DKA_BANK_PAV", "Banko pavadinimas", 150},
                    {"SASKAITA_2", "Mok. sumų sąskaita", 170}},
        .report = 81,
        .used = {"Db Kr \"%s\" dalyvauja ūkinėse operacijose!", "dka_pavad", true},
        .newCaption = newCaption,
        .editCaption = "Koreguojamas debitorius ar kreditorius",
        .edit = keyed<double>(Chdbkr::EditDbKr),
    };
}

} // namespace

TDbKrFrm::TDbKrFrm(QWidget *owner) : TBrowseFrm(described(), owner)
{
    keepIn(DbKrFrm);
    acCopyData = addListAction({.name = "acCopyData",
                                .text = "Kopijuoti &duomenis",
                                .picture = TIcon::Copy,
                                .keys = {Qt::CTRL | Qt::Key_D},
                                .handler = [this] { copyRecord(); },
                                .enabled = [this] { return acDelete->isEnabled(); }});
}

void TDbKrFrm::copyRecord()
{
    requireRow();
    double newId = 0;
    TNextOffer next;
    if (Copydbkr::CopyData(AnsiString(newCaption), currentKey().toDouble(), newId))
        RefreshData(newId);
    if (next.taken())
        NewRecord();
}

} // namespace Dbkr
