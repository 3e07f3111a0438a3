// A dialog by keyboard: what Enter, Esc, Tab and the Alt keys do, and how that shows.

#include "tests/toolkit/widgets/window_fixture.h"
#include "toolkit/widgets/accelerators.h"
#include "toolkit/widgets/dialog.h"

#include <QAccessible>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSpinBox>
#include <QStyle>

namespace {

class KeysDlg : public TDialog {
public:
    KeysDlg(TDataSet *set, const QList<TFieldRow> &rows,
            const QList<TDialogButton> &buttons = saveAndCancel())
    {
        describe(u"Klavišai"_s, rows, set, buttons);
    }

    using TDialog::bodyLayout;
    using TDialog::button;
    using TDialog::control;
    using TDialog::form;
    using TDialog::saveButton;

    void Load() override { dataSet()->Edit(); }
};

class DialogKeys : public InWindow {
protected:
    void SetUp() override
    {
        InWindow::SetUp();
        make({TFieldRow::edit(u"Pavadinimas"_s, u"pre_pavad"_s).required().browse([this] { ++browsed; }),
              TFieldRow::edit(u"Suma"_s, u"pre_suma"_s).money(),
              TFieldRow::check(u"Tinka"_s, u"pre_tip"_s, u"1"_s, u"0"_s)});
    }
    void TearDown() override
    {
        dialog.reset();
        InWindow::TearDown();
    }

    void make(const QList<TFieldRow> &rows, const QList<TDialogButton> &buttons = saveAndCancel())
    {
        dialog = std::make_unique<KeysDlg>(set.get(), rows, buttons);
    }

    // Runs the dialog while the user does this in it.
    bool run(const std::function<void()> &user)
    {
        const OnNextDialog<KeysDlg> shown([&](KeysDlg &opened) {
            QApplication::setActiveWindow(&opened);
            user();
            if (opened.isVisible())
                opened.reject();
        });
        return dialog->run();
    }

    QWidget *control(const QString &name) { return dialog->control(name); }
    static void press(Qt::Key key, Qt::KeyboardModifiers held = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }
    void tabTo(const QWidget *target)
    {
        for (int i = 0; i < 100 && QApplication::focusWidget() != target; ++i)
            press(Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), target);
    }

    std::unique_ptr<KeysDlg> dialog;
    int browsed = 0;
};

QImage look(QWidget *widget)
{
    return widget->grab().toImage();
}

QString markOf(const QString &caption)
{
    const qsizetype mark = caption.indexOf(u'&');
    return mark < 0 ? QString() : caption.mid(mark + 1, 1).toUpper();
}

} // namespace

// --- Enter

TEST_F(DialogKeys, EnterOnTheCancelButtonCancels)
{
    EXPECT_FALSE(run([&] {
        typeOver(control(u"pre_pavad"_s), u"Kita"_s);
        tabTo(dialog->button(u"Atšaukti"_s));
        press(Qt::Key_Return);
        EXPECT_FALSE(dialog->isVisible());
    }));
    EXPECT_EQ(stored(u"pre_pavad"_s), u"Agurkai"_s);
}

TEST_F(DialogKeys, EnterAnywhereElseSaves)
{
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        const QString name = u"Kita %1"_s.arg(int(enter));
        EXPECT_TRUE(run([&] {
            typeOver(control(u"pre_pavad"_s), name);
            tabTo(control(u"pre_tip"_s));
            press(enter, enter == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
        }));
        EXPECT_EQ(stored(u"pre_pavad"_s), name);
    }
}

TEST_F(DialogKeys, EnterOnAButtonBesideAFieldPressesThat)
{
    EXPECT_FALSE(run([&] {
        tabTo(dialog->form().browseButton(u"pre_pavad"_s));
        press(Qt::Key_Return);
        EXPECT_TRUE(dialog->isVisible());
    }));
    EXPECT_EQ(browsed, 1);
}

TEST_F(DialogKeys, AnEnterHeldDownSavesNothing)
{
    EXPECT_FALSE(run([&] {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
        QApplication::sendEvent(control(u"pre_pavad"_s), &held);
        EXPECT_TRUE(dialog->isVisible());
    }));
}

TEST_F(DialogKeys, EnterDoesNothingWhileTheSaveButtonIsDisabled)
{
    EXPECT_FALSE(run([&] {
        dialog->saveButton()->setEnabled(false);
        press(Qt::Key_Return);
        EXPECT_TRUE(dialog->isVisible());
    }));
}

TEST_F(DialogKeys, ADialogWithoutADefaultButtonIsNotDecidedByEnter)
{
    make(
        {TFieldRow::edit(u"Pavadinimas"_s, u"pre_pavad"_s)},
        {{u"&Taip"_s, TDialogButton::Save, false, {}, {}}, {u"&Ne"_s, TDialogButton::Cancel, false, {}, {}}});
    EXPECT_FALSE(run([&] {
        press(Qt::Key_Return);
        EXPECT_TRUE(dialog->isVisible());
    }));
}

TEST_F(DialogKeys, TheRefusalMayBeTheDefault)
{
    make({TFieldRow::edit(u"Pavadinimas"_s, u"pre_pavad"_s)},
         {{.caption = u"&Taip"_s, .role = TDialogButton::Save},
          {.caption = u"&Ne"_s, .role = TDialogButton::Cancel, .isDefault = true}});
    EXPECT_FALSE(run([&] {
        press(Qt::Key_Return);
        EXPECT_FALSE(dialog->isVisible());
    }));
}

TEST_F(DialogKeys, CtrlEnterSavesAndGoesOnWhereThatIsOffered)
{
    EXPECT_FALSE(run([&] {
        EXPECT_FALSE(dialog->saveButton()->toolTip().contains(u"Ctrl+Enter"));
        press(Qt::Key_Return, Qt::ControlModifier);
        EXPECT_TRUE(dialog->isVisible());
    }));
    TNextOffer next;
    make({TFieldRow::edit(u"Pavadinimas"_s, u"pre_pavad"_s)});
    EXPECT_TRUE(run([&] {
        EXPECT_TRUE(dialog->saveButton()->toolTip().contains(u"Ctrl+Enter"));
        typeOver(control(u"pre_pavad"_s), u"Kita"_s);
        dialog->saveButton()->setEnabled(false);
        press(Qt::Key_Return, Qt::ControlModifier);
        EXPECT_TRUE(dialog->isVisible());
        dialog->saveButton()->setEnabled(true);
        press(Qt::Key_Return, Qt::ControlModifier);
    }));
    EXPECT_TRUE(next.taken());
    EXPECT_FALSE(next.taken());
    EXPECT_EQ(stored(u"pre_pavad"_s), u"Kita"_s);
}

// --- Esc and refusals

TEST_F(DialogKeys, EscClosesWhateverIsTyped)
{
    EXPECT_FALSE(run([&] {
        typeOver(control(u"pre_suma"_s), u"500"_s);
        press(Qt::Key_Escape);
        EXPECT_FALSE(dialog->isVisible());
    }));
    EXPECT_EQ(stored(u"pre_suma"_s).toDouble(), 12.5);
}

TEST_F(DialogKeys, ARefusedAmountGetsTheCursorAndItsTextSelectedAndEscStillCloses)
{
    NextBoxes boxes{QMessageBox::Ok};
    EXPECT_FALSE(run([&] {
        typeOver(control(u"pre_suma"_s), u"1000,505"_s);
        tabTo(dialog->saveButton());
        press(Qt::Key_Return);
        auto *sum = dialog->control<TDBEdit>(u"pre_suma"_s);
        QApplication::setActiveWindow(dialog.get());
        EXPECT_TRUE(sum->hasFocus());
        EXPECT_EQ(sum->selectedText(), u"1000,505"_s);
        EXPECT_FALSE(sum->invalidReason().isEmpty());
        press(Qt::Key_Escape);
        EXPECT_FALSE(dialog->isVisible());
    }));
    EXPECT_EQ(boxes.at(0).text, u"Laukas \"Suma\" gali turėti tik du skaitmenis po kablelio!"_s);
}

TEST_F(DialogKeys, AnEmptyRequiredFieldGetsTheCursor)
{
    NextBoxes boxes{QMessageBox::Ok};
    run([&] {
        typeOver(control(u"pre_pavad"_s), u" "_s);
        tabTo(control(u"pre_suma"_s));
        press(Qt::Key_Return);
        EXPECT_TRUE(dialog->isVisible());
        QApplication::setActiveWindow(dialog.get());
        EXPECT_TRUE(control(u"pre_pavad"_s)->hasFocus());
        EXPECT_EQ(dialog->control<TDBEdit>(u"pre_pavad"_s)->invalidReason(), boxes.at(0).text);
    });
    EXPECT_EQ(boxes.at(0).text, u"Laukas \"Pavadinimas\" negali būti tuščias!"_s);
}

TEST_F(DialogKeys, OnlyLeavingAndHelpStayUsableForSomebodyWhoMayOnlyLook)
{
    make({}, {{.caption = u"&Išsaugoti"_s, .role = TDialogButton::Save},
              {.caption = u"&Atšaukti"_s, .role = TDialogButton::Cancel},
              {.caption = u"&Pagalba"_s, .role = TDialogButton::Help},
              {.caption = u"&Sutartis"_s}});
    const QList<std::pair<QString, bool>> usable{
        {u"Išsaugoti"_s, false}, {u"Atšaukti"_s, true}, {u"Pagalba"_s, true}, {u"Sutartis"_s, false}};
    for (const auto &[name, stays] : usable)
        EXPECT_EQ(dialog->button(name)->property(staysUsable).toBool(), stays) << str(name);
}

// --- Tab

TEST_F(DialogKeys, TheButtonsMayComeBetweenTheFields)
{
    QList<TDialogButton> buttons = saveAndCancel();
    buttons += {u"&Sutartis"_s, TDialogButton::Action, false, {}, {}};
    make({TFieldRow::edit(u"Pavadinimas"_s, u"pre_pavad"_s).browse([] {}).buttonsAfter(),
          TFieldRow::edit(u"Kodas"_s, u"pre_kodas"_s).buttonsAfter({u"Sutartis"_s}),
          TFieldRow::edit(u"Suma"_s, u"pre_suma"_s)},
         buttons);
    run([&] {
        const QList<QWidget *> order{dialog->form().browseButton(u"pre_pavad"_s),
                                     dialog->saveButton(),
                                     dialog->button(u"Atšaukti"_s),
                                     control(u"pre_kodas"_s),
                                     dialog->button(u"Sutartis"_s),
                                     control(u"pre_suma"_s),
                                     control(u"pre_pavad"_s)};
        for (const QWidget *next : order) {
            press(Qt::Key_Tab);
            EXPECT_EQ(QApplication::focusWidget(), next) << str(next->objectName());
        }
    });
}

// --- how it looks

TEST_F(DialogKeys, TheDefaultButtonLooksDifferentWithAndWithoutFocusAndDisabled)
{
    run([&] {
        QPushButton *save = dialog->saveButton();
        control(u"pre_pavad"_s)->setFocus();
        const QImage resting = look(save);
        EXPECT_EQ(resting, look(save)) << "a control: nothing changed";
        save->setFocus();
        const QImage focused = look(save);
        EXPECT_NE(resting, focused);
        dialog->button(u"Atšaukti"_s)->setFocus();
        EXPECT_NE(resting, look(save)) << "Enter presses the other one now";
        control(u"pre_pavad"_s)->setFocus();
        EXPECT_EQ(resting, look(save));
        save->setEnabled(false);
        EXPECT_NE(resting, look(save));
    });
}

TEST_F(DialogKeys, ADialogLargerThanTheScreenScrollsAndKeepsItsButtonsInView)
{
    QList<TFieldRow> rows;
    for (int i = 0; i < 60; ++i)
        rows += TFieldRow::freeEdit(u"Laukas %1"_s.arg(i), u"laukas%1"_s.arg(i));
    make(rows);
    run([&] {
        const QRect screen = dialog->screen()->availableGeometry();
        EXPECT_TRUE(screen.contains(dialog->geometry()));
        EXPECT_GT(dialog->form().height(), screen.height()) << "a control: it does not fit";
        EXPECT_GT(dialog->height(), screen.height() * 9 / 10) << "it uses the room there is";
        const auto inView = [&](const QWidget *widget) {
            return widget->visibleRegion().boundingRect() == widget->rect();
        };
        EXPECT_TRUE(inView(dialog->saveButton()) && inView(dialog->button(u"Atšaukti"_s)));
        EXPECT_FALSE(inView(control(u"laukas59"_s)));
        control(u"laukas58"_s)->setFocus();
        press(Qt::Key_Tab);
        EXPECT_TRUE(inView(control(u"laukas59"_s)));
        control(u"laukas0"_s)->setFocus();
        EXPECT_TRUE(inView(control(u"laukas0"_s)));
    });
}

TEST_F(DialogKeys, ADialogThatFitsHasNoScrollBarAndItsFullSize)
{
    run([&] {
        for (const QScrollBar *bar : dialog->findChildren<QScrollBar *>())
            EXPECT_FALSE(bar->isVisible());
        EXPECT_GE(dialog->form().height(), dialog->form().sizeHint().height());
        EXPECT_GE(dialog->form().width(), dialog->form().sizeHint().width());
        EXPECT_LT(dialog->height(), dialog->screen()->availableGeometry().height() / 2);
    });
}

TEST_F(DialogKeys, NoDialogOpensBeyondAnEdge)
{
    const QRect screen = dialog->screen()->availableGeometry();
    dialog->move(screen.right() - 10, screen.bottom() - 10);
    run([&] { EXPECT_TRUE(screen.contains(dialog->geometry())); });
}

TEST_F(DialogKeys, ADialogOpensOverTheMiddleOfItsWindow)
{
    QWidget below;
    below.setGeometry(200, 150, 500, 400);
    below.show();
    dialog->setParent(&below, dialog->windowFlags());
    run([&] {
        const QPoint off = dialog->frameGeometry().center() - below.frameGeometry().center();
        EXPECT_LT(std::abs(off.x()), 40);
        EXPECT_LT(std::abs(off.y()), 80); // less the title of a desktop
        dialog->setParent(nullptr, dialog->windowFlags());
    });
}

// --- keys of one's own

TEST_F(DialogKeys, EveryCaptionHasAKeyOfItsOwnAndKeepsItsText)
{
    make({TFieldRow::edit(u"&Adresas"_s, u"pre_pavad"_s), TFieldRow::edit(u"Įmonės kodas"_s, u"pre_kodas"_s),
          TFieldRow::edit(u"Suma"_s, u"pre_suma"_s), TFieldRow::edit(u"Suma"_s, u"pre_grpid"_s),
          TFieldRow::check(u"&Išorinis && kitas"_s, u"pre_tip"_s),
          TFieldRow::freeEdit(u"123"_s, u"skaicius"_s)});
    run([&] {
        EXPECT_EQ(dialog->saveButton()->text(), u"&Išsaugoti"_s);
        EXPECT_EQ(dialog->button(u"Atšaukti"_s)->text(), u"&Atšaukti"_s);
        QStringList marks{u"I"_s, u"A"_s};
        const QList<std::pair<QString, QString>> labels{{u"pre_pavad"_s, u"Adresas"_s},
                                                        {u"pre_kodas"_s, u"Įmonės kodas"_s},
                                                        {u"pre_suma"_s, u"Suma"_s},
                                                        {u"pre_grpid"_s, u"Suma"_s}};
        for (const auto &[name, plain] : labels) {
            const QString text = dialog->form().labelOf(name)->text();
            EXPECT_EQ(QString(text).remove(u'&'), plain);
            EXPECT_FALSE(markOf(text).isEmpty() || marks.contains(markOf(text))) << str(text);
            marks += markOf(text);
        }
        EXPECT_EQ(dialog->form().labelOf(u"skaicius"_s)->text(), u"123"_s);
        const QString check = dialog->control<QCheckBox>(u"pre_tip"_s)->text();
        EXPECT_EQ(QString(check).remove(u"&&"_s).count(u'&'), 1);
        EXPECT_FALSE(marks.contains(markOf(check))) << str(check);
        control(u"pre_suma"_s)->setFocus();
        press(Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(control(u"pre_suma"_s)->hasFocus() || control(u"pre_grpid"_s)->hasFocus());
        press(Qt::Key_K, Qt::AltModifier);
        EXPECT_TRUE(control(u"pre_kodas"_s)->hasFocus());
    });
}

TEST_F(DialogKeys, ALetterOfAShortcutIsNotGivenAgain)
{
    make({TFieldRow::edit(u"Suma"_s, u"pre_suma"_s)});
    const QShortcut own(QKeySequence(u"Alt+S"_s), dialog.get());
    run([&] { EXPECT_EQ(dialog->form().labelOf(u"pre_suma"_s)->text(), u"S&uma"_s); });
}

TEST_F(DialogKeys, NoLabelShowsARawAmpersand)
{
    run([&] {
        for (const QLabel *label : dialog->findChildren<QLabel *>())
            EXPECT_TRUE(label->buddy() || !label->text().contains(u'&')) << str(label->text());
    });
}

// --- for readers of the screen

TEST_F(DialogKeys, FilledListsAndSpinBoxesKeepTheirNames)
{
    auto *years = new QSpinBox;
    years->setValue(7);
    make({TFieldRow::choices(u"&Grupė"_s, u"pre_grpid"_s, {{u"Kuras"_s, 2}}),
          TFieldRow::combo(u"&Pavadinimas"_s, u"pre_pavad"_s, {u"Morkos"_s}),
          TFieldRow::freeList(u"&Mėnuo"_s, u"menuo"_s, {u"Sausis"_s}),
          TFieldRow::custom(u"&Metai"_s, u"metai"_s, years)});
    const QList<std::pair<QString, QString>> names{{u"pre_grpid"_s, u"Grupė"_s},
                                                   {u"pre_pavad"_s, u"Pavadinimas"_s},
                                                   {u"menuo"_s, u"Mėnuo"_s},
                                                   {u"metai"_s, u"Metai"_s}};
    for (const auto &[control, name] : names) {
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(dialog->control(control));
        ASSERT_NE(interface, nullptr);
        EXPECT_EQ(interface->text(QAccessible::Name), name) << str(control);
        EXPECT_FALSE(interface->text(QAccessible::Value).isEmpty()) << str(control);
    }
}

TEST_F(DialogKeys, APasswordShowsAsterisks)
{
    make({TFieldRow::freeEdit(u"Slaptažodis"_s, u"slaptas"_s).password()});
    run([&] {
        typeLetters(control(u"slaptas"_s), u"abc"_s);
        EXPECT_EQ(dialog->control<QLineEdit>(u"slaptas"_s)->displayText(), u"***"_s);
    });
}
