#include "database/private_place.h"
#include "database/tool/command_line.h"
#include "database/tool/keeping/keeper.h"
#include "database/tool/password.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

enum ExitCode { Done = 0, ProblemsFound = 1, WrongUsage = 2, Failed = 3 };

void say(const QString &text)
{
    QTextStream(stdout) << text << Qt::endl;
}

void complain(const QString &text)
{
    QTextStream(stderr) << text << Qt::endl;
}

ExitCode check(TStore &store)
{
    const QStringList problems = checkBooks(store, say);
    for (const QString &problem : problems)
        say(problem);
    say(problems.isEmpty() ? u"Neatitikimų nerasta."_s : u"Rasta neatitikimų: %1."_s.arg(problems.size()));
    return problems.isEmpty() ? Done : ProblemsFound;
}

void restore(TStore &store, const QString &file)
{
    const QStringList kept = restoreBooks(store, file, say);
    say(u"Duomenų bazės atkurtos."_s);
    for (const QString &name : kept)
        say(u"Buvusi duomenų bazė palikta: "_s + name);
}

void exportTable(TStore &store, const TCommandLine &line)
{
    const qlonglong rows = exportTableOf(store, {line.table, line.escaped, line.drop}, line.file, say);
    say(u"Įrašyta eilučių: %1."_s.arg(rows));
}

void create(TStore &store, const TCommandLine &line)
{
    if (!line.standard) {
        createBooks(store, say);
        return;
    }
    store.refuseWhenPresent(); // before anything is asked
    using enum SetUpStep;
    TSetUp setUp;
    setUp.standard = {Municipalities, Accounts, Classification, Functions, WorkPlaces, Sources, Banks};
    setUp.startOfWork = line.startOfWork;
    if (!line.institution.isEmpty())
        setUp.institution = TInstitution{.pavad = line.institution};
    if (!line.admin.isEmpty())
        setUp.administrator = TAdministrator{
            .name = line.admin, .vardas = line.admin, .pavarde = {}, .password = readPassword()};
    createStandardBooks(store, setUp, say);
}

ExitCode run(const TCommandLine &line)
{
    const std::unique_ptr<TStore> store =
        line.connInfo.isEmpty() ? embeddedStore(line.folder) : serverStore(line.connInfo);
    if (line.command == u"check")
        return check(*store);
    if (line.command == u"restore") {
        restore(*store, line.file);
        return Done;
    }
    if (line.command == u"keep") {
        const QString into = line.into.isEmpty() ? backupFolderOf(line.folder) : line.into;
        say(u"Atsarginė kopija: "_s + keepBackup(*store, line.kind, into, say));
        return Done;
    }
    if (line.command == u"export") {
        exportTable(*store, line);
        return Done;
    }
    if (line.command == u"create")
        create(*store, line);
    else if (line.command == u"demo")
        createDemoBooks(*store, line.size, say);
    else if (line.command == u"verify")
        verifyBackup(*store, line.file, say);
    else if (line.command == u"accept")
        acceptBooks(*store, line.reason, say);
    else if (line.command == u"upgrade")
        upgradeBooks(*store, say);
    else
        backUpBooks(*store, line.file, say);
    say(u"Atlikta."_s);
    return Done;
}

} // namespace

int main(int argc, char *argv[])
{
    keepNewFilesPrivate();
    QCoreApplication application(argc, argv);
    try {
        const TCommandLine line = TCommandLine::parse(application.arguments());
        if (line.help) {
            say(helpText());
            return Done;
        }
        return run(line);
    } catch (const EUsage &error) {
        complain(error.message());
        complain(u"Pagalba: velmora-db --help"_s);
        return WrongUsage;
    } catch (const Exception &error) {
        complain(error.message());
        return Failed;
    }
}
