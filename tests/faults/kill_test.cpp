#include "tests/faults/large_books.h"
#include "tests/faults/victim_process.h"
#include "tests/support/files.h"

#include <iostream>
#include <random>

using namespace Qt::StringLiterals;

namespace {
// What a kill left: the whole close, nothing of it, or something between.
enum class Found { Before, After, Damaged };
} // namespace

class KilledClose : public LargeBooks {
protected:
    void SetUp() override
    {
        LargeBooks::SetUp();
        if (before.isEmpty()) {
            before = fingerprint(*mnFin_Db);
            mnFin_Db->Close();
            fileBefore = fileContent();
        }
        leaveBooks();
    }

    // The undisturbed work: how long it takes and what it leaves.
    void measure(const QString &mode)
    {
        VictimProcess whole(mode, finSettings());
        ASSERT_TRUE(whole.finish()) << whole.failure().toStdString();
        duration = whole.duration();
        const auto fresh = open(finSettings());
        after = fingerprint(*fresh);
        ASSERT_NE(after, before);
        expectCarriedBalances(*fresh);
    }

    // Kills it at a random moment of its work.
    Found kill(const QString &mode)
    {
        if (last != Found::Before)
            renew();
        std::uniform_int_distribution<qint64> moments(0, duration + duration / 20);
        const qint64 moment = moments(random);
        VictimProcess victim(mode, finSettings());
        EXPECT_TRUE(victim.waitUntilItBegins()) << victim.failure().toStdString();
        victim.killAfter(moment);
        last = found();
        // The machine may be busier or idler than while it was measured: the moments follow the work.
        duration += last == Found::After ? -duration / 10 : duration / 50;
        return last;
    }

    const unsigned seed = unsigned(numberGiven("VELMORA_SEED", int(std::random_device()() & 0x7fffffff)));
    std::mt19937 random{seed};
    qint64 duration = 0; // microseconds

private:
    // Every balance is there once more, in the new month, and debit still equals credit.
    static void expectCarriedBalances(TDatabase &db)
    {
        const QStringList totals = controlTotals(db);
        ASSERT_EQ(totals.size(), 3);
        const QStringList opening = totals[0].split(u'|'), carried = totals[1].split(u'|');
        EXPECT_EQ(opening[1], QString::number(balances));
        EXPECT_EQ(carried[1], QString::number(balances));
        EXPECT_EQ(carried[2], carried[3]);
        EXPECT_GT(carried[2].toDouble(), opening[2].toDouble());
    }

    Found found() const
    {
        const auto fresh = open(finSettings());
        waitUntilAlone(*fresh);
        fresh->Close();
        if (!fileBefore.isEmpty() && fileContent() == fileBefore) // no need to look at the rows
            return Found::Before;
        fresh->Open();
        const QByteArray now = fingerprint(*fresh);
        return now == before ? Found::Before : now == after ? Found::After : Found::Damaged;
    }

    QByteArray fileContent() const
    {
        return engine() == Engine::Sqlite ? contentOf(finSettings().file) : QByteArray();
    }

    // The fixture's own sessions would stand in the victim's way.
    void leaveBooks()
    {
        mnFin_Db->Close();
        mnRavl->Close();
    }

    // Fingerprints of the books at the beginning and closed; on SQLite also the file itself.
    QByteArray before, after, fileBefore;
    Found last = Found::After; // measuring closed them
};
ON_BOTH_ENGINES(KilledClose);

TEST_P(KilledClose, LeavesTheBooksAsTheyWereOrClosed)
{
    measure(u"close"_s);
    const int kills = numberGiven("VELMORA_KILLS", 50);
    const qint64 measured = duration;
    int left[3] = {};
    for (int i = 0; i < kills; ++i)
        ++left[int(kill(u"close"_s))];
    std::cout << engineName(engine()).toStdString() << ": " << kills << " kills within " << measured / 1000
              << " ms, seed " << seed << ": " << left[int(Found::Before)] << " before, "
              << left[int(Found::After)] << " after, " << left[int(Found::Damaged)] << " damaged\n";
    EXPECT_EQ(left[int(Found::Damaged)], 0) << "seed " << seed;
    EXPECT_GT(left[int(Found::Before)], 0) << "no kill met the close";
}

// The check above must be able to fail: a close that commits half-way is found out.
TEST_P(KilledClose, CommittedInHalvesIsFoundDamaged)
{
    measure(u"halves"_s);
    int kills = 0;
    constexpr int enough = 100;
    while (kills < enough) {
        ++kills;
        if (kill(u"halves"_s) == Found::Damaged)
            break;
    }
    std::cout << engineName(engine()).toStdString() << ": found out at kill " << kills << ", seed " << seed
              << '\n';
    EXPECT_LT(kills, enough);
}
