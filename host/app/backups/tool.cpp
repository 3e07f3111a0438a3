#include "host/app/backups/tool.h"

#include "host/common/forms.h"
#include "host/data/backups.h"

#include <QCoreApplication>

namespace {

constexpr int paintingMs = 40;
constexpr qsizetype notesShown = 10;
const QString noteBeginning = "Pastaba: ";

QString &otherProgram()
{
    static QString program;
    return program;
}

QString toolProgram()
{
    return otherProgram().isEmpty() ? QCoreApplication::applicationDirPath() + "/velmora-db" : otherProgram();
}

} // namespace

void prepareTool(QProcess &tool, const QStringList &words)
{
    const TBooksSettings books = openBooksSettings();
    tool.setProgram(toolProgram());
    tool.setArguments(
        words + (books.isEmbedded() ? QStringList{"--data", books.folder} : QStringList{"--server", "-"}));
    if (books.isEmbedded())
        return;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("VELMORA_SERVER", books.connection);
    tool.setProcessEnvironment(environment);
}

TToolEnd toolEnd(QProcess &tool)
{
    TToolEnd end{.said = QString::fromUtf8(tool.readAllStandardOutput()).trimmed()};
    if (tool.error() == QProcess::FailedToStart)
        end.trouble = QString("Nepavyko paleisti programos „%1“.").arg(tool.program());
    else if (tool.exitStatus() != QProcess::NormalExit)
        end.trouble = QString("Programa „%1“ nutraukta.").arg(tool.program());
    else if (tool.exitCode() != 0)
        end.trouble = QString::fromUtf8(tool.readAllStandardError()).trimmed();
    if (end.trouble.isEmpty() && tool.exitCode() != 0)
        end.trouble = "Programa klaidos nepaaiškino.";
    return end;
}

QString notesOf(const TToolEnd &end)
{
    QStringList notes;
    for (const QString &line : end.said.split('\n'))
        if (line.startsWith(noteBeginning))
            notes.append(line.sliced(noteBeginning.size()));
    const qsizetype more = notes.size() - notesShown;
    if (more > 0)
        notes = notes.first(notesShown) << QString("… ir dar %1.").arg(more);
    return notes.join('\n');
}

TToolEnd runTool(QProcess &tool, const QString &progress)
{
    tool.start();
    EnableAnimation(TCommonAVI::aviCopyFiles, progress, false, 0);
    while (tool.state() != QProcess::NotRunning && !tool.waitForFinished(paintingMs))
        paintWhileBusy();
    DisableAnimation(progress);
    return toolEnd(tool);
}

TToolEnd runTool(const QStringList &words, const QString &progress)
{
    QProcess tool;
    prepareTool(tool, words);
    return runTool(tool, progress);
}

void setToolProgram(const QString &program)
{
    otherProgram() = program;
}
