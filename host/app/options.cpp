#include "host/app/options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

namespace {

// One option of the program with a value, and the member that takes it.
struct TOption {
    QString name;
    QString value; // what follows it, for the help
    QString told;  // empty: what one process of the program says to another, no option for people
    QString TOptions::*member;
};

const QList<TOption> &withValues()
{
    static const QList<TOption> options = {
        {"data", "aplankas", "Įterptinių knygų aplankas.", &TOptions::data},
        {"server", "žodžiai", "Serverio prisijungimo žodžiai (host=… user=…).", &TOptions::server},
        {"known", "raktas", {}, &TOptions::known},
        {"user", "vardas", "Prisijungimo vardas.", &TOptions::user},
        {"open", "vardas", "Po prisijungimo atidaryti langą ar funkciją.", &TOptions::open},
        {"tour", "aplankas", "Parodyti visus langus ir įrašyti jų vaizdus į aplanką.", &TOptions::tour},
    };
    return options;
}

QString helpText()
{
    QString text = "Velmora: biudžetinių įstaigų apskaitos administravimas\n\n"
                   "Naudojimas: velmora-host [parinktys]\n\nParinktys\n";
    const auto line = [&text](const QString &option, const QString &told) {
        text += "  " + option.leftJustified(22) + told + '\n';
    };
    for (const TOption &each : withValues())
        if (!each.told.isEmpty())
            line(QString("--%1 <%2>").arg(each.name, each.value), each.told);
    line("-h, --help", "Ši pagalba.");
    line("-v, --version", "Programos versija.");
    return text;
}

// The parser's own words are English.
[[noreturn]] void refuse(const QCommandLineParser &parser, const QStringList &arguments)
{
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty())
        throw EUsage(QString("Nežinoma parinktis „%1“.").arg(unknown.first()));
    if (arguments.last().startsWith('-') && !arguments.last().contains('='))
        throw EUsage(QString("Parinkčiai „%1“ trūksta reikšmės.").arg(arguments.last()));
    throw EUsage("Parinktims --help ir --version reikšmės nereikia.");
}

} // namespace

TOptions readOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({{{"h", "help"}, {}}, {{"v", "version"}, {}}});
    for (const TOption &each : withValues())
        parser.addOption({each.name, each.told, each.value});
    if (!parser.parse(arguments))
        refuse(parser, arguments);
    if (!parser.positionalArguments().isEmpty())
        throw EUsage(QString("Nereikalingas žodis „%1“.").arg(parser.positionalArguments().first()));

    TOptions options;
    for (const TOption &each : withValues())
        options.*each.member = parser.value(each.name);
    if (parser.isSet("data"))
        options.data = QDir(options.data).absolutePath();
    if (parser.isSet("help"))
        options.told = helpText();
    else if (parser.isSet("version"))
        options.told = "Velmora " + QCoreApplication::applicationVersion() + '\n';
    return options;
}
