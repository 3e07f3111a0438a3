#include "host/app/start_of_work.h"

#include "host/app/backups/making.h"
#include "host/common/msgbox.h"
#include "host/data/backups.h"
#include "host/data/main_datas.h"

#include <QDir>

namespace {

// The rows of a table whose period the start of work, which writes the first ones, does not write.
qlonglong beyondStart(const QString &table, const QString &period)
{
    return MainDatas()
        ->mnFin_Db()
        ->fieldResult(QString("select count(*) from %1 where %2 < 1 or %2 > :last").arg(table, period),
                      {{"last", startOfWorkPeriod}})
        .toLongLong();
}

qlonglong closedMonths()
{
    return MainDatas()
        ->mnFin_Db()
        ->fieldResult("select count(*) from bd_period where ISNULL(per_menuo, 0) > 0 and per_id <> :start",
                      {{"start", startOfWorkPeriod}})
        .toLongLong();
}

TLostMonths lostNow()
{
    return {closedMonths(),
            beyondStart("bd_saslik", "ssl_perid") + beyondStart("bd_isllik", "sml_perid") +
                beyondStart("bd_dbkrlik", "dkl_perid"),
            beyondStart("bd_irasai", "irs_perid"), beyondStart("bd_samatos", "sam_perid")};
}

QString question(const TLostMonths &lost, const QString &backup)
{
    return QString(
               "Nustačius darbo pradžios periodą iš naujo, uždaryti mėnesiai bus ištrinti, o jų likučiai, "
               "įrašai ir sąmatos liks be periodo.\n\nMėnesių, kurie bus ištrinti: %1\n"
               "Likučių, kurie liks be periodo: %2\nĮrašų, kurie liks be periodo: %3\n"
               "Sąmatų, kurios liks be periodo: %4\n\n%5\n\nAr tikrai nustatyti iš naujo?")
        .arg(lost.months)
        .arg(lost.balances)
        .arg(lost.entries)
        .arg(lost.estimates)
        .arg(backup);
}

std::optional<TLostMonths> agreed(const TLostMonths &lost, const QString &backup)
{
    return StdMsgBox(mkQuestion, question(lost, backup)) == mrYes ? std::optional(lost) : std::nullopt;
}

} // namespace

bool setsStartOfWork(const TPackageEntry &entry)
{
    return entry.name == "TPeriodDlg";
}

std::optional<TLostMonths> agreedLoss()
{
    const TLostMonths lost = lostNow();
    if (lost.months == 0)
        return lost;
    const QString folder = backupFolder();
    const auto answer = agreed(
        lost, folder.isEmpty()
                  ? QString("Prieš tai pasidarykite serverio duomenų bazių atsarginę kopiją "
                            "(velmora-db backup): čia ji nedaroma.")
                  : "Prieš tai bus padaryta atsarginė kopija aplanke\n" + QDir::toNativeSeparators(folder));
    return answer && backUpOrAsk(BackupKind::StartOfWork) ? answer : std::nullopt;
}

void loseNoMore(TDialog &dialog, const TLostMonths &agreed)
{
    dialog.setSaveCondition([agreed] {
        if (lostNow() != agreed)
            throw Exception("Kol šis langas buvo atvertas, kita darbo vieta pakeitė uždarytus mėnesius ar jų "
                            "likučius. Uždarykite langą ir atverkite iš naujo: bus paklausta dar kartą.");
    });
}
