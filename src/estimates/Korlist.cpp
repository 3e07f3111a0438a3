#include "src/estimates/Korlist.h"

#include "src/estimates/Samkor.h"

#include <QAction>

namespace Korlist {

TUnit unit("KorList");
TKorListDlg *KorListDlg = nullptr;

namespace {

TBrowseDescription described(double samId)
{
    return {
        .name = "TKorListDlg",
        .caption = "Sąmatų koregavimas",
        .help = 74,
        .keyColumn = "sak_id",
        .table = "bd_samkor",
        .sql = "select * from bd_samkor where sak_samid=:samid order by sak_data",
        .parameters = {{"samid", samId}},
        .columns = {{.field = "SAK_DATA", .title = "Kor. data", .width = 90, .format = "yyyy.mm.dd"},
                    {"SAK_DOKNR", "Dok. Nr.", 90},
                    {.field = "SAK_I_KETV", .title = "I Ketvertis", .format = "0.00"},
                    {.field = "SAK_II_KETV", .title = "II Ketvertis", .format = "0.00"},
                    {.field = "SAK_III_KETV", .title = "III Ketvertis", .format = "0.00"},
                    {.field = "SAK_IV_KETV", .title = "IV Ketvertis", .format = "0.00"}},
        .printable = false,
        .edit = keyed<double>(
            [samId](const QString &, bool, double &id) { return Samkor::Koreguoti(id, samId); }),
    };
}

} // namespace

void SamKorList(const double samId, const bool editable)
{
    auto *list = createForm<TKorListDlg>(samId, nullptr); // gone when it is closed
    list->SetEditable(editable);
    list->ShowModal();
}

// A few rows: nothing to be found or ordered among them.
TKorListDlg::TKorListDlg(double samId, QWidget *owner) : TBrowseFrm(described(samId), owner)
{
    keepIn(KorListDlg);
    acFind->setVisible(false);
    acOrder->setVisible(false);
}

// The captions of the tools only take room; whoever wants them has them while the list is open.
void TKorListDlg::restoreArrangement()
{
    TBrowseFrm::restoreArrangement();
    if (acCaptions->isChecked())
        acCaptions->trigger();
}

} // namespace Korlist
