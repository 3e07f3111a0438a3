#include "host/app/catalogues/klasifikacija.h"

#include "host/app/catalogues/book_box.h"
#include "host/classifier/classifier.h"
#include "toolkit/widgets/guard.h"

using namespace Qt::StringLiterals;

TMazgaiFrm::TMazgaiFrm(QWidget *owner, double book)
    : TTreeFrm({.name = u"TMazgaiFrm"_s,
                .caption = u"Klasifikacijos kodai"_s,
                .help = 122,
                .keyColumn = u"JVE_ID"_s,
                .table = u"bd_jve"_s,
                .sql = u"select jve_id, jve_kodas, jve_pavad, jve_duom, jve_tevid from bd_jve where "
                       u"jve_islid = :knyga and "
                       "(0 = :tevas or jve_id = :tevas or jve_tevid = :tevas) order by jve_kodas"_s,
                .columns = {{u"JVE_KODAS"_s, u"Kodas"_s, 110},
                            {u"JVE_PAVAD"_s, u"Pavadinimas"_s, 290},
                            {.field = u"JVE_DUOM"_s, .title = u"Turi sumų"_s, .width = 80, .text = yesOrNo},
                            {.field = u"JVE_TEVID"_s,
                             .title = u"Šaka"_s,
                             .width = 190,
                             .text = [this](const Variant &key) { return pathOf(key.toDouble()); }}},
                .editing = TEditing::UnlessViewOnly,
                .used = {u"Kodas \"%s\" yra naudojamas!"_s, u"JVE_KODAS"_s},
                .newCaption = u"Naujas kodas"_s,
                .editCaption = u"Klasifikacijos kodas"_s},
               {.root = u"Visi kodai"_s,
                .codeTitle = u"Kodas"_s,
                .parentColumn = u"jve_tevid"_s,
                .edit =
                    [this](const QString &caption, bool isNew, double &key, double parent) {
                        return editBranch<TMazgasDlg>(caption, isNew, key, parent, books->book());
                    },
                .place = placeNode,
                .consequence = lossOfHeading},
               owner),
      books(new TBookBox)
{
    addToToolBar(u"Kn&yga:"_s, books);
    books->read(Database(), book > 0 ? book : userKnyga());
    connectGuarded(books, &QComboBox::activated, this, [this] { RefreshData({}); });
}

void TMazgaiFrm::RefreshData(const Variant &key)
{
    books->read(Database(), books->book());
    description.parameters.insert(u"knyga"_s, books->book());
    tree.nodes = books->nodes();
    TTreeFrm::RefreshData(key);
}

// There is no node without a book.
void TMazgaiFrm::CheckToolButtons()
{
    TTreeFrm::CheckToolButtons();
    acNew->setEnabled(acNew->isEnabled() && books->count() > 0);
}

TMazgasDlg::TMazgasDlg(const QString &caption, const TRecordStart &start, double parent, double book)
    : TBranchDlg(
          {.name = u"TMazgasDlg"_s,
           .newCaption = caption,
           .help = 122,
           .table = u"bd_jve"_s,
           .keyColumn = u"JVE_ID"_s,
           .key = TKeyRule::drawn(u"select GetNextTableColumnId('dba','bd_jve','jve_id') from dummy"_s),
           .sql = u"select * from bd_jve where jve_id = :id"_s,
           .rows = {TFieldRow::edit(u"&Kodas"_s, u"JVE_KODAS"_s).required(),
                    TFieldRow::edit(u"&Pavadinimas"_s, u"JVE_PAVAD"_s).required().width(60),
                    TFieldRow::check(u"&Gali turėti sumų"_s, u"JVE_DUOM"_s).defaultValue(1)}},
          start, u"JVE_TEVID"_s, parent, {{u"JVE_ISLID"_s, book}})
{
}

void TMazgasDlg::Judge()
{
    requireNodeCode(row());
    makeHeading(parentOfNew());
    if (!isNew())
        requireNodeMark(row());
    TBranchDlg::Judge();
}
