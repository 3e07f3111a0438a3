#include "database/tool/keeping/server_console.h"
#include "tests/support/refusal.h"
#include "tests/support/silent_server.h"

using namespace Qt::StringLiterals;

TEST(ServerConsole, GivesUpAServerThatNeverAnswers)
{
    const SilentServer silent;
    const QString words = u"host=127.0.0.1 port=%1 user=velmora"_s.arg(silent.port());
    EXPECT_TRUE(refusalOf<EConnectionLost>([&words] {
                    TServerConsole console(words);
                }).startsWith(u"Nepavyko prisijungti prie serverio"_s));
    EXPECT_TRUE(refusalOf([&words] { runServerProgram(u"pg_dump"_s, {}, words); }).contains(u"pg_dump"_s));
}
