#include "host/app/close_check/checks.h"
#include "host/app/close_check/last_backup.h"
#include "toolkit/text/format.h"

using namespace Qt::StringLiterals;

std::vector<TCloseFinding> backupTooOld(const TClosing &closing)
{
    if (closing.fin.engine() == Engine::PostgreSql)
        throw ENotChecked(u"Serverio duomenų bazių kopijas daro jo prižiūrėtojas."_s);
    const auto last = lastBackup(closing.fin);
    if (!last)
        return {{.about = u"Atsarginės kopijos"_s, .text = u"Nėra nė vienos atsarginės kopijos."_s}};
    const qint64 days = last->date().daysTo(Date().date());
    if (days <= 1)
        return {};
    return {{.about = u"Atsarginės kopijos"_s,
             .text = u"Paskutinė atsarginė kopija padaryta %1, prieš %2 d."_s
                         .arg(last->toString(u"yyyy.MM.dd HH:mm"_s))
                         .arg(days)}};
}
