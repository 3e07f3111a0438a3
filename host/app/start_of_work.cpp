#include "host/app/start_of_work.h"

#include "host/common/forms.h"
#include "host/common/msgbox.h"
#include "host/data/main_datas.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace {

// The rows of a table whose period the start of work does not write.
qlonglong beyondStart(const QString &table, const QString &period)
{
    return MainDatas()
        ->mnFin_Db()
        ->fieldResult(QString("select count(*) from %1 where %2 > :last").arg(table, period),
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

qlonglong theirBalances()
{
    return beyondStart("bd_saslik", "ssl_perid") + beyondStart("bd_isllik", "sml_perid") +
           beyondStart("bd_dbkrlik", "dkl_perid");
}

QString question(const QString &backup)
{
    return QString(
               "Nustačius darbo pradžios periodą iš naujo, uždaryti mėnesiai bus ištrinti, o jų likučiai "
               "liks be periodo.\n\nMėnesių, kurie bus ištrinti: %1\nLikučių, kurie liks be periodo: %2\n\n"
               "%3\n\nAr tikrai nustatyti iš naujo?")
        .arg(closedMonths())
        .arg(theirBalances())
        .arg(backup);
}

// The same program that makes backups by hand, so that its files are restored the same way.
void backUp(const QString &folder, const QString &file)
{
    QProcess tool;
    tool.start(QCoreApplication::applicationDirPath() + "/velmora-db", {"backup", file, "--data", folder});
    const QString progress = "Daroma atsarginė kopija…";
    EnableAnimation(TCommonAVI::aviCopyFiles, progress, false, 0);
    while (tool.state() != QProcess::NotRunning && !tool.waitForFinished(40))
        paintWhileBusy();
    DisableAnimation(progress);
    if (tool.error() == QProcess::FailedToStart || tool.exitStatus() != QProcess::NormalExit ||
        tool.exitCode() != 0)
        throw Exception(QString("Atsarginės kopijos padaryti nepavyko, todėl darbo pradžios periodas "
                                "nekeičiamas.\n\n%1")
                            .arg(QString::fromUtf8(tool.readAllStandardError()).trimmed()));
}

} // namespace

bool setsStartOfWork(const TPackageEntry &entry)
{
    return entry.name == "TPeriodDlg";
}

bool mayResetStartOfWork()
{
    if (closedMonths() == 0)
        return true;
    const TSessionSettings &books = MainDatas()->mnFin_Db()->settings();
    if (books.engine != Engine::Sqlite)
        return StdMsgBox(mkQuestion,
                         question("Prieš tai pasidarykite serverio duomenų bazių atsarginę kopiją "
                                  "(velmora-db backup): čia ji nedaroma.")) == mrYes;
    const QDir folder = QFileInfo(books.file).dir();
    const QString file = folder.filePath(
        QString("atsarga-%1.velmora").arg(QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss")));
    if (StdMsgBox(mkQuestion, question("Prieš tai bus padaryta atsarginė kopija:\n" +
                                       QDir::toNativeSeparators(file))) != mrYes)
        return false;
    backUp(folder.absolutePath(), file);
    return true;
}
