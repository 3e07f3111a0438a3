#include "host/controls/browse_frm.h"

#include "host/controls/browse_private.h"
#include "host/controls/session.h"
#include "host/data/main_datas.h"
#include "host/data/reports.h"
#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/guard.h"

#include <QAction>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QList<TBrowseFrm *> &openLists()
{
    static QList<TBrowseFrm *> lists;
    return lists;
}

} // namespace

TBrowseFrm *TBrowseFrm::listInEdit(const QString &name)
{
    for (TBrowseFrm *list : openLists())
        if (list->description.name == name && list->d->query.editing())
            return list;
    return nullptr;
}

TBrowseFrm::TBrowseFrm(TBrowseDescription described, QWidget *owner)
    : TDocumentFrm({.name = described.name, .caption = described.caption, .help = described.help}, owner),
      description(std::move(described)),
      d(std::make_unique<Private>(this))
{
    openLists() << this;
    resize(TBrowseFrm::sizeHint());
    auto *body = new QWidget(this);
    d->grid = new TDBGrid(body);
    d->grid->setObjectName(u"DBGrid"_s);
    d->grid->setAccessibleName(description.caption);
    auto *layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    addSearchLine(layout);
    layout->addWidget(d->grid, 1);
    setBody(body);
    addPanel();
    addActions();
    setFocusProxy(d->grid);
    listen();
}

TBrowseFrm::~TBrowseFrm()
{
    openLists().removeOne(this);
    // The data set goes before the widgets that look at it.
    d->query.disconnect(this);
    d->grid->setDataSet(nullptr);
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
    SetEditable(description.editing != TEditing::Never);
    SetPrintable(description.printable);
    describeFields();
    d->statedOrder = d->orderColumn = statedOrder();
    d->query.setDatabase(Database());
    const TListStatements &worded = description.statements;
    d->query.CachedUpdates = !worded.update.isEmpty();
    d->query.InsertSQL = worded.insert;
    d->query.ModifySQL = worded.update;
    d->query.DeleteSQL = worded.remove;
    if (description.prepare)
        description.prepare(d->query);
    d->grid->setDataSet(&d->query);
    RefreshData(Variant());
    TDocumentFrm::FormCreate();
}

void TBrowseFrm::FormActivate()
{
    if (description.editing == TEditing::UnlessViewOnly)
        SetEditable(!CurrentUser().viewOnly);
    TDocumentFrm::FormActivate();
}

void TBrowseFrm::FormDestroy()
{
    d->tmrFind.stop();
    d->finder.stop();
    d->query.Close();
    TDocumentFrm::FormDestroy();
    if (description.closesReports)
        CloseReports();
}

void TBrowseFrm::PeriodChanged()
{
    RefreshData(currentKey());
}

TDatabase *TBrowseFrm::Database() const
{
    return sessionOf(description.session);
}
