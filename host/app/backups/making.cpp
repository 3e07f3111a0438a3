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

// What failed and why, and the question; the refusal is the default.
bool goesOn(const QString &failed, const QString &why, const QString &question)
{
    return StdMsgBox(mkQuestion, failed + "\n\n" + why + "\n\n" + question) == mrYes;
}

// The daily backup under way. It keeps itself behind the work of the user.
class TDailyBackup : public QProcess {
public:
    TDailyBackup(QWidget *owner, std::function<void()> goToBackups)
        : QProcess(owner),
          toBackups(std::move(goToBackups))
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
    // Where it leads comes when this one is gone: a restore there waits for none and may begin another.
    void tell()
    {
        deleteLater();
        const TToolEnd end = toolEnd(*this);
        if (!end.done() && !goesOn("Šios dienos atsarginės kopijos padaryti nepavyko.", end.trouble,
                                   "Ar dirbti toliau be šios dienos kopijos? Atsakius „Ne“, bus atvertas "
                                   "atsarginių kopijų langas."))
            QTimer::singleShot(0, parent(), guarded(qobject_cast<QWidget *>(parent()), toBackups));
    }

    std::function<void()> toBackups;
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
           goesOn("Atsarginės kopijos padaryti nepavyko.", end.trouble, "Ar vis tiek tęsti be kopijos?");
}

void startDailyBackup(QWidget *owner, const std::function<void()> &toBackups)
{
    QTimer::singleShot(afterFirstWindowsMs, owner, guarded(owner, [owner, toBackups] {
                           if (!makesBackups() || daily())
                               return;
                           daily() = new TDailyBackup(owner, toBackups);
                           daily()->start();
                       }));
}

void waitForDailyBackup()
{
    while (daily() && daily()->state() != QProcess::NotRunning && !daily()->waitForFinished(40))
        paintWhileBusy();
}
