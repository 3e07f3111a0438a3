#include "host/classifier/book_frm_private.h"

#include "host/common/help.h"
#include "host/common/registry.h"
#include "toolkit/widgets/guard.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QShortcut>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int treeWidth = 300;
constexpr int wholeWidth = 900;
constexpr int wholeHeight = 600;

QString formsPath()
{
    return GetRegPath() + u"\\Forms"_s;
}

QString dividerKey(const QString &name)
{
    QString key = formsPath() + u'\\' + name + u"\\Divider"_s;
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
    d->help = help;
    build();
}

TBookFrm::~TBookFrm() = default;

// --- building

void TBookFrm::build()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    d->tools = new QToolBar;
    d->tools->setObjectName(u"ToolBar"_s);
    d->tools->setAccessibleName(u"Įrankių juosta"_s);
    d->tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    buildActions();
    buildNavigation();
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

QAction *TBookFrm::makeAction(const QString &text, const QString &hint, const QIcon &icon,
                              const QList<QKeySequence> &keys, std::function<void()> handler)
{
    auto *action = new QAction(icon, text, this);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    const QString key = keys.isEmpty() ? QString() : keys.first().toString(QKeySequence::NativeText);
    action->setToolTip(key.isEmpty() ? hint : u"%1 (%2)"_s.arg(hint, key));
    connectGuarded(action, &QAction::triggered, this, std::move(handler));
    QWidget::addAction(action);
    d->tools->addAction(action);
    return action;
}

void TBookFrm::buildActions()
{
    const auto icon = [this](QStyle::StandardPixmap pixmap) { return style()->standardIcon(pixmap); };
    acNew = makeAction(u"&Naujas"_s, u"Naujas įrašas"_s, icon(QStyle::SP_FileIcon), {Qt::Key_Insert},
                       [this] { NewRecord(); });
    acEdit = makeAction(u"&Keisti"_s, u"Keisti įrašą"_s, icon(QStyle::SP_FileDialogDetailedView), {},
                        [this] { EditRecord(); });
    acDelete = makeAction(u"&Trinti"_s, u"Ištrinti įrašą"_s, icon(QStyle::SP_TrashIcon),
                          {Qt::Key_Delete, Qt::CTRL | Qt::Key_Delete}, [this] { DeleteRecord(); });
    d->tools->addSeparator();
    acPrint = makeAction(u"S&pausdinti"_s, u"Spausdinti"_s, icon(QStyle::SP_FileDialogContentsView),
                         {QKeySequence(Qt::CTRL | Qt::Key_P)}, [this] { PrintRecords(); });
    acPrint->setVisible(false);
    acRefresh = makeAction(u"&Atnaujinti"_s, u"Atnaujinti iš duomenų bazės"_s, icon(QStyle::SP_BrowserReload),
                           {Qt::Key_F5}, [this] { RefreshBook(); });
    d->tools->addSeparator();
}

void TBookFrm::buildNavigation()
{
    const auto icon = [this](QStyle::StandardPixmap pixmap) { return style()->standardIcon(pixmap); };
    acBack = makeAction(u"At&gal"_s, u"Grįžti atgal"_s, icon(QStyle::SP_ArrowBack),
                        {QKeySequence(Qt::ALT | Qt::Key_Left)}, [this] { goBack(); });
    acForward = makeAction(u"P&irmyn"_s, u"Eiti pirmyn"_s, icon(QStyle::SP_ArrowForward),
                           {QKeySequence(Qt::ALT | Qt::Key_Right)}, [this] { goForward(); });
    acUp = makeAction(u"A&ukštyn"_s, u"Vienu lygiu aukštyn"_s, icon(QStyle::SP_ArrowUp),
                      {QKeySequence(Qt::ALT | Qt::Key_Up), Qt::Key_Backspace}, [this] { goUp(); });
    acFirst = makeAction(u"Pirmas &lygis"_s, u"Į pirmą lygį"_s, icon(QStyle::SP_DirHomeIcon),
                         {QKeySequence(Qt::ALT | Qt::Key_Home)}, [this] { SetJungId(0); });
    d->tools->addSeparator();
    acHelp = makeAction(u"Pagal&ba"_s, u"Pagalba"_s, icon(QStyle::SP_DialogHelpButton), {Qt::Key_F1},
                        [this] { showHelp(d->help); });
    acHelp->setVisible(d->help > 0);
    acClose = makeAction(u"Už&daryti"_s, u"Uždaryti langą"_s, icon(QStyle::SP_DialogCloseButton),
                         {Qt::Key_Escape}, [this] { close(); });
}

void TBookFrm::buildSelectors()
{
    d->selectors = new QHBoxLayout;
    d->selectors->setContentsMargins(6, 4, 6, 4);
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

QAction *TBookFrm::addAction(const QString &text, const QString &hint, const QIcon &icon,
                             const QKeySequence &key, std::function<void()> handler)
{
    QAction *action =
        makeAction(text, hint, icon, key.isEmpty() ? QList<QKeySequence>() : QList{key}, std::move(handler));
    d->tools->removeAction(action);
    d->tools->insertAction(acBack, action);
    return action;
}

void TBookFrm::addSelector(const QString &label, QWidget *control)
{
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
    const QString name = QString::fromLatin1(metaObject()->className());
    if (objectName().isEmpty())
        setObjectName(name);
    ReadFromReg(this, formsPath(), objectName());
    const int divider = registry().value(dividerKey(objectName())).toInt();
    if (divider > 0 && divider < width())
        d->panes->setSizes({divider, width() - divider});
    connectGuarded(&periodNotifier(), &TPeriodNotifier::periodChanged, this, [this] { PeriodChanged(); });
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
}

bool TBookFrm::FormClose()
{
    if (CanSave()) {
        SaveToReg(this, formsPath(), objectName(), true);
        registry().setValue(dividerKey(objectName()), d->panes->sizes().first());
    }
    return true;
}

void TBookFrm::FormDestroy()
{
    if (release)
        release();
}

void TBookFrm::closeEvent(QCloseEvent *event)
{
    bool mayClose = false;
    runGuarded(this, [&] { mayClose = FormClose(); });
    event->setAccepted(mayClose);
}

bool TBookFrm::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::Show)
        runGuarded(this, [this] { FormActivate(); });
    return QWidget::event(event);
}
