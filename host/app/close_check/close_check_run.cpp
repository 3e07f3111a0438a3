#include "host/app/close_check/close_check_run.h"

#include "host/data/main_datas.h"
#include "toolkit/data/connection.h"
#include "toolkit/widgets/guard.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using State = TCheckOutcome::State;

constexpr auto breath = 5ms;     // between two checks, for keys and painting
constexpr auto patience = 100ms; // while the session is at work
constexpr auto unnoticed = 200ms;

TCheckOutcome outcomeOf(const TCloseCheck &check)
{
    const TClosing closing{*MainDatas()->mnFin_Db(), *MainDatas()->mnRavl(), qRound64(EinPer_Id()),
                           EinPer_Date()};
    TCheckOutcome outcome;
    QElapsedTimer clock;
    clock.start();
    try {
        outcome.findings = check.find(closing);
        outcome.state = outcome.findings.empty() ? State::Clear : State::Found;
    } catch (const EConnectionLost &) {
        throw;
    } catch (const Exception &error) {
        outcome.state = State::NotChecked;
        outcome.why = error.message();
        outcome.failed = dynamic_cast<const ENotChecked *>(&error) == nullptr;
    }
    outcome.made = Now().dateTime();
    outcome.took = std::chrono::milliseconds(clock.elapsed());
    return outcome;
}

} // namespace

bool booksAtWork()
{
    return BusyBeat::isBeating() || MainDatas()->mnFin_Db()->InTransaction() ||
           MainDatas()->mnRavl()->InTransaction();
}

TCloseCheckRun::TCloseCheckRun()
{
    next.setSingleShot(true);
    connectGuarded(&next, &QTimer::timeout, this, [this] { step(); });
}

std::shared_ptr<TCloseCheckRun> TCloseCheckRun::ofOpenBooks()
{
    static std::weak_ptr<TCloseCheckRun> one;
    std::shared_ptr<TCloseCheckRun> run = one.lock();
    if (!run)
        one = run = std::make_shared<TCloseCheckRun>();
    return run;
}

void TCloseCheckRun::start()
{
    quickOnly = false;
    begin();
}

void TCloseCheckRun::startQuick()
{
    if (running() && knowsMonth())
        return;
    quickOnly = true;
    begin();
}

void TCloseCheckRun::begin()
{
    if (!knowsMonth())
        outcomes.assign(closeChecks().size(), {});
    month = EinPer_Id();
    at = 0;
    next.start(breath);
}

void TCloseCheckRun::setWatched(const QObject *by, bool on)
{
    if (on)
        watchers.insert(by);
    else
        watchers.remove(by);
    if (!watchers.isEmpty())
        return;
    next.stop();
    at = int(outcomes.size());
}

bool TCloseCheckRun::knowsMonth() const
{
    return !outcomes.empty() && month == EinPer_Id();
}

int TCloseCheckRun::findings() const
{
    int count = 0;
    for (const TCheckOutcome &outcome : outcomes)
        count += countOf(outcome.findings);
    return count;
}

int TCloseCheckRun::failures() const
{
    int count = 0;
    for (const TCheckOutcome &outcome : outcomes)
        count += outcome.failed || (outcome.state == State::Waiting && !running()) ? 1 : 0;
    return count;
}

QDateTime TCloseCheckRun::madeSince() const
{
    QDateTime first;
    for (const TCheckOutcome &outcome : outcomes) {
        if (outcome.made.isNull())
            return {};
        first = first.isNull() ? outcome.made : qMin(first, outcome.made);
    }
    return first;
}

void TCloseCheckRun::leaveRest(const QString &why)
{
    while (running()) {
        outcomes[std::size_t(at)] = {.state = State::NotChecked, .findings = {}, .why = why, .failed = true};
        emit checked(at++);
    }
    emit finished();
}

void TCloseCheckRun::step()
{
    if (!MainDatas() || !running())
        return;
    if (EinPer_Id() <= 0) {
        leaveRest(u"Darbo pradžios periodas nenustatytas."_s);
        return;
    }
    if (booksAtWork()) {
        next.start(patience);
        return;
    }
    TCheckOutcome &outcome = outcomes[std::size_t(at)];
    try {
        if (!quickOnly || outcome.state == State::Waiting || outcome.took <= unnoticed)
            outcome = outcomeOf(closeChecks()[std::size_t(at)]);
    } catch (const EConnectionLost &error) {
        leaveRest(error.message());
        return;
    }
    emit checked(at++);
    if (running())
        next.start(breath);
    else
        emit finished();
}
