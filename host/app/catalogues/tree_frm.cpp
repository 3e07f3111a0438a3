#include "host/app/catalogues/tree_frm.h"

#include "host/app/catalogues/move_tree.h"
#include "host/app/catalogues/table_lock.h"
#include "host/common/msgbox.h"
#include "host/common/settings_store.h"
#include "host/data/code_picker.h"
#include "host/data/main_datas.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QBoxLayout>
#include <QSplitter>

using namespace Qt::StringLiterals;

namespace {

constexpr int treeWidth = 300;
constexpr int listWidth = 730;
const QString nodeParameter = u"tevas"_s;

TBrowseDescription fromTheTop(TBrowseDescription listed)
{
    listed.parameters.insert(nodeParameter, 0);
    return listed;
}

} // namespace

TTreeFrm::TTreeFrm(TBrowseDescription listed, TTreeDescription described, QWidget *owner)
    : TBrowseFrm(fromTheTop(std::move(listed)), owner),
      tree(std::move(described)),
      view(new TMoveTree),
      panes(new QSplitter(Qt::Horizontal))
{
    description.edit = [this](const QString &caption, bool isNew, Variant &key) {
        double id = key.toDouble();
        const QString below =
            isNew && node() > 0 ? u" po: "_s + codes->label(codes->rowOf(node())) : QString();
        const bool saved = tree.edit(caption + below, isNew, id, node());
        key = id;
        return saved;
    };
    resize(TTreeFrm::sizeHint());
    buildTree();
    addTreeActions();
}

void TTreeFrm::buildTree()
{
    view->setObjectName(u"Tree"_s);
    view->setAccessibleName(tree.root);
    view->chosen = [this] { nodeChosen(); };
    view->dropped = [this](double key, double onto) { moveRow(key, onto); };
    QLayout *body = grid()->parentWidget()->layout();
    delete body->replaceWidget(grid(), panes);
    panes->addWidget(view);
    panes->addWidget(grid());
    panes->setChildrenCollapsible(false);
    panes->setStretchFactor(1, 1);
    panes->setSizes({treeWidth, listWidth});
}

void TTreeFrm::addTreeActions()
{
    acNewBelow = addListAction({.name = u"acNewBelow"_s,
                                .text = u"Naujas že&miau"_s,
                                .hint = u"Naujas įrašas žemiau esamo"_s,
                                .picture = TIcon::Add,
                                .keys = {Qt::CTRL | Qt::Key_Insert},
                                .handler =
                                    [this] {
                                        showNode(currentKey().toDouble());
                                        NewBtnClick();
                                    },
                                .enabled = [this] { return movable(); },
                                .separated = true});
    addMoves();
    addSteps();
}

bool TTreeFrm::movable() const
{
    return !currentKey().isNull() && Editable() && !CurrentUser().viewOnly;
}

void TTreeFrm::addMoves()
{
    acMove = addListAction({.name = u"acMove"_s,
                            .text = u"Per&kelti…"_s,
                            .hint = u"Perkelti įrašą į kitą vietą"_s,
                            .picture = TIcon::Folder,
                            .keys = {Qt::CTRL | Qt::Key_M},
                            .handler = [this] { moveByPicker(); },
                            .enabled = [this] { return movable(); }});
    acMoveTop = addListAction({.name = u"acMoveTop"_s,
                               .text = u"Perkelti į pirmą &lygį"_s,
                               .keys = {Qt::CTRL | Qt::SHIFT | Qt::Key_M},
                               .handler = [this] { moveRow(currentKey().toDouble(), 0); },
                               .enabled = [this] { return movable(); },
                               .place = TActionPlace::Menu});
}

void TTreeFrm::addSteps()
{
    acInto = addListAction({.name = u"acInto"_s,
                            .text = u"&Gilyn"_s,
                            .hint = u"Rodyti, kas yra žemiau įrašo"_s,
                            .picture = TIcon::Open,
                            .keys = {Qt::CTRL | Qt::Key_Right},
                            .handler = [this] { showNode(currentKey().toDouble()); },
                            .enabled = [this] { return !currentKey().isNull(); },
                            .place = TActionPlace::Menu});
    acUp = addListAction({.name = u"acUp"_s,
                          .text = u"A&ukštyn"_s,
                          .hint = u"Vienu lygiu aukštyn"_s,
                          .picture = TIcon::Up,
                          .keys = {Qt::CTRL | Qt::Key_Left},
                          .handler =
                              [this] {
                                  const int above = codes->at(codes->rowOf(node())).parent;
                                  showNode(above < 0 ? 0 : codes->at(above).id);
                              },
                          .enabled = [this] { return node() > 0; },
                          .place = TActionPlace::Menu});
}

// --- the node

double TTreeFrm::node() const
{
    return view->node();
}

void TTreeFrm::showNode(double key)
{
    view->goTo(key);
}

void TTreeFrm::nodeChosen()
{
    description.parameters.insert(nodeParameter, node());
    TBrowseFrm::RefreshData(node());
}

void TTreeFrm::RefreshData(const Variant &key)
{
    codes = std::make_shared<const TCodeTree>(TCodeTree::read(Database(), tree.nodes, tree.codeTitle));
    view->fill(*codes, tree.root);
    showCurrent(key.toDouble());
    description.parameters.insert(nodeParameter, node());
    TBrowseFrm::RefreshData(key);
}

// A row that was moved elsewhere is followed.
void TTreeFrm::showCurrent(double key)
{
    const int row = codes->rowOf(key);
    const int above = row < 0 ? -1 : codes->at(row).parent;
    const double parent = above < 0 ? 0 : codes->at(above).id;
    if (row < 0 || node() == 0 || node() == key || node() == parent)
        return;
    const QSignalBlocker quiet(view);
    view->goTo(parent);
}

void TTreeFrm::CheckToolButtons()
{
    TBrowseFrm::CheckToolButtons();
    view->setDragEnabled(Editable() && !CurrentUser().viewOnly);
}

// --- moving

void TTreeFrm::moveByPicker()
{
    const double key = currentKey().toDouble();
    const TCodePick pick{
        .caption = u"Kur perkelti %1?"_s.arg(codes->label(codes->rowOf(key))),
        .name = description.name + u"Picker"_s,
        .current = key,
    };
    const double onto = TCodePicker(this, codes, pick).choose();
    if (onto > 0)
        moveRow(key, onto);
}

// Whether the row may go there is tried out first: what cannot be is not asked for.
void TTreeFrm::moveRow(double key, double parent)
{
    const int row = codes->rowOf(key), above = codes->rowOf(parent);
    if (!Editable() || CurrentUser().viewOnly || row < 0 || key == parent)
        return;
    {
        const TTransaction trial(Database());
        place(key, parent);
    }
    const QString target = above < 0 ? u"į pirmą lygį"_s : u"po „%1“"_s.arg(codes->label(above));
    QStringList question{u"Ar perkelti „%1“ %2?"_s.arg(codes->label(row), target)};
    if (tree.consequence)
        question << tree.consequence(parent);
    question.removeAll(QString());
    if (StdMsgBox(mkQuestion, question.join(u'\n')) != mrYes)
        return;
    TTransaction transaction(Database());
    place(key, parent);
    transaction.commit();
    RefreshData(key);
}

// The tree is read anew, another station may have changed it, and changes no more until the row is moved: two
// moves at once would else make a circle that neither saw.
void TTreeFrm::place(double key, double parent)
{
    lockTable(Database(), description.table);
    const TCodeTree now = TCodeTree::read(Database(), tree.nodes, tree.codeTitle);
    const int row = now.rowOf(key), above = now.rowOf(parent);
    if (row < 0)
        throw ERowGone();
    if (parent > 0 && above < 0)
        throw Exception(u"Įrašas, po kuriuo perkeliama, jau ištrintas kitoje darbo vietoje"_s);
    for (int up = above; up >= 0; up = now.at(up).parent)
        if (up == row)
            throw Exception(u"„%1“ negali stovėti pats po savimi"_s.arg(now.label(row)));
    const Variant newParent = parent > 0 ? Variant(parent) : Variant();
    const QVariantMap one{{u"raktas"_s, key}};
    const Variant stored =
        Database()->fieldResult(u"select %1 from %2 where %3 = :raktas"_s.arg(
                                    tree.parentColumn, description.table, description.keyColumn),
                                one);
    if (sameKey(stored, newParent))
        throw Exception(u"„%1“ ten jau ir yra"_s.arg(now.label(row)));
    tree.place(branchOf(now, row), parent, !stored.isNull() && now.at(row).parent < 0);
    Database()->ExecSQL(u"update %1 set %2 = :tevas where %3 = :raktas"_s.arg(
                            description.table, tree.parentColumn, description.keyColumn),
                        {{u"tevas"_s, newParent}, {u"raktas"_s, key}});
}

QString TTreeFrm::pathOf(double key) const
{
    QStringList path;
    for (int row = codes->rowOf(key); row >= 0; row = codes->at(row).parent)
        path.prepend(codes->at(row).code);
    return path.join(u" › "_s);
}

QList<double> TTreeFrm::branchOf(const TCodeTree &codes, int row)
{
    QList<double> keys{codes.at(row).id};
    for (const int child : codes.childrenOf(row))
        keys += branchOf(codes, child);
    return keys;
}

// --- deleting

void TTreeFrm::CheckUsed()
{
    const Variant key = currentKey();
    const QString below =
        u"select count(*) from %1 where %2 = :raktas"_s.arg(description.table, tree.parentColumn);
    if (Database()->fieldResult(below, {{u"raktas"_s, key}}).toInt() > 0)
        throw Exception(u"„%1“ turi žemesnio lygio įrašų: pirmiausia ištrinkite ar perkelkite juos."_s.arg(
            codes->label(codes->rowOf(key.toDouble()))));
    TBrowseFrm::CheckUsed();
}

// Once more, where no other station comes between.
void TTreeFrm::DeleteRow(const Variant &key)
{
    lockTable(Database(), description.table);
    CheckUsed();
    TBrowseFrm::DeleteRow(key);
}

// --- what the user arranged

void TTreeFrm::restoreArrangement()
{
    TBrowseFrm::restoreArrangement();
    panes->restoreState(settingsStore().value(settingsGroup() + u"/Divider"_s).toByteArray());
}

void TTreeFrm::saveArrangement()
{
    TBrowseFrm::saveArrangement();
    settingsStore().setValue(settingsGroup() + u"/Divider"_s, panes->saveState());
}
