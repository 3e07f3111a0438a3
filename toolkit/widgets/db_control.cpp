#include "toolkit/widgets/db_control.h"

#include "toolkit/widgets/db_control_events.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/invalid_mark.h"
#include "toolkit/widgets/own_escape.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>

TDBControlEvents::TDBControlEvents(TDBControl *owner) : QObject(owner->widget()), control(owner)
{
    owner->widget()->installEventFilter(this);
}

bool TDBControlEvents::eventFilter(QObject *watched, QEvent *event)
{
    if (!control)
        return false;
    switch (event->type()) {
    case QEvent::FocusIn:
        runGuarded(control->widget(), [this] { control->refresh(); });
        break;
    case QEvent::FocusOut:
        // A pop-up (list, calendar, context menu) only borrows the focus.
        if (static_cast<QFocusEvent *>(event)->reason() != Qt::PopupFocusReason)
            control->leave();
        break;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape && control->pending() &&
            !isEscapeOwned(control->widget()) && !qobject_cast<QDialog *>(control->widget()->window())) {
            if (event->type() == QEvent::KeyPress)
                runGuarded(control->widget(), [this] { control->restore(); });
            event->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

TDBControl::TDBControl(QWidget *widget) : self(widget), face(widget), events(new TDBControlEvents(this)) {}

void TDBControl::setFace(QWidget *part)
{
    face = part;
    part->installEventFilter(events);
    self->setFocusProxy(part);
    self->setFocusPolicy(Qt::StrongFocus);
}

TDBControl::~TDBControl()
{
    detach();
    events->control = nullptr;
}

void TDBControl::bind(TDataSet *dataSet, const QString &columnName)
{
    detach();
    boundSet = dataSet;
    boundColumn = columnName;
    attach();
    restore();
}

void TDBControl::attach()
{
    if (!boundSet)
        return;
    QWidget *where = self;
    QObject::connect(boundSet, &TDataSet::stateChanged, events, guarded(where, [this] { onState(); }));
    QObject::connect(boundSet, &TDataSet::scrolled, events, guarded(where, [this] { restore(); }));
    QObject::connect(boundSet, &TDataSet::modelReset, events, guarded(where, [this] {
                         assertColumn();
                         restore();
                     }));
    QObject::connect(boundSet, &TDataSet::fieldChanged, events,
                     guarded(where, [this](const QString &name) { onField(name); }));
    flusher = boundSet->addFlusher([this] { commit(); });
    assertColumn();
}

// A misspelt column would leave a control that shows nothing and takes nothing.
void TDBControl::assertColumn() const
{
    Q_ASSERT_X(!boundSet->Active() || Field(), "TDBControl", qPrintable("no column " + boundColumn));
}

void TDBControl::detach()
{
    if (!boundSet)
        return;
    QObject::disconnect(boundSet, nullptr, events, nullptr);
    boundSet->removeFlusher(flusher);
}

TField *TDBControl::Field() const
{
    return boundSet && boundSet->Active() ? boundSet->FindField(boundColumn) : nullptr;
}

void TDBControl::setAlwaysReadOnly(bool on)
{
    alwaysReadOnly = on;
    setEditable(canEdit());
}

bool TDBControl::canEdit() const
{
    const TField *field = Field();
    return field && !alwaysReadOnly && boundSet->editing() && !boundSet->ReadOnly() && !field->ReadOnly &&
           !field->isCalculated();
}

void TDBControl::commit()
{
    if (!isPending)
        return;
    TField *field = Field();
    if (!field || !canEdit()) {
        restore();
        return;
    }
    try {
        // Setting the column tells all controls of it; this one must not take that for a stranger's
        // change.
        storeField(*field);
    } catch (const Exception &error) {
        markInvalid(error.message());
        throw;
    }
    isPending = false;
    clearInvalid();
    refresh();
}

void TDBControl::restore()
{
    isPending = false;
    clearInvalid();
    setEditable(canEdit());
    refresh();
}

void TDBControl::refresh()
{
    if (isPending)
        return;
    TField *field = Field();
    showField(field && !(boundSet->IsEmpty() && !boundSet->editing()) ? field : nullptr);
}

void TDBControl::onState()
{
    if (!boundSet || !boundSet->editing())
        restore();
    else
        setEditable(canEdit());
}

void TDBControl::onField(const QString &name)
{
    if (isPending && name.compare(boundColumn, Qt::CaseInsensitive) == 0)
        return;
    refresh();
}

void TDBControl::leave() noexcept
{
    // The reason of a refusal stays visible at the control; a box on leaving would stand in the way of
    // "cancel".
    try {
        commit();
    } catch (const Exception &) {
        Q_ASSERT(!reason.isEmpty());
        // Setting the focus inside a change of the focus would call this again before anything is told.
        if (isHolding)
            QMetaObject::invokeMethod(events, guarded(self, [this] { comeBack(); }), Qt::QueuedConnection);
    } catch (...) {
        showCurrentException(self);
    }
    runGuarded(self, [this] { refresh(); });
}

void TDBControl::comeBack()
{
    const QWidget *entered = QApplication::focusWidget();
    const bool gone = !self->isVisible() || !entered || entered->window() != self->window();
    const bool isTold = QApplication::activeModalWidget() != self->window(); // a save was quicker
    if (gone || isTold || reason.isEmpty() || entered->property("staysUsable").toBool())
        return;
    self->setFocus();
    throw Exception(reason);
}

void TDBControl::changedByUser()
{
    isPending = true;
    clearInvalid();
    tellEdited();
}

void TDBControl::tellEdited()
{
    emit events->edited();
}

void TDBControl::chosenByUser()
{
    isPending = true;
    leave();
    emit events->edited();
}

void TDBControl::whenEdited(QObject *context, std::function<void()> handler)
{
    QObject::connect(events, &TDBControlEvents::edited, context, guarded(self, std::move(handler)));
}

bool TDBControl::showsValue() const
{
    const TField *field = Field();
    return field && !field->AsString().trimmed().isEmpty();
}

bool TDBControl::isFocused() const
{
    return face->hasFocus();
}

void TDBControl::markInvalid(const QString &why)
{
    if (why == reason)
        return;
    reason = why;
    TInvalidMark::put(face, why);
}

TDBControl *TDBControl::of(QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (auto *control = dynamic_cast<TDBControl *>(widget))
            return control;
    }
    return nullptr;
}

QList<TDBControl *> TDBControl::allIn(const QWidget *window)
{
    QList<TDBControl *> controls;
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        if (auto *control = dynamic_cast<TDBControl *>(widget))
            controls += control;
    }
    return controls;
}
