#include "database/tool/command_line.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace {

constexpr int largestSize = 10000;

const QStringList commands{u"create"_s, u"upgrade"_s, u"demo"_s,    u"check"_s,  u"backup"_s,
                           u"keep"_s,   u"verify"_s,  u"restore"_s, u"export"_s, u"accept"_s};

// What the user is told of the words that follow the command; empty when none do.
QString wordsOf(const QString &command)
{
    if (command == u"export")
        return u"lentelės ir failo vardų"_s;
    if (command == u"keep")
        return u"priežasties (diena, menuo, atsukimas, pradzia arba ranka)"_s;
    if (command == u"accept")
        return u"priežasties"_s;
    return command == u"backup" || command == u"verify" || command == u"restore" ? u"failo vardo"_s
                                                                                 : QString();
}

void readPlace(const QCommandLineParser &parser, TCommandLine &line)
{
    if (parser.isSet(u"data"_s) == parser.isSet(u"server"_s))
        throw EUsage(u"Nurodykite vieną iš dviejų: --data APLANKAS arba --server ŽODŽIAI."_s);
    line.folder = parser.value(u"data"_s);
    line.connInfo = parser.value(u"server"_s);
    if (line.connInfo == u"-") // words with a password do not stand in the list of processes
        line.connInfo = qEnvironmentVariable("VELMORA_SERVER");
    if (parser.isSet(u"server"_s) && line.connInfo.isEmpty())
        throw EUsage(u"Po --server reikia prisijungimo žodžių."_s);
    if (parser.isSet(u"data"_s) && line.folder.isEmpty())
        throw EUsage(u"Po --data reikia aplanko."_s);
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
    (line.command == u"accept" ? line.reason : line.file) = expected > 1 ? words.last() : QString();
}

// A switch that only one command has.
bool readSwitch(const QCommandLineParser &parser, const TCommandLine &line, const QString &name,
                const QString &command)
{
    if (parser.isSet(name) && line.command != command)
        throw EUsage(u"Parinktis --%1 tinka tik komandai „%2“."_s.arg(name, command));
    return parser.isSet(name);
}

// What goes with --standard; null where it was not given.
std::optional<QString> readOfStandard(const QCommandLineParser &parser, const TCommandLine &line,
                                      const QString &name)
{
    if (!readSwitch(parser, line, name, u"create"_s))
        return {};
    if (!line.standard)
        throw EUsage(u"Parinktis --%1 tinka tik kartu su --standard."_s.arg(name));
    const QString value = parser.value(name).trimmed();
    if (value.isEmpty())
        throw EUsage(u"Parinkčiai trūksta reikšmės."_s);
    return value;
}

void readStandard(const QCommandLineParser &parser, TCommandLine &line)
{
    line.standard = readSwitch(parser, line, u"standard"_s, u"create"_s);
    line.institution = readOfStandard(parser, line, u"institution"_s).value_or(QString());
    line.admin = readOfStandard(parser, line, u"admin"_s).value_or(QString());
    if (const std::optional<QString> month = readOfStandard(parser, line, u"start"_s)) {
        line.startOfWork = QDate::fromString(*month, u"yyyy-MM"_s);
        if (!line.startOfWork->isValid())
            throw EUsage(u"Po --start reikia metų ir mėnesio, pavyzdžiui, 2026-01."_s);
    }
}

// Where and why a backup is kept.
void readKeeping(const QCommandLineParser &parser, TCommandLine &line)
{
    if (readSwitch(parser, line, u"into"_s, u"keep"_s) && parser.value(u"into"_s).isEmpty())
        throw EUsage(u"Po --into reikia aplanko."_s);
    line.into = parser.value(u"into"_s);
    if (line.command != u"keep")
        return;
    const std::optional<BackupKind> kind = kindOf(line.file);
    if (!kind)
        throw EUsage(u"Nežinoma priežastis „%1“."_s.arg(line.file));
    line.kind = *kind;
    if (line.into.isEmpty() && line.folder.isEmpty())
        throw EUsage(u"Serverio kopijoms reikia --into APLANKAS."_s);
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
                       {u"standard"_s, QString()},
                       {u"institution"_s, {}, u"institution"_s},
                       {u"start"_s, {}, u"start"_s},
                       {u"admin"_s, {}, u"admin"_s},
                       {u"into"_s, {}, u"into"_s},
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
    readKeeping(parser, line);
    readSize(parser, line);
    readStandard(parser, line);
    line.escaped = readSwitch(parser, line, u"escaped"_s, u"export"_s);
    line.drop = readSwitch(parser, line, u"drop"_s, u"export"_s);
    return line;
}

QString helpText()
{
    return uR"(Duomenų bazių priežiūra

Naudojimas: velmora-db KOMANDA (--data APLANKAS | --server ŽODŽIAI) [parinktys]

Komandos
  create           sukuria abi duomenų bazes su tuščiomis lentelėmis; esamų neliečia
  demo             sukuria abi duomenų bazes su parodomaisiais mokyklos duomenimis; esamų neliečia
  upgrade          atnaujina esamas duomenų bazes iki šios programos redakcijos; serveryje iš naujo suteikia
                   naudotojų grupių teises ir sukuria trūkstamus vartotojų prisijungimus
  check            patikrina failus, nuorodas, periodus ir kontrolines sumas; nieko nekeičia
  accept PRIEŽASTIS
                   priima duomenis tokius, kokie yra: tai, ką „check“ rado ir kas jau išsiaiškinta,
                   toliau neberodoma; priežastis lieka antspaude
  backup FAILAS    įrašo abi duomenų bazes į vieną atsarginės kopijos failą
  keep PRIEŽASTIS  padaro atsarginę kopiją kopijų aplanke ir pašalina nebereikalingas dienos kopijas:
                   lieka dvylika naujausių ir visos kitos; priežastis – diena (viena per dieną), menuo,
                   atsukimas, pradzia arba ranka
  verify FAILAS    patikrina, ar iš atsarginės kopijos galima atkurti; knygų neliečia
  restore FAILAS   atkuria abi duomenų bazes iš atsarginės kopijos; esamos paliekamos kitu vardu
  export LENTELĖ FAILAS
                   įrašo biudžeto duomenų bazės lentelės eilutes į insert sakinių failą, tokį pat,
                   kokį rašo programos langas; esamo failo neliečia

Duomenų vieta
  --data APLANKAS    aplanko failai velmora_fin.db ir velmora_ravl.db
  --server ŽODŽIAI   PostgreSQL serverio žodžiai, pvz. "host=serveris user=buhalterija";
                     duomenų bazės velmora_fin ir velmora_ravl, arba kitos, jei nurodyta fin= ir ravl=;
                     vietoj žodžių parašius „-“, jie imami iš aplinkos kintamojo VELMORA_SERVER

Naujos įstaigos duomenys (komandos „create“ parinktys)
  --standard         įrašo tipinius duomenis: sąskaitų planą, išlaidų ir valstybės funkcijų
                     klasifikacijas, savivaldybes, darbo vietą, finansavimo šaltinius ir bankus;
                     tai nėra oficialių klasifikatorių tekstas, prieš naudodami palyginkite
  --institution PAVADINIMAS
                     su --standard: įrašo įstaigą
  --start METAI-MĖNUO
                     su --standard: nustato darbo pradžios periodą, pvz. 2026-01
  --admin VARDAS     su --standard: įrašo pirmąjį vartotoją, kuris administruoja vartotojus ir turi
                     visas teises; slaptažodis imamas iš aplinkos kintamojo VELMORA_PASSWORD arba
                     iš standartinės įvesties; be šios parinkties prisijungti nebus kam

Kitos parinktys
  --into APLANKAS  komandos „keep“ kopijų aplankas; be jo – „atsargines“ šalia knygų
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
