#include "tests/host/controls/bankai_screen.h"

using namespace Qt::StringLiterals;

TBankaiFrm *BankaiFrm = nullptr;
std::function<bool(const QString &caption, bool isNew, Variant &key)> bankEditor;

namespace {
TBrowseDescription described()
{
    return {
        .name = u"TBankaiFrm"_s,
        .caption = u"Bankai"_s,
        .help = 31,
        .keyColumn = u"bnk_kodas"_s,
        .table = u"bd_bankai"_s,
        .sql = u"SELECT * FROM BD_BANKAI ORDER BY BNK_PAVAD"_s,
        .columns = {{u"BNK_KODAS"_s, u"Kodas"_s, 90},
                    {u"BNK_BNKKODAS"_s, u"Centrinio banko kodas"_s, 150},
                    {u"BNK_PAVAD"_s, u"Pavadinimas"_s, 300},
                    {.field = u"BNK_RINK"_s, .title = u"Rinkliava"_s, .width = 90, .format = u"0.00"_s}},
        .used = {u"Bankas \"%s\" naudojamas!"_s, u"bnk_pavad"_s},
        .newCaption = u"Naujas bankas"_s,
        .editCaption = u"Bankas"_s,
        .edit = [](const QString &caption, bool isNew,
                   Variant &key) { return bankEditor(caption, isNew, key); },
    };
}
} // namespace

TBankaiFrm::TBankaiFrm(QWidget *owner) : TBrowseFrm(described(), owner)
{
    keepIn(BankaiFrm);
}
