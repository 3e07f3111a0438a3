// How the editor of a user looks, and which keys lead where.

#include "src/users/Usersch.h"

#include "toolkit/widgets/edit_options.h"
#include "toolkit/widgets/guard.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>

namespace Usersch {

namespace {

constexpr int nameLength = 25;
constexpr int loginLength = 10;
constexpr int passwordLength = 100;

// A caption whose marked letter belongs to a button: it is shown, but it is no key.
class TMarkedLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic,
                              palette(), isEnabled(), text(), foregroundRole());
    }
};

QString withoutMark(QString caption)
{
    return caption.remove(u'&');
}

QLineEdit *editOf(const char *name, const QString &caption, const TEditOptions &options)
{
    auto *edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setAccessibleName(withoutMark(caption));
    applyEditOptions(edit, options);
    return edit;
}

// A list under its label, which leads to it.
void addUnderLabel(QVBoxLayout *layout, const QString &caption, TRightsList *list, const char *name,
                   const QString &hint)
{
    auto *label = new QLabel(caption);
    label->setBuddy(list);
    list->setObjectName(name);
    list->setAccessibleName(withoutMark(caption));
    list->setToolTip(hint);
    layout->addWidget(label);
    layout->addWidget(list);
}

} // namespace

void TEditUserDlg::buildForm()
{
    describe("Vartotojo informacija", {}, nullptr,
             {{"Iš&saugoti", TDialogButton::Save, true, {}, "OkBtn"},
              {"&Atšaukti", TDialogButton::Cancel, false, {}, {}}});
    OkBtn = saveButton();
    OkBtn->setEnabled(false);
    form().hide();
    bodyLayout()->addWidget(userGroup());
    bodyLayout()->addWidget(rightsGroup(), 1);
    addKeys();
    const QList<QWidget *> order = {NameEdit,     PavardeEdit,  LogNameEdit,       PassEdit,
                                    cb_tikPerz,   cb_userAdmin, RightsTree,        FinList,
                                    KDVCheckList, OkBtn,        button("Atšaukti")};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    resize(760, 560);
}

QWidget *TEditUserDlg::userGroup()
{
    auto *group = new QGroupBox(this);
    auto *layout = new QFormLayout(group);
    NameEdit = editOf("NameEdit", "Vartotojo v&ardas", {.maxLength = nameLength});
    PavardeEdit = editOf("PavardeEdit", "Vartotojo &pavardė", {.maxLength = nameLength});
    LogNameEdit = editOf("LogNameEdit", "Prisijungimo &vardas", {.maxLength = loginLength});
    PassEdit =
        editOf("PassEdit", "Prisijungimo &slaptažodis", {.maxLength = passwordLength, .password = true});
    cb_tikPerz = new QCheckBox("Tik peržiūrėjimui");
    cb_tikPerz->setObjectName("cb_tikPerz");
    cb_userAdmin = new QCheckBox("Vartotojų administravimas");
    cb_userAdmin->setObjectName("cb_userAdmin");
    layout->addRow(new TMarkedLabel("Vartotojo v&ardas"), NameEdit);
    layout->addRow("Vartotojo &pavardė", PavardeEdit);
    layout->addRow("Prisijungimo &vardas", LogNameEdit);
    layout->addRow(new TMarkedLabel("Prisijungimo &slaptažodis"), PassEdit);
    layout->addRow(cb_tikPerz);
    layout->addRow(cb_userAdmin);
    return group;
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
    for (QLineEdit *edit : {NameEdit, PavardeEdit, LogNameEdit})
        connectGuarded(edit, &QLineEdit::textChanged, this, [this] { recheck(); });
    connectGuarded(PassEdit, &QLineEdit::textChanged, this, [this] {
        passwordChanged = true;
        recheck();
    });
    connectGuarded(RightsTree, &QTreeWidget::itemSelectionChanged, this, [this] { recheck(); });
    connectGuarded(RightsTree, &TRightsTree::dropped, this,
                   [this](const QString &origin, QTreeWidgetItem *node) { takeDrop(origin, node); });
    connectGuarded(KDVCheckList, &QListWidget::itemChanged, this,
                   [this](QListWidgetItem *item) { workPlaceTicked(item); });
    for (QWidget *list : {static_cast<QWidget *>(RightsTree), static_cast<QWidget *>(FinList),
                          static_cast<QWidget *>(KDVCheckList)})
        list->installEventFilter(this);
}

} // namespace Usersch
