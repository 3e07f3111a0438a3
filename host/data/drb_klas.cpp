#include "host/data/drb_klas.h"

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

TDrbKlasFra::TDrbKlasFra(QWidget *parent)
    : TKeyEdit(
          Typing::Searches,
          {u"Pasirinkti profesinę grupę"_s, u"Profesinės grupės „%1“ nėra"_s, u"Profesinės grupės nebėra"_s},
          parent)
{
    setLabel(u"Profesinė grupė"_s);
}

TDrbKlasFra::~TDrbKlasFra() = default;

Variant TDrbKlasFra::f_kodas() const
{
    return value() > 0 ? Variant(value()) : Variant();
}

void TDrbKlasFra::p_kodas(const Variant &code)
{
    setValue(code.toDouble());
}

std::optional<TKeyRow> TDrbKlasFra::rowOf(double key)
{
    const auto set =
        books()->prepare(u"select kla_kodas, kla_pavad from du_drbklas where kla_kodas = :kodas"_s);
    set->bind(u"kodas"_s, key);
    set->exec();
    if (!set->next())
        return {};
    TKeyRow group{set->number(0), QString::number(set->integer(0)), QString::fromUtf8(set->utf8(1))};
    set->reset();
    return group;
}

std::optional<TKeyRow> TDrbKlasFra::rowOfText(const QString &text)
{
    bool isNumber = false;
    const int code = text.toInt(&isNumber);
    return isNumber ? rowOf(code) : std::nullopt;
}

std::shared_ptr<const TCodeTree> TDrbKlasFra::catalogue()
{
    const QString all =
        u"select kla_kodas, null as tevas, cast(kla_kodas as varchar(12)) as kodas, kla_pavad, "
        "1 as lapas from du_drbklas"_s;
    return std::make_shared<const TCodeTree>(TCodeTree::read(books(), all, u"Kodas"_s));
}

QList<TOffer> TDrbKlasFra::offersFor(const QString &text)
{
    if (!groups)
        groups = catalogue();
    QList<TOffer> fitting;
    for (const int row : groups->search(text, offeredAtMost))
        fitting.append({groups->label(row), groups->at(row).id});
    return fitting;
}

double TDrbKlasFra::pickFrom(double shownFirst)
{
    TCodePick pick;
    pick.caption = u"Profesinės grupės"_s;
    pick.name = u"KlasPicker"_s;
    pick.view = TCodePick::View::List;
    pick.current = shownFirst;
    return TCodePicker(window(), catalogue(), pick).choose();
}

// The groups are read anew for the next search.
void TDrbKlasFra::showField(TField *field)
{
    groups.reset();
    TKeyEdit::showField(field);
}
