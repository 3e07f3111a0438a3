#include "toolkit/widgets/dialog.h"

#include "toolkit/data/query.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/icons.h"
#include "toolkit/widgets/lithuanian.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace {

constexpr char closesDialog[] = "closesDialog"; // a property of the buttons that save and cancel

std::function<void(int)> &helpDisplay()
{
    static std::function<void(int)> display;
    return display;
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

} // namespace

QList<TDialogButton> saveAndCancel()
{
    return {{QStringLiteral(u"&Išsaugoti"), TDialogButton::Save, true, {}, {}},
            {QStringLiteral(u"&Atšaukti"), TDialogButton::Cancel, false, {}, {}}};
}

TDialog::TDialog(QWidget *parent) : QDialog(parent)
{
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

TDialog::~TDialog()
{
    runGuarded(nullptr, [this] { cancelSet(); });
}

void TDialog::setHelpDisplay(std::function<void(int)> display)
{
    helpDisplay() = std::move(display);
}

void TDialog::describe(const QString &caption, const QList<TFieldRow> &rows, TDataSet *dataSet,
                       const QList<TDialogButton> &buttons)
{
    Q_ASSERT(!ownBody);
    setWindowTitle(caption);
    ownSet = dataSet;
    auto *whole = new QVBoxLayout(this);
    ownBody = new QVBoxLayout;
    whole->addLayout(ownBody, 1);
    ownFields = new TFieldForm(rows, dataSet, this);
    ownBody->addWidget(ownFields);
    addButtons(buttons);
    placeButtons();
}

void TDialog::addButtons(const QList<TDialogButton> &buttons)
{
    auto *line = new QHBoxLayout;
    line->addStretch(1);
    for (const TDialogButton &described : buttons) {
        auto *made = new QPushButton(iconOf(described.role), described.caption, this);
        made->setObjectName(described.name.isEmpty() ? plainCaption(described.caption) : described.name);
        made->setAutoDefault(false);
        made->setDefault(described.isDefault);
        const bool onlyLeaves =
            described.role == TDialogButton::Cancel || described.role == TDialogButton::Help;
        made->setProperty(staysUsable, onlyLeaves);
        made->setProperty(closesDialog,
                          described.role == TDialogButton::Save || described.role == TDialogButton::Cancel);
        connectGuarded(made, &QPushButton::clicked, this, [this, described] { press(described); });
        if (described.role == TDialogButton::Save)
            ownSaver = made;
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
        if (helpDisplay())
            helpDisplay()(ownTopic);
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
    // A save that paints or asks may let a second press through.
    if (isSaving)
        return false;
    const QScopedValueRollback<bool> running(isSaving, true);
    try {
        for (TDBControl *control : TDBControl::allIn(this))
            control->commit();
        Validate();
        saveInTransaction([this] { Save(); });
    } catch (...) {
        focusRefused();
        showCurrentException(this);
        return false;
    }
    accept();
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

void TDialog::focusRefused()
{
    for (TDBControl *control : TDBControl::allIn(this)) {
        if (!control->invalidReason().isEmpty() && control->widget()->isVisible()) {
            control->widget()->setFocus();
            return;
        }
    }
}

QPushButton *TDialog::button(const QString &name) const
{
    for (QPushButton *candidate : findChildren<QPushButton *>()) {
        if (candidate->objectName() == name)
            return candidate;
    }
    Q_UNREACHABLE();
}

void TDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F1 && ownTopic > 0 && helpDisplay()) {
        runGuarded(this, [this] { helpDisplay()(ownTopic); });
        return;
    }
    QDialog::keyPressEvent(event);
}

void TDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!wasShown && ownFields && !focusWidget())
        ownFields->focusFirst();
    wasShown = true;
}
