#include "database/tool/command_line.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace {

constexpr int largestSize = 10000;

const QStringList commands{u"create"_s, u"upgrade"_s, u"demo"_s, u"check"_s, u"backup"_s, u"restore"_s};

bool takesFile(const QString &command)
{
    return command == u"backup" || command == u"restore";
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
    const qsizetype expected = takesFile(line.command) ? 2 : 1;
    if (words.size() < expected)
        throw EUsage(u"Komandai „%1“ reikia failo vardo."_s.arg(line.command));
    if (words.size() > expected)
        throw EUsage(u"Nereikalingas žodis „%1“."_s.arg(words.at(expected)));
    line.file = takesFile(line.command) ? words.at(1) : QString();
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
                       {u"size"_s, {}, u"size"_s}});
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

Duomenų vieta
  --data KATALOGAS   katalogo failai velmora_fin.db ir velmora_ravl.db
  --server ŽODŽIAI   PostgreSQL serverio žodžiai, pvz. "host=serveris user=buhalterija";
                     duomenų bazės velmora_fin ir velmora_ravl, arba kitos, jei nurodyta fin= ir ravl=

Kitos parinktys
  --size N           parodomųjų duomenų kiekis: N kartų po 300 debitorių ir kreditorių (1–10000)
  -h, --help         ši pagalba

Baigimo kodai
  0   atlikta; patikrinimas neatitikimų nerado
  1   patikrinimas rado neatitikimų
  2   neteisingi komandos žodžiai
  3   veiksmas nepavyko arba jo atsisakyta; esami duomenys nepakeisti
)"_s;
}
