#include "host/app/close_check/checks.h"
#include "host/data/backups.h"
#include "toolkit/text/format.h"

using namespace Qt::StringLiterals;

std::vector<TCloseFinding> backupTooOld(const TClosing &)
{
    if (backupFolder().isEmpty())
        throw ENotChecked(u"Šių knygų kopijas daro serverio administratorius."_s);
    const auto last = lastBackup();
    if (!last)
        return {{.about = u"Atsarginės kopijos"_s, .text = u"Nėra nė vienos atsarginės kopijos."_s}};
    const qint64 days = last->made.date().daysTo(Date().date());
    if (days <= 1)
        return {};
    return {{.about = u"Atsarginės kopijos"_s,
             .text = u"Paskutinė atsarginė kopija padaryta %1, prieš %2 d."_s
                         .arg(last->made.toString(u"yyyy.MM.dd HH:mm"_s))
                         .arg(days)}};
}
