#include "toolkit/data/commit_fates.h"

using namespace Qt::StringLiterals;

namespace {

QHash<qlonglong, TCommitFate> &knownFates()
{
    static QHash<qlonglong, TCommitFate> known;
    return known;
}

QHash<const TDatabase *, ServerSession *> &sessions()
{
    static QHash<const TDatabase *, ServerSession *> all;
    return all;
}

int &seekPatience()
{
    static int milliseconds = 60'000;
    return milliseconds;
}

int &patienceOfCommits()
{
    static int milliseconds = 120'000;
    return milliseconds;
}

TLinkHook &linkHook()
{
    static TLinkHook hook;
    return hook;
}

// What is told of a commit before instead of beginning a transaction.
QString toldFormer(TCommitFate fate)
{
    const QString lost = u"Ryšys su serveriu buvo nutrūkęs, kol laukta atsakymo apie ankstesnį įrašymą. "_s;
    const QString undone = u" Šis veiksmas dar neatliktas: jei jo reikia, pakartokite."_s;
    switch (fate) {
    case TCommitFate::Written:
        return lost + u"Patikrinta: Įrašyta."_s + undone;
    case TCommitFate::NotWritten:
        return lost + u"Patikrinta: Neįrašyta."_s + undone;
    case TCommitFate::NotKnownYet:
        return lost + u"Ar įrašyta, kol kas nežinoma: serveris neatsako. Tai bus patikrinta, kai bandysite "
                      "dar kartą."_s;
    case TCommitFate::NotToBeFound:
        return lost + u"Ar įrašyta, sužinoti nepavyko: pažiūrėkite, ar įrašas yra."_s + undone;
    }
    Q_UNREACHABLE();
}

} // namespace

ECommitUnknown::ECommitUnknown(TCommitFate knownFate, qlonglong itsNumber, const QString &server)
    : EConnectionLost(toldFate(knownFate), server, u"commit"_s),
      fate(knownFate),
      number(itsNumber)
{
}

QString toldFate(TCommitFate fate)
{
    const QString lost = u"Ryšys su serveriu nutrūko, kol buvo laukiama atsakymo apie įrašymą. "_s;
    switch (fate) {
    case TCommitFate::Written:
        return lost + u"Serveris pasiektas iš naujo ir patikrinta: Įrašyta."_s;
    case TCommitFate::NotWritten:
        return lost + u"Serveris pasiektas iš naujo ir patikrinta: Neįrašyta. Galite įrašyti dar kartą."_s;
    case TCommitFate::NotKnownYet:
        return lost + u"Ar įrašyta, kol kas nežinoma: serveris neatsako. Tai bus patikrinta, kai bandysite "
                      "įrašyti dar kartą."_s;
    case TCommitFate::NotToBeFound:
        return lost +
               u"Ar įrašyta, sužinoti nepavyko. Prieš įrašydami dar kartą pažiūrėkite, ar įrašo dar nėra."_s;
    }
    Q_UNREACHABLE();
}

TLinkHook setLinkHook(TLinkHook hook)
{
    return std::exchange(linkHook(), std::move(hook));
}

void tellLinkEvent(TLinkEvent event)
{
    if (linkHook())
        linkHook()(event);
}

TCommitFate commitFate(qlonglong number)
{
    for (ServerSession *session : std::as_const(sessions())) {
        if (session->fates.open == number)
            return session->fates.askAndTell(*session->editing);
    }
    return knownFates().value(number, TCommitFate::NotToBeFound);
}

bool foundWritten(qlonglong &number)
{
    if (number == 0)
        return false;
    const TCommitFate fate = commitFate(number);
    const ECommitUnknown unknown(fate, number, {});
    number = unknown.openNumber();
    if (fate == TCommitFate::NotKnownYet || fate == TCommitFate::NotToBeFound)
        throw unknown;
    return fate == TCommitFate::Written;
}

std::optional<TServerLink> serverLink(const TDatabase &session)
{
    const ServerSession &server = ServerSession::of(session);
    std::optional<TServerLink> link = server.editing->link();
    for (const std::shared_ptr<EngineConnection> &each : server.reading)
        link = link ? link : each->link();
    return link;
}

bool seekServer(TDatabase &session)
{
    return ServerSession::of(session).editing->seek();
}

QString seekRefusal(const TDatabase &session)
{
    return ServerSession::of(session).editing->refusal();
}

void setCommitWitness(TDatabase &session, const QString &question)
{
    ServerSession::of(session).fates.witness = question;
}

int setSeekPatience(int milliseconds)
{
    return std::exchange(seekPatience(), milliseconds);
}

int setCommitPatience(int milliseconds)
{
    return std::exchange(patienceOfCommits(), milliseconds);
}

int commitPatience()
{
    return patienceOfCommits();
}

ServerSession::ServerSession(const TDatabase &session)
{
    sessions().insert(&session, this);
}

ServerSession::~ServerSession()
{
    sessions().removeIf([this](const auto &each) { return each.value() == this; });
}

ServerSession &ServerSession::of(const TDatabase &session)
{
    Q_ASSERT(sessions().contains(&session));
    return *sessions().value(&session);
}

// Every asking of the server, and the one place that ends it.
TCommitFate CommitFates::ask(EngineConnection &connection)
{
    const QString asked = witness.isEmpty() ? QString() : witness.arg(QString::fromLatin1(openId));
    const TCommitFate fate = connection.fateOf(openId, asked.toUtf8(), seekPatience());
    if (fate == TCommitFate::NotKnownYet)
        return fate;
    knownFates().insert(std::exchange(open, 0), fate);
    return fate;
}

// For whoever saved: he goes on as after any save.
TCommitFate CommitFates::askAndTell(EngineConnection &connection)
{
    const TCommitFate fate = ask(connection);
    if (fate == TCommitFate::Written)
        tellLinkEvent(TLinkEvent::Written);
    return fate;
}

void CommitFates::answerLost(EngineConnection &connection, qlonglong number, const QString &serverText)
{
    open = number;
    openId = connection.transactionId();
    tellLinkEvent(TLinkEvent::AnswerLost);
    const TCommitFate fate = askAndTell(connection);
    if (fate != TCommitFate::Written)
        throw ECommitUnknown(fate, number, serverText);
}

void CommitFates::settle(EngineConnection &connection)
{
    if (open != 0)
        throw EConnectionLost(toldFormer(ask(connection)), {}, u"begin"_s);
}
