#include "database/tool/command_line.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace {

constexpr int largestSize = 10000;

const QStringList commands{u"create"_s, u"upgrade"_s, u"demo"_s,  u"check"_s,
                           u"backup"_s, u"restore"_s, u"export"_s};

// What the user is told of the words that follow the command; empty when none do.
QString wordsOf(const QString &command)
{
    if (command == u"export")
        return u"lentelės ir failo vardų"_s;
    return command == u"backup" || command == u"restore" ? u"failo vardo"_s : QString();
}

void readPlace(const QCommandLineParser &parser, TCommandLine &line)
{
    if (parser.isSet(u"data"_s) == parser.isSet(u"server"_s))
        throw EUsage(u"Nurodykite vieną iš dviejų: --data KATALOGAS arba --server ŽODŽIAI."_s);
    line.folder = parser.value(u"data"_s);
    line.connInfo = parser.value(u"server"_s);
    if (parser.isSet(u"data"_s) && line.folder.isEmpty())
        throw EUsage(u"Po --data reikia katalogo."_s);
}

void readCommand(const QStringList &words, TCommandLine &line)
{
    if (words.isEmpty())
        throw EUsage(u"Nenurodyta komanda."_s);
    line.command = words.first();
    if (!commands.contains(line.command))
        throw EUsage(u"Nežinoma komanda „%1“."_s.arg(line.command));
    const QString needed = wordsOf(line.command);
    const bool isExport = line.command == u"export";
    const qsizetype expected = isExport ? 3 : needed.isEmpty() ? 1 : 2;
    if (words.size() < expected)
        throw EUsage(u"Komandai „%1“ reikia %2."_s.arg(line.command, needed));
    if (words.size() > expected)
        throw EUsage(u"Nereikalingas žodis „%1“."_s.arg(words.at(expected)));
    line.table = isExport ? words.at(1) : QString();
    line.file = expected > 1 ? words.last() : QString();
}

// A switch that only the export has.
bool readExportSwitch(const QCommandLineParser &parser, const TCommandLine &line, const QString &name)
{
    if (parser.isSet(name) && line.command != u"export")
        throw EUsage(u"Parinktis --%1 tinka tik komandai „export“."_s.arg(name));
    return parser.isSet(name);
}

void readSize(const QCommandLineParser &parser, TCommandLine &line)
{
    if (!parser.isSet(u"size"_s))
        return;
    if (line.command != u"demo")
        throw EUsage(u"Parinktis --size tinka tik komandai „demo“."_s);
    bool ok = false;
    line.size = parser.value(u"size"_s).toInt(&ok);
    if (!ok || line.size < 1 || line.size > largestSize)
        throw EUsage(u"Po --size reikia sveikojo skaičiaus nuo 1 iki %1."_s.arg(largestSize));
}

} // namespace

TCommandLine TCommandLine::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({{{u"h"_s, u"help"_s}, {}},
                       {u"data"_s, {}, u"data"_s},
                       {u"server"_s, {}, u"server"_s},
                       {u"size"_s, {}, u"size"_s},
                       {u"escaped"_s, QString()},
                       {u"drop"_s, QString()}});
    TCommandLine line;
    if (!parser.parse(arguments)) {
        if (!parser.unknownOptionNames().isEmpty())
            throw EUsage(u"Nežinoma parinktis „%1“."_s.arg(parser.unknownOptionNames().constFirst()));
        throw EUsage(u"Parinkčiai trūksta reikšmės."_s);
    }
    line.help = parser.isSet(u"help"_s);
    if (line.help)
        return line;
    readCommand(parser.positionalArguments(), line);
    readPlace(parser, line);
    readSize(parser, line);
    line.escaped = readExportSwitch(parser, line, u"escaped"_s);
    line.drop = readExportSwitch(parser, line, u"drop"_s);
    return line;
}

QString helpText()
{
    return uR"(Duomenų bazių priežiūra

Naudojimas: velmora-db KOMANDA (--data KATALOGAS | --server ŽODŽIAI) [parinktys]

Komandos
  create           sukuria abi duomenų bazes su tuščiomis lentelėmis; esamų neliečia
  demo             sukuria abi duomenų bazes su parodomaisiais mokyklos duomenimis; esamų neliečia
  upgrade          atnaujina esamas duomenų bazes iki šios programos redakcijos
  check            patikrina failus, nuorodas, periodus ir kontrolines sumas; nieko nekeičia
  backup FAILAS    įrašo abi duomenų bazes į vieną atsarginės kopijos failą
  restore FAILAS   atkuria abi duomenų bazes iš atsarginės kopijos; esamos paliekamos kitu vardu
  export LENTELĖ FAILAS
                   įrašo biudžeto duomenų bazės lentelės eilutes į insert sakinių failą, tokį pat,
                   kokį rašo programos langas; esamo failo neliečia

Duomenų vieta
  --data KATALOGAS   katalogo failai velmora_fin.db ir velmora_ravl.db
  --server ŽODŽIAI   PostgreSQL serverio žodžiai, pvz. "host=serveris user=buhalterija";
                     duomenų bazės velmora_fin ir velmora_ravl, arba kitos, jei nurodyta fin= ir ravl=

Kitos parinktys
  --size N           parodomųjų duomenų kiekis: N kartų po 300 debitorių ir kreditorių (1–10000)
  --escaped          eksportuojant: kabutės dvigubinamos, tuščia reikšmė – NULL, koduotė UTF-8;
                     failą įvykdžius to paties variklio duomenų bazėje, lentelėje lygiai tie patys duomenys
  --drop             eksportuojant: pirmas sakinys ištrina visas lentelės eilutes
  -h, --help         ši pagalba

Baigimo kodai
  0   atlikta; patikrinimas neatitikimų nerado
  1   patikrinimas rado neatitikimų
  2   neteisingi komandos žodžiai
  3   veiksmas nepavyko arba jo atsisakyta; esami duomenys nepakeisti
)"_s;
}
