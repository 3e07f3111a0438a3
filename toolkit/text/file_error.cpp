#include "toolkit/text/file_error.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace {

struct TTrouble {
    int code;
    const char16_t *told;
};

constexpr TTrouble troubles[] = {
    {ENOSPC, u"diske nebeliko vietos"},
    {EDQUOT, u"viršyta Jums skirta disko vieta"},
    {EFBIG, u"failas didesnis, nei čia leidžiama"},
    {EACCES, u"trūksta teisių"},
    {EPERM, u"trūksta teisių"},
    {EROFS, u"diskas skirtas tik skaityti"},
    {EBUSY, u"failą naudoja kita programa"},
    {ETXTBSY, u"failą naudoja kita programa"},
    {ENOENT, u"tokio aplanko nėra"},
    {ENOTDIR, u"tokio aplanko nėra"},
    {EISDIR, u"tai aplankas, o ne failas"},
    {ENAMETOOLONG, u"per ilgas pavadinimas"},
    {EIO, u"disko klaida"},
};

} // namespace

QString systemTrouble(int code)
{
    const auto *known = std::ranges::find(troubles, code, &TTrouble::code);
    return known == std::end(troubles) ? QString::fromLocal8Bit(std::strerror(code))
                                       : QString::fromUtf16(known->told);
}
