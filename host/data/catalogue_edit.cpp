#include "host/data/catalogue_edit.h"

#include "host/data/code_picker.h"
#include "host/data/main_datas.h"
#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int offeredAtMost = 50;

TDatabase *books()
{
    Q_ASSERT(MainDatas());
    return MainDatas()->mnFin_Db();
}

} // namespace

TCatalogueEdit::TCatalogueEdit(const TCatalogue &described, QWidget *parent)
    : TKeyEdit(Typing::Searches, {described.pickHint, described.noSuch, described.gone}, parent),
      catalogue(described)
{
}

TCatalogueEdit::~TCatalogueEdit() = default;

std::optional<TKeyRow> TCatalogueEdit::rowOf(double key)
{
    const auto set = books()->prepare(
        u"select %1, %2 from %3 where %1 = :kodas"_s.arg(catalogue.key, catalogue.name, catalogue.table));
    set->bind(u"kodas"_s, key);
    set->exec();
    if (!set->next())
        return {};
    TKeyRow row{set->number(0), QString::number(set->integer(0)), QString::fromUtf8(set->utf8(1))};
    set->reset();
    return row;
}

std::optional<TKeyRow> TCatalogueEdit::rowOfText(const QString &text)
{
    bool isNumber = false;
    const qlonglong code = text.toLongLong(&isNumber);
    return isNumber ? rowOf(double(code)) : std::nullopt;
}

std::shared_ptr<const TCodeTree> TCatalogueEdit::readCodes()
{
    const QString all = u"select %1, null as tevas, cast(%1 as varchar(20)) as kodas, %2, 1 as lapas "
                        "from %3"_s.arg(catalogue.key, catalogue.name, catalogue.table);
    return std::make_shared<const TCodeTree>(TCodeTree::read(books(), all, u"Kodas"_s));
}

QList<TOffer> TCatalogueEdit::offersFor(const QString &text)
{
    if (!codes)
        codes = readCodes();
    QList<TOffer> fitting;
    for (const int row : codes->search(text, offeredAtMost))
        fitting.append({codes->label(row), codes->at(row).id});
    return fitting;
}

double TCatalogueEdit::pickFrom(double shownFirst)
{
    TCodePick pick;
    pick.caption = catalogue.caption;
    pick.name = catalogue.table + u"_picker"_s;
    pick.view = TCodePick::View::List;
    pick.current = shownFirst;
    return TCodePicker(window(), readCodes(), pick).choose();
}

// The codes are read anew for the next search.
void TCatalogueEdit::showField(TField *field)
{
    codes.reset();
    TKeyEdit::showField(field);
}
