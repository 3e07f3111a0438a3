#include "database/tool/password.h"

#include <QTextStream>

#include <termios.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// Nothing that is typed is shown while this lives.
class TUnseen {
public:
    TUnseen()
    {
        tcgetattr(STDIN_FILENO, &usual);
        termios unseen = usual;
        unseen.c_lflag &= ~tcflag_t(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &unseen);
    }
    ~TUnseen() { tcsetattr(STDIN_FILENO, TCSAFLUSH, &usual); }
    TUnseen(const TUnseen &) = delete;
    TUnseen &operator=(const TUnseen &) = delete;

private:
    termios usual{};
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
