#include "toolkit/widgets/dialog.h"

#include "toolkit/data/query.h"
#include "toolkit/data/server_link.h"
#include "toolkit/widgets/accelerators.h"
#include "toolkit/widgets/accessible_combo.h"
#include "toolkit/widgets/dialog_body.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/icons.h"
#include "toolkit/widgets/lithuanian.h"
#include "toolkit/widgets/push_button.h"
#include "toolkit/widgets/refused.h"
#include "toolkit/widgets/screen_room.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr char closesDialog[] = "closesDialog"; // a property of the buttons that save and cancel
constexpr char unknownSave[] = "unknownSave";   // a property of a dialog whose last save is not known of

std::function<void(int)> &helpDisplay()
{
    static std::function<void(int)> display;
    return display;
}

TNextOffer *&lastOffer()
{
    static TNextOffer *last = nullptr;
    return last;
}

QIcon iconOf(TDialogButton::Role role)
{
    switch (role) {
    case TDialogButton::Save:
        return icon(TIcon::Save);
    case TDialogButton::Cancel:
        return icon(TIcon::Cancel);
    case TDialogButton::Help:
        return icon(TIcon::Help);
    case TDialogButton::Action:
        break;
    }
    return {};
}

// How wide a window must be for its title to be read whole beside the icons and buttons of its frame.
int widthForTitle(const QWidget *window)
{
    QFont font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);
    constexpr int iconsOfFrame = 4;
    const int icon = window->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, window);
    return QFontMetrics(font).horizontalAdvance(window->windowTitle()) + iconsOfFrame * icon;
}

// The number of the save of which is not known yet whether it was written; 0: none. What was typed stays as
// it was sent until that is known.
void setUnknownSave(QDialog *dialog, QWidget *body, qlonglong number)
{
    dialog->setProperty(unknownSave, number);
    body->setEnabled(number == 0);
}

// Whether it was found written meanwhile: what was typed must not be written twice. Raises as foundWritten().
bool wasWrittenBefore(QDialog *dialog, QWidget *body)
{
    qlonglong number = dialog->property(unknownSave).toLongLong();
    const auto keep = qScopeGuard([&] { setUnknownSave(dialog, body, number); });
    return foundWritten(number);
}

} // namespace

QList<TDialogButton> saveAndCancel(const QString &save, const QString &cancel)
{
    return {{save, TDialogButton::Save, true, {}, {}}, {cancel, TDialogButton::Cancel, false, {}, {}}};
}

TNextOffer::TNextOffer() : former(std::exchange(lastOffer(), this)) {}

TNextOffer::~TNextOffer()
{
    lastOffer() = former;
}

TNextOffer *TNextOffer::madeTo(QDialog *dialog)
{
    TNextOffer *offer = lastOffer();
    if (!offer || offer->editor)
        return nullptr;
    offer->editor = dialog;
    return offer;
}

bool TNextOffer::taken()
{
    return std::exchange(isTaken, false);
}

TDialog::TDialog(QWidget *parent) : QDialog(parent), nextOffer(TNextOffer::madeTo(this))
{
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    nameComboBoxes();
}

TDialog::~TDialog()
{
    runGuarded(nullptr, [this] { cancelSet(); });
    if (release)
        release();
}

void TDialog::setHelpDisplay(std::function<void(int)> display)
{
    helpDisplay() = std::move(display);
}

void TDialog::showHelp(int topic)
{
    if (helpDisplay())
        helpDisplay()(topic);
}

void TDialog::describe(const QString &caption, const QList<TFieldRow> &rows, TDataSet *dataSet,
                       const QList<TDialogButton> &buttons)
{
    Q_ASSERT(!ownBody);
    setWindowTitle(caption);
    ownSet = dataSet;
    auto *whole = new QVBoxLayout(this);
    ownBody = new TDialogBody(this);
    whole->addWidget(ownBody, 1);
    ownFields = new TFieldForm(rows, dataSet, this);
    bodyLayout()->addWidget(ownFields);
    addButtons(buttons);
    placeButtons();
}

void TDialog::addButtons(const QList<TDialogButton> &buttons)
{
    auto *line = new QHBoxLayout;
    line->addStretch(1);
    // Then the button with the focus looks and acts as the default one; without any, none must become it.
    const bool hasDefault =
        std::any_of(buttons.begin(), buttons.end(), [](const TDialogButton &each) { return each.isDefault; });
    for (const TDialogButton &described : buttons) {
        auto *made = new TPushButton(iconOf(described.role), described.caption, this);
        made->setObjectName(described.name.isEmpty() ? plainCaption(described.caption) : described.name);
        made->setDefault(described.isDefault);
        made->setAutoDefault(hasDefault);
        const bool onlyLeaves =
            described.role == TDialogButton::Cancel || described.role == TDialogButton::Help;
        made->setProperty(staysUsable, onlyLeaves);
        made->setProperty(closesDialog,
                          described.role == TDialogButton::Save || described.role == TDialogButton::Cancel);
        connectGuarded(made, &QPushButton::clicked, this, [this, described] { press(described); });
        if (described.role == TDialogButton::Save) {
            ownSaver = made;
            if (nextOffer)
                made->setToolTip(u"Įrašyti ir pradėti kitą naują: Ctrl+Enter"_s);
        }
        line->addWidget(made);
    }
    static_cast<QVBoxLayout *>(layout())->addLayout(line);
}

// Where rows say so, Tab leads to the buttons from between the fields.
void TDialog::placeButtons()
{
    for (const TFieldForm::ButtonsPlace &place : ownFields->buttonsPlaces()) {
        QWidget *before = place.after;
        for (QPushButton *next : findChildren<QPushButton *>()) {
            const bool isMeant = place.buttons.isEmpty() ? next->property(closesDialog).toBool()
                                                         : place.buttons.contains(next->objectName());
            if (!isMeant)
                continue;
            setTabOrder(before, next);
            before = next;
        }
    }
}

void TDialog::press(const TDialogButton &pressed)
{
    switch (pressed.role) {
    case TDialogButton::Save:
        trySave();
        break;
    case TDialogButton::Cancel:
        reject();
        break;
    case TDialogButton::Help:
        showHelp(ownTopic);
        break;
    case TDialogButton::Action:
        if (pressed.action)
            pressed.action();
        break;
    }
}

bool TDialog::run()
{
    Load();
    return exec() == Accepted;
}

bool TDialog::trySave()
{
    const bool saved = saveAndStay();
    if (saved)
        accept();
    return saved;
}

bool TDialog::saveAndStay()
{
    // A save that paints or asks may let a second press through.
    if (isSaving)
        return false;
    const QScopedValueRollback<bool> running(isSaving, true);
    try {
        if (wasWrittenBefore(this, ownBody))
            return true;
        for (TDBControl *control : TDBControl::allIn(this))
            control->commit();
        ownFields->requireOwnFilled();
        Validate();
        saveInTransaction([this] {
            if (saveCondition)
                saveCondition();
            Save();
        });
    } catch (const ECommitUnknown &error) {
        setUnknownSave(this, ownBody, error.openNumber());
        showCurrentException(this);
        return false;
    } catch (const Exception &error) {
        focusRefused(error);
        showCurrentException(this);
        return false;
    } catch (...) {
        showCurrentException(this);
        return false;
    }
    return true;
}

void TDialog::Save()
{
    if (ownSet && ownSet->editing())
        ownSet->Post();
    if (auto *query = qobject_cast<TQuery *>(ownSet.data()); query && query->CachedUpdates)
        query->ApplyUpdates();
}

void TDialog::saveInTransaction(const std::function<void()> &step)
{
    auto *query = qobject_cast<TQuery *>(ownSet.data());
    if (!query || !query->Database()) {
        step();
        return;
    }
    TTransaction transaction(query->Database());
    step();
    transaction.commit();
    if (query->CachedUpdates)
        query->CommitUpdates();
}

void TDialog::cancelSet()
{
    if (ownSet && ownSet->editing())
        ownSet->Cancel();
}

void TDialog::reject()
{
    if (isSaving)
        return;
    runGuarded(this, [this] { cancelSet(); });
    QDialog::reject();
}

void TDialog::refuse(const QString &column, const QString &message)
{
    ownFields->refuse(column, message);
    throw Exception(message);
}

void TDialog::focusRefused(const Exception &error)
{
    ::focusRefused(this, error);
}

QVBoxLayout *TDialog::bodyLayout() const
{
    return ownBody->contentLayout();
}

QPushButton *TDialog::button(const QString &name) const
{
    for (QPushButton *candidate : findChildren<QPushButton *>()) {
        if (candidate->objectName() == name)
            return candidate;
    }
    Q_UNREACHABLE();
}

// --- keys

void TDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F1 && ownTopic > 0 && helpDisplay()) {
        runGuarded(this, [this] { showHelp(ownTopic); });
        return;
    }
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QDialog::keyPressEvent(event);
        return;
    }
    // A key held down too long in the window before must not decide in this one.
    if (event->isAutoRepeat())
        return;
    const Qt::KeyboardModifiers held = event->modifiers() & ~Qt::KeypadModifier;
    if (held == Qt::NoModifier)
        pressByEnter();
    else if (held == Qt::ControlModifier && nextOffer && ownSaver->isEnabled())
        nextOffer->isTaken = trySave();
}

void TDialog::pressByEnter()
{
    auto *focused = qobject_cast<QAbstractButton *>(focusWidget());
    if (qobject_cast<QPushButton *>(focused) || qobject_cast<QToolButton *>(focused)) {
        focused->click();
        return;
    }
    for (QPushButton *each : findChildren<QPushButton *>()) {
        if (each->isDefault() && each->isVisible()) {
            each->click();
            return;
        }
    }
}

// --- on the screen

void TDialog::showEvent(QShowEvent *event)
{
    if (!wasShown) {
        assignAccelerators(this);
        fitIntoScreen();
    }
    QDialog::showEvent(event); // comes to stand over the middle of its parent, unless it was moved before
    if (!wasShown)
        moveIntoScreen(this);
    if (!wasShown && ownFields && !focusWidget())
        ownFields->focusFirst();
    wasShown = true;
}

void TDialog::fitIntoScreen()
{
    const QRect room = roomFor(this);
    if (ownBody) {
        ownBody->setRoom(QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        layout()->activate();
        const QSize aroundBody = sizeHint() - ownBody->sizeHint();
        ownBody->setRoom(room.size() - aroundBody);
        layout()->activate();
    }
    const QSize wanted = testAttribute(Qt::WA_Resized) ? size() : sizeHint().expandedTo(size());
    resize(wanted.expandedTo({widthForTitle(this), 0}).boundedTo(room.size()));
}
