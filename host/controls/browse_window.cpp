#include "host/controls/browse_private.h"
#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/icons.h"

#include <QAction>
#include <QHBoxLayout>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {
constexpr Qt::ShortcutContext insideForm = Qt::WidgetWithChildrenShortcut;

// One action of every list: where it is kept, how it looks, the keys that reach it, what it does.
struct Described {
    QAction *TBrowseFrm::*action;
    const char *name;
    QString text;
    QString hint;
    std::optional<TIcon> icon;
    QList<QKeySequence> keys;
    void (TBrowseFrm::*handler)();
    bool onGridOnly = false; // its keys mean something else while the user types elsewhere
};

const std::vector<Described> &everyAction()
{
    using F = TBrowseFrm;
    static const std::vector<Described> table = {
        {&F::acNew, "acNew", u"&Naujas"_s, u"Naujas įrašas"_s, TIcon::New, {Qt::Key_Insert}, &F::NewBtnClick},
        {&F::acEdit,
         "acEdit",
         u"&Keisti"_s,
         u"Keisti įrašą"_s,
         TIcon::Edit,
         {Qt::Key_Enter, Qt::Key_Return},
         &F::EditBtnClick,
         true},
        {&F::acDelete,
         "acDelete",
         u"&Trinti"_s,
         u"Ištrinti įrašą"_s,
         TIcon::Delete,
         {Qt::Key_Delete, Qt::CTRL | Qt::Key_Delete},
         &F::DelBtnClick,
         true},
        {&F::acRefresh,
         "acRefresh",
         u"&Atnaujinti"_s,
         u"Perskaityti sąrašą iš naujo"_s,
         TIcon::Refresh,
         {Qt::Key_F5},
         &F::RefreshBtnClick},
        {&F::acFirst,
         "acFirst",
         u"&Pirmas"_s,
         u"Pirmas įrašas"_s,
         TIcon::First,
         {Qt::CTRL | Qt::Key_Home},
         &F::FirstBtnClick,
         true},
        {&F::acPrev,
         "acPrev",
         u"&Ankstesnis"_s,
         u"Ankstesnis įrašas"_s,
         TIcon::Previous,
         {Qt::ALT | Qt::Key_Up},
         &F::PrevBtnClick},
        {&F::acNext,
         "acNext",
         u"&Kitas"_s,
         u"Kitas įrašas"_s,
         TIcon::Next,
         {Qt::ALT | Qt::Key_Down},
         &F::NextBtnClick},
        {&F::acLast,
         "acLast",
         u"Pa&skutinis"_s,
         u"Paskutinis įrašas"_s,
         TIcon::Last,
         {Qt::CTRL | Qt::Key_End},
         &F::LastBtnClick,
         true},
        {&F::acFind,
         "acFind",
         u"&Ieškoti"_s,
         u"Ieškoti stulpelyje"_s,
         TIcon::Find,
         {Qt::Key_F7, Qt::CTRL | Qt::Key_F},
         &F::FindBtnClick},
        {&F::acFindNext,
         "acFindNext",
         u"Ieškoti t&oliau"_s,
         u"Kitas rastas įrašas"_s,
         std::nullopt,
         {Qt::Key_F3},
         &F::FindNextBtnClick},
        {&F::acOrder,
         "acOrder",
         u"&Rikiuoti pagal stulpelį"_s,
         u"Rikiuoti pagal stulpelį"_s,
         TIcon::Order,
         {Qt::CTRL | Qt::Key_R},
         &F::OrderBtnClick},
        {&F::acCopy,
         "acCopy",
         u"K&opijuoti eilutes"_s,
         u"Kopijuoti pažymėtas eilutes"_s,
         TIcon::Copy,
         {Qt::CTRL | Qt::Key_C},
         &F::CopyBtnClick,
         true},
        {&F::acPrint,
         "acPrint",
         u"&Spausdinti"_s,
         u"Spausdinti sąrašą"_s,
         TIcon::Print,
         {Qt::CTRL | Qt::Key_P},
         &F::PrintBtnClick},
        {&F::acCaptions,
         "acCaptions",
         u"Mygtukai su &pavadinimais"_s,
         u"Mygtukai su pavadinimais"_s,
         std::nullopt,
         {},
         &F::ButtonsCaptionClick},
        {&F::acToolBar,
         "acToolBar",
         u"Įrankių &juosta"_s,
         u"Rodyti įrankių juostą"_s,
         std::nullopt,
         {},
         &F::mnToolsClick},
        {&F::acHelp, "acHelp", u"Pa&galba"_s, u"Pagalba"_s, TIcon::Help, {Qt::Key_F1}, &F::acHelpExecute},
        {&F::acClose,
         "acClose",
         u"&Uždaryti"_s,
         u"Uždaryti langą"_s,
         TIcon::Close,
         {Qt::CTRL | Qt::Key_W, Qt::CTRL | Qt::Key_F4},
         &F::CloseBtnClick},
    };
    return table;
}

QString hintWithKey(const QString &hint, const QAction *action)
{
    if (action->shortcuts().isEmpty())
        return hint;
    return u"%1 (%2)"_s.arg(hint, action->shortcuts().first().toString(QKeySequence::NativeText));
}
} // namespace

void TBrowseFrm::addActions()
{
    for (const Described &each : everyAction()) {
        auto *action = new QAction(each.text, this);
        this->*each.action = action;
        action->setObjectName(QString::fromLatin1(each.name));
        if (each.icon)
            action->setIcon(icon(*each.icon));
        action->setShortcuts(each.keys);
        action->setShortcutContext(insideForm);
        action->setToolTip(hintWithKey(each.hint, action));
        QWidget *place = each.onGridOnly ? d->grid : static_cast<QWidget *>(this);
        place->addAction(action);
        connectGuarded(action, &QAction::triggered, this,
                       [this, handler = each.handler] { (this->*handler)(); });
    }
    acCaptions->setCheckable(true);
    acToolBar->setCheckable(true);
    acToolBar->setChecked(true);

    auto *acEscape = new QAction(this);
    acEscape->setObjectName(u"acEscape"_s);
    acEscape->setShortcut(Qt::Key_Escape);
    acEscape->setShortcutContext(insideForm);
    addAction(acEscape);
    connectGuarded(acEscape, &QAction::triggered, this, [this] { escape(); });
}

void TBrowseFrm::addToolBarButtons()
{
    d->bar->setObjectName(u"ToolBar"_s);
    d->bar->setAccessibleName(u"Įrankių juosta"_s);
    d->bar->setIconSize({20, 20});
    d->bar->addActions({acNew, acEdit, acDelete});
    d->afterEditing = d->bar->addSeparator();
    d->bar->addActions({acFirst, acPrev, acNext, acLast});
    d->bar->addSeparator();
    d->bar->addActions({acRefresh, acFind, acPrint});
    d->afterOwnActions = d->bar->addSeparator();
    d->bar->addActions({acHelp, acClose});
    for (QAction *action : d->bar->actions()) {
        if (QWidget *button = d->bar->widgetForAction(action))
            button->setAccessibleName(action->text().remove(u'&'));
    }
}

void TBrowseFrm::addMenu()
{
    d->menu = new QMenu(this);
    d->menu->addActions({acNew, acEdit, acDelete});
    d->menu->addSeparator();
    d->menu->addActions({acRefresh, acFind, acFindNext, acOrder, acCopy, acPrint});
    d->menu->addSeparator();
    QMenu *go = d->menu->addMenu(u"Ei&ti į įrašą"_s);
    go->addActions({acFirst, acPrev, acNext, acLast});
    QMenu *view = d->menu->addMenu(u"&Vaizdas"_s);
    view->addActions({acToolBar, acCaptions});
    d->menu->addSeparator();
    d->menu->addActions({acHelp, acClose});
    d->grid->setContextMenuPolicy(Qt::CustomContextMenu);
    connectGuarded(d->grid, &QWidget::customContextMenuRequested, this,
                   [this](const QPoint &at) { d->menu->popup(d->grid->mapToGlobal(at)); });
}

void TBrowseFrm::addSearchLine()
{
    d->findLabel = new QLabel(this);
    d->findLabel->setTextFormat(Qt::PlainText);
    d->findEdit = new QLineEdit(this);
    d->findEdit->setObjectName(u"FindEdit"_s);
    d->findEdit->setClearButtonEnabled(true);
    d->findEdit->setMaximumWidth(320);
    d->findLabel->setBuddy(d->findEdit);
    connectGuarded(d->findEdit, &QLineEdit::textChanged, this, [this] { findTextChanged(); });
    connectGuarded(d->findEdit, &QLineEdit::returnPressed, this, [this] { d->grid->setFocus(); });
}

QAction *TBrowseFrm::addListAction(const QString &text, const QString &hint, const QIcon &picture,
                                   const QKeySequence &key, std::function<void()> handler)
{
    auto *action = new QAction(picture, text, this);
    action->setShortcut(key);
    action->setShortcutContext(insideForm);
    action->setToolTip(hintWithKey(hint.isEmpty() ? QString(text).remove(u'&') : hint, action));
    addAction(action);
    d->bar->insertAction(d->afterOwnActions, action);
    d->bar->widgetForAction(action)->setAccessibleName(action->toolTip());
    d->menu->insertAction(d->menu->actions().at(3), action);
    connectGuarded(action, &QAction::triggered, this, std::move(handler));
    return action;
}

void TBrowseFrm::addToDeleteMenu(QAction *action)
{
    auto *button = qobject_cast<QToolButton *>(d->bar->widgetForAction(acDelete));
    if (!d->deleteMenu) {
        d->deleteMenu = new QMenu(this);
        d->deleteMenu->addAction(acDelete);
        d->deleteMenu->setDefaultAction(acDelete);
        button->setMenu(d->deleteMenu);
        button->setPopupMode(QToolButton::MenuButtonPopup);
    }
    d->deleteMenu->addAction(action);
}

void TBrowseFrm::addToToolBar(const QString &label, QWidget *control)
{
    auto *place = new QWidget(this);
    auto *caption = new QLabel(label, place);
    caption->setBuddy(control);
    auto *row = new QHBoxLayout(place);
    row->setContentsMargins(6, 0, 0, 0);
    row->addWidget(caption);
    row->addWidget(control);
    d->bar->addWidget(place);
}

void TBrowseFrm::addPanel(int width)
{
    d->status->addPanel(width);
}

void TBrowseFrm::setPanel(int index, const QString &text)
{
    d->status->setPanel(index, text);
}

QString TBrowseFrm::panel(int index) const
{
    return d->status->panel(index);
}

void TBrowseFrm::setMessage(const QString &text)
{
    d->status->setMessage(text);
}

QString TBrowseFrm::message() const
{
    return d->status->message();
}
