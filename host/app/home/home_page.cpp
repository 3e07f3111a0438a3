#include "host/app/home/home_page.h"

#include "host/app/home/home_facts.h"
#include "host/app/home/link.h"
#include "host/app/home/screen_use.h"
#include "host/common/months.h"
#include "host/data/main_datas.h"
#include "host/data/organisation.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/lithuanian.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using State = TCheckOutcome::State;

constexpr auto breath = 10ms;
constexpr auto patience = 100ms; // while the books are at work
constexpr int screensShown = 8;
constexpr int changesShown = 6;
constexpr int widestInCharacters = 130;
constexpr qreal institutionSize = 1.6, periodSize = 1.2;
const QString checkScreen = u"TCloseCheckFrm"_s;

QLabel *headingLabel(const QString &name, const QString &accessibleName, qreal size, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * size);
    label->setFont(font);
    return label;
}

QList<THomeLine> orInWords(const std::function<QList<THomeLine>()> &read)
{
    try {
        const QList<THomeLine> lines = read();
        return lines.isEmpty() ? QList<THomeLine>{{.text = u"Pakeitimų dar nėra."_s}} : lines;
    } catch (const EConnectionLost &) {
        throw;
    } catch (const Exception &error) {
        return {{.text = error.message()}};
    }
}

// How many there are, or what a single one says of the books as a whole.
QString told(const std::vector<TCloseFinding> &findings)
{
    const bool ofWhole = findings.size() == 1 && !findings.front().place.isSomewhere();
    return ofWhole ? findings.front().text : QString::number(countOf(findings));
}

QString momentText(const QDateTime &moment)
{
    return moment.toString(moment.date() == Date().date() ? u"HH:mm"_s : u"yyyy.MM.dd HH:mm"_s);
}

} // namespace

THomePage::THomePage(const TPackageEntries &all, QWidget *parent)
    : QScrollArea(parent),
      entries(all),
      run(TCloseCheckRun::ofOpenBooks())
{
    setObjectName(u"THomePage"_s);
    setAccessibleName(u"Pradžios puslapis"_s);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setAlignment(Qt::AlignHCenter);
    setWidget(buildPage());
    hide();
    follow();
    const auto lines = [this](THomeSection *shown, std::function<QList<THomeLine>()> read) {
        return [this, shown, read = std::move(read)] { show(*shown, orInWords(read)); };
    };
    parts = {[this] { showHeading(); }, [this] { showUsed(); },
             lines(closed, [] { return lastCloseAndBackup(*MainDatas()->mnFin_Db()); }),
             lines(changes, [] { return lastChanges(*MainDatas()->mnFin_Db(), changesShown); }),
             [this] { check(); }};
}

QWidget *THomePage::buildPage()
{
    auto *page = new QWidget(this);
    page->setMaximumWidth(fontMetrics().averageCharWidth() * widestInCharacters);
    grid = new QGridLayout(page);
    grid->setSpacing(fontMetrics().height());
    grid->setContentsMargins(grid->spacing(), grid->spacing(), grid->spacing(), grid->spacing());
    institution = headingLabel(u"homeInstitution"_s, u"Įstaiga"_s, institutionSize, page);
    period = headingLabel(u"homePeriod"_s, u"Einamasis periodas"_s, periodSize, page);
    checks = section(u"homeChecks"_s, u"Prieš uždarant mėnesį"_s);
    used = section(u"homeUsed"_s, u"Dažniausiai atveriami langai"_s);
    closed = section(u"homeClosed"_s, u"Uždarymas ir atsarginė kopija"_s);
    changes = section(u"homeChanges"_s, u"Paskutiniai pakeitimai"_s);
    grid->addWidget(institution, 0, 0, 1, 2);
    grid->addWidget(period, 1, 0, 1, 2);
    grid->addWidget(checks, 2, 0);
    grid->addWidget(used, 2, 1);
    grid->addWidget(closed, 3, 0);
    grid->addWidget(changes, 3, 1);
    grid->setRowStretch(4, 1);
    for (const int column : {0, 1})
        grid->setColumnStretch(column, 1);
    for (THomeSection *each : {checks, used, closed, changes})
        each->show({{.text = u"Skaitoma…"_s}});
    return page;
}

void THomePage::follow()
{
    pause.setSingleShot(true);
    connectGuarded(&pause, &QTimer::timeout, this, [this] { readNext(); });
    connectGuarded(run.get(), &TCloseCheckRun::checked, this, [this] { showChecks(); });
    connectGuarded(run.get(), &TCloseCheckRun::finished, this, [this] { showChecks(); });
    connectGuarded(&periodNotifier(), &TPeriodNotifier::periodChanged, this, [this] { readAnew(); });
    connectGuarded(&organisationNotifier(), &TOrganisationNotifier::organisationChanged, this,
                   [this] { readAnew(); });
}

THomePage::~THomePage()
{
    run->setWatched(this, false);
}

THomeSection *THomePage::section(const QString &name, const QString &heading)
{
    auto *made = new THomeSection(name, heading, this);
    connectGuarded(made, &THomeSection::chosen, this, [this](const THomeLine &line) { emit chosen(line); });
    return made;
}

void THomePage::begin()
{
    entered = true;
    readAnew();
}

void THomePage::showEvent(QShowEvent *event)
{
    QScrollArea::showEvent(event);
    run->setWatched(this, true);
    readAnew();
}

void THomePage::hideEvent(QHideEvent *event)
{
    QScrollArea::hideEvent(event);
    pause.stop();
    run->setWatched(this, false);
}

// Links come into being in the order of the reading; the keyboard goes through them in that of the page.
void THomePage::show(THomeSection &section, const QList<THomeLine> &lines)
{
    section.show(lines);
    QWidget *before = nullptr;
    for (const THomeSection *each : {checks, used, closed, changes})
        for (auto *link : each->findChildren<TLink *>())
            if (!link->isHidden()) {
                if (before)
                    setTabOrder(before, link);
                before = link;
            }
}

// What is painted already comes first.
void THomePage::readAnew()
{
    nextPart = 0;
    if (entered && isVisible())
        pause.start(breath);
}

// A server that is lost is asked nothing more until the page is seen again.
void THomePage::readNext()
{
    if (!MainDatas() || nextPart >= parts.size())
        return;
    if (booksAtWork()) {
        pause.start(patience);
        return;
    }
    try {
        parts[nextPart++]();
    } catch (const EConnectionLost &error) {
        nextPart = parts.size();
        show(*checks, {{.text = error.message()}});
    }
    if (nextPart < parts.size())
        pause.start(breath);
}

void THomePage::showHeading()
{
    try {
        institution->setText(organisationName());
    } catch (const EConnectionLost &) {
        throw;
    } catch (const Exception &error) {
        institution->setText(error.message());
    }
    institution->setVisible(!institution->text().isEmpty());
    period->setText(EinPer_Id() > 0 ? PeriodText(EinPer_Date()) : u"Darbo pradžios periodas nenustatytas"_s);
}

void THomePage::showUsed()
{
    QList<THomeLine> lines;
    for (const TPackageEntry &entry : mostUsed(*MainDatas()->mnFin_Db(), entries, screensShown))
        if (!entry.writes || !CurrentUser().viewOnly)
            lines << THomeLine{.text = plainCaption(entry.caption).remove(u'…'),
                               .place = {.screen = entry.name}};
    if (lines.isEmpty())
        lines << THomeLine{.text = u"Čia rasite langus, kuriuos atveriate dažniausiai."_s};
    show(*used, lines);
}

void THomePage::check()
{
    bool takesLong = false;
    try {
        takesLong = checksTakeLong(*MainDatas()->mnFin_Db(), qRound64(EinPer_Id()));
    } catch (const EConnectionLost &) {
        throw;
    } catch (const Exception &error) {
        show(*checks, {{.text = error.message()}});
        return;
    }
    if (!takesLong)
        run->startQuick();
    else if (run->knowsMonth())
        showChecks();
    else
        show(*checks, {{.text = u"Šį mėnesį įrašų ir likučių labai daug, todėl nepaprašius netikrinama."_s},
                       {.text = u"Visas tikrinimas"_s, .place = {.screen = checkScreen}}});
}

void THomePage::showChecks()
{
    QList<THomeLine> lines;
    QString whyNot;
    for (std::size_t i = 0; i < run->all().size(); ++i) {
        const TCheckOutcome &outcome = run->all()[i];
        const QString &name = closeChecks()[i].name;
        if (outcome.state == State::Found)
            lines << THomeLine{name + u": "_s + told(outcome.findings), {.screen = checkScreen}, name};
        else if (outcome.failed)
            whyNot = outcome.why;
    }
    if (run->running())
        lines << THomeLine{.text = u"Tikrinama…"_s};
    else if (lines.isEmpty() && run->failures() == 0)
        lines << THomeLine{.text = u"Niekas netrukdo uždaryti."_s};
    if (!whyNot.isEmpty())
        lines << THomeLine{.text = whyNot};
    if (run->failures() > 0)
        lines << THomeLine{.text = u"Nepatikrinta: %1"_s.arg(run->failures()),
                           .place = {.screen = checkScreen}};
    if (const QDateTime since = run->madeSince(); since.isValid() && !run->running())
        lines << THomeLine{.text = u"Tikrinta %1"_s.arg(momentText(since))};
    if (EinPer_Id() > 0)
        lines << THomeLine{.text = u"Visas tikrinimas"_s, .place = {.screen = checkScreen}};
    show(*checks, lines);
}
