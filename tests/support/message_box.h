#pragma once

#include "tests/support/print.h"

#include <QMessageBox>
#include <QStringList>

#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

// Modal windows stop a test until somebody answers them. Here tests say beforehand what the user does:
//
//     NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
//     frm.DelBtnClick();
//     EXPECT_EQ(boxes.at(0).kind, 18);
//     EXPECT_EQ(boxes.at(0).text, u"Ar tikrai norite ištrinti?");
//
//     OnNextDialog<TSasLikDlg> dialog([](TSasLikDlg &dlg) { type(…); pressButton(dlg, u"&Taip"); });
//
// A window that nobody expects fails the test and is closed (a window of progress aside, which goes by
// itself), as does one that is still open long after its answer. A box or dialog that was expected and did
// not come fails the test when the object goes.
//
// What is set up first is served first. What is set up inside a dialog's function is served before what waits
// outside.

// A message box as it stood before the user.
struct ShownBox {
    int kind = 0; // as given to StdMsgBox: 18, 33, 49, 81, 99; 0 for another mixture of icon and buttons
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString title;
    QString text;
    QString details;     // informative and detailed text
    QStringList buttons; // their texts, from left to right
};

// What is expected of the next modal windows; the two classes below say which.
class ModalExpectation {
public:
    ModalExpectation();
    virtual ~ModalExpectation();
    ModalExpectation(const ModalExpectation &) = delete;
    ModalExpectation &operator=(const ModalExpectation &) = delete;

    // Whether this window is the one awaited.
    virtual bool awaits(QWidget *window) const = 0;
    virtual void answer(QWidget *window) = 0;

    // How many dialogs' functions were running when it was set up.
    int depth() const { return level; }

private:
    int level;
};

// The next message boxes, one for each button given: that button is pressed.
class NextBoxes : public ModalExpectation {
public:
    NextBoxes(std::initializer_list<QMessageBox::StandardButton> presses);
    ~NextBoxes() override;

    int count() const { return int(boxes.size()); } // how many came so far
    ShownBox at(int index) const;                   // an empty box, and a failure, when it did not come
    QStringList texts() const;

    bool awaits(QWidget *window) const override;
    void answer(QWidget *window) override;

private:
    std::vector<QMessageBox::StandardButton> presses;
    std::vector<ShownBox> boxes;
};

// The next modal window of class T: the function does in it what the user does.
class NextDialog : public ModalExpectation {
public:
    ~NextDialog() override;
    bool came() const { return done; }
    bool awaits(QWidget *window) const override { return !done && accepts(window); }
    void answer(QWidget *window) override;

protected:
    NextDialog(std::function<bool(QWidget *)> accepts, std::function<void(QWidget *)> act);

private:
    std::function<bool(QWidget *)> accepts;
    std::function<void(QWidget *)> act;
    bool done = false;
};

template<class T> class OnNextDialog : public NextDialog {
public:
    explicit OnNextDialog(std::function<void(T &)> user)
        : NextDialog([](QWidget *window) { return dynamic_cast<T *>(window) != nullptr; },
                     [user](QWidget *window) { user(*dynamic_cast<T *>(window)); })
    {
    }
};

// --- the user's hands

// Presses the button with this text ("&" may be left out); the test fails when there is none that is enabled.
void pressButton(QWidget &window, const QString &text);

// Goes to a control, replaces its text as a user does and leaves it there; press Tab with leave().
void type(QWidget *control, const QString &text);
void typeKeys(QWidget *control, const QString &text); // as it is typed where the cursor stands
void leave(QWidget *control);

// Watches for modal windows; installed once, by main().
void watchModalWindows();
