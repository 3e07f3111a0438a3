#include "host/common/forms.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

TEST(DisableFormControls, DisablesInputAndKeepsWhatOnlyLooks)
{
    TMinMaxFrm form;
    QLineEdit edit(&form);
    QComboBox combo(&form);
    QCheckBox check(&form);
    QLabel label(&form);
    QListWidget list(&form);
    QDialogButtonBox buttons(QDialogButtonBox::Save | QDialogButtonBox::Cancel, &form);
    QPushButton look(&form);
    look.setProperty(staysUsable, true);
    DisableFormControls(&form);
    EXPECT_FALSE(edit.isEnabled());
    EXPECT_FALSE(combo.isEnabled());
    EXPECT_FALSE(check.isEnabled());
    EXPECT_FALSE(buttons.button(QDialogButtonBox::Save)->isEnabled());
    EXPECT_TRUE(buttons.button(QDialogButtonBox::Cancel)->isEnabled());
    EXPECT_TRUE(look.isEnabled());
    EXPECT_TRUE(list.isEnabled());
    EXPECT_TRUE(label.isEnabled());
}

TEST(DisableFormControls, ListsAreStillReadButNotTicked)
{
    QWidget form;
    QListWidget list(&form);
    auto *item = new QListWidgetItem(u"Darbo vieta"_s, &list);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable | Qt::ItemIsEditable);
    item->setCheckState(Qt::Unchecked);
    form.resize(200, 200);
    list.resize(180, 180);
    form.show();
    DisableFormControls(&form);
    list.setCurrentItem(item);
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(item->checkState(), Qt::Unchecked);
    EXPECT_EQ(list.currentItem(), item);
}

TEST(Animation, StandsHiddenAndStillUntilStarted)
{
    QWidget form;
    TAnimate animation(TCommonAVI::aviCopyFiles, &form);
    form.show();
    EXPECT_FALSE(animation.isVisible());
    EXPECT_FALSE(animation.Active());
    animation.Start();
    EXPECT_TRUE(animation.isVisible());
    EXPECT_TRUE(animation.Active());
    QTest::qWait(200);
    EXPECT_GT(animation.frame(), 0);
    animation.Stop();
    const int stopped = animation.frame();
    QTest::qWait(120);
    EXPECT_EQ(animation.frame(), stopped);
}

TEST(Animation, MovesOnWhileOnlyTheBusyHookRuns)
{
    QWidget form;
    TAnimate animation(TCommonAVI::aviCopyFiles, &form);
    form.show();
    animation.Start();
    QElapsedTimer time;
    for (time.start(); time.elapsed() < 400;) {
        paintWhileBusy();
        QTest::qSleep(2);
    }
    EXPECT_GE(animation.frame(), 4);
    EXPECT_LE(animation.frame(), 12); // no faster than its interval
}

TEST(Animation, BusyHookLetsNoTimerAndNoCloseThrough)
{
    QWidget form;
    form.show();
    bool ticked = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ticked = true; });
    timer.start(0);
    QTest::qSleep(50);
    paintWhileBusy();
    EXPECT_FALSE(ticked);
    QTest::qWait(20);
    EXPECT_TRUE(ticked);
}

TEST(Animation, BusyHookNeverRunsInsideItself)
{
    struct Painted : QWidget {
        int inside = 0, deepest = 0;
        void paintEvent(QPaintEvent *) override
        {
            deepest = std::max(deepest, ++inside);
            QTest::qSleep(50);
            paintWhileBusy();
            --inside;
        }
    } form;
    form.show();
    QTest::qSleep(50);
    form.update();
    paintWhileBusy();
    EXPECT_EQ(form.deepest, 1);
}

TEST(Animation, SharedWindowShowsTheTextUntilItIsDone)
{
    const auto shown = [] {
        QStringList texts;
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"Animation"_s && window->isVisible())
                texts << window->findChild<QLabel *>()->text();
        }
        return texts;
    };
    EnableAnimation(TCommonAVI::aviCopyFiles, u"Likučiu perskaičiavimas"_s, false, 0);
    EXPECT_EQ(shown(), QStringList{u"Likučiu perskaičiavimas"_s});
    EnableAnimation(TCommonAVI::aviFindFile, u"Ieškoma"_s, false, 100);
    EXPECT_EQ(shown(), QStringList{u"Ieškoma"_s});
    DisableAnimation(u"Ieškoma"_s);
    EXPECT_EQ(shown(), QStringList{u"Likučiu perskaičiavimas"_s});
    DisableAnimation({});
    EXPECT_TRUE(shown().isEmpty());
    DisableAnimation({});
}
