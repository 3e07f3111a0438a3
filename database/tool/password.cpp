#include "database/tool/password.h"

#include <QTextStream>

#include <csignal>

#include <termios.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int endings[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
termios usual;

// The terminal is the user's again before the program ends as it would have.
void endSeen(int signal)
{
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &usual);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

// Nothing that is typed is shown while this lives, nor for longer when the program is interrupted meanwhile.
class TUnseen {
public:
    TUnseen()
    {
        tcgetattr(STDIN_FILENO, &usual);
        for (const int signal : endings)
            std::signal(signal, endSeen);
        termios unseen = usual;
        unseen.c_lflag &= ~tcflag_t(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &unseen);
    }
    ~TUnseen()
    {
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &usual);
        for (const int signal : endings)
            std::signal(signal, SIG_DFL);
    }
    TUnseen(const TUnseen &) = delete;
    TUnseen &operator=(const TUnseen &) = delete;
};

QString typedPassword()
{
    QTextStream terminal(stderr);
    terminal << u"Administratoriaus slaptažodis: "_s << Qt::flush;
    const TUnseen unseen;
    QString password = QTextStream(stdin).readLine();
    terminal << Qt::endl;
    return password;
}

} // namespace

QString readPassword()
{
    if (qEnvironmentVariableIsSet("VELMORA_PASSWORD"))
        return qEnvironmentVariable("VELMORA_PASSWORD");
    return isatty(STDIN_FILENO) ? typedPassword() : QTextStream(stdin).readLine();
}
