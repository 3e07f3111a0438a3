#include "host/classifier/book_frm_private.h"

#include "host/common/settings_store.h"
#include "toolkit/widgets/guard.h"

#include <QAbstractItemView>
#include <QAction>
#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

constexpr int treeWidth = 300;
constexpr int betweenSelectors = 10;

} // namespace

TBookFrm::TBookFrm(const TDocumentDescription &described, QWidget *owner)
    : TDocumentFrm(described, owner),
      d(std::make_unique<Private>())
{
    buildActions();
    setBody(buildBody());
    addPanel();
    resize(TBookFrm::sizeHint());
    setFocusProxy(d->tree);
}

TBookFrm::~TBookFrm()
{
    d->tree->disconnect(this);
    d->list->disconnect(this);
}

// --- building

TBookFrm::Private::Actions TBookFrm::Private::ofRecords(TBookFrm *frm)
{
    return {
        {&TBookFrm::acNew,
         {.name = u"acNew"_s,
          .text = u"&Naujas"_s,
          .hint = u"Naujas įrašas"_s,
          .picture = TIcon::New,
          .keys = {Qt::Key_Insert},
          .handler = [frm] { frm->addRecords(); }}},
        {&TBookFrm::acEdit,
         {.name = u"acEdit"_s,
          .text = u"&Keisti"_s,
          .hint = u"Keisti įrašą"_s,
          .picture = TIcon::Edit,
          .keys = {Qt::Key_F2},
          .handler = [frm] { frm->changeRecord([frm] { frm->EditRecord(); }); }}},
        {&TBookFrm::acDelete,
         {.name = u"acDelete"_s,
          .text = u"&Trinti"_s,
          .hint = u"Ištrinti įrašą"_s,
          .picture = TIcon::Delete,
          .keys = {Qt::Key_Delete, Qt::CTRL | Qt::Key_Delete},
          .handler = [frm] { frm->changeRecord([frm] { frm->DeleteRecord(); }); }}},
    };
}

TBookFrm::Private::Actions TBookFrm::Private::ofWay(TBookFrm *frm)
{
    return {
        {&TBookFrm::acBack,
         {.name = u"acBack"_s,
          .text = u"At&gal"_s,
          .hint = u"Grįžti atgal"_s,
          .picture = TIcon::Previous,
          .keys = {Qt::ALT | Qt::Key_Left},
          .handler = [frm] { frm->goBack(); },
          .enabled = [frm] { return !frm->d->back.isEmpty(); }}},
        {&TBookFrm::acForward,
         {.name = u"acForward"_s,
          .text = u"P&irmyn"_s,
          .hint = u"Eiti pirmyn"_s,
          .picture = TIcon::Next,
          .keys = {Qt::ALT | Qt::Key_Right},
          .handler = [frm] { frm->goForward(); },
          .enabled = [frm] { return !frm->d->forward.isEmpty(); }}},
        {&TBookFrm::acUp,
         {.name = u"acUp"_s,
          .text = u"A&ukštyn"_s,
          .hint = u"Vienu lygiu aukštyn"_s,
          .picture = TIcon::Up,
          .keys = {Qt::ALT | Qt::Key_Up, Qt::Key_Backspace},
          .handler = [frm] { frm->goUp(); },
          .enabled = [frm] { return frm->level() > 0; }}},
        {&TBookFrm::acFirst,
         {.name = u"acFirst"_s,
          .text = u"Pirmas &lygis"_s,
          .hint = u"Į pirmą lygį"_s,
          .picture = TIcon::First,
          .keys = {Qt::ALT | Qt::Key_Home},
          .handler = [frm] { frm->SetJungId(0); },
          .enabled = [frm] { return frm->level() > 0; }}},
    };
}

TBookFrm::Private::Actions TBookFrm::Private::ofBook(TBookFrm *frm)
{
    return {
        {&TBookFrm::acRefresh,
         {.name = u"acRefresh"_s,
          .text = u"&Atnaujinti"_s,
          .hint = u"Perskaityti knygą iš naujo"_s,
          .picture = TIcon::Refresh,
          .keys = {Qt::Key_F5},
          .handler = [frm] { frm->RefreshBook(); }}},
        {&TBookFrm::acPrint,
         {.name = u"acPrint"_s,
          .text = u"&Spausdinti"_s,
          .picture = TIcon::Print,
          .keys = {Qt::CTRL | Qt::Key_P},
          .handler = [frm] { frm->PrintRecords(); }}},
    };
}

void TBookFrm::buildActions()
{
    for (const auto &described : {Private::ofRecords(this), Private::ofWay(this), Private::ofBook(this)}) {
        QList<QAction *> group;
        for (auto [action, each] : described) {
            each.place = TActionPlace::KeyOnly;
            group << (this->*action = addFormAction(each));
        }
        addButtonGroup(group);
    }
    acPrint->setVisible(false);
    addMenuGroup({acNew, acEdit, acDelete});
    addMenuGroup({acRefresh, acPrint});
}

QWidget *TBookFrm::buildBody()
{
    auto *body = new QWidget(this);
    auto *layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(buildSelectors());
    buildPanes();
    layout->addWidget(d->panes, 1);
    return body;
}

QBoxLayout *TBookFrm::buildSelectors()
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
    return d->selectors;
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
    d->panes->setSizes({treeWidth, TBookFrm::sizeHint().width() - treeWidth});
    connectGuarded(d->tree, &QTreeWidget::currentItemChanged, this, [this] { treeSelected(); });
    connectGuarded(d->list, &QTreeWidget::itemActivated, this,
                   [this](QTreeWidgetItem *item) { SetJungId(nodeOf(item)); });
}

void TBookFrm::setContent(QWidget *content)
{
    d->content = content;
    d->nodePanes->addWidget(content);
    content->hide();
    offerMenu(content);
    auto *enter = new QShortcut(Qt::Key_Return, content, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connectGuarded(enter, &QShortcut::activated, this, [this] { acEdit->trigger(); });
    if (auto *view = qobject_cast<QAbstractItemView *>(content))
        connectGuarded(view, &QAbstractItemView::doubleClicked, this, [this] { acEdit->trigger(); });
}

void TBookFrm::SetPrintable(bool on)
{
    acPrint->setVisible(on);
}

void TBookFrm::addToToolBar(const QString &label, QWidget *control)
{
    d->selectors->addSpacing(betweenSelectors);
    d->selectors->addWidget(labelFor(label, control));
    d->selectors->addWidget(control);
}

// --- the life of a screen

void TBookFrm::FormCreate()
{
    TDocumentFrm::FormCreate();
    d->book = userKnyga();
    fillBooks();
    loadBook(d->book);
    readNode(0);
    tellSubscribers();
}

void TBookFrm::restoreArrangement()
{
    TDocumentFrm::restoreArrangement();
    d->panes->restoreState(settingsStore().value(settingsGroup() + u"/Divider"_s).toByteArray());
}

void TBookFrm::saveArrangement()
{
    TDocumentFrm::saveArrangement();
    settingsStore().setValue(settingsGroup() + u"/Divider"_s, d->panes->saveState());
}
