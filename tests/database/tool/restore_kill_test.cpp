#include "tests/database/tool/demo_store.h"
#include "tests/database/tool/velmora_db.h"
#include "tests/support/files.h"

#include <QRandomGenerator>
#include <QRegularExpression>

#include <iostream>

using namespace Qt::StringLiterals;

// A restore that is killed between any two of its steps: at every fourth one, at each when
// VELMORA_EVERY_STEP is set.

namespace {

constexpr int moreThanAllSteps = 500;

int stride()
{
    return qEnvironmentVariableIsSet("VELMORA_EVERY_STEP") ? 1 : 4;
}

// Which books stand under the final names.
enum class Found { Old, New, Damaged };

void makeBooks(const TestPlace &place, const QString &mark)
{
    createBooks(*place.store(), [](const QString &) {});
    place.fin()->ExecSQL(u"insert into bd_org (org_pavad) values (:name)"_s, {{u"name"_s, mark}});
    place.ravl()->ExecSQL(u"insert into bd_usr (usr_id, usr_name) values (1, :name)"_s, {{u"name"_s, mark}});
}

QString markIn(TDatabase &db, const QString &sql)
{
    try {
        return value(db, sql);
    } catch (const Exception &) {
        return u"nėra"_s;
    }
}

// What stands there beside the books and those that were replaced. Who was killed while he removed the lock
// of another one leaves an empty file.
QStringList strangersIn(const TestPlace &place)
{
    static const QRegularExpression ofBooks(
        u"^velmora\\.lock\\.rmlock$|^(velmora_fin\\.db|velmora_ravl\\.db|d\\d+_\\d+_(fin|ravl))([._]sena[-_][\\w-]+)?$"_s);
    QStringList names = place.everything();
    names.removeIf([](const QString &name) { return ofBooks.match(name).hasMatch(); });
    return names;
}

} // namespace

class KilledRestore : public testing::TestWithParam<Engine> {
protected:
    void SetUp() override
    {
        const TestPlace saved(GetParam());
        makeBooks(saved, u"nauja"_s);
        ASSERT_EQ(velmoraDb(QStringList{u"backup"_s, file} + saved.arguments()).code, 0);
    }

    bool restoreEndsBefore(int step, const TestPlace &place) const
    {
        return velmoraDbEndsBefore(step, QStringList{u"restore"_s, file} + place.arguments());
    }

    // What the next one finds who opens the books.
    static Found found(const TestPlace &place)
    {
        const TResult check = velmoraDb(QStringList{u"check"_s} + place.arguments());
        if (check.code > 1) {
            std::cout << check.err.toStdString();
            return Found::Damaged;
        }
        const QString fin = markIn(*place.fin(), u"select max(org_pavad) from bd_org"_s);
        const QString ravl = markIn(*place.ravl(), u"select max(usr_name) from bd_usr"_s);
        if (fin != ravl)
            return Found::Damaged;
        return fin == u"sena" ? Found::Old : fin == u"nauja" ? Found::New : Found::Damaged;
    }

    const QTemporaryDir folder{scratchRoot() + u"/velmora-kill-XXXXXX"_s};
    const QString file = folder.filePath(u"kopija.velmora"_s);
};
ON_BOTH_ENGINES(KilledRestore);

TEST_P(KilledRestore, LeavesTheOldBooksOrTheNewOnes)
{
    int left[3] = {};
    int step = 1 + QRandomGenerator::global()->bounded(stride());
    for (bool ended = false; !ended && step < moreThanAllSteps; step += stride()) {
        const TestPlace place(GetParam());
        makeBooks(place, u"sena"_s);
        ended = restoreEndsBefore(step, place);
        // Who finishes it may be killed too.
        velmoraDbEndsBefore(1 + step % 7, QStringList{u"check"_s} + place.arguments());
        const Found books = found(place);
        EXPECT_NE(books, Found::Damaged) << "killed before step " << step;
        EXPECT_EQ(velmoraDb(QStringList{u"restore"_s, file} + place.arguments()).code, 0) << step;
        EXPECT_EQ(strangersIn(place), QStringList()) << step;
        ++left[int(books)];
    }
    std::cout << engineName(GetParam()).toStdString() << ": up to step " << step << ": "
              << left[int(Found::Old)] << " old, " << left[int(Found::New)] << " new, "
              << left[int(Found::Damaged)] << " damaged\n";
    EXPECT_LT(step, moreThanAllSteps);
    EXPECT_GT(left[int(Found::Old)], 1);
    EXPECT_GT(left[int(Found::New)], 0);
}

class KilledEmbeddedRestore : public KilledRestore {};
ON_ENGINE(KilledEmbeddedRestore, Engine::Sqlite);

// The check above must be able to fail: without its journal a restore leaves books of two kinds.
TEST_P(KilledEmbeddedRestore, WithoutTheJournalIsFoundDamaged)
{
    int damaged = 0;
    bool ended = false;
    for (int step = 1; !ended && damaged == 0 && step < moreThanAllSteps; ++step) {
        const TestPlace place(GetParam());
        makeBooks(place, u"sena"_s);
        ended = restoreEndsBefore(step, place);
        QFile::remove(place.arguments().constLast() + u"/velmora.keitimas"_s);
        damaged += found(place) == Found::Damaged;
    }
    EXPECT_GT(damaged, 0);
}
