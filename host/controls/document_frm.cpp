#include "host/controls/document_private.h"

#include "host/common/help.h"
#include "host/common/settings_store.h"
#include "host/data/main_datas.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QPointer>

using namespace Qt::StringLiterals;

TDocumentFrm::TDocumentFrm(TDocumentDescription described, QWidget *owner)
    : QWidget(owner),
      document(std::move(described)),
      w(std::make_unique<Private>())
{
    Q_ASSERT(!document.name.isEmpty());
    setObjectName(document.name);
    setWindowTitle(document.caption);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(icon(TIcon::Browse));
    w->bar = new QToolBar(this);
    w->menu = new QMenu(this);
    w->layout = new QVBoxLayout(this);
    w->layout->setContentsMargins(0, 0, 0, 0);
    w->layout->setSpacing(0);
    w->layout->addWidget(w->bar);
    addCommonActions();
    showCaptions(true);
    connectGuarded(&periodNotifier(), &TPeriodNotifier::periodChanged, this, [this] { tellPeriod(); });
}

TDocumentFrm::~TDocumentFrm()
{
    if (release)
        release();
}

bool TDocumentFrm::isDestroyed() const
{
    return w->destroyed;
}

// --- the life of a screen

void TDocumentFrm::FormCreate()
{
    Q_ASSERT(!w->created);
    acHelp->setVisible(document.help != 0);
    restoreArrangement();
}

void TDocumentFrm::markCreated()
{
    w->created = true;
    judgeActions();
}

void TDocumentFrm::FormActivate()
{
    if (hold)
        hold();
    judgeActions();
}

bool TDocumentFrm::FormClose()
{
    if (CanSave())
        saveArrangement();
    return true;
}

void TDocumentFrm::FormDestroy()
{
    if (release)
        release();
}

void TDocumentFrm::finish()
{
    if (std::exchange(w->destroyed, true))
        return;
    runGuarded(this, [this] { FormDestroy(); });
}

void TDocumentFrm::tellPeriod()
{
    w->periodWaits = w->periodHolds > 0;
    if (!w->periodWaits && w->created && !w->destroyed)
        PeriodChanged();
}

TDocumentFrm::TSamePeriod::TSamePeriod(TDocumentFrm *frm) : window(frm)
{
    ++window->w->periodHolds;
}

TDocumentFrm::TSamePeriod::~TSamePeriod()
{
    if (window && --window->w->periodHolds == 0 && window->w->periodWaits)
        runGuarded(window, [this] { window->tellPeriod(); });
}

void TDocumentFrm::ShowModal()
{
    QEventLoop loop;
    w->modalLoop = &loop;
    const QPointer<TDocumentFrm> self(this);
    setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint | Qt::WindowMaximizeButtonHint);
    setWindowModality(Qt::ApplicationModal);
    show();
    loop.exec();
    if (self)
        QCoreApplication::sendPostedEvents(self, QEvent::DeferredDelete);
}

void TDocumentFrm::escape()
{
    CloseBtnClick();
}

// While a dialog of the window's own is open, the code that waits for it still needs the window.
void TDocumentFrm::CloseBtnClick()
{
    const QWidget *modal = QApplication::activeModalWidget();
    if (!modal || modal == this)
        placed()->close();
}

void TDocumentFrm::acHelpExecute()
{
    if (document.help != 0)
        showHelp(document.help);
}

void TDocumentFrm::judgeActions()
{
    if (w->destroyed)
        return;
    CheckToolButtons();
    for (const Private::Judged &each : w->judged) {
        if (each.visible)
            each.action->setVisible(each.visible());
        if (each.enabled)
            each.action->setEnabled(each.enabled());
        if (each.separator)
            each.separator->setVisible(each.action->isVisible());
    }
    // Two actions with the same key would both be deaf.
    w->escapes.first()->setEnabled(std::none_of(w->escapes.begin() + 1, w->escapes.end(),
                                                [](const QAction *own) { return own->isEnabled(); }));
}

// --- events

void TDocumentFrm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    runGuarded(this, [this] {
        if (!std::exchange(w->wasPlaced, true))
            restorePlacement();
        FormActivate();
    });
}

bool TDocumentFrm::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::WindowActivate && w->created && !w->destroyed)
        runGuarded(this, [this] { FormActivate(); });
    return handled;
}

void TDocumentFrm::closeEvent(QCloseEvent *event)
{
    bool mayClose = false;
    runGuarded(this, [&] { mayClose = FormClose(); });
    event->setAccepted(mayClose);
    if (!mayClose)
        return;
    finish();
    if (w->modalLoop)
        w->modalLoop->quit();
}

// --- what the user arranged

// The window that the screen fills: the document window around it, if there is one.
QWidget *TDocumentFrm::placed()
{
    auto *around = qobject_cast<QMdiSubWindow *>(parentWidget());
    return around ? around : static_cast<QWidget *>(this);
}

// A document window is placed by its area after it is shown; the kept placement comes after that.
void TDocumentFrm::restorePlacement()
{
    QMetaObject::invokeMethod(this,
                              guarded(this, [this] { ReadFromReg(placed(), FormsPath(), document.name); }),
                              placed() == this ? Qt::DirectConnection : Qt::QueuedConnection);
}

QString TDocumentFrm::settingsGroup() const
{
    return QString(FormsPath() + u'\\' + document.name).replace(u'\\', u'/');
}

void TDocumentFrm::restoreArrangement()
{
    showToolBar(settingsStore().value(settingsGroup() + u"/ToolBar"_s, true).toBool());
    showCaptions(settingsStore().value(settingsGroup() + u"/Captions"_s, true).toBool());
}

void TDocumentFrm::saveArrangement()
{
    SaveToReg(placed(), FormsPath(), document.name, true);
    settingsStore().setValue(settingsGroup() + u"/ToolBar"_s, w->toolBarShown);
    settingsStore().setValue(settingsGroup() + u"/Captions"_s, w->captionsShown);
}

void TDocumentFrm::showCaptions(bool on)
{
    w->captionsShown = on;
    acCaptions->setChecked(on);
    w->bar->setToolButtonStyle(on ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
}

void TDocumentFrm::showToolBar(bool on)
{
    w->toolBarShown = on;
    acToolBar->setChecked(on);
    w->bar->setVisible(on);
}

void TDocumentFrm::ButtonsCaptionClick()
{
    showCaptions(!w->captionsShown);
}

void TDocumentFrm::mnToolsClick()
{
    showToolBar(!w->toolBarShown);
}
