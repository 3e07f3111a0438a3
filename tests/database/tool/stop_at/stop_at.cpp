// Kills velmora-db before the step that VELMORA_STOP_AT names. A step is a call that changes what other
// programs see: a file renamed, removed or brought to the disk, a statement of the server's console.

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <initializer_list>
#include <unistd.h>

namespace {

bool isVictim()
{
    static const bool is = std::strcmp(program_invocation_short_name, "velmora-db") == 0;
    return is;
}

void step()
{
    static int left = std::getenv("VELMORA_STOP_AT") ? std::atoi(std::getenv("VELMORA_STOP_AT")) : 0;
    if (isVictim() && left > 0 && --left == 0)
        ::kill(::getpid(), SIGKILL);
}

template<typename Function> Function *next(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

int rename(const char *from, const char *to) noexcept
{
    step();
    static auto *const original = next<int(const char *, const char *)>("rename");
    return original(from, to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags) noexcept
{
    step();
    static auto *const original = next<int(int, const char *, int, const char *, unsigned)>("renameat2");
    return original(fromFolder, from, toFolder, to, flags);
}

int unlink(const char *file) noexcept
{
    step();
    static auto *const original = next<int(const char *)>("unlink");
    return original(file);
}

int fsync(int handle)
{
    step();
    static auto *const original = next<int(int)>("fsync");
    return original(handle);
}

// The console's statements; what runs over the other connections is the engine's own to keep whole.
void *PQexec(void *connection, const char *statement)
{
    for (const char *word : {"begin", "alter database", "commit"})
        if (std::strncmp(statement, word, std::strlen(word)) == 0)
            step();
    static auto *const original = next<void *(void *, const char *)>("PQexec");
    return original(connection, statement);
}
}
