#include "tests/src/walk.h"

#include "host/classifier/book_frm.h"
#include "host/controls/browse_frm.h"
#include "tests/corpus/corpus.h"
#include "tests/src/book_node.h"
#include "tests/support/message_box.h"
#include "toolkit/data/query.h"
#include "toolkit/data/statement.h"
#include "toolkit/widgets/db_edit.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QProgressDialog>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QToolButton>

namespace {

bool takesInput(const QWidget *widget)
{
    return qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QAbstractButton *>(widget) ||
           qobject_cast<const QComboBox *>(widget) || qobject_cast<const QAbstractSpinBox *>(widget) ||
           qobject_cast<const QAbstractItemView *>(widget);
}

// Parts of a composed control belong to the control; only the outermost counts.
bool isPart(const QWidget *widget, const QWidget &window)
{
    for (const QWidget *owner = widget->parentWidget(); owner && owner != &window;
         owner = owner->parentWidget())
        if (takesInput(owner) || owner->inherits("QHeaderView") || owner->inherits("QCalendarWidget"))
            return true;
    return widget->objectName().startsWith("qt_");
}

QList<QWidget *> controls(QWidget &window)
{
    QList<QWidget *> found;
    for (auto *widget : window.findChildren<QWidget *>())
        if (takesInput(widget) && widget->isVisible() && !isPart(widget, window))
            found << widget;
    return found;
}

QString caption(const QWidget *control)
{
    const auto *button = qobject_cast<const QAbstractButton *>(control);
    return button ? button->text() : QString();
}

QLabel *labelOf(const QWidget *control, const QWidget &window)
{
    for (auto *label : window.findChildren<QLabel *>())
        if (label->buddy() == control)
            return label;
    return nullptr;
}

QString describe(const QWidget *control)
{
    return QString("%1 %2 %3")
        .arg(control->metaObject()->className(), control->objectName(), caption(control));
}

// What a reader of the screen is told.
QString spoken(const QWidget *control, QAccessible::Text which)
{
    QAccessibleInterface *told = QAccessible::queryAccessibleInterface(const_cast<QWidget *>(control));
    return told ? told->text(which) : QString();
}

bool isNameless(const QWidget *control, const QWidget &window)
{
    const bool isBox =
        qobject_cast<const QComboBox *>(control) || qobject_cast<const QAbstractSpinBox *>(control);
    const QString name = spoken(control, QAccessible::Name);
    if (isBox && !name.isEmpty() && name == spoken(control, QAccessible::Value))
        return true;
    return name.isEmpty() && caption(control).isEmpty() && control->accessibleName().isEmpty() &&
           !labelOf(control, window);
}

// A text whose button is gone to instead.
bool onlyShows(const QWidget *control)
{
    const auto *text = qobject_cast<const QLineEdit *>(control);
    return text && text->isReadOnly() &&
           qobject_cast<const QToolButton *>(text->parentWidget()->focusProxy());
}

bool hasKeyOfItsOwn(const QWidget *control)
{
    if (caption(control).contains(u'&'))
        return true;
    const auto *tool = qobject_cast<const QToolButton *>(control);
    if (!tool)
        return false;
    // The picker of a composed control is opened by a key of its edit, which its tool tip names.
    const bool byItsEdit = tool->toolTip().endsWith("(F4)");
    return byItsEdit || (tool->defaultAction() && !tool->defaultAction()->shortcuts().isEmpty());
}

// Keys go to the window in front, as a user's do. A window whose owner is in front counts as active before it
// is in front itself; its keys would still go to the owner.
void bringToFront(QWidget &window)
{
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }))
        << qPrintable(window.windowTitle()) << " does not come to the front";
}

void pressEsc(QWidget &window)
{
    QWidget *focused = window.focusWidget();
    QTest::keyClick(focused ? focused : &window, Qt::Key_Escape);
}

void leaveByEsc(QWidget &window)
{
    const QPointer<QWidget> there(&window);
    const QString title = window.windowTitle();
    bringToFront(window);
    // While a list is being read, Esc only ends the reading.
    if (auto *list = qobject_cast<TBrowseFrm *>(&window))
        list->dataSet()->RecordCount();
    pressEsc(window);
    EXPECT_FALSE(there && there->isVisible()) << qPrintable(title) << " is not left by Esc";
}

// Passes every message box, looks at every other window, and from a list at what New and Edit open.
class Visitor : public ModalExpectation {
public:
    explicit Visitor(const std::function<void(QWidget &)> &looks) : look(looks) {}

    bool awaits(QWidget *window) const override { return !qobject_cast<QProgressDialog *>(window); }
    void answer(QWidget *window) override
    {
        if (auto *box = qobject_cast<QMessageBox *>(window))
            pass(*box);
        else
            visitWindow(*window);
    }

    void visitWindow(QWidget &window)
    {
        const QPointer<QWidget> there(&window);
        ++visit.windows;
        ++inside;
        bringToFront(window);
        // Above the first level a book has nothing of its own to show.
        if (auto *book = qobject_cast<TBookFrm *>(&window))
            goToNode(*book, [book] { return book->acEdit->isEnabled(); });
        look(window);
        for (const char *action : {"acNew", "acEdit"})
            if (there && inside <= deepest)
                pressFormAction(window, action);
        if (there)
            leaveByEsc(window);
        --inside;
    }

    TVisit visit;

private:
    // A picker that is opened from a picker may open itself.
    static constexpr int deepest = 2;

    void pressFormAction(QWidget &window, const char *name)
    {
        auto *action = qobject_cast<TDocumentFrm *>(&window) ? window.findChild<QAction *>(name) : nullptr;
        if (auto *book = qobject_cast<TBookFrm *>(&window); book && action)
            goToNode(*book, [action] { return action->isEnabled(); });
        if (!action || !action->isEnabled() || !action->isVisible())
            return;
        const auto met = [this] { return visit.windows + visit.boxes.size(); };
        const qsizetype before = met();
        asked = false;
        bringToFront(window);
        action->trigger();
        if (lookWhileEditing(window))
            return;
        EXPECT_GT(met(), before) << name << " opens nothing in " << qPrintable(window.windowTitle());
    }

    // A document that is edited in place, as against one that opened an editor; Esc only ends the editing
    // then.
    bool lookWhileEditing(QWidget &window)
    {
        const auto *save = window.findChild<QAction *>("acSave");
        if (!save || !save->isEnabled())
            return false;
        look(window);
        pressEsc(window);
        EXPECT_FALSE(save->isEnabled()) << "Esc does not end the editing";
        return true;
    }

    void pass(QMessageBox &box)
    {
        visit.boxes << box.text();
        EXPECT_NE(box.icon(), QMessageBox::Critical) << qPrintable(box.text());
        QAbstractButton *yes = box.button(QMessageBox::Yes);
        QAbstractButton *no = box.button(QMessageBox::No);
        QAbstractButton *answer = yes && !asked ? yes : no ? no : box.buttons().first();
        asked = asked || yes;
        answer->click();
    }

    const std::function<void(QWidget &)> &look;
    bool asked = false;
    int inside = 0;
};

QStringList statementsOf(const TQuery &query)
{
    QStringList statements{query.SQL(), query.InsertSQL, query.ModifySQL, query.DeleteSQL};
    statements.removeAll(QString());
    return statements;
}

// Blanks do not matter, nor which days are asked for.
QString comparable(const QString &statement)
{
    static const QRegularExpression day("'\\d{4}-\\d\\d-\\d\\d'");
    return statement.simplified().replace(day, "'diena'");
}

} // namespace

TVisit visitEntry(const TPackageEntry &entry, const std::function<void(QWidget &)> &look)
{
    Visitor visitor(look);
    if (entry.call) {
        entry.call();
        return visitor.visit;
    }
    const std::unique_ptr<QWidget> window(entry.create(nullptr));
    if (entry.opened)
        entry.opened(window.get());
    window->show();
    visitor.visitWindow(*window);
    return visitor.visit;
}

QStringList controlsWithoutName(QWidget &window)
{
    QStringList nameless;
    for (const QWidget *control : controls(window))
        if (isNameless(control, window))
            nameless << describe(control);
    return nameless;
}

QStringList controlsOutOfReach(QWidget &window)
{
    QStringList unreachable;
    for (const QWidget *control : controls(window)) {
        const bool byTab = control->focusPolicy() & Qt::TabFocus;
        if (control->isEnabled() && !byTab && !onlyShows(control) && !hasKeyOfItsOwn(control))
            unreachable << describe(control);
    }
    return unreachable;
}

QStringList accelerators(QWidget &window)
{
    QStringList letters;
    const auto add = [&letters](const QString &text) {
        const qsizetype at = text.indexOf(u'&');
        if (at >= 0 && at + 1 < text.size() && text[at + 1] != u'&')
            letters << text[at + 1].toUpper();
    };
    for (const QWidget *control : controls(window)) {
        add(caption(control));
        if (const QLabel *label = labelOf(control, window))
            add(label->text());
    }
    return letters;
}

QStringList repeatedAccelerators(QWidget &window)
{
    QStringList letters = accelerators(window);
    letters.sort();
    QStringList repeated;
    for (qsizetype i = 1; i < letters.size(); ++i)
        if (letters[i] == letters[i - 1] && !repeated.contains(letters[i]))
            repeated << letters[i];
    return repeated;
}

QStringList statementsUnworded(const QWidget &window)
{
    static const QSet<QString> worded = [] {
        QSet<QString> all;
        for (const CorpusEntry &entry : corpusEntries())
            all << comparable(entry.statement);
        return all;
    }();
    static const QRegularExpression orderedByBase(" order by \\w+$");
    QStringList unworded;
    for (const TQuery *query : window.findChildren<TQuery *>())
        for (const QString &statement : statementsOf(*query)) {
            const QString asWorded = comparable(statement);
            if (!worded.contains(asWorded) && !worded.contains(QString(asWorded).remove(orderedByBase)))
                unworded << asWorded;
        }
    return unworded;
}

QStringList editsOfAnotherLength(QWidget &window)
{
    QStringList wrong;
    for (auto *edit : window.findChildren<TDBEdit *>()) {
        const TField *field = edit->Field();
        const bool isText = field && field->DataType() == TFieldType::ftString && field->Size() > 0;
        if (!isText || edit->isReadOnly() || !edit->isEnabled() || !edit->inputMask().isEmpty())
            continue;
        const auto paste = [edit](const QString &text) {
            QApplication::clipboard()->setText(text);
            edit->selectAll();
            edit->paste();
            return edit->text();
        };
        const QString shown = edit->text();
        const int longest = edit->options().maxLength > 0 ? edit->options().maxLength : field->Size();
        const QString whole(longest, u'7');
        if (paste(whole + u'7') != shown || paste(whole) != whole)
            wrong << describe(edit);
        edit->selectAll();
        edit->insert(shown);
    }
    return wrong;
}

QStringList statementsRefused(QWidget &window)
{
    QStringList refused;
    for (const TQuery *query : window.findChildren<TQuery *>())
        for (const QString &statement : statementsOf(*query)) {
            try {
                query->Database()->prepare(statement);
            } catch (const EDatabaseError &error) {
                refused << statement + ": " + error.message();
            }
        }
    return refused;
}
