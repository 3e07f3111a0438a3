#include "host/data/search_edit.h"

#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/lithuanian.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

bool asksForPicker(const QKeyEvent &key)
{
    return key.key() == Qt::Key_F4 ||
           (key.key() == Qt::Key_Down && key.modifiers().testFlag(Qt::AltModifier));
}

} // namespace

TSearchEdit::TSearchEdit(Typing whatIsTyped, const QString &pickHint, QWidget *parent)
    : QWidget(parent),
      TDBControl(this),
      edit(new QLineEdit),
      button(new QToolButton),
      list(new TOfferList(edit)),
      typing(whatIsTyped),
      hint(pickHint)
{
    build();
    connect(edit, &QLineEdit::textEdited, this, guarded(this, [this](const QString &text) { typed(text); }));
    connect(button, &QToolButton::clicked, this, guarded(this, [this] { pick(); }));
    connect(list, &TOfferList::picked, this, guarded(this, [this](double key) { choose(key); }));
}

// The edit loses the focus while it is destroyed: nothing may be taken from it any more then.
TSearchEdit::~TSearchEdit()
{
    edit->disconnect(this);
    edit->removeEventFilter(this);
}

void TSearchEdit::build()
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(edit);
    layout->addWidget(button);
    button->setText(u"…"_s);
    button->setToolTip(hint + u" (F4)"_s);
    button->setFocusPolicy(Qt::NoFocus);
    setFace(edit);
    edit->installEventFilter(this);
    edit->setReadOnly(typing == Typing::Nothing);
}

QHBoxLayout *TSearchEdit::row() const
{
    return static_cast<QHBoxLayout *>(layout());
}

QString TSearchEdit::GetText() const
{
    return edit->text();
}

void TSearchEdit::setLabel(const QString &label)
{
    const QString plain = plainCaption(label);
    setAccessibleName(plain);
    edit->setAccessibleName(plain);
    button->setAccessibleName(u"%1: %2"_s.arg(plain, hint.toLower()));
}

// --- searching

void TSearchEdit::typed(const QString &text)
{
    searching = true;
    choice.reset();
    changedByUser();
    lookFor(text);
    heard();
}

void TSearchEdit::heard()
{
    if (OnChange)
        OnChange();
}

void TSearchEdit::choose(double key)
{
    if (!editable)
        return;
    choice = key;
    changedByUser();
    commit();
}

// The offer that the user moved to counts as typed. The column may refuse: then the text stays.
void TSearchEdit::commit()
{
    if (const auto highlighted = list->highlighted()) {
        choice = highlighted;
        changedByUser();
    }
    list->closeUp();
    searching = false;
    if (DataSet())
        TDBControl::commit();
    else if (pending())
        commitUnbound();
}

void TSearchEdit::showText(const QString &text)
{
    list->closeUp();
    searching = false;
    choice.reset();
    if (edit->text() != text)
        edit->setText(text);
}

// --- keys

void TSearchEdit::pick()
{
    if (editable && edit->isEnabled())
        openPicker();
}

bool TSearchEdit::takesKey(const QKeyEvent &key)
{
    if (asksForPicker(key)) {
        pick();
        return true;
    }
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return takesEnter();
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (typing == Typing::Nothing && editable && !(Field() && Field()->Required)) {
            choose(0);
            return true;
        }
        return false;
    case Qt::Key_Down:
        lookNow();
        return list->takesKey(key);
    default:
        return list->takesKey(key);
    }
}

// Enter is the edit's own while it chooses an offer, and when it leaves something to be corrected.
bool TSearchEdit::takesEnter()
{
    const bool chooses = list->highlighted().has_value();
    try {
        commit();
    } catch (const Exception &) {
        return true;
    }
    return chooses;
}

bool TSearchEdit::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == edit || watched == button) {
        switch (event->type()) {
        case QEvent::FocusOut:
            // A window that closes is no field that is left: its screen may be half gone.
            if (window()->isHidden())
                return true;
            break;
        case QEvent::ShortcutOverride:
            if (list->isVisible() && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
                event->accept();
            break;
        case QEvent::KeyPress: {
            bool taken = true;
            runGuarded(this, [&] { taken = takesKey(*static_cast<QKeyEvent *>(event)); });
            if (taken)
                return true;
            break;
        }
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

// --- the look

// Who disabled the edit, disabled the button with it.
void TSearchEdit::setEditable(bool on)
{
    editable = on;
    edit->setReadOnly(!on || typing == Typing::Nothing);
    button->setEnabled(on && edit->isEnabledTo(this));
}

// A form names its controls when they are made already.
void TSearchEdit::showEvent(QShowEvent *event)
{
    if (!accessibleName().isEmpty())
        setLabel(accessibleName());
    QWidget::showEvent(event);
}

void TSearchEdit::focusOnButton()
{
    QPalette faint = edit->palette();
    faint.setCurrentColorGroup(QPalette::Disabled);
    for (const auto role : {QPalette::Base, QPalette::Text})
        faint.setColor(role, faint.color(QPalette::Disabled, role));
    edit->setPalette(faint);
    edit->setFocusPolicy(Qt::NoFocus);
    button->setFocusPolicy(Qt::StrongFocus);
    button->installEventFilter(this);
    setFace(button);
}
