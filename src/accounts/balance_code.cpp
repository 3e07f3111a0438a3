#include "src/accounts/balance_code.h"

#include "toolkit/text/ansistring.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Balans {

const std::array<QString, 15> StrKod = {
    u"A0000"_s, u"A1100"_s, u"A1122"_s, u"A11AA"_s, u"AAAAA"_s, //
    u"P0000"_s, u"P1100"_s, u"P1122"_s, u"P11PP"_s, u"PPPPP"_s, //
    u"U0000"_s, u"U1100"_s, u"U1122"_s, u"U11UU"_s, u"UUUUU"_s,
};

namespace {

enum Template { TopTotal, GroupHead, DetailLine, GroupFoot, BottomTotal };
constexpr int templatesOfSide = 5;

const QString &templateOf(TBalSide side, Template which)
{
    return StrKod.at(std::size_t(int(side) * templatesOfSide + which));
}

QChar letterOf(TBalSide side)
{
    return templateOf(side, DetailLine).front();
}

QString twoDigits(int number)
{
    return u"%1"_s.arg(number, 2, 10, '0'_L1);
}

// The list of accounts as it stands between the parentheses; the closing one may be missing.
QString accountList(const QString &text)
{
    QString list = text.mid(nameOf(text).size() + 1);
    if (list.contains(u')'))
        list.chop(1);
    return list;
}

// One walk over the lines of a side.
class TCoding {
public:
    TCoding(TBalSide codedSide, const TBalSheet &typed, const TKnowsAccount &knows)
        : side(codedSide),
          sheet(typed),
          known(knows)
    {
    }

    TBalList run()
    {
        while (at < sheet.size()) {
            switch (sheet[at].kind) {
            case TBalKind::Detail:
                codeDetails();
                break;
            case TBalKind::GroupTotal:
                codeGroupTotal();
                break;
            case TBalKind::SideTotal:
                take(templateOf(side, at == 0 ? TopTotal : BottomTotal));
                break;
            case TBalKind::None:
                ++at;
                break;
            }
        }
        if (balance != 0)
            throw Exception(u"Perdaug suminiu eilučiu"_s);
        return std::move(coded);
    }

private:
    // Adds the current line under a code and goes on to the next.
    void take(const QString &code) { coded.push_back({sheet[at++].text, {code}}); }

    void beginGroup()
    {
        if (balance != 0 && ++group > mostGroups)
            throw Exception(
                u"Balanso lape gali būti ne daugiau kaip %1 grupės (eilutė Nr: %2)"_s.arg(mostGroups)
                    .arg(at + 1));
    }

    void codeDetails()
    {
        ++balance;
        beginGroup();
        const auto isTotal = [](TBalKind kind) {
            return kind == TBalKind::GroupTotal || kind == TBalKind::SideTotal;
        };
        for (int detail = 1; at < sheet.size() && !isTotal(sheet[at].kind); ++detail) {
            if (known && !CheckSas(sheet[at].text, known))
                refuseDetail(qsizetype(at) + 1);
            if (detail > mostDetails)
                throw Exception(u"Grupėje gali būti ne daugiau kaip %1 detalios eilutės (eilutė Nr: %2)"_s
                                    .arg(mostDetails)
                                    .arg(at + 1));
            take(letterOf(side) + twoDigits(group) + twoDigits(detail));
        }
    }

    void codeGroupTotal()
    {
        --balance;
        beginGroup();
        const QString &end = templateOf(side, balance < 0 ? GroupHead : GroupFoot);
        take(letterOf(side) + twoDigits(group) + end.right(2));
    }

    const TBalSide side;
    const TBalSheet &sheet;
    const TKnowsAccount &known;
    TBalList coded;
    std::size_t at = 0;
    int balance = 0; // groups of details met, less totals of groups met
    int group = 0;
};

// A side total that is neither first nor last would come back at another place.
void requireOrder(const TBalList &coded)
{
    const auto isBehind = [](const TBalEntry &one, const TBalEntry &next) {
        return one.kodif.kodas >= next.kodif.kodas;
    };
    if (std::ranges::adjacent_find(coded, isBehind) != coded.end())
        throw Exception(u"Lapo suminė eilutė gali būti tik pirma arba paskutinė"_s);
}

void requireStorable(const TBalList &coded)
{
    for (std::size_t i = 0; i < coded.size(); ++i) {
        const QString &text = coded[i].text;
        if (storedName(text).size() > longestName)
            throw Exception(u"Eilutė Nr: %1 ilgesnė kaip %2 ženklų"_s.arg(i + 1).arg(longestName));
        if (const qsizetype bad = firstOutsideCodePage(text); bad >= 0)
            throw Exception(u"Eilutėje Nr: %1 yra ženklas „%2“, kurio negalima įrašyti"_s.arg(i + 1).arg(
                QStringView(text).mid(bad, text.at(bad).isHighSurrogate() ? 2 : 1)));
    }
}

} // namespace

bool hasAccounts(const QString &text)
{
    return text.contains(u'(');
}

QString nameOf(const QString &text)
{
    return text.left(text.indexOf(u'('));
}

QString storedName(const QString &text)
{
    QString name = nameOf(text);
    if (hasAccounts(text) && name.size() == longestName + 1 && name.endsWith(u' '))
        name.chop(1);
    return name;
}

QStringList accountPieces(const QString &text)
{
    QStringList pieces = accountList(text).split(u',');
    for (qsizetype i = 1; i < pieces.size(); ++i)
        pieces[i] = pieces.at(i).trimmed();
    return pieces;
}

QStringList accountRemainders(const QString &text)
{
    QStringList kept;
    QString rest = accountList(text);
    for (qsizetype comma = rest.indexOf(u','); comma >= 0; comma = rest.indexOf(u',')) {
        rest = rest.mid(comma + 1).trimmed();
        kept << rest;
    }
    return kept << rest;
}

QString shownText(const QString &name, const QStringList &accounts)
{
    if (accounts.isEmpty())
        return name;
    const QString gap = name.endsWith(u' ') ? QString() : u" "_s;
    return name + gap + u'(' + accounts.join(u", "_s) + u')';
}

bool CheckSas(const QString &text, const TKnowsAccount &known)
{
    return hasAccounts(text) && std::ranges::all_of(accountPieces(text), known);
}

bool sideOfCode(const QString &code, TBalSide &side)
{
    const auto found =
        std::ranges::find_if(allSides, [&](TBalSide each) { return code.startsWith(letterOf(each)); });
    if (found == allSides.end())
        return false;
    side = *found;
    return true;
}

TBalKind kindOfCode(TBalSide side, const QString &code)
{
    const QString doubled = templateOf(side, GroupFoot).right(2);
    const QString none = templateOf(side, GroupHead).right(2);
    const QString group = code.mid(1, 2);
    const QString line = code.mid(3, 2);
    if (code.mid(1) == doubled + doubled || code.mid(1) == none + none)
        return TBalKind::SideTotal;
    if (group != doubled && group != none && (line == doubled || line == none))
        return TBalKind::GroupTotal;
    return TBalKind::Detail;
}

TBalList encodeSheet(TBalSide side, const TBalSheet &sheet, const TKnowsAccount &known)
{
    if (std::ranges::none_of(sheet, [](const TBalLine &line) { return line.kind == TBalKind::SideTotal; }))
        throw Exception(u"Truksta lapo suminės eilutes!"_s);
    TBalList coded = TCoding(side, sheet, known).run();
    requireOrder(coded);
    requireStorable(coded);
    return coded;
}

TBalSheet decodeSheet(TBalSide side, const TBalList &list)
{
    TBalSheet sheet;
    sheet.reserve(list.size());
    for (const TBalEntry &entry : list)
        sheet.push_back({entry.text, kindOfCode(side, entry.kodif.kodas)});
    return sheet;
}

void refuseDetail(qsizetype number)
{
    throw Exception(u"Detali eilutė Nr: %1 neturi sąskaitos arba esama sąskaita neegzistuoja"_s.arg(number));
}

} // namespace Balans
