#include "host/app/backups/making.h"

#include "host/app/backups/tool.h"
#include "host/common/forms.h"
#include "host/common/msgbox.h"
#include "host/data/backups.h"
#include "host/data/main_datas.h"
#include "host/data/own_login.h"
#include "toolkit/widgets/guard.h"

#include <QPointer>
#include <QTimer>

#include <sys/resource.h>

namespace {

constexpr int afterFirstWindowsMs = 1500;
constexpr int politeness = 10;
constexpr int patienceMs = 300'000;

QStringList keepWords(BackupKind what)
{
    return {"keep", wordOf(what), "--into", backupFolder()};
}

// A person's own login may not copy the books of a server; those are kept by whoever keeps the server.
bool makesBackups()
{
    return MainDatas() && !CurrentUser().viewOnly && !hasOwnLogin() && !backupFolder().isEmpty();
}

// The daily backup under way. It keeps itself behind the work of the user.
class TDailyBackup : public QProcess {
public:
    explicit TDailyBackup(QWidget *owner) : QProcess(owner)
    {
        prepareTool(*this, keepWords(BackupKind::Day));
        setChildProcessModifier([] { ::setpriority(PRIO_PROCESS, 0, politeness); });
        connectGuarded(this, &QProcess::finished, this, [this] { tell(); });
        connectGuarded(this, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                tell();
        });
    }
    ~TDailyBackup() override
    {
        disconnect();
        waitForFinished(patienceMs);
    }

private:
    void tell()
    {
        deleteLater();
        if (const TToolEnd end = toolEnd(*this); !end.done())
            StdMsgBox(mkWarning, QString("Šios dienos atsarginės kopijos padaryti nepavyko.\n\n%1\n\nDirbti "
                                         "galite, tik kopijos kol kas nėra. Ją padarysite meniu „Programa“, "
                                         "„Atsarginės kopijos…“.")
                                     .arg(end.trouble));
    }
};

QPointer<TDailyBackup> &daily()
{
    static QPointer<TDailyBackup> underWay;
    return underWay;
}

} // namespace

bool backUpOrAsk(BackupKind what)
{
    if (!makesBackups())
        return true;
    const TToolEnd end = runTool(keepWords(what), "Daroma atsarginė kopija…");
    return end.done() ||
           StdMsgBox(mkQuestion,
                     QString("Atsarginės kopijos padaryti nepavyko.\n\n%1\n\nAr vis tiek tęsti be "
                             "kopijos?")
                         .arg(end.trouble)) == mrYes;
}

void startDailyBackup(QWidget *owner)
{
    QTimer::singleShot(afterFirstWindowsMs, owner, guarded(owner, [owner] {
                           if (!makesBackups() || daily())
                               return;
                           daily() = new TDailyBackup(owner);
                           daily()->start();
                       }));
}

void waitForDailyBackup()
{
    while (daily() && daily()->state() != QProcess::NotRunning && !daily()->waitForFinished(40))
        paintWhileBusy();
}
