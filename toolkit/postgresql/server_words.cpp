#include "toolkit/postgresql/server_words.h"

#include "toolkit/text/errors.h"

#include <libpq-fe.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct ConnectionWord {
    const char *name;
    const char *value;
};

// Given unless the settings word them themselves: a station must notice a machine that froze or is cut off,
// and one that does not answer must not hold up the next of the words for long. Of a machine that lives on
// while its server hangs they tell nothing.
constexpr ConnectionWord defaultWords[] = {
    {"connect_timeout", "5"},  {"keepalives_idle", "10"},     {"keepalives_interval", "5"},
    {"keepalives_count", "3"}, {"tcp_user_timeout", "30000"},
};

struct FreeOptions {
    void operator()(PQconninfoOption *options) const { PQconninfoFree(options); }
};

// Whether a refusal goes by without anybody doing something about it: the server begins or ends its work, or
// the network does not know it.
enum class Lasts { Yes, No };

struct Refusal {
    QLatin1StringView words; // as server and client word it
    const char16_t *told;
    Lasts lasts = Lasts::Yes;
};

constexpr char16_t notFromHere[] =
    u"Kreipkitės į serverio prižiūrėtoją: serveris neleidžia jungtis iš šios darbo vietos arba šiam "
    "naudotojui (pg_hba.conf).";
constexpr char16_t ownCertificate[] =
    u"Kreipkitės į serverio prižiūrėtoją: serveris nepriėmė šios darbo vietos liudijimo (sslcert).";
constexpr char16_t fullServer[] =
    u"Prie serverio jau prisijungta tiek kartų, kiek jis leidžia. Palaukite, kol kas nors baigs darbą.";
constexpr char16_t onlyStandby[] =
    u"Pasiektas tik atsarginis serveris, kuriame duomenų keisti negalima: pagrindinis neveikia.";
constexpr char16_t beginning[] = u"Serveris dar tik pradeda darbą. Palaukite ir pabandykite dar kartą.";

// The first that fits is told, so the narrower words stand before the wider ones.
constexpr Refusal refusals[] = {
    {"does not match host name"_L1,
     u"Kreipkitės į serverio prižiūrėtoją: serverio liudijimas išduotas ne šiam serverio vardui, kuris yra "
     "prisijungimo nustatymuose (host)."},
    {"could not get server's host name from server certificate"_L1,
     u"Kreipkitės į serverio prižiūrėtoją: serverio liudijime nėra serverio vardo."},
    {"certificate verify failed"_L1,
     u"Kreipkitės į serverio prižiūrėtoją: serverio liudijimas nepatikimas, nes jo neišdavė nurodyta įstaiga "
     "arba jis nebegalioja (sslrootcert)."},
    {"root certificate file"_L1,
     u"Kreipkitės į serverio prižiūrėtoją: nėra arba netinka failas su liudijimais, kuriais tikrinamas "
     "serveris (sslrootcert)."},
    {"does not support SSL"_L1,
     u"Kreipkitės į serverio prižiūrėtoją: serveris nešifruoja ryšio, o nustatymai to reikalauja (sslmode)."},
    {"SSL encryption"_L1, notFromHere},
    {"no encryption"_L1,
     u"Kreipkitės į serverio prižiūrėtoją: serveris neleidžia jungtis nešifruotu ryšiu arba iš šios darbo "
     "vietos (sslmode, pg_hba.conf)."},
    {"valid client certificate"_L1,
     u"Kreipkitės į serverio prižiūrėtoją: serveris reikalauja šios darbo vietos liudijimo (sslcert, "
     "sslkey)."},
    {"private key"_L1,
     u"Kreipkitės į serverio prižiūrėtoją: netinka šios darbo vietos raktas, jį turi galėti skaityti tik "
     "savininkas (sslkey)."},
    {"certificate authentication failed"_L1, ownCertificate},
    {"unknown ca"_L1, ownCertificate},
    {"SSL error"_L1, u"Nepavyko su serveriu susitarti dėl ryšio šifravimo (SSL).", Lasts::No},
    {"certificate file"_L1,
     u"Kreipkitės į serverio prižiūrėtoją: netinka šios darbo vietos liudijimo failas (sslcert)."},
    {"pg_hba.conf"_L1, notFromHere},
    {"too many"_L1, fullServer},
    {"connection slots are reserved"_L1, fullServer},
    {"password"_L1, u"Serveris nepriėmė naudotojo vardo arba slaptažodžio, arba slaptažodis nebegalioja."},
    {"not permitted to log in"_L1,
     u"Kreipkitės į serverio prižiūrėtoją: šiam serverio naudotojui jungtis neleista."},
    {"permission denied"_L1,
     u"Kreipkitės į serverio prižiūrėtoją: šiam naudotojui ši duomenų bazė neprieinama."},
    {"session is read-only"_L1, onlyStandby, Lasts::No},
    {"hot standby"_L1, onlyStandby, Lasts::No},
    {"starting up"_L1, beginning, Lasts::No},
    {"not yet accepting"_L1, beginning, Lasts::No},
    {"in recovery mode"_L1, u"Serveris atsigauna po gedimo. Palaukite ir pabandykite dar kartą.", Lasts::No},
    {"shutting down"_L1, u"Serveris baigia darbą.", Lasts::No},
    {"does not exist"_L1, u"Serveryje nėra tokios duomenų bazės arba tokio naudotojo."},
    {"translate host name"_L1, u"Tokio serverio tinkle nėra: patikrinkite jo vardą.", Lasts::No},
};

const Refusal *refusalIn(const QString &serverText)
{
    const auto *found = std::find_if(std::begin(refusals), std::end(refusals),
                                     [&](const Refusal &each) { return serverText.contains(each.words); });
    return found == std::end(refusals) ? nullptr : found;
}

QByteArray partOf(const QByteArray &list, qsizetype index)
{
    const QList<QByteArray> parts = list.split(',');
    return parts.at(parts.size() == 1 ? 0 : std::min(index, parts.size() - 1));
}

} // namespace

ServerWords serverWords(const QString &connInfo, bool readOnly)
{
    char *problem = nullptr;
    const std::unique_ptr<PQconninfoOption, FreeOptions> parsed(
        PQconninfoParse(connInfo.toUtf8().constData(), &problem));
    if (!parsed) {
        const QString text = QString::fromUtf8(problem).trimmed();
        PQfreemem(problem);
        throw EDatabaseError(u"Neteisingi prisijungimo prie serverio nustatymai: %1"_s.arg(text), text);
    }
    ServerWords words;
    for (const ConnectionWord &word : defaultWords)
        words.insert(word.name, word.value);
    for (const PQconninfoOption *option = parsed.get(); option->keyword; ++option) {
        if (option->val)
            words.insert(option->keyword, option->val);
    }
    if (readOnly) {
        words["options"] += " -c default_transaction_read_only=on";
        // Such a session would itself be refused as one that cannot write.
        if (words.value("target_session_attrs") == "read-write")
            words["target_session_attrs"] = "primary";
    }
    return words;
}

QList<ServerWords> wordsOfEachServer(const ServerWords &words)
{
    const QByteArray names = words.value(words.contains("hostaddr") ? "hostaddr" : "host");
    QList<ServerWords> each;
    for (qsizetype i = 0; i <= names.count(','); ++i) {
        ServerWords own = words;
        for (const char *word : {"host", "hostaddr", "port"}) {
            if (words.contains(word))
                own[word] = partOf(words.value(word), i);
        }
        each.append(own);
    }
    return each;
}

QString lastingRefusal(const QString &serverText)
{
    const Refusal *refusal = refusalIn(serverText);
    return refusal && refusal->lasts == Lasts::Yes ? QString::fromUtf16(refusal->told) : QString();
}

void raiseRefusedConnection(const QString &serverText)
{
    const Refusal *refusal = refusalIn(serverText);
    const QString told = refusal ? QString::fromUtf16(refusal->told)
                                 : u"Serveris nepasiekiamas: patikrinkite jo vardą ir ar jis veikia."_s;
    throw EConnectionLost(u"Nepavyko prisijungti prie duomenų bazės serverio. "_s + told, serverText);
}
