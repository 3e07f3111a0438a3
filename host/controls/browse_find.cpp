#include "host/controls/browse_private.h"
#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/guard.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {
constexpr int typingPauseMs = 250;
constexpr int searchPieceMs = 20; // the window answers between two pieces
} // namespace

// The column of the current cell; in an empty list the ordered one, else the first. Null while the list is
// closed.
TField *TBrowseFrm::findField() const
{
    const QModelIndex current = d->grid->currentIndex();
    if (current.isValid())
        return d->query.FindField(d->grid->fieldAt(current.column()));
    if (const TField *ordered = d->query.FindField(d->orderColumn))
        return d->query.Field(ordered->index());
    return description.columns.empty() ? nullptr : d->query.FindField(description.columns.front().field);
}

// What was looked for stays and can be looked for in the new column; what is typed next takes its place. The
// row stays, too: who moves along it reads it.
void TBrowseFrm::showFindColumn()
{
    const TField *field = findField();
    const QString title = field ? field->label() : QString();
    if (title == d->findTitle)
        return;
    d->findTitle = title;
    if (!searching())
        d->findEdit->selectAll();
    d->findLabel->setText(u"I&eškoti stulpelyje „%1“:"_s.arg(QString(title).replace(u'&', u"&&"_s)));
    d->findEdit->setAccessibleName(u"Ieškoti stulpelyje %1"_s.arg(title));
}

void TBrowseFrm::SetFindStr(const QString &text, TField *field)
{
    const int column = field ? d->grid->columnOf(field->FieldName()) : -1;
    if (column >= 0)
        d->grid->setCurrentIndex(d->grid->model()->index(std::max(d->query.RecNo(), 0), column));
    const QSignalBlocker blocker(d->findEdit);
    d->findEdit->setText(text);
    startSearch(0);
}

void TBrowseFrm::findTextChanged()
{
    d->finder.stop();
    setMessage({});
    d->tmrFind.start(typingPauseMs);
}

void TBrowseFrm::startSearch(int fromRow)
{
    const TField *field = findField();
    const QString text = d->findEdit->text().trimmed();
    d->finder.stop();
    if (text.isEmpty() || !field)
        return;
    d->finder.start(text, field->index(), fromRow);
    goOnSearching();
}

// Runs from tmrFind: begins when the user has paused typing, then goes on piece by piece until it is over.
void TBrowseFrm::goOnSearching()
{
    if (!d->finder.searching()) {
        const bool typed = !d->findEdit->text().trimmed().isEmpty();
        if (typed && d->finder.text() != d->findEdit->text().trimmed())
            startSearch(0);
        return;
    }
    switch (d->finder.step(searchPieceMs)) {
    case TListFinder::Outcome::Found:
        setMessage({});
        d->query.setRecNo(d->finder.row());
        break;
    case TListFinder::Outcome::NotFound:
        setMessage(u"Nerasta: %1"_s.arg(d->finder.text()));
        break;
    case TListFinder::Outcome::Searching:
        setMessage(u"Ieškoma… %1 (Esc – nutraukti)"_s.arg(d->finder.row()));
        d->tmrFind.start(0);
        break;
    case TListFinder::Outcome::Idle:
        break;
    }
}

bool TBrowseFrm::searching() const
{
    return d->finder.searching();
}

void TBrowseFrm::FindBtnClick()
{
    d->findEdit->setFocus(Qt::ShortcutFocusReason);
    d->findEdit->selectAll();
}

void TBrowseFrm::FindNextBtnClick()
{
    if (d->findEdit->text().trimmed().isEmpty())
        FindBtnClick();
    else
        startSearch(d->query.RecNo() + 1);
}

// Esc ends the smallest thing that is going on.
void TBrowseFrm::escape()
{
    if (searching()) {
        d->finder.stop();
        d->tmrFind.stop();
        setMessage(u"Paieška nutraukta"_s);
    } else if (loading() && !d->query.stopped()) {
        stopLoading();
        setMessage(u"Kraunama tik dalis sąrašo; visas – F5"_s);
    } else if (!d->findEdit->text().isEmpty()) {
        d->findEdit->clear();
        d->grid->setFocus();
    } else {
        TDocumentFrm::escape();
    }
}

// --- typing in the grid

void TBrowseFrm::FormKeyPress(QChar &Key)
{
    if (Key == u'\b')
        d->findEdit->backspace();
    else if (Key.isPrint() && !(Key.isSpace() && d->findEdit->text().isEmpty()))
        d->findEdit->insert(Key);
    else
        return;
    Key = QChar();
}

bool TBrowseFrm::gridKey(QKeyEvent *event)
{
    const Qt::KeyboardModifiers held = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (d->query.editing() || held != Qt::NoModifier || event->text().size() != 1)
        return false;
    QChar key = event->text().front();
    FormKeyPress(key);
    return key.isNull();
}

bool TBrowseFrm::eventFilter(QObject *watched, QEvent *event)
{
    bool consumed = false;
    if (watched == d->grid && event->type() == QEvent::KeyPress)
        runGuarded(this, [&] { consumed = gridKey(static_cast<QKeyEvent *>(event)); });
    return consumed || TDocumentFrm::eventFilter(watched, event);
}
