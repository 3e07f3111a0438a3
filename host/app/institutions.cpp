#include "host/app/institutions.h"

#include "host/app/institutions_dialog.h"
#include "host/app/startup.h"
#include "host/data/main_datas.h"
#include "toolkit/widgets/guard.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>

namespace {

QString settingsFile(const QString &name)
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + '/' + name;
}

TProgramStarter &programStarter()
{
    static TProgramStarter starter;
    return starter;
}

bool startOnceMore(const QStringList &arguments)
{
    return programStarter() ? programStarter()(arguments)
                            : QProcess::startDetached(QCoreApplication::applicationFilePath(), arguments);
}

TBooksSettings institutionOf(const QString &key)
{
    for (const TKnownBooks &each : readKnownBooks(institutionsFile()))
        if (each.readable() && keyOf(each.books) == key)
            return each.books;
    throw EConvertError("Šioje darbo vietoje žinomų įstaigų sąraše šios įstaigos nebėra.");
}

// What is said of the books before the list of institutions is asked.
std::optional<TBooksSettings> booksSaid(const TOptions &options)
{
    if (!options.server.isEmpty())
        return TBooksSettings::server(options.server);
    if (!options.data.isEmpty())
        return TBooksSettings::embedded(options.data);
    if (!options.known.isEmpty())
        return institutionOf(options.known);
    return readBooksSettings(settingsFile("knygos.ini"));
}

std::optional<TBooksSettings> openIfWanted(const TBooksSettings &books, QWidget *owner)
{
    return openBooks(books, owner) ? std::optional(books) : std::nullopt;
}

// Tells what is wrong, when it cannot be opened.
std::optional<TBooksSettings> openSingle(const TKnownBooks &known, QWidget *owner)
{
    std::optional<TBooksSettings> opened;
    runGuarded(owner, [&] {
        requireThere(known);
        opened = openIfWanted(known.books, owner);
    });
    return opened;
}

} // namespace

QString institutionsFile()
{
    return settingsFile("istaigos.jsonl");
}

std::optional<TBooksSettings> openFirstBooks(const TOptions &options, QWidget *owner)
try {
    if (const auto said = booksSaid(options))
        return openIfWanted(*said, owner);
    const QList<TKnownBooks> known = readKnownBooks(institutionsFile());
    if (known.isEmpty())
        return openIfWanted(
            TBooksSettings::embedded(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)),
            owner);
    if (known.size() == 1)
        if (auto opened = openSingle(known.first(), owner))
            return opened;
    return openOtherBooks(owner);
} catch (const EOtherBooksWanted &) {
    return openOtherBooks(owner);
}

std::optional<TBooksSettings> openOtherBooks(QWidget *owner)
{
    TInstitutionsDlg dialog(
        institutionsFile(),
        [](const TBooksSettings &books, QWidget *over) {
            if (!openBooks(books, over))
                throw EAbort();
        },
        owner);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.opened();
}

void openOtherWindow(QWidget *owner)
{
    TInstitutionsDlg dialog(
        institutionsFile(),
        [](const TBooksSettings &books, QWidget *) {
            if (!startOnceMore(argumentsToOpen(books)))
                throw Exception("Nepavyko paleisti programos kitai įstaigai.");
        },
        owner);
    dialog.exec();
}

void rememberInstitution(const TBooksSettings &books)
{
    rememberBooks(institutionsFile(), {.name = organisationName(), .books = books});
}

QString institutionAt(const TBooksSettings &books)
{
    const QString place = placeOf(books);
    for (const TKnownBooks &each : readKnownBooks(institutionsFile()))
        if (each.readable() && placeOf(each.books) == place && !each.name.isEmpty())
            return each.name;
    return place;
}

QStringList argumentsToOpen(const TBooksSettings &books)
{
    if (books.isEmbedded())
        return {"--data", books.folder};
    return {"--known", keyOf(books)};
}

void setProgramStarter(TProgramStarter starter)
{
    programStarter() = std::move(starter);
}
