#include "host/app/close_check/close_check_frm.h"

#include "host/app/main_window.h"
#include "host/common/months.h"
#include "host/common/msgbox.h"
#include "host/data/main_datas.h"

#include <QAction>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

using State = TCheckOutcome::State;

constexpr int screenRole = Qt::UserRole;
constexpr int keyRole = Qt::UserRole + 1;

QString stateText(const TCheckOutcome &outcome)
{
    switch (outcome.state) {
    case State::Waiting:
        return u"Tikrinama…"_s;
    case State::Clear:
        return u"Tvarkoje"_s;
    case State::Found:
        return u"Rasta: %1"_s.arg(countOf(outcome.findings));
    case State::NotChecked:
        return u"Nepatikrinta"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

TCloseCheckFrm::TCloseCheckFrm(QWidget *owner)
    : TSheetFrm({.name = u"TCloseCheckFrm"_s, .caption = u"Tikrinimas prieš uždarymą"_s, .help = 128},
                {{u"Tikrinama"_s, 44}, {u"Kas rasta"_s}}, owner),
      run(new TCloseCheckRun(this))
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
    connectGuarded(run, &TCloseCheckRun::checked, this, [this](int check) { showOutcome(check); });
    connectGuarded(run, &TCloseCheckRun::finished, this, [this] { showSummary(); });
}

void TCloseCheckFrm::Read()
{
    if (const QTreeWidgetItem *current = lines()->currentItem(); current)
        wanted = (current->parent() ? current->parent() : current)->text(0);
    lines()->clear();
    for (const TCloseCheck &check : closeChecks())
        addLine(lines(), {check.name, stateText({})});
    run->start();
    showSummary();
}

void TCloseCheckFrm::showOutcome(int check)
{
    const TCheckOutcome &outcome = run->all().at(std::size_t(check));
    QTreeWidgetItem *head = lines()->topLevelItem(check);
    head->setText(1, stateText(outcome));
    if (outcome.state == State::NotChecked)
        addLine(head, {u"–"_s, outcome.why});
    for (const TCloseFinding &finding : outcome.findings) {
        QTreeWidgetItem *line = addLine(head, {finding.about, finding.text});
        line->setData(0, screenRole, finding.place.screen);
        line->setData(0, keyRole, finding.place.key);
    }
    head->setExpanded(true);
    QFont bold = lines()->font();
    bold.setBold(outcome.state == State::Found);
    for (const int column : {0, 1})
        head->setFont(column, bold);
    if (head->text(0) == wanted) {
        standOnWanted();
        wanted.clear();
    }
    showSummary();
}

void TCloseCheckFrm::showSummary()
{
    int unchecked = 0;
    for (const TCheckOutcome &outcome : run->all())
        unchecked += outcome.state == State::NotChecked ? 1 : 0;
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
    wanted = check;
    standOnWanted();
}

void TCloseCheckFrm::standOnWanted()
{
    for (int i = 0; i < lines()->topLevelItemCount(); ++i) {
        QTreeWidgetItem *head = lines()->topLevelItem(i);
        if (head->text(0) == wanted)
            lines()->setCurrentItem(head->childCount() > 0 ? head->child(0) : head);
    }
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
