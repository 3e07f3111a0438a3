#include "host/classifier/book_frm_private.h"

#include "host/common/help.h"
#include "host/common/settings_store.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/icons.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QShortcut>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int treeWidth = 300;
constexpr int wholeWidth = 900;
constexpr int wholeHeight = 600;
constexpr int betweenSelectors = 10;

QString formsPath()
{
    return GetRegPath() + u"\\Forms"_s;
}

QString keyOf(const QString &form, const QString &what)
{
    QString key = formsPath() + u'\\' + form + u'\\' + what;
    return key.replace(u'\\', u'/');
}

QLabel *labelFor(const QString &text, QWidget *control)
{
    auto *label = new QLabel(text);
    label->setBuddy(control);
    if (control->accessibleName().isEmpty())
        control->setAccessibleName(QString(text).remove(u'&').remove(u':'));
    return label;
}

} // namespace

TBookFrm::TBookFrm(const QString &caption, int help, QWidget *owner)
    : QWidget(owner),
      d(std::make_unique<Private>())
{
    setWindowTitle(caption);
    setAttribute(Qt::WA_DeleteOnClose);
    d->help = help;
    build();
}

TBookFrm::~TBookFrm()
{
    d->tree->disconnect(this);
    d->list->disconnect(this);
}

// --- building

void TBookFrm::build()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    buildActions();
    buildToolBar();
    buildSelectors();
    buildPanes();
    d->status = new TStatusPanels(this);
    layout->addWidget(d->tools);
    layout->addLayout(d->selectors);
    layout->addWidget(d->panes, 1);
    layout->addWidget(d->status);
    addPanel();
    resize(wholeWidth, wholeHeight);
}

QAction *TBookFrm::makeAction(const TBookAction &described)
{
    auto *action = new QAction(described.picture, described.text, this);
    action->setObjectName(described.name);
    action->setShortcuts(described.keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    const QString key =
        described.keys.isEmpty() ? QString() : described.keys.first().toString(QKeySequence::NativeText);
    action->setToolTip(key.isEmpty() ? described.hint : u"%1 (%2)"_s.arg(described.hint, key));
    connectGuarded(action, &QAction::triggered, this, described.handler);
    addAction(action);
    return action;
}

void TBookFrm::placeButton(QAction *action, QAction *before)
{
    d->tools->insertAction(before, action);
    d->tools->widgetForAction(action)->setAccessibleName(QString(action->text()).remove(u'&'));
}

void TBookFrm::buildActions()
{
    const std::vector<std::pair<QAction * TBookFrm::*, TBookAction>> table = {
        {&TBookFrm::acNew,
         {u"acNew"_s,
          u"&Naujas"_s,
          u"Naujas įrašas"_s,
          icon(TIcon::New),
          {Qt::Key_Insert},
          [this] { NewRecord(); }}},
        {&TBookFrm::acEdit,
         {u"acEdit"_s, u"&Keisti"_s, u"Keisti įrašą"_s, icon(TIcon::Edit), {}, [this] { EditRecord(); }}},
        {&TBookFrm::acDelete,
         {u"acDelete"_s,
          u"&Trinti"_s,
          u"Ištrinti įrašą"_s,
          icon(TIcon::Delete),
          {Qt::Key_Delete, Qt::CTRL | Qt::Key_Delete},
          [this] { DeleteRecord(); }}},
        {&TBookFrm::acBack,
         {u"acBack"_s,
          u"At&gal"_s,
          u"Grįžti atgal"_s,
          icon(TIcon::Previous),
          {Qt::ALT | Qt::Key_Left},
          [this] { goBack(); }}},
        {&TBookFrm::acForward,
         {u"acForward"_s,
          u"P&irmyn"_s,
          u"Eiti pirmyn"_s,
          icon(TIcon::Next),
          {Qt::ALT | Qt::Key_Right},
          [this] { goForward(); }}},
        {&TBookFrm::acUp,
         {u"acUp"_s,
          u"A&ukštyn"_s,
          u"Vienu lygiu aukštyn"_s,
          style()->standardIcon(QStyle::SP_ArrowUp),
          {Qt::ALT | Qt::Key_Up, Qt::Key_Backspace},
          [this] { goUp(); }}},
        {&TBookFrm::acFirst,
         {u"acFirst"_s,
          u"Pirmas &lygis"_s,
          u"Į pirmą lygį"_s,
          icon(TIcon::First),
          {Qt::ALT | Qt::Key_Home},
          [this] { SetJungId(0); }}},
        {&TBookFrm::acRefresh,
         {u"acRefresh"_s,
          u"&Atnaujinti"_s,
          u"Perskaityti knygą iš naujo"_s,
          icon(TIcon::Refresh),
          {Qt::Key_F5},
          [this] { RefreshBook(); }}},
        {&TBookFrm::acPrint,
         {u"acPrint"_s,
          u"&Spausdinti"_s,
          u"Spausdinti"_s,
          icon(TIcon::Print),
          {Qt::CTRL | Qt::Key_P},
          [this] { PrintRecords(); }}},
        {&TBookFrm::acCaptions,
         {u"acCaptions"_s,
          u"Mygtukai su &pavadinimais"_s,
          u"Mygtukai su pavadinimais"_s,
          {},
          {},
          [this] { ButtonsCaptionClick(); }}},
        {&TBookFrm::acHelp,
         {u"acHelp"_s,
          u"Pagal&ba"_s,
          u"Pagalba"_s,
          icon(TIcon::Help),
          {Qt::Key_F1},
          [this] { showHelp(d->help); }}},
        {&TBookFrm::acClose,
         {u"acClose"_s,
          u"Už&daryti"_s,
          u"Uždaryti langą"_s,
          icon(TIcon::Close),
          {Qt::Key_Escape},
          [this] { placed()->close(); }}},
    };
    for (const auto &[action, described] : table)
        this->*action = makeAction(described);
    acPrint->setVisible(false);
    acHelp->setVisible(d->help > 0);
    acCaptions->setCheckable(true);
}

void TBookFrm::buildToolBar()
{
    d->tools = new QToolBar;
    d->tools->setObjectName(u"ToolBar"_s);
    d->tools->setAccessibleName(u"Įrankių juosta"_s);
    d->tools->setIconSize({20, 20});
    const QList<QList<QAction *>> groups = {{acNew, acEdit, acDelete},
                                            {acBack, acForward, acUp, acFirst},
                                            {acRefresh, acPrint},
                                            {acHelp, acClose}};
    for (const QList<QAction *> &group : groups) {
        if (group != groups.first())
            d->ownActionsEnd = d->tools->addSeparator();
        for (QAction *action : group)
            placeButton(action, nullptr);
    }
    d->tools->setContextMenuPolicy(Qt::CustomContextMenu);
    connectGuarded(d->tools, &QWidget::customContextMenuRequested, this, [this](const QPoint &at) {
        QMenu menu;
        menu.addAction(acCaptions);
        menu.exec(d->tools->mapToGlobal(at));
    });
}

void TBookFrm::ButtonsCaptionClick()
{
    d->tools->setToolButtonStyle(acCaptions->isChecked() ? Qt::ToolButtonTextUnderIcon
                                                         : Qt::ToolButtonIconOnly);
}

void TBookFrm::buildSelectors()
{
    d->selectors = new QHBoxLayout;
    d->selectors->setContentsMargins(6, 4, 6, 4);
    d->selectors->setSpacing(6);
    d->books = new QComboBox;
    d->books->setObjectName(u"BookBox"_s);
    d->books->setMinimumContentsLength(22);
    d->books->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    d->pathBox = new QComboBox;
    d->pathBox->setObjectName(u"PathBox"_s);
    d->pathBox->setMinimumContentsLength(20);
    d->pathBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    d->pathBox->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    d->selectors->addWidget(labelFor(u"Kn&yga:"_s, d->books));
    d->selectors->addWidget(d->books);
    d->selectors->addSpacing(betweenSelectors);
    d->selectors->addWidget(labelFor(u"K&elias:"_s, d->pathBox));
    d->selectors->addWidget(d->pathBox, 1);
    connectGuarded(d->books, &QComboBox::activated, this,
                   [this] { setBook(d->books->currentData().toDouble()); });
    connectGuarded(d->pathBox, &QComboBox::activated, this,
                   [this] { SetJungId(d->pathBox->currentData().toDouble()); });
}

void TBookFrm::buildPanes()
{
    d->tree = new TBookTree;
    d->tree->setObjectName(u"Tree"_s);
    d->list = new QTreeWidget;
    d->list->setObjectName(u"List"_s);
    d->list->setAccessibleName(u"Žemesnio lygio kodai"_s);
    d->list->setRootIsDecorated(false);
    d->list->setUniformRowHeights(true);
    d->list->setAllColumnsShowFocus(true);
    d->nodePanes = new QSplitter(Qt::Vertical);
    d->nodePanes->addWidget(d->list);
    d->nodePanes->setChildrenCollapsible(false);
    d->panes = new QSplitter(Qt::Horizontal);
    d->panes->addWidget(d->tree);
    d->panes->addWidget(d->nodePanes);
    d->panes->setChildrenCollapsible(false);
    d->panes->setStretchFactor(1, 1);
    d->panes->setSizes({treeWidth, wholeWidth - treeWidth});
    connectGuarded(d->tree, &QTreeWidget::currentItemChanged, this, [this] { treeSelected(); });
    connectGuarded(d->list, &QTreeWidget::itemActivated, this,
                   [this](QTreeWidgetItem *item) { SetJungId(nodeOf(item)); });
}

void TBookFrm::setContent(QWidget *content)
{
    d->content = content;
    d->nodePanes->addWidget(content);
    content->hide();
    auto *enter = new QShortcut(Qt::Key_Return, content, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connectGuarded(enter, &QShortcut::activated, this, [this] { acEdit->trigger(); });
    if (auto *view = qobject_cast<QAbstractItemView *>(content))
        connectGuarded(view, &QAbstractItemView::doubleClicked, this, [this] { acEdit->trigger(); });
}

void TBookFrm::SetPrintable(bool on)
{
    acPrint->setVisible(on);
}

QAction *TBookFrm::addBookAction(const TBookAction &described)
{
    QAction *action = makeAction(described);
    placeButton(action, d->ownActionsEnd);
    return action;
}

void TBookFrm::addToToolBar(const QString &label, QWidget *control)
{
    d->selectors->addSpacing(betweenSelectors);
    d->selectors->addWidget(labelFor(label, control));
    d->selectors->addWidget(control);
}

void TBookFrm::addPanel(int width)
{
    d->status->addPanel(width);
}

// --- the life of a screen

void TBookFrm::FormCreate()
{
    if (objectName().isEmpty())
        setObjectName(QString::fromLatin1(metaObject()->className()));
    restoreArrangement();
    connectGuarded(&periodNotifier(), &TPeriodNotifier::periodChanged, this, [this] {
        if (!d->destroyed)
            PeriodChanged();
    });
    d->book = userKnyga();
    fillBooks();
    loadBook(d->book);
    readNode(0);
    tellSubscribers();
}

void TBookFrm::FormActivate()
{
    if (hold)
        hold();
    CheckActions();
}

bool TBookFrm::FormClose()
{
    if (!CanSave())
        return true;
    SaveToReg(placed(), formsPath(), objectName(), true);
    settingsStore().setValue(keyOf(objectName(), u"Divider"_s), d->panes->sizes().first());
    settingsStore().setValue(keyOf(objectName(), u"Captions"_s), acCaptions->isChecked());
    return true;
}

void TBookFrm::FormDestroy()
{
    if (release)
        release();
}

void TBookFrm::finish()
{
    if (std::exchange(d->destroyed, true))
        return;
    runGuarded(this, [this] { FormDestroy(); });
}

// The window that the screen fills: the document window around it, if there is one.
QWidget *TBookFrm::placed()
{
    auto *around = qobject_cast<QMdiSubWindow *>(parentWidget());
    return around ? around : static_cast<QWidget *>(this);
}

// A document window is placed by its area after it is shown; the kept placement comes after that.
void TBookFrm::restorePlacement()
{
    QMetaObject::invokeMethod(this,
                              guarded(this, [this] { ReadFromReg(placed(), formsPath(), objectName()); }),
                              placed() == this ? Qt::DirectConnection : Qt::QueuedConnection);
}

void TBookFrm::restoreArrangement()
{
    const int divider = settingsStore().value(keyOf(objectName(), u"Divider"_s)).toInt();
    if (divider > 0 && divider < width())
        d->panes->setSizes({divider, width() - divider});
    acCaptions->setChecked(settingsStore().value(keyOf(objectName(), u"Captions"_s)).toBool());
    ButtonsCaptionClick();
}

void TBookFrm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    runGuarded(this, [this] {
        if (!std::exchange(d->shown, true))
            restorePlacement();
        FormActivate();
    });
}

void TBookFrm::closeEvent(QCloseEvent *event)
{
    bool mayClose = false;
    runGuarded(this, [&] { mayClose = FormClose(); });
    event->setAccepted(mayClose);
    if (mayClose)
        finish();
}

bool TBookFrm::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::WindowActivate && d->shown && !d->destroyed)
        runGuarded(this, [this] { FormActivate(); });
    return handled;
}
