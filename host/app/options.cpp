#include "host/app/options.h"

#include <QCommandLineParser>
#include <QDir>

namespace {

const QCommandLineOption dataOption("data", "Įterptinių knygų aplankas.", "aplankas");
const QCommandLineOption serverOption("server", "Serverio prisijungimo žodžiai (host=… user=…).", "žodžiai");
const QCommandLineOption userOption("user", "Prisijungimo vardas.", "vardas");
const QCommandLineOption openOption("open", "Po prisijungimo atidaryti langą ar funkciją.", "vardas");
const QCommandLineOption tourOption("tour", "Parodyti visus langus ir įrašyti jų vaizdus į aplanką.",
                                    "aplankas");

} // namespace

TOptions readOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription("Velmora: biudžetinių įstaigų apskaitos administravimas");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({dataOption, serverOption, userOption, openOption, tourOption});
    parser.process(arguments);

    TOptions options;
    if (parser.isSet(dataOption))
        options.data = QDir(parser.value(dataOption)).absolutePath();
    options.server = parser.value(serverOption);
    options.user = parser.value(userOption);
    options.open = parser.value(openOption);
    options.tour = parser.value(tourOption);
    return options;
}
