#include "tests/support/message_box.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QProgressDialog>
#include <QTest>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int patienceMs = 20'000;

int answering = 0; // how many answers are running, one inside the other

std::vector<ModalExpectation *> &expectations()
{
    static std::vector<ModalExpectation *> all;
    return all;
}

QString plain(QString buttonText)
{
    return buttonText.remove(u'&');
}

std::string described(const QWidget *window)
{
    QString text =
        QString::fromUtf8(window->metaObject()->className()) + u" \""_s + window->windowTitle() + u'"';
    if (const auto *box = qobject_cast<const QMessageBox *>(window))
        text += u": "_s + box->text();
    return text.toStdString();
}

void dismiss(QWidget *window)
{
    if (auto *dialog = qobject_cast<QDialog *>(window))
        dialog->done(QDialog::Rejected);
    else
        window->close();
}

// The expectation that this window meets: the innermost first, among equals the oldest.
ModalExpectation *expectationOf(QWidget *window)
{
    ModalExpectation *best = nullptr;
    for (ModalExpectation *each : expectations()) {
        if (each->awaits(window) && (!best || each->depth() > best->depth()))
            best = each;
    }
    return best;
}

void closeIfLeftOpen(QWidget *window)
{
    if (!window->isVisible())
        return;
    // A further window above it may rightly keep it open.
    if (QApplication::activeModalWidget() != window) {
        QTimer::singleShot(patienceMs, window, [window] { closeIfLeftOpen(window); });
        return;
    }
    ADD_FAILURE() << "still open long after its answer: " << described(window);
    dismiss(window);
}

void answerWindow(QWidget *window)
{
    if (!window->isVisible() || window->objectName() == "Animation")
        return;
    ModalExpectation *expected = expectationOf(window);
    // How fast the machine is decides whether progress is shown; it goes by itself.
    if (!expected && qobject_cast<QProgressDialog *>(window))
        return;
    if (!expected) {
        ADD_FAILURE() << "nobody expects " << described(window);
        dismiss(window);
        return;
    }
    QTimer::singleShot(patienceMs, window, [window] { closeIfLeftOpen(window); });
    const QPointer<QWidget> stillThere(window);
    ++answering;
    try {
        expected->answer(window);
    } catch (const std::exception &error) {
        ADD_FAILURE() << "the answer to a modal window raised: " << error.what();
        if (stillThere)
            dismiss(window);
    }
    --answering;
}

// Sees every modal window as it is shown and answers it from the window's own event loop.
class ModalWatcher : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject *object, QEvent *event) override
    {
        auto *window = event->type() == QEvent::Show && object->isWidgetType()
                           ? static_cast<QWidget *>(object)
                           : nullptr;
        if (window && window->isWindow() && window->isModal())
            QTimer::singleShot(0, window, [window] { answerWindow(window); });
        return false;
    }
};

int kindOf(const QMessageBox &box)
{
    const QMessageBox::StandardButtons buttons = box.standardButtons();
    const QMessageBox::StandardButtons yesNo = QMessageBox::Yes | QMessageBox::No;
    if (box.icon() == QMessageBox::Question && buttons == yesNo)
        return 18;
    if (box.icon() == QMessageBox::Question && buttons == (yesNo | QMessageBox::Cancel))
        return 99;
    if (buttons != QMessageBox::Ok)
        return 0;
    switch (box.icon()) {
    case QMessageBox::Information:
        return 33;
    case QMessageBox::Warning:
        return 49;
    case QMessageBox::Critical:
        return 81;
    default:
        return 0;
    }
}

ShownBox seen(const QMessageBox &box)
{
    QList<QAbstractButton *> buttons = box.buttons();
    std::ranges::sort(buttons, {}, [](const QAbstractButton *button) { return button->x(); });
    ShownBox shown{kindOf(box), box.icon(), box.windowTitle(), box.text(), {}, {}};
    shown.details = QStringList{box.informativeText(), box.detailedText()}.join(u'\n').trimmed();
    for (const QAbstractButton *button : buttons)
        shown.buttons << plain(button->text());
    return shown;
}
} // namespace

void watchModalWindows()
{
    qApp->installEventFilter(new ModalWatcher(qApp));
}

ModalExpectation::ModalExpectation() : level(answering)
{
    expectations().push_back(this);
}

ModalExpectation::~ModalExpectation()
{
    std::erase(expectations(), this);
}

NextBoxes::NextBoxes(std::initializer_list<QMessageBox::StandardButton> buttons) : presses(buttons) {}

NextBoxes::~NextBoxes()
{
    EXPECT_EQ(boxes.size(), presses.size()) << "fewer message boxes came than expected; the last was: "
                                            << (boxes.empty() ? "none" : boxes.back().text.toStdString());
}

ShownBox NextBoxes::at(int index) const
{
    if (index < count())
        return boxes[size_t(index)];
    ADD_FAILURE() << "message box " << index << " did not come";
    return {};
}

QStringList NextBoxes::texts() const
{
    QStringList all;
    for (const ShownBox &box : boxes)
        all << box.text;
    return all;
}

bool NextBoxes::awaits(QWidget *window) const
{
    return boxes.size() < presses.size() && qobject_cast<QMessageBox *>(window);
}

void NextBoxes::answer(QWidget *window)
{
    auto *box = qobject_cast<QMessageBox *>(window);
    const QMessageBox::StandardButton wanted = presses[boxes.size()];
    boxes.push_back(seen(*box));
    if (QAbstractButton *button = box->button(wanted)) {
        button->click();
        return;
    }
    ADD_FAILURE() << "no such button on " << described(box) << "; it has "
                  << boxes.back().buttons.join(u", ").toStdString();
    dismiss(box);
}

NextDialog::NextDialog(std::function<bool(QWidget *)> acceptsWindow, std::function<void(QWidget *)> actIn)
    : accepts(std::move(acceptsWindow)),
      act(std::move(actIn))
{
}

NextDialog::~NextDialog()
{
    EXPECT_TRUE(done) << "an expected dialog did not come";
}

void NextDialog::answer(QWidget *window)
{
    done = true;
    act(window);
}

void pressButton(QWidget &window, const QString &text)
{
    const auto buttons = window.findChildren<QAbstractButton *>();
    for (QAbstractButton *button : buttons) {
        if (plain(button->text()) != plain(text) || !button->isEnabled() || button->isHidden())
            continue;
        button->setFocus();
        button->click();
        return;
    }
    ADD_FAILURE() << "no enabled button \"" << text.toStdString() << "\" on " << described(&window);
}

// Letters outside ASCII have no key that the test library knows; a keyboard sends them as text alone.
void typeKeys(QWidget *control, const QString &text)
{
    for (const QChar letter : text) {
        if (letter.unicode() < 128) {
            QTest::keyClick(control, letter.toLatin1());
            continue;
        }
        for (const QEvent::Type half : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(half, Qt::Key_unknown, Qt::NoModifier, QString(letter));
            QApplication::sendEvent(control, &event);
        }
    }
}

void type(QWidget *control, const QString &text)
{
    if (!control || !control->isEnabled()) {
        ADD_FAILURE() << "nothing to type \"" << text.toStdString() << "\" into";
        return;
    }
    control->setFocus();
    QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(control, Qt::Key_Delete);
    typeKeys(control, text);
}

void leave(QWidget *control)
{
    QTest::keyClick(control, Qt::Key_Tab);
}
