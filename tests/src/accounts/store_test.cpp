#include "src/accounts/balance_store.h"
#include "tests/src/accounts/sheets.h"
#include "tests/src/open_books.h"

#include <random>

using namespace Qt::StringLiterals;
using namespace Balans;

namespace {

class BalanceForms : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        for (const QString &number : {u"2411"_s, u"2412"_s, u"2413"_s, u"262"_s})
            account(number);
    }
    TDatabase &second() { return *MainDatas()->mnRavl(); }

    static void save(const TBalStore &store, const TBalForm &form)
    {
        const TAccountIds accounts(*MainDatas()->mnFin_Db());
        TTransaction transaction(store.database());
        store.SaveBal(form, accounts);
        transaction.commit();
    }
    TBalStore mainStore() { return {&books(), false}; }
    TBalStore secondStore() { return {&second(), true}; }

    static TBalForm onlyAssets(TBalList list) { return {std::move(list), {}, {}}; }
    static QStringList lines(TDatabase &db)
    {
        return rows(db, u"select bel_kod, bel_pavad from bd_baleil order by bel_kod"_s);
    }
};
ON_BOTH_ENGINES(BalanceForms);

// Names with everything that a name may hold, at times too long or outside the code page.
class RandomSheets {
public:
    explicit RandomSheets(unsigned seed) : random(seed) {}

    // The sheets of a form; every second form has a slip somewhere.
    std::array<TBalSheet, sideCount> form()
    {
        faulty = below(2) == 0;
        return {sheet(), sheet(), sheet()};
    }

private:
    TBalSheet sheet() { return slips(6) ? anything() : likelyOrder(); }
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }
    bool slips(int onceIn) { return faulty && below(onceIn) == 0; }
    TBalSheet anything()
    {
        TBalSheet made;
        for (int i = below(12); i > 0; --i)
            made.push_back(line(TBalKind(below(3))));
        return made;
    }
    // Groups as they should be (behind one with its total at the head all others have theirs there, too),
    // here and there with one line that should not be there.
    TBalSheet likelyOrder()
    {
        TBalSheet made;
        const bool top = below(2) == 0;
        if (top)
            made.push_back(line(TBalKind::SideTotal));
        bool head = false;
        for (int group = below(14); group > 0; --group) {
            head = head || below(6) == 0;
            if (head)
                made.push_back(line(TBalKind::GroupTotal));
            for (int detail = 1 + below(slips(40) ? 120 : 12); detail > 0; --detail)
                made.push_back(line(TBalKind::Detail));
            if (!head || slips(60))
                made.push_back(line(TBalKind::GroupTotal));
        }
        if (!top || below(4) == 0)
            made.push_back(line(TBalKind::SideTotal));
        return made;
    }
    TBalLine line(TBalKind kind)
    {
        const bool accounts = (kind == TBalKind::Detail) != slips(300);
        if (accounts && below(4) == 0) // as the picker and people write them, without a blank
            return {name() + u'(' + numbers().join(below(2) ? u", "_s : u","_s) + u')', kind};
        return {accounts ? shownText(name(), numbers()) : name(), kind};
    }
    QString name()
    {
        static const QString signs = u"AĄčęŽžū  ,.;:'\"\\%_-–“„)0129"_s;
        QString text;
        for (int i = slips(400) ? 101 : below(30); i > 0; --i)
            text += signs.at(below(int(signs.size())));
        return slips(400) ? text + u'→' : text;
    }
    QStringList numbers()
    {
        static const QStringList chart{u"2411"_s, u"2412"_s, u"2413"_s, u"262"_s};
        QStringList chosen;
        for (int i = 1 + below(4); i > 0; --i)
            chosen << (slips(400) ? u"999"_s : chart.at(below(4)));
        return chosen;
    }

    std::mt19937 random;
    bool faulty = false;
};

// A blank before the accounts and behind each comma, whatever was typed.
TBalForm asItComesBack(TBalForm form)
{
    for (TBalList &side : form)
        for (TBalEntry &entry : side)
            if (hasAccounts(entry.text))
                entry.text = shownText(nameOf(entry.text), accountPieces(entry.text));
    return form;
}

bool isWorded(const QString &refusal)
{
    static const QStringList beginnings{u"Truksta lapo suminės eilutes!"_s,
                                        u"Perdaug suminiu eilučiu"_s,
                                        u"Detali eilutė Nr: "_s,
                                        u"Balanso lape gali būti ne daugiau kaip 99 grupės"_s,
                                        u"Grupėje gali būti ne daugiau kaip 99 detalios eilutės"_s,
                                        u"Lapo suminė eilutė gali būti tik pirma arba paskutinė"_s,
                                        u"Eilutė Nr: "_s,
                                        u"Eilutėje Nr: "_s};
    return std::ranges::any_of(beginnings, [&](const QString &each) { return refusal.startsWith(each); });
}

} // namespace

TEST_P(BalanceForms, ComeBackFromTheDatabaseAsTypedOrAreRefusedInWords)
{
    RandomSheets random(20260131);
    const TBalStore store = mainStore();
    const TAccountIds accounts(books());
    int saved = 0;
    int refused = 0;
    for (int run = 0; run < 150; ++run) {
        const std::array<TBalSheet, sideCount> sheets = random.form();
        TBalForm form;
        const TBalForm before = store.ReadList();
        try {
            for (const TBalSide side : allSides)
                form[std::size_t(side)] = encodeSheet(side, sheets[std::size_t(side)], accounts.known());
            save(store, form);
        } catch (const Exception &refusal) {
            EXPECT_TRUE(isWorded(refusal.message())) << qPrintable(refusal.message());
            EXPECT_EQ(store.ReadList(), before);
            ++refused;
            continue;
        }
        ++saved;
        const TBalForm read = store.ReadList();
        EXPECT_EQ(read, asItComesBack(form));
        save(store, read);
        EXPECT_EQ(store.ReadList(), read) << "and stays so";
        for (const TBalSide side : allSides)
            EXPECT_EQ(encodeSheet(side, decodeSheet(side, read[std::size_t(side)]), accounts.known()),
                      read[std::size_t(side)]);
    }
    EXPECT_GT(saved, 20);
    EXPECT_GT(refused, 20);
}

TEST_P(BalanceForms, AreStoredLineByLineWithTheIdsOfTheirAccounts)
{
    save(mainStore(), onlyAssets({{u"Turtas"_s, {u"A0000"_s}},
                                  {u"Bankas (2411, 2412)"_s, {u"A0101"_s}},
                                  {u"Kasa(262)"_s, {u"A0102"_s}}}));
    EXPECT_EQ(lines(books()), (QStringList{u"A0000|Turtas"_s, u"A0101|Bankas "_s, u"A0102|Kasa"_s}));
    EXPECT_EQ(rows(books(), u"select bss_balkod, bss_sasid, bss_tip from bd_balsas order by bss_id"_s),
              (QStringList{u"A0101|1|D"_s, u"A0101|2|D"_s, u"A0102|4|D"_s}));
}

TEST_P(BalanceForms, LeaveNothingOfTheFormerOne)
{
    save(mainStore(), onlyAssets({{u"Bankas (2411)"_s, {u"A0101"_s}}, {u"Kasa (262)"_s, {u"A0102"_s}}}));
    save(mainStore(), {TBalList{}, TBalList{{u"Skolos (2413)"_s, {u"P0101"_s}}}, TBalList{}});
    EXPECT_EQ(lines(books()), QStringList{u"P0101|Skolos "_s});
    EXPECT_EQ(rows(books(), u"select bss_balkod, bss_sasid from bd_balsas"_s), QStringList{u"P0101|3"_s});
}

TEST_P(BalanceForms, GrowNoBlanksBySavingAgain)
{
    save(mainStore(), onlyAssets({{u"Kasa(262)"_s, {u"A0101"_s}}}));
    save(mainStore(), mainStore().ReadList());
    const QStringList once = lines(books());
    save(mainStore(), mainStore().ReadList());
    EXPECT_EQ(lines(books()), once);
    EXPECT_EQ(mainStore().ReadList()[0][0].text, u"Kasa (262)"_s);
}

TEST_P(BalanceForms, AnAccountDeletedMeanwhileRefusesTheWholeSave)
{
    save(mainStore(), onlyAssets({{u"Kasa (262)"_s, {u"A0101"_s}}}));
    const QStringList before = dump(books());
    try {
        save(mainStore(), onlyAssets({{u"Kasa (262)"_s, {u"A0101"_s}}, {u"Bankas (9)"_s, {u"A0102"_s}}}));
        ADD_FAILURE() << "saved";
    } catch (const Exception &refusal) {
        EXPECT_EQ(refusal.message(),
                  u"Detali eilutė Nr: 2 neturi sąskaitos arba esama sąskaita neegzistuoja"_s);
    }
    EXPECT_EQ(dump(books()), before);
}

TEST_P(BalanceForms, OfTheSecondDatabaseKeepTheRestOfTheAccounts)
{
    save(secondStore(), onlyAssets({{u"Bankas (2411, 2412, 2413)"_s, {u"A0101"_s}},
                                    {u"Kasa (nėra tokios)"_s, {u"A0102"_s}},
                                    {u"Be sąskaitos"_s, {u"A0103"_s}}}));
    EXPECT_EQ(rows(second(), u"select bss_balkod, bss_sasnr, bss_tip from bd_balsas order by bss_id"_s),
              (QStringList{u"A0101|2412, 2413|D"_s, u"A0101|2413|D"_s, u"A0101|2413|D"_s,
                           u"A0102|nėra tokios|D"_s}));
    EXPECT_EQ(secondStore().ReadList()[0][0].text, u"Bankas (2412, 2413, 2413, 2413)"_s);
    EXPECT_EQ(lines(books()), QStringList()) << "the main books have a form of their own";
}
