#include "host/data/code_picker.h"

#include "host/common/settings_store.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

const QString chooseButton = QStringLiteral("ChooseBtn");

// Names end with an ellipsis in the middle of nothing: the name column takes the room, the code what it
// needs.
void setColumns(QHeaderView *header)
{
    header->setStretchLastSection(true);
    header->setSectionResizeMode(ccCode, QHeaderView::Interactive);
    header->setDefaultAlignment(Qt::AlignCenter);
    header->setHighlightSections(false);
}

void setUpView(QAbstractItemView *view, QAbstractItemModel *model, const QString &name)
{
    view->setModel(model);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setAccessibleName(name);
}

QToolButton *viewButton(const QString &text)
{
    auto *button = new QToolButton;
    button->setText(text);
    button->setCheckable(true);
    button->setAutoExclusive(true);
    return button;
}

} // namespace

TCodePicker::TCodePicker(QWidget *owner, std::shared_ptr<const TCodeTree> rows, const TCodePick &picked)
    : TDialog(owner),
      codes(std::move(rows)),
      pick(picked),
      treeModel(new TCodeTreeModel(codes, this)),
      listModel(new TCodeListModel(codes, this))
{
    setObjectName(pick.name);
    setWindowFlag(Qt::WindowMinMaxButtonsHint);
    describe(
        pick.caption, {}, nullptr,
        {{QStringLiteral("&Pasirinkti"), TDialogButton::Action, true, [this] { choiceMade(); }, chooseButton},
         {QStringLiteral("&Atšaukti"), TDialogButton::Cancel, false, {}, {}}});
    bodyLayout()->addWidget(buildSearch());
    buildViews();
    bodyLayout()->addWidget(views, 1);
    bodyLayout()->addWidget(countLabel = new QLabel);
    resize(620, 520);
    ReadFromReg(this, FormsPath(), pick.name);
    showView(pick.view);
    if (codes->count() > 0)
        showRow(qMax(0, codes->rowOf(pick.current)));
    updateChoice();
    searchEdit->setFocus();
}

TCodePicker::~TCodePicker() = default;

QWidget *TCodePicker::buildSearch()
{
    auto *bar = new QWidget;
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *label = new QLabel(QStringLiteral("&Ieškoti:"));
    searchEdit = new QLineEdit;
    searchEdit->setClearButtonEnabled(true);
    searchEdit->setPlaceholderText(QStringLiteral("%1 arba pavadinimas").arg(codes->codeTitle()));
    searchEdit->installEventFilter(this);
    label->setBuddy(searchEdit);
    treeButton = viewButton(QStringLiteral("&Medis"));
    listButton = viewButton(QStringLiteral("&Sąrašas"));
    layout->addWidget(label);
    layout->addWidget(searchEdit, 1);
    layout->addWidget(treeButton);
    layout->addWidget(listButton);
    connect(searchEdit, &QLineEdit::textChanged, this, &TCodePicker::search);
    connect(treeButton, &QToolButton::clicked, this, [this] { showView(TCodePick::View::Tree); });
    connect(listButton, &QToolButton::clicked, this, [this] { showView(TCodePick::View::List); });
    return bar;
}

void TCodePicker::buildViews()
{
    views = new QStackedWidget;
    tree = new QTreeView;
    setUpView(tree, treeModel, QStringLiteral("Medis"));
    tree->setUniformRowHeights(true);
    tree->setExpandsOnDoubleClick(false);
    setColumns(tree->header());
    tree->setColumnWidth(ccCode, 200);
    list = new QTableView;
    setUpView(list, listModel, QStringLiteral("Sąrašas"));
    list->setShowGrid(false);
    list->setTabKeyNavigation(false);
    list->verticalHeader()->hide();
    list->verticalHeader()->setDefaultSectionSize(list->fontMetrics().height() + 6);
    setColumns(list->horizontalHeader());
    list->setColumnWidth(ccCode, 140);
    for (QAbstractItemView *view :
         {static_cast<QAbstractItemView *>(tree), static_cast<QAbstractItemView *>(list)}) {
        views->addWidget(view);
        view->installEventFilter(this);
        connect(view, &QAbstractItemView::doubleClicked, this, &TCodePicker::choiceMade);
        connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this,
                &TCodePicker::updateChoice);
    }
    connect(listModel, &QAbstractItemModel::modelReset, this, &TCodePicker::updateChoice);
}

double TCodePicker::choose()
{
    if (exec() != QDialog::Accepted)
        return 0;
    const int row = currentRow();
    return row < 0 ? 0 : codes->at(row).id;
}

bool TCodePicker::canChoose(int row) const
{
    return pick.anyRow || (codes->at(row).detail && !codes->isSummary(row));
}

void TCodePicker::done(int result)
{
    if (CanSave())
        SaveToReg(this, FormsPath(), pick.name, false);
    TDialog::done(result);
}

// The arrow keys lead from the search box into the list, Enter in a view chooses there.
bool TCodePicker::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return TDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (watched == searchEdit && (key == Qt::Key_Down || key == Qt::Key_PageDown)) {
        views->currentWidget()->setFocus();
        return true;
    }
    if (enter) {
        choiceMade();
        return true;
    }
    return TDialog::eventFilter(watched, event);
}

// A view is asked for by button: a search ends then. The row stays current.
void TCodePicker::showView(TCodePick::View view)
{
    const int row = currentRow();
    pick.view = view;
    const QSignalBlocker quiet(searchEdit);
    searchEdit->clear();
    search({});
    showRow(row);
}

void TCodePicker::search(const QString &text)
{
    const int row = currentRow();
    const bool searching = !text.trimmed().isEmpty();
    const bool asList = searching || pick.view == TCodePick::View::List;
    const QList<int> rows = asList ? codes->search(text) : QList<int>();
    listModel->setRows(rows);
    views->setCurrentWidget(asList ? static_cast<QWidget *>(list) : tree);
    treeButton->setChecked(!asList);
    listButton->setChecked(asList);
    showCount(asList ? int(rows.size()) : codes->count());
    showRow(rows.contains(row) && !searching ? row : rows.isEmpty() ? row : rows.first());
}

void TCodePicker::showCount(int found)
{
    countLabel->setText(QStringLiteral("Įrašų kiekis: %1").arg(found));
}

int TCodePicker::currentRow() const
{
    const auto *view = static_cast<QAbstractItemView *>(views->currentWidget());
    const QModelIndex index = view->currentIndex();
    return index.isValid() ? index.data(CodeRowRole).toInt() : -1;
}

void TCodePicker::showRow(int row)
{
    const bool inTree = views->currentWidget() == tree;
    const QModelIndex index = inTree ? treeModel->indexOf(row) : listModel->indexOf(row);
    auto *view = static_cast<QAbstractItemView *>(views->currentWidget());
    view->setCurrentIndex(index);
    if (index.isValid())
        view->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

void TCodePicker::updateChoice()
{
    const int row = currentRow();
    button(chooseButton)->setEnabled(row >= 0 && canChoose(row));
}

void TCodePicker::choiceMade()
{
    const int row = currentRow();
    if (row < 0)
        return;
    if (canChoose(row))
        accept();
    else
        openInTree(row);
}

// What cannot be chosen shows what stands below it.
void TCodePicker::openInTree(int row)
{
    if (views->currentWidget() != tree) {
        showView(TCodePick::View::Tree);
        showRow(row);
        tree->setFocus();
    }
    const QModelIndex index = treeModel->indexOf(row);
    tree->setExpanded(index, !tree->isExpanded(index));
}
