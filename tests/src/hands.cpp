#include "tests/src/hands.h"

#include "host/classifier/book_frm.h"
#include "host/controls/browse_frm.h"
#include "host/controls/value_dialog.h"
#include "tests/src/book_node.h"
#include "toolkit/report/preview.h"
#include "toolkit/widgets/guard.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>

namespace {

constexpr int rowsTried = 2;
constexpr int deepest = 2;       // a dialog, and what it opens
constexpr int triesOfAClass = 4; // a picker behind every button of every dialog would never end
constexpr int patience = 500;    // boxes; a question that comes back after every yes is given up

// An account that may be entered: its number is taken by every field that takes a number or a text.
const QString plainEntry = QStringLiteral("241");

template<class Widget> QList<QPointer<Widget>> usable(const QWidget &window)
{
    QList<QPointer<Widget>> found;
    for (auto *widget : window.findChildren<Widget *>())
        if (widget->isVisible() && widget->isEnabled())
            found << widget;
    return found;
}

bool stands(const QPointer<QWidget> &window)
{
    return window && window->isVisible();
}

bool onlyLeaves(const QAbstractButton &button)
{
    const QString plain = button.text().remove(u'&');
    return plain == "Atšaukti" || plain == "Atsisakyti" || plain == "Ne" || plain == "Uždaryti";
}

bool isLeftAlone(const QAction &action)
{
    static const QStringList names{"acDelete", "acClose", "acEscape", "acHelp"};
    return names.contains(action.objectName());
}

void triggerAll(const TDocumentFrm &document)
{
    for (QAction *action : document.findChildren<QAction *>())
        if (!isLeftAlone(*action))
            action->trigger();
}

void pressDefault(const QWidget &window)
{
    for (const QPointer<QPushButton> &button : usable<QPushButton>(window))
        if (button->isDefault()) {
            button->click();
            return;
        }
}

// --- one change of a control, and the way back

struct TChange {
    QPointer<QWidget> control;
    std::function<void()> make, undo;
};

// Another text of the same length: its last sign is another one, a letter where there are letters.
QString altered(QString text)
{
    if (text.isEmpty())
        return QStringLiteral("1");
    const QChar last = text.back();
    if (std::ranges::any_of(text, [](QChar sign) { return sign.isLetter(); }))
        text.back() = last == u'X' ? u'Y' : u'X';
    else
        text.back() = last.isDigit() ? QChar(u'0' + (last.digitValue() + 1) % 10) : QChar(u'1');
    return text;
}

TChange typing(QLineEdit *edit)
{
    return {edit, [edit, to = altered(edit->text())] { type(edit, to); },
            [edit, back = edit->text()] { type(edit, back); }};
}

TChange choosing(QComboBox *box)
{
    const bool isLast = box->currentIndex() + 1 >= box->count();
    const auto press = [box](Qt::Key key) {
        box->setFocus();
        QTest::keyClick(box, key);
    };
    return {box, [press, isLast] { press(isLast ? Qt::Key_Up : Qt::Key_Down); },
            [press, isLast] { press(isLast ? Qt::Key_Down : Qt::Key_Up); }};
}

TChange stepping(QAbstractSpinBox *box)
{
    return {box, [box] { QTest::keyClick(box, Qt::Key_Up); }, [box] { QTest::keyClick(box, Qt::Key_Down); }};
}

TChange ticking(QAbstractButton *button)
{
    return {button, [button] { button->click(); }, [button] { button->click(); }};
}

// Ticks every item and puts it where Insert puts it.
TChange takingAll(QListWidget *list)
{
    return {list,
            [list] {
                for (int row = 0; row < list->count(); ++row) {
                    list->setCurrentRow(row);
                    QTest::keyClick(list, Qt::Key_Space);
                    QTest::keyClick(list, Qt::Key_Insert);
                }
            },
            [] {}};
}

template<class Widget>
void add(std::vector<TChange> &changes, const QWidget &window, TChange (*change)(Widget *))
{
    for (const QPointer<Widget> &widget : usable<Widget>(window))
        changes.push_back(change(widget));
}

std::vector<TChange> changesIn(const QWidget &window)
{
    std::vector<TChange> changes;
    for (const QPointer<QLineEdit> &edit : usable<QLineEdit>(window))
        if (!edit->isReadOnly())
            changes.push_back(typing(edit));
    add<QComboBox>(changes, window, choosing);
    add<QAbstractSpinBox>(changes, window, stepping);
    for (const QPointer<QAbstractButton> &button : usable<QAbstractButton>(window))
        if (qobject_cast<QCheckBox *>(button) || qobject_cast<QRadioButton *>(button))
            changes.push_back(ticking(button));
    add<QListWidget>(changes, window, takingAll);
    return changes;
}

// In a document that is edited in place.
void changeInPlace(TDocumentFrm &document)
{
    auto *edit = document.findChild<QAction *>("acEdit");
    auto *save = document.findChild<QAction *>("acSave");
    if (!edit || !save)
        return;
    edit->trigger();
    for (const TChange &change : changesIn(document)) {
        edit->trigger();
        change.make();
        save->trigger();
    }
}

void saveAfterEachChange(QWidget &window)
{
    const QPointer<QWidget> there(&window);
    for (const TChange &change : changesIn(window)) {
        if (!change.control || !change.control->isEnabled())
            continue;
        change.make();
        if (stands(there))
            pressDefault(window);
        if (!stands(there))
            return;
        if (change.control && change.control->isEnabled())
            change.undo();
    }
}

void saveWithAllFilled(QWidget &window)
{
    for (const QPointer<QLineEdit> &edit : usable<QLineEdit>(window))
        if (edit && !edit->isReadOnly() && edit->text().isEmpty())
            type(edit, plainEntry);
    pressDefault(window);
}

void pressEveryButton(QWidget &window)
{
    const QPointer<QWidget> there(&window);
    for (const QPointer<QAbstractButton> &button : usable<QAbstractButton>(window)) {
        const auto *tool = qobject_cast<QToolButton *>(button);
        if (stands(there) && button && button->isEnabled() && !onlyLeaves(*button) && !(tool && tool->menu()))
            button->click();
    }
}

} // namespace

bool TryingHands::awaits(QWidget *window) const
{
    return !qobject_cast<QProgressDialog *>(window);
}

void TryingHands::answer(QWidget *window)
{
    ++depth;
    if (auto *box = qobject_cast<QMessageBox *>(window))
        answerBox(*box);
    else if (depth > deepest || ++tried[window->metaObject()->className()] > triesOfAClass ||
             qobject_cast<TReportPreview *>(window) || qobject_cast<QFileDialog *>(window))
        window->close();
    else
        tryWindow(*window);
    --depth;
}

void TryingHands::answerBox(QMessageBox &box)
{
    QAbstractButton *yes = box.button(QMessageBox::Yes);
    if (++boxes > patience)
        box.reject();
    else
        (yes ? yes : box.buttons().first())->click();
}

void TryingHands::tryWindow(QWidget &window)
{
    const QPointer<QWidget> there(&window);
    auto *document = qobject_cast<TDocumentFrm *>(&window);
    const auto *list = qobject_cast<TBrowseFrm *>(&window);
    const bool onlyShows = list ? !list->Editable() : qobject_cast<TValueDialog *>(&window) != nullptr;
    ++met;
    writers += int(!onlyShows);
    if (document)
        tryDocument(*document);
    else
        tryDialog(window);
    if (stands(there))
        there->close();
}

// What is deleted comes first: afterwards it would be what was added.
void TryingHands::tryDocument(TDocumentFrm &document)
{
    if (auto *book = qobject_cast<TBookFrm *>(&document)) {
        tryBook(*book);
        return;
    }
    // What is switched off may still be called by its key or from the program.
    auto *list = qobject_cast<TBrowseFrm *>(&document);
    const auto call = [list](void (TBrowseFrm::*handler)()) {
        if (list)
            runGuarded(list, [&] { (list->*handler)(); });
    };
    if (auto *deletes = document.findChild<QAction *>("acDelete"))
        deletes->trigger();
    call(&TBrowseFrm::DelBtnClick);
    for (int row = 0; row < rowsTried; ++row) {
        triggerAll(document);
        call(&TBrowseFrm::NewBtnClick);
        call(&TBrowseFrm::EditBtnClick);
        call(&TBrowseFrm::NextBtnClick);
    }
    changeInPlace(document);
}

// What may be done depends on the node.
void TryingHands::tryBook(TBookFrm &book)
{
    for (QAction *action : {book.acDelete, book.acNew, book.acEdit})
        if (goToNode(book, [action] { return action->isEnabled(); })) {
            action->trigger();
            triggerAll(book);
        }
}

void TryingHands::tryDialog(QWidget &dialog)
{
    const QPointer<QWidget> there(&dialog);
    for (const auto step : {saveAfterEachChange, saveWithAllFilled, pressEveryButton})
        if (stands(there))
            step(dialog);
}

void TryingHands::tryEntry(const TPackageEntry &entry)
{
    runGuarded(nullptr, [this, &entry] {
        if (entry.call) {
            entry.call();
            return;
        }
        const std::unique_ptr<QWidget> window(entry.create(nullptr));
        if (entry.opened)
            entry.opened(window.get());
        if (auto *dialog = qobject_cast<QDialog *>(window.get())) {
            dialog->exec();
            return;
        }
        window->show();
        tryWindow(*window);
    });
}
