// How the editor of a user looks, and which keys lead where.

#include "src/users/Usersch.h"

#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/lithuanian.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

namespace Usersch {

namespace {

constexpr int nameLength = 25;
constexpr int loginLength = 10;
constexpr int passwordLength = 100;

// A list under its label, which leads to it.
void addUnderLabel(QVBoxLayout *layout, const QString &caption, TRightsList *list, const char *name,
                   const QString &hint)
{
    auto *label = new QLabel(caption);
    label->setBuddy(list);
    list->setObjectName(name);
    list->setAccessibleName(plainCaption(caption));
    list->setToolTip(hint);
    layout->addWidget(label);
    layout->addWidget(list);
}

} // namespace

QList<TFieldRow> TEditUserDlg::userRows()
{
    return {TFieldRow::group(
        {},
        {TFieldRow::freeEdit("Vartotojo v&ardas", "NameEdit").maxLength(nameLength).required(),
         TFieldRow::freeEdit("Vartotojo &pavardė", "PavardeEdit").maxLength(nameLength).required(),
         TFieldRow::freeEdit("Prisijungimo &vardas", "LogNameEdit").maxLength(loginLength).required(),
         TFieldRow::freeEdit("Prisijungimo &slaptažodis", "PassEdit").maxLength(passwordLength).password(),
         TFieldRow::freeCheck("Tik peržiūrėjimui", "cb_tikPerz"),
         TFieldRow::freeCheck("Vartotojų administravimas", "cb_userAdmin")})};
}

// What a message calls the columns.
void TEditUserDlg::nameColumns(TQuery &user)
{
    for (const auto &[column, label] :
         {std::pair("usr_name", "Prisijungimo vardas"), std::pair("usr_vardas", "Vartotojo vardas"),
          std::pair("usr_pavarde", "Vartotojo pavardė"), std::pair("usr_pasw", "Prisijungimo slaptažodis")})
        user.describe(column, [label = label](TField &field) { field.DisplayLabel = label; });
}

void TEditUserDlg::buildForm()
{
    NameEdit = control<QLineEdit>("NameEdit");
    PavardeEdit = control<QLineEdit>("PavardeEdit");
    LogNameEdit = control<QLineEdit>("LogNameEdit");
    PassEdit = control<QLineEdit>("PassEdit");
    cb_tikPerz = control<QCheckBox>("cb_tikPerz");
    cb_userAdmin = control<QCheckBox>("cb_userAdmin");
    OkBtn = saveButton();
    OkBtn->setEnabled(false);
    bodyLayout()->addWidget(rightsGroup(), 1);
    addKeys();
    const QList<QWidget *> order = {cb_userAdmin, RightsTree, FinList,
                                    KDVCheckList, OkBtn,      button("Atšaukti")};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

QWidget *TEditUserDlg::rightsGroup()
{
    auto *group = new QGroupBox("Vartotojo &teisės", this);
    group->installEventFilter(this); // its key leads to the tree, wherever in the group the focus was last
    RightsTree = new TRightsTree;
    RightsTree->setObjectName("RightsTree");
    RightsTree->setAccessibleName("Suteiktos vartotojui teisės");
    RightsTree->setToolTip("Suteiktos vartotojui teisės");
    FinList = new TRightsList;
    FinList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    KDVCheckList = new TRightsList;
    RightsTree->setWorkPlaces(KDVCheckList);
    auto *given = new QVBoxLayout;
    addUnderLabel(given, "&Finansavimo šaltinis", FinList, "FinList",
                  "Pažymėkite finansavimo šaltinius su kuriais dirbs vartotojas, ir tempkite prie vartotojo "
                  "teisių");
    addUnderLabel(given, "&Darbo vietos", KDVCheckList, "KDVCheckList", "Darbo vietos ");
    auto *layout = new QHBoxLayout(group);
    layout->addWidget(RightsTree, 1);
    layout->addLayout(given, 1);
    return group;
}

// The other letters are those of the labels.
void TEditUserDlg::addKeys()
{
    const auto lead = [this](const char *keys, QWidget *where) {
        auto *shortcut = new QShortcut(QKeySequence(keys), this);
        connectGuarded(shortcut, &QShortcut::activated, this,
                       [where] { where->setFocus(Qt::ShortcutFocusReason); });
    };
    lead("Alt+L", PassEdit);
    lead("Alt+R", NameEdit);
}

void TEditUserDlg::listen()
{
    connectGuarded(PassEdit, &QLineEdit::textChanged, this, [this] { passwordChanged = true; });
    connectGuarded(RightsTree, &QTreeWidget::itemSelectionChanged, this, [this] { judgeSave(); });
    connectGuarded(RightsTree, &TRightsTree::dropped, this,
                   [this](const QString &origin, QTreeWidgetItem *node) { takeDrop(origin, node); });
    for (QWidget *list : {static_cast<QWidget *>(RightsTree), static_cast<QWidget *>(FinList),
                          static_cast<QWidget *>(KDVCheckList)})
        list->installEventFilter(this);
}

} // namespace Usersch
