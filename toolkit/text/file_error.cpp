#include "toolkit/text/file_error.h"

#include <cerrno>
#include <cstring>

using namespace Qt::StringLiterals;

QString systemTrouble(int code)
{
    switch (code) {
    case ENOSPC:
        return u"diske nebeliko vietos"_s;
    case EDQUOT:
        return u"viršyta Jums skirta disko vieta"_s;
    case EFBIG:
        return u"failas didesnis, nei čia leidžiama"_s;
    case EACCES:
    case EPERM:
        return u"trūksta teisių"_s;
    case EROFS:
        return u"diskas skirtas tik skaityti"_s;
    case EBUSY:
    case ETXTBSY:
        return u"failą naudoja kita programa"_s;
    case ENOENT:
    case ENOTDIR:
        return u"tokio katalogo nėra"_s;
    case EISDIR:
        return u"tai katalogas, o ne failas"_s;
    case ENAMETOOLONG:
        return u"per ilgas pavadinimas"_s;
    case EIO:
        return u"disko klaida"_s;
    default:
        return QString::fromLocal8Bit(std::strerror(code));
    }
}
