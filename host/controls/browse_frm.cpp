#include "host/controls/browse_frm.h"

#include "host/common/help.h"
#include "host/common/settings_store.h"
#include "host/controls/browse_private.h"
#include "host/data/main_datas.h"
#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/icons.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {
QString formsPath()
{
    return GetRegPath() + u"\\Forms"_s;
}
} // namespace

TBrowseFrm::TBrowseFrm(TBrowseDescription described, QWidget *owner)
    : QWidget(owner),
      description(std::move(described)),
      d(std::make_unique<Private>(this))
{
    Q_ASSERT(!description.name.isEmpty());
    setObjectName(description.name);
    setWindowTitle(description.caption);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(icon(TIcon::Browse));
    resize(TBrowseFrm::sizeHint());

    d->grid = new TDBGrid(this);
    d->grid->setObjectName(u"DBGrid"_s);
    d->grid->setAccessibleName(description.caption);
    d->status = new TStatusPanels(this);
    addPanel();
    addActions();
    addToolBarButtons();
    addMenu();
    addSearchLine();

    auto *search = new QHBoxLayout;
    search->setContentsMargins(6, 3, 6, 3);
    search->setSpacing(6);
    search->addWidget(d->findLabel);
    search->addWidget(d->findEdit);
    search->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(d->bar);
    layout->addLayout(search);
    layout->addWidget(d->grid, 1);
    layout->addWidget(d->status);
    setFocusProxy(d->grid);
    listen();
    showCaptions(false);
}

TBrowseFrm::~TBrowseFrm()
{
    // The data set goes before the widgets that look at it.
    d->query.disconnect(this);
    d->grid->setDataSet(nullptr);
    if (release)
        release();
}

// What the window reacts to, beyond its actions.
void TBrowseFrm::listen()
{
    d->tmrFind.setSingleShot(true);
    d->tmrFind.setObjectName(u"tmrFind"_s);
    connectGuarded(&d->tmrFind, &QTimer::timeout, this, [this] { goOnSearching(); });
    connectGuarded(&d->query, &TDataSet::scrolled, this, [this] { DataSourceDataChange(); });
    connectGuarded(&d->query, &TDataSet::stateChanged, this, [this] { DataSourceDataChange(); });
    connectGuarded(&d->query, &TDataSet::fetched, this, [this] { rowsCame(); });
    connectGuarded(&d->query, &TDataSet::fetchFailed, this, [this](const QString &why) {
        showLoading();
        throw EDatabaseError(why);
    });
    connectGuarded(&periodNotifier(), &TPeriodNotifier::periodChanged, this, [this] {
        if (d->created && !d->destroyed && !d->query.editing())
            PeriodChanged();
    });
    connectGuarded(d->grid, &TDBGrid::rowActivated, this, [this] { EditBtnClick(); });
    connectGuarded(d->grid, &TDBGrid::titleClicked, this,
                   [this](const QString &column) { DBGridTitleClick(column); });
    connectGuarded(d->grid->selectionModel(), &QItemSelectionModel::currentColumnChanged, this,
                   [this] { showFindColumn(); });
    d->grid->installEventFilter(this);
}

// --- the life of a screen

void TBrowseFrm::FormCreate()
{
    Q_ASSERT(!d->created);
    SetEditable(description.editing != TEditing::Never);
    SetPrintable(description.printable);
    acHelp->setVisible(description.help != 0);
    describeFields();
    d->statedOrder = d->orderColumn = statedOrder();
    d->query.setDatabase(Database());
    if (description.prepare)
        description.prepare(d->query);
    d->grid->setDataSet(&d->query);
    RefreshData(Variant(0));
    restoreArrangement();
    d->created = true;
}

void TBrowseFrm::FormActivate()
{
    if (hold)
        hold();
    if (description.editing == TEditing::UnlessViewOnly)
        SetEditable(!CurrentUser().viewOnly);
    CheckToolButtons();
}

bool TBrowseFrm::FormClose()
{
    saveArrangement();
    return true;
}

void TBrowseFrm::FormDestroy()
{
    d->tmrFind.stop();
    d->finder.stop();
    d->query.Close();
    if (release)
        release();
}

void TBrowseFrm::finish()
{
    if (std::exchange(d->destroyed, true))
        return;
    runGuarded(this, [this] { FormDestroy(); });
}

void TBrowseFrm::PeriodChanged()
{
    RefreshData(currentKey());
}

TDatabase *TBrowseFrm::Database() const
{
    Q_ASSERT(MainDatas());
    return description.session == TSession::Main ? MainDatas()->mnFin_Db() : MainDatas()->mnRavl();
}

void TBrowseFrm::ShowModal()
{
    QEventLoop loop;
    d->modalLoop = &loop;
    const QPointer<TBrowseFrm> self(this);
    setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint | Qt::WindowMaximizeButtonHint);
    setWindowModality(Qt::ApplicationModal);
    show();
    loop.exec();
    if (self)
        QCoreApplication::sendPostedEvents(self, QEvent::DeferredDelete);
}

// --- events

void TBrowseFrm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    runGuarded(this, [this] {
        if (!std::exchange(d->placed, true))
            restorePlacement();
        FormActivate();
    });
}

bool TBrowseFrm::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::WindowActivate && d->created && !d->destroyed)
        runGuarded(this, [this] { FormActivate(); });
    return handled;
}

void TBrowseFrm::closeEvent(QCloseEvent *event)
{
    bool mayClose = false;
    runGuarded(this, [&] { mayClose = FormClose(); });
    event->setAccepted(mayClose);
    if (!mayClose)
        return;
    finish();
    if (d->modalLoop)
        d->modalLoop->quit();
}

void TBrowseFrm::CloseBtnClick()
{
    auto *document = qobject_cast<QMdiSubWindow *>(parentWidget());
    if (document)
        document->close();
    else
        close();
}

void TBrowseFrm::acHelpExecute()
{
    if (description.help != 0)
        showHelp(description.help);
}

// --- what the user arranged

QWidget *TBrowseFrm::placed()
{
    auto *document = qobject_cast<QMdiSubWindow *>(parentWidget());
    return document ? document : static_cast<QWidget *>(this);
}

void TBrowseFrm::restorePlacement()
{
    // A document window is placed by its area after it is shown; the kept placement comes after that.
    QMetaObject::invokeMethod(this,
                              guarded(this, [this] { ReadFromReg(placed(), formsPath(), description.name); }),
                              placed() == this ? Qt::DirectConnection : Qt::QueuedConnection);
}

QString TBrowseFrm::settingsGroup() const
{
    return QString(formsPath() + u'\\' + description.name).replace(u'\\', u'/');
}

void TBrowseFrm::restoreArrangement()
{
    showToolBar(settingsStore().value(settingsGroup() + u"/ToolBar"_s, true).toBool());
    showCaptions(settingsStore().value(settingsGroup() + u"/Captions"_s, false).toBool());
}

void TBrowseFrm::saveArrangement()
{
    if (!CanSave())
        return;
    SaveToReg(placed(), formsPath(), description.name, true);
    settingsStore().setValue(settingsGroup() + u"/ToolBar"_s, d->toolBarShown);
    settingsStore().setValue(settingsGroup() + u"/Captions"_s, d->captionsShown);
}

void TBrowseFrm::showCaptions(bool on)
{
    d->captionsShown = on;
    acCaptions->setChecked(on);
    d->bar->setToolButtonStyle(on ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
}

void TBrowseFrm::showToolBar(bool on)
{
    d->toolBarShown = on;
    acToolBar->setChecked(on);
    d->bar->setVisible(on);
}

void TBrowseFrm::ButtonsCaptionClick()
{
    showCaptions(!d->captionsShown);
}

void TBrowseFrm::mnToolsClick()
{
    showToolBar(!d->toolBarShown);
}
