#include "tests/toolkit/widgets/window_fixture.h"
#include "toolkit/widgets/dialog.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/lithuanian.h"

#include <QPushButton>

namespace {

class ProductDlg : public TDialog {
public:
    explicit ProductDlg(TDataSet *set, QWidget *parent = nullptr) : TDialog(parent)
    {
        describe(
            u"Prekė"_s,
            {
                TFieldRow::edit(u"&Kodas"_s, u"pre_kodas"_s).upperCase(),
                TFieldRow::edit(u"&Pavadinimas"_s, u"pre_pavad"_s).browse([this] { ++browsed; }),
                TFieldRow::group(u"Kita"_s, {TFieldRow::edit(u"&Suma"_s, u"pre_suma"_s),
                                             TFieldRow::check(u"&Tinka"_s, u"pre_tip"_s, u"1"_s, u"0"_s)}),
                TFieldRow::freeEdit(u"Pa&staba"_s, u"pastaba"_s),
            },
            set);
    }

    using TDialog::button;
    using TDialog::control;
    using TDialog::form;
    using TDialog::refuse;

    void Load() override
    {
        if (loadFails)
            throw EDatabaseError(u"neatidaroma"_s);
        dataSet()->Edit();
    }
    void Validate() override
    {
        if (dataSet()->FieldByName(u"pre_suma"_s)->AsFloat() > 100)
            refuse(u"pre_suma"_s, u"Suma per didelė"_s);
    }

    int browsed = 0;
    bool loadFails = false;
};

class DialogTest : public InWindow {
protected:
    void SetUp() override
    {
        InWindow::SetUp();
        dialog = std::make_unique<ProductDlg>(set.get());
    }
    void TearDown() override
    {
        dialog.reset();
        InWindow::TearDown();
    }

    // Runs the dialog while the user does this in it.
    bool run(const std::function<void(ProductDlg &)> &user)
    {
        const OnNextDialog<ProductDlg> shown([&](ProductDlg &opened) {
            QApplication::setActiveWindow(&opened);
            user(opened);
        });
        return dialog->run();
    }

    std::unique_ptr<ProductDlg> dialog;
};

} // namespace

TEST_F(DialogTest, EveryControlHasALabelAndTheTabOrderIsThatOfTheDescription)
{
    EXPECT_EQ(dialog->windowTitle(), u"Prekė"_s);
    for (const QString &name : {u"pre_kodas"_s, u"pre_pavad"_s, u"pre_suma"_s, u"pastaba"_s}) {
        EXPECT_EQ(dialog->form().labelOf(name)->buddy(), dialog->control(name)) << str(name);
        EXPECT_FALSE(dialog->control(name)->accessibleName().contains(u'&')) << str(name);
    }
    EXPECT_EQ(dialog->control(u"PRE_KODAS"_s)->accessibleName(), u"Kodas"_s);
    run([&](ProductDlg &shown) {
        EXPECT_EQ(QApplication::focusWidget(), shown.control(u"pre_kodas"_s));
        const QList<QWidget *> order{shown.control(u"pre_pavad"_s), shown.form().browseButton(u"pre_pavad"_s),
                                     shown.control(u"pre_suma"_s),  shown.control(u"pre_tip"_s),
                                     shown.control(u"pastaba"_s),   shown.button(u"Išsaugoti"_s),
                                     shown.button(u"Atšaukti"_s)};
        for (QWidget *next : order) {
            leave(QApplication::focusWidget());
            EXPECT_EQ(QApplication::focusWidget(), next) << str(next->objectName());
        }
        shown.reject();
    });
}

TEST_F(DialogTest, AcceleratorsReachTheirControls)
{
    run([&](ProductDlg &shown) {
        QTest::keyClick(&shown, Qt::Key_P, Qt::AltModifier);
        EXPECT_EQ(QApplication::focusWidget(), shown.control(u"pre_pavad"_s));
        shown.reject();
    });
}

TEST_F(DialogTest, EnterSavesWhatIsStillBeingTyped)
{
    EXPECT_TRUE(run([&](ProductDlg &shown) {
        QWidget *name = shown.control(u"pre_pavad"_s);
        typeOver(name, u"Žirniai"_s);
        QTest::keyClick(name, Qt::Key_Return);
    }));
    EXPECT_EQ(stored(u"pre_pavad"_s), u"Žirniai"_s);
    EXPECT_EQ(set->State(), dsBrowse);
}

TEST_F(DialogTest, ARefusedSaveKeepsTheDialogOpenWithTheTextAndTheCursorThere)
{
    NextBoxes boxes{QMessageBox::Ok};
    EXPECT_FALSE(run([&](ProductDlg &shown) {
        auto *sum = shown.control<TDBEdit>(u"pre_suma"_s);
        typeOver(sum, u"500"_s);
        pressButton(shown, u"Išsaugoti"_s);
        EXPECT_TRUE(shown.isVisible());
        QApplication::setActiveWindow(&shown);
        EXPECT_EQ(QApplication::focusWidget(), sum);
        EXPECT_EQ(sum->text(), u"500"_s);
        EXPECT_EQ(sum->invalidReason(), u"Suma per didelė"_s);
        EXPECT_EQ(set->State(), dsEdit);
        pressButton(shown, u"Atšaukti"_s);
    }));
    EXPECT_EQ(boxes.at(0).text, u"Suma per didelė"_s);
    EXPECT_EQ(stored(u"pre_suma"_s).toDouble(), 12.5);
    EXPECT_EQ(set->State(), dsBrowse);
}

TEST_F(DialogTest, ATextThatIsNoNumberIsShownOnSaving)
{
    NextBoxes boxes{QMessageBox::Ok};
    EXPECT_FALSE(run([&](ProductDlg &shown) {
        typeOver(shown.control(u"pre_suma"_s), u"abc"_s);
        pressButton(shown, u"Išsaugoti"_s);
        QApplication::setActiveWindow(&shown);
        EXPECT_EQ(QApplication::focusWidget(), shown.control(u"pre_suma"_s));
        QTest::keyClick(shown.control(u"pre_suma"_s), Qt::Key_Escape);
        EXPECT_FALSE(shown.isVisible()) << "a refused text does not hold the dialog";
    }));
    EXPECT_TRUE(boxes.at(0).text.contains(u"abc")) << str(boxes.at(0).text);
}

TEST_F(DialogTest, AFailureOfTheDatabaseRollsBackAndKeepsTheText)
{
    db->nativeExec(u"create trigger no before update on prekes begin select raise(abort, 'negalima'); end"_s);
    NextBoxes boxes{QMessageBox::Ok};
    EXPECT_FALSE(run([&](ProductDlg &shown) {
        typeOver(shown.control(u"pre_pavad"_s), u"Ropės"_s);
        pressButton(shown, u"Išsaugoti"_s);
        EXPECT_EQ(shown.control<TDBEdit>(u"pre_pavad"_s)->text(), u"Ropės"_s);
        EXPECT_FALSE(db->InTransaction());
        EXPECT_EQ(set->State(), dsEdit);
        shown.reject();
    }));
    EXPECT_TRUE(boxes.at(0).details.contains(u"negalima")) << str(boxes.at(0).details);
    EXPECT_EQ(stored(u"pre_pavad"_s), u"Agurkai"_s);
}

TEST_F(DialogTest, WhatLoadRaisesReachesTheCallerAndNothingIsShown)
{
    dialog->loadFails = true;
    EXPECT_THROW(dialog->run(), EDatabaseError);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(DialogTest, DestroyingTheDialogCancelsTheSet)
{
    set->Edit();
    dialog.reset();
    EXPECT_EQ(set->State(), dsBrowse);
}

TEST_F(DialogTest, ClosingTheWindowCancelsTheSet)
{
    EXPECT_FALSE(run([&](ProductDlg &shown) {
        typeOver(shown.control(u"pre_pavad"_s), u"x"_s);
        shown.close();
    }));
    EXPECT_EQ(set->State(), dsBrowse);
    EXPECT_EQ(stored(u"pre_pavad"_s), u"Agurkai"_s);
}

TEST_F(DialogTest, TheButtonBehindAControlRunsItsActionAndIsNamed)
{
    auto *button = qobject_cast<QAbstractButton *>(dialog->form().browseButton(u"pre_pavad"_s));
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->accessibleName(), u"Pavadinimas: pasirinkti iš sąrašo"_s);
    button->click();
    EXPECT_EQ(dialog->browsed, 1);
    EXPECT_EQ(dialog->form().browseButton(u"pre_kodas"_s), nullptr);
}

TEST_F(DialogTest, RowsAreHiddenAndRenamedTogetherWithTheirLabels)
{
    TFieldForm &form = dialog->form();
    form.setRowVisible(u"pre_suma"_s, false);
    EXPECT_TRUE(form.labelOf(u"pre_suma"_s)->isHidden() && form.control(u"pre_suma"_s)->isHidden());
    form.setRowVisible(u"pre_suma"_s, true);
    EXPECT_FALSE(form.labelOf(u"pre_suma"_s)->isHidden() || form.control(u"pre_suma"_s)->isHidden());
    form.setLabel(u"pre_suma"_s, u"K&iekis"_s);
    EXPECT_EQ(form.control(u"pre_suma"_s)->accessibleName(), u"Kiekis"_s);
}

TEST_F(DialogTest, F1ShowsTheDialogsTopic)
{
    int topic = 0;
    TDialog::setHelpDisplay([&](int asked) { topic = asked; });
    dialog->setHelpTopic(17);
    QTest::keyClick(dialog.get(), Qt::Key_F1);
    TDialog::setHelpDisplay({});
    EXPECT_EQ(topic, 17);
}

TEST(Caption, LosesItsAcceleratorAndColon)
{
    EXPECT_EQ(plainCaption(u"S&laptažodis:"_s), u"Slaptažodis"_s);
    EXPECT_EQ(plainCaption(u"A && B"_s), u"A & B"_s);
}
