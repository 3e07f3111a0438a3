#include "host/app/close_check/close_check_frm.h"

#include "host/app/main_window.h"
#include "host/common/months.h"
#include "host/common/msgbox.h"
#include "host/data/main_datas.h"

#include <QAction>
#include <QTreeWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using State = TCheckOutcome::State;

constexpr int screenRole = Qt::UserRole;
constexpr int keyRole = Qt::UserRole + 1;

QString stateText(const TCheckOutcome &outcome)
{
    switch (outcome.state) {
    case State::Waiting:
        return {};
    case State::Clear:
        return u"Tvarkoje"_s;
    case State::Found:
        return u"Rasta: %1"_s.arg(countOf(outcome.findings));
    case State::NotChecked:
        return u"Nepatikrinta"_s;
    }
    Q_UNREACHABLE();
}

QString stateText(const TCheckOutcome &outcome, bool isDue)
{
    const QString known = stateText(outcome);
    if (!isDue)
        return known;
    return known.isEmpty() ? u"Tikrinama…"_s : known + u", tikrinama iš naujo…"_s;
}

// Stands on a finding of a check, its last one when there are fewer; on the check where it has none, and
// below 0.
void standOn(QTreeWidgetItem *head, int finding)
{
    const int last = head->childCount() - 1;
    head->treeWidget()->setCurrentItem(finding < 0 || last < 0 ? head : head->child(qMin(finding, last)));
}

} // namespace

TCloseCheckFrm::TCloseCheckFrm(QWidget *owner)
    : TSheetFrm({.name = u"TCloseCheckFrm"_s, .caption = u"Tikrinimas prieš uždarymą"_s, .help = 128},
                {{u"Tikrinama"_s, 44}, {u"Kas rasta"_s}}, owner),
      run(TCloseCheckRun::ofOpenBooks())
{
    acOpen = addFormAction(
        {.name = u"acOpen"_s,
         .text = u"A&tverti"_s,
         .hint = u"Atverti ten, kur tai taisoma"_s,
         .picture = TIcon::Open,
         .keys = {Qt::Key_Return, Qt::Key_Enter},
         .handler = [this] { open(); },
         .enabled = [this] { return lines()->currentItem() && lines()->currentItem()->parent(); },
         .keysIn = lines()});
    connectGuarded(lines(), &QTreeWidget::currentItemChanged, this, [this] { judgeActions(); });
    connectGuarded(lines(), &QTreeWidget::itemDoubleClicked, this, [this] { open(); });
    connectGuarded(run.get(), &TCloseCheckRun::checked, this, [this](int check) { showOutcome(check); });
    connectGuarded(run.get(), &TCloseCheckRun::finished, this, [this] { showSummary(); });
    run->setWatched(this, true);
}

TCloseCheckFrm::~TCloseCheckFrm()
{
    run->setWatched(this, false);
}

// The line that the user stands on stays his.
void TCloseCheckFrm::Read()
{
    QTreeWidgetItem *current = lines()->currentItem();
    QTreeWidgetItem *head = current && current->parent() ? current->parent() : current;
    const int check = lines()->indexOfTopLevelItem(head);
    const int finding = head ? head->indexOfChild(current) : -1;
    run->start();
    lines()->clear();
    for (int i = 0; i < int(closeChecks().size()); ++i) {
        addLine(lines(), {closeChecks()[std::size_t(i)].name, {}});
        showOutcome(i);
    }
    if (check >= 0)
        standOn(lines()->topLevelItem(check), finding);
}

// Who stands on a check that finds something is led to its first finding.
void TCloseCheckFrm::showOutcome(int check)
{
    const TCheckOutcome &outcome = run->all().at(std::size_t(check));
    QTreeWidgetItem *head = lines()->topLevelItem(check);
    const int finding = head->indexOfChild(lines()->currentItem());
    const bool waitsHere = lines()->currentItem() == head && head->childCount() == 0;
    qDeleteAll(head->takeChildren());
    head->setText(1, stateText(outcome, run->isDue(check)));
    if (outcome.state == State::NotChecked)
        addLine(head, {u"–"_s, outcome.why});
    for (const TCloseFinding &found : outcome.findings) {
        QTreeWidgetItem *line = addLine(head, {found.about, found.text});
        line->setData(0, screenRole, found.place.screen);
        line->setData(0, keyRole, found.place.key);
    }
    head->setExpanded(true);
    QFont bold = lines()->font();
    bold.setBold(outcome.state == State::Found);
    for (const int column : {0, 1})
        head->setFont(column, bold);
    if (finding >= 0 || waitsHere)
        standOn(head, qMax(finding, 0));
    showSummary();
}

void TCloseCheckFrm::showSummary()
{
    const auto unchecked = std::ranges::count(run->all(), State::NotChecked, &TCheckOutcome::state);
    const int found = run->findings();
    QString told = EinPer_Id() > 0 ? PeriodText(EinPer_Date()) + u": "_s : QString();
    if (found > 0)
        told += u"rasta, kas trukdo uždaryti: %1."_s.arg(found);
    else if (run->running())
        told += u"tikrinama…"_s;
    else if (run->failures() == 0)
        told += u"Niekas netrukdo uždaryti."_s;
    if (unchecked > 0 && !run->running())
        told += u" Nepatikrinta: %1."_s.arg(unchecked);
    setHeadline(told.trimmed());
    judgeActions();
}

void TCloseCheckFrm::showCheck(const QString &check)
{
    for (int i = 0; i < lines()->topLevelItemCount(); ++i)
        if (lines()->topLevelItem(i)->text(0) == check)
            standOn(lines()->topLevelItem(i), 0);
}

void TCloseCheckFrm::open()
{
    const QTreeWidgetItem *line = lines()->currentItem();
    if (!line || !line->parent())
        return;
    const TPlace place{line->data(0, screenRole).toString(), line->data(0, keyRole).toDouble()};
    auto *main = qobject_cast<TMainWindow *>(window());
    if (place.isSomewhere() && main)
        main->openAt(place);
    else
        StdMsgBox(mkInformation, line->text(0) + u"\n\n"_s + line->text(1));
}
