#include "tests/database/tool/demo_store.h"
#include "tests/database/tool/velmora_db.h"
#include "tests/support/files.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include <iostream>
#include <random>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList create{u"create"_s,       u"--standard"_s, u"--institution"_s,
                         u"Šilų mokykla"_s, u"--start"_s,    u"2026-03"_s};

class StandardBooks : public testing::TestWithParam<Engine> {
protected:
    TestPlace place{GetParam()};

    TResult run(const QStringList &words, const QString &input = {}) const
    {
        return velmoraDb(words + place.arguments(), input);
    }
};
ON_BOTH_ENGINES(StandardBooks);

// Kills a run after a part of the time that an undisturbed one takes.
void killAfter(const QStringList &arguments, qint64 milliseconds)
{
    QProcess process;
    process.start(buildFolder() + u"/bin/velmora-db"_s, arguments);
    ASSERT_TRUE(process.waitForStarted());
    QThread::msleep(ulong(milliseconds));
    process.kill();
    process.waitForFinished();
}

// A run at a terminal of its own.
class TAtTerminal {
public:
    explicit TAtTerminal(const QStringList &arguments) : terminal(posix_openpt(O_RDWR | O_NOCTTY))
    {
        grantpt(terminal);
        unlockpt(terminal);
        process.setReadChannel(QProcess::StandardError);
        process.setChildProcessModifier([name = QByteArray(ptsname(terminal))] {
            setsid();
            const int user = open(name.constData(), O_RDWR);
            ioctl(user, TIOCSCTTY, 0);
            dup2(user, STDIN_FILENO);
        });
        process.start(buildFolder() + u"/bin/velmora-db"_s, arguments);
    }
    ~TAtTerminal()
    {
        process.kill();
        process.waitForFinished();
        close(terminal);
    }
    TAtTerminal(const TAtTerminal &) = delete;
    TAtTerminal &operator=(const TAtTerminal &) = delete;

    bool isAsked()
    {
        while (!told.contains("slaptažodis") && process.waitForReadyRead(10000))
            read();
        return told.contains("slaptažodis");
    }
    QString toldAtTheEnd()
    {
        EXPECT_TRUE(process.waitForFinished(60000));
        read();
        return QString::fromUtf8(told);
    }
    // As the keyboard does.
    void type(const QByteArray &keys)
    {
        EXPECT_EQ(write(terminal, keys.constData(), size_t(keys.size())), keys.size());
    }
    bool showsWhatIsTyped() const
    {
        termios settings{};
        EXPECT_EQ(tcgetattr(terminal, &settings), 0);
        return settings.c_lflag & ECHO;
    }
    // Until the program has changed how the terminal shows, or for ten seconds.
    void waitUntilShown(bool shown) const
    {
        for (int i = 0; i < 100 && showsWhatIsTyped() != shown; ++i)
            QThread::msleep(100);
    }

private:
    void read()
    {
        told += process.readAllStandardError();
        process.readAllStandardOutput();
    }

    int terminal;
    QProcess process;
    QByteArray told;
};

} // namespace

TEST_P(StandardBooks, AreSoundAndHaveAnAdministrator)
{
    const TResult created = run(create + QStringList{u"--admin"_s, u"rasa"_s}, u"Raktas 1\nkita eilutė\n"_s);
    ASSERT_EQ(created.code, 0) << created.err.toStdString();
    EXPECT_EQ(value(*place.ravl(), u"select usr_pasw from bd_usr where usr_name = 'rasa'"_s), u"Raktas 1");
    EXPECT_GT(value(*place.ravl(), u"select count(*) from bd_usrkdv"_s).toInt(), 1);
    EXPECT_EQ(value(*place.fin(), u"select org_pavad from bd_org"_s), u"Šilų mokykla");
    EXPECT_GE(value(*place.fin(), u"select count(*) from bd_sasplan"_s).toInt(), 300);
    EXPECT_EQ(value(*place.fin(), u"select per_menuo from bd_period where per_id = 6"_s), u"3");
    const TResult checked = run({u"check"_s});
    EXPECT_EQ(checked.code, 0) << checked.out.toStdString();
}

TEST_P(StandardBooks, AreNotMadeWhenTheAdministratorCannotBe)
{
    const TResult nameless = run(create + QStringList{u"--admin"_s, u"rasa"_s}, u"\n"_s);
    EXPECT_EQ(nameless.code, 3);
    EXPECT_TRUE(nameless.err.contains(u"slaptažodį"_s)) << nameless.err.toStdString();
    const TResult tooLong = run(create + QStringList{u"--admin"_s, u"vienuolika1"_s}, u"x\n"_s);
    EXPECT_EQ(tooLong.code, 3);
    EXPECT_TRUE(tooLong.err.contains(u"Prisijungimo vardas"_s)) << tooLong.err.toStdString();
    EXPECT_EQ(place.store()->present(), 0);
}

TEST(StandardBooksPassword, ComesFromTheEnvironmentWhenItIsThere)
{
    const TestPlace place(Engine::Sqlite);
    qputenv("VELMORA_PASSWORD", "Ąžuolas 7");
    const TResult created =
        velmoraDb(create + QStringList{u"--admin"_s, u"rasa"_s} + place.arguments(), u"kitas\n"_s);
    qunsetenv("VELMORA_PASSWORD");
    ASSERT_EQ(created.code, 0) << created.err.toStdString();
    EXPECT_EQ(value(*place.ravl(), u"select usr_pasw from bd_usr"_s), u"Ąžuolas 7");
}

TEST(StandardBooksPassword, IsTypedUnseenAndTheTerminalIsTheUsersAgainAfterAnInterruption)
{
    const TestPlace place(Engine::Sqlite);
    TAtTerminal run(create + QStringList{u"--admin"_s, u"rasa"_s} + place.arguments());
    ASSERT_TRUE(run.isAsked());
    run.waitUntilShown(false);
    EXPECT_FALSE(run.showsWhatIsTyped());
    run.type("\x03");
    run.toldAtTheEnd();
    EXPECT_TRUE(run.showsWhatIsTyped());
    EXPECT_EQ(place.store()->present(), 0);
}

TEST(StandardBooksPassword, IsNotAskedForBooksThatAreThereAlready)
{
    const TestPlace place(Engine::Sqlite);
    const QStringList arguments = create + QStringList{u"--admin"_s, u"rasa"_s} + place.arguments();
    ASSERT_EQ(velmoraDb(arguments, u"Raktas 1\n"_s).code, 0);
    EXPECT_EQ(TAtTerminal(arguments).toldAtTheEnd().trimmed(),
              u"Duomenų bazės jau yra. Jos neliečiamos; nurodykite kitą vietą.");
}

// Wherever a run is killed, the next one either finds whole books and leaves them, or makes them.
TEST_P(StandardBooks, AreMadeByTheRunAfterAKilledOne)
{
    QElapsedTimer clock;
    clock.start();
    ASSERT_EQ(run(create).code, 0);
    const qint64 duration = clock.elapsed();
    const QByteArrayList whole = place.fingerprints();
    std::mt19937 random{std::random_device()()};
    int unfinished = 0;
    for (int i = 0; i < 8; ++i) {
        const TestPlace other(GetParam());
        killAfter(create + other.arguments(), random() % quint64(duration));
        const TResult next = velmoraDb(create + other.arguments());
        unfinished += next.code == 0;
        EXPECT_TRUE(next.code == 0 || next.err.contains(u"Duomenų bazės jau yra."_s))
            << next.err.toStdString();
        if (other.store()->present() == 2) {
            EXPECT_EQ(other.fingerprints(), whole);
        } else {
            EXPECT_NE(next.code, 0);
        }
    }
    EXPECT_GT(unfinished, 0) << "no kill met the work";
}
