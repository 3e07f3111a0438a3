#include "src/money/Bankai.h"

#include "src/money/Bankaied.h"

namespace Bankai {

TUnit unit("Bankai");
TBankaiFrm *BankaiFrm = nullptr;

TBankaiFrm::TBankaiFrm(QWidget *owner)
    : TBrowseFrm({.name = "TBankaiFrm",
                  .caption = "Bankai",
                  .help = 65,
                  .keyColumn = "BNK_KODAS",
                  .table = "BD_BANKAI",
                  .sql = "SELECT * FROM BD_BANKAI ORDER BY BNK_PAVAD",
                  .columns = {{"BNK_KODAS", "Kodas"},
                              {"BNK_BNKKODAS", "Centrinio banko kodas"},
                              {"BNK_PAVAD", "Pavadinimas"},
                              {"BNK_RINK", "Rinkliava"}},
                  .editing = TEditing::UnlessViewOnly,
                  .used = {"Bankas \"%s\" yra naudojamas!", "BNK_PAVAD"},
                  .edit = keyed<double>(Bankaied::EditBankas)},
                 owner)
{
    keepIn(BankaiFrm);
}

} // namespace Bankai
