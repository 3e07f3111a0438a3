// How a document window is built: its actions, where they stand, its status bar.

#include "host/controls/document_private.h"

#include "host/controls/images.h"
#include "toolkit/widgets/lithuanian.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

QString hintWithKey(const TFormAction &described)
{
    const QString hint = described.hint.isEmpty() ? plainCaption(described.text) : described.hint;
    return described.keys.isEmpty()
               ? hint
               : u"%1 (%2)"_s.arg(hint, described.keys.first().toString(QKeySequence::NativeText));
}

// The button is called as its action, which a screen may caption in its own words.
void keepNamed(QWidget *button, QAction *action)
{
    const auto nameIt = [button, action] { button->setAccessibleName(plainCaption(action->text())); };
    nameIt();
    connectGuarded(action, &QAction::changed, button, nameIt);
}

} // namespace

QLabel *labelFor(const QString &text, QWidget *control)
{
    auto *label = new QLabel(text);
    label->setBuddy(control);
    if (control->accessibleName().isEmpty())
        control->setAccessibleName(plainCaption(text).remove(u':'));
    return label;
}

void TDocumentFrm::addCommonActions()
{
    w->bar->setObjectName(u"ToolBar"_s);
    w->bar->setAccessibleName(u"Įrankių juosta"_s);
    w->bar->setIconSize(Images().size());
    w->buttonsEnd = w->bar->addSeparator();
    acCaptions = addFormAction({.name = u"acCaptions"_s,
                                .text = u"Mygtukai su &pavadinimais"_s,
                                .handler = [this] { ButtonsCaptionClick(); },
                                .place = TActionPlace::KeyOnly});
    acToolBar = addFormAction({.name = u"acToolBar"_s,
                               .text = u"Įrankių &juosta"_s,
                               .hint = u"Rodyti įrankių juostą"_s,
                               .handler = [this] { mnToolsClick(); },
                               .place = TActionPlace::KeyOnly});
    acHelp = addFormAction({.name = u"acHelp"_s,
                            .text = u"Pa&galba"_s,
                            .picture = TIcon::Help,
                            .keys = {Qt::Key_F1},
                            .handler = [this] { acHelpExecute(); },
                            .place = TActionPlace::KeyOnly});
    acClose = addFormAction({.name = u"acClose"_s,
                             .text = u"&Uždaryti"_s,
                             .hint = u"Uždaryti langą"_s,
                             .picture = TIcon::Close,
                             .keys = {Qt::CTRL | Qt::Key_W, Qt::CTRL | Qt::Key_F4},
                             .handler = [this] { CloseBtnClick(); },
                             .place = TActionPlace::KeyOnly});
    addFormAction({.name = u"acEscape"_s,
                   .keys = {Qt::Key_Escape},
                   .handler = [this] { escape(); },
                   .place = TActionPlace::KeyOnly});
    acCaptions->setCheckable(true);
    acToolBar->setCheckable(true);
    w->bar->addActions({acHelp, acClose});
    for (QAction *action : {acHelp, acClose})
        keepNamed(w->bar->widgetForAction(action), action);
    w->menuEnd = w->menu->addSeparator();
    w->menu->addMenu(u"&Vaizdas"_s)->addActions({acToolBar, acCaptions});
    w->menu->addActions({acHelp, acClose});
    offerMenu(w->bar);
}

// An accelerator that a screen names belongs to its action; one of the base that has it, too, has other keys.
void TDocumentFrm::yieldAccelerator(const QString &caption)
{
    const QKeySequence named = QKeySequence::mnemonic(caption);
    for (QAction *action : findChildren<QAction *>())
        if (!named.isEmpty() && QKeySequence::mnemonic(action->text()) == named)
            action->setText(action->text().remove(u'&'));
}

QAction *TDocumentFrm::addFormAction(const TFormAction &described)
{
    yieldAccelerator(described.text);
    auto *action = new QAction(described.text, this);
    action->setObjectName(described.name);
    if (described.picture)
        action->setIcon(Images()[*described.picture]);
    action->setShortcuts(described.keys);
    if (described.keys.contains(QKeySequence(Qt::Key_Escape)))
        w->escapes += action;
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setToolTip(hintWithKey(described));
    (described.keysIn ? described.keysIn : this)->addAction(action);
    connectGuarded(action, &QAction::triggered, this, described.handler);
    QAction *separator = nullptr;
    if (described.place == TActionPlace::ToolBarAndMenu) {
        if (described.separated)
            separator = w->bar->insertSeparator(w->buttonsEnd);
        w->bar->insertAction(w->buttonsEnd, action);
        w->bar->widgetForAction(action)->setAccessibleName(plainCaption(action->text()));
    }
    if (described.place == TActionPlace::ToolBarAndMenu || described.place == TActionPlace::Menu)
        w->menu->insertAction(w->menuEnd, action);
    if (described.enabled || described.visible || separator)
        w->judged.push_back({action, described.enabled, described.visible, separator});
    return action;
}

QAction *TDocumentFrm::addButtonGroup(const QList<QAction *> &group)
{
    const bool isFirst = w->bar->actions().first() == w->buttonsEnd;
    QAction *separator = isFirst ? nullptr : w->bar->insertSeparator(w->buttonsEnd);
    for (QAction *action : group) {
        w->bar->insertAction(w->buttonsEnd, action);
        w->bar->widgetForAction(action)->setAccessibleName(plainCaption(action->text()));
    }
    return separator;
}

void TDocumentFrm::addMenuGroup(const QList<QAction *> &group)
{
    w->menu->insertActions(w->menuEnd, group);
    w->menu->insertSeparator(w->menuEnd);
}

QMenu *TDocumentFrm::addSubmenu(const QString &caption, const QList<QAction *> &entries)
{
    auto *submenu = new QMenu(caption, w->menu);
    submenu->addActions(entries);
    w->menu->insertMenu(w->menuEnd, submenu);
    return submenu;
}

void TDocumentFrm::addToDeleteMenu(QAction *deleteAction, QAction *further)
{
    auto *button = qobject_cast<QToolButton *>(w->bar->widgetForAction(deleteAction));
    Q_ASSERT(button);
    if (!w->deleteMenu) {
        w->deleteMenu = new QMenu(this);
        w->deleteMenu->addAction(deleteAction);
        w->deleteMenu->setDefaultAction(deleteAction);
        button->setMenu(w->deleteMenu);
        button->setPopupMode(QToolButton::MenuButtonPopup);
    }
    w->deleteMenu->addAction(further);
}

void TDocumentFrm::addToToolBar(const QString &label, QWidget *control)
{
    auto *place = new QWidget(this);
    auto *row = new QHBoxLayout(place);
    row->setContentsMargins(6, 0, 0, 0);
    row->addWidget(labelFor(label, control));
    row->addWidget(control);
    w->bar->addWidget(place);
}

void TDocumentFrm::offerMenu(QWidget *on)
{
    on->setContextMenuPolicy(Qt::CustomContextMenu);
    connectGuarded(on, &QWidget::customContextMenuRequested, this,
                   [this, on](const QPoint &at) { w->menu->popup(on->mapToGlobal(at)); });
}

void TDocumentFrm::setBody(QWidget *body)
{
    w->layout->insertWidget(1, body, 1);
}

// --- the status bar

TStatusPanels &TDocumentFrm::status()
{
    if (!w->status) {
        w->status = new TStatusPanels(this);
        w->layout->addWidget(w->status);
    }
    return *w->status;
}

void TDocumentFrm::addPanel(int width)
{
    status().addPanel(width);
}

void TDocumentFrm::setPanel(int index, const QString &text)
{
    status().setPanel(index, text);
}

QString TDocumentFrm::panel(int index) const
{
    return w->status->panel(index);
}

void TDocumentFrm::setMessage(const QString &text)
{
    status().setMessage(text);
}

QString TDocumentFrm::message() const
{
    return w->status ? w->status->message() : QString();
}

void TDocumentFrm::setLoading(bool on)
{
    status().setLoading(on);
}
