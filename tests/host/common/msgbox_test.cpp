#include "host/common/msgbox.h"
#include "tests/support/key_on_box.h"

#include <gtest/gtest.h>

#include <QClipboard>

using namespace Qt::StringLiterals;

TEST(StdMsgBox, QuestionAnswersYesAndNo)
{
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::No};
    EXPECT_EQ(StdMsgBox(18, u"Ar tikrai norite ištrinti?"_s), 6);
    EXPECT_EQ(StdMsgBox(18, u"Ar tikrai norite ištrinti?"_s), 7);
    EXPECT_EQ(boxes.at(0).kind, 18);
    EXPECT_EQ(boxes.at(0).icon, QMessageBox::Question);
    EXPECT_EQ(boxes.at(0).text, u"Ar tikrai norite ištrinti?"_s);
    QStringList buttons = boxes.at(0).buttons;
    buttons.sort();
    EXPECT_EQ(buttons, (QStringList{u"Ne"_s, u"Taip"_s}));
}

TEST(StdMsgBox, QuestionWithCancelAnswersThreeWays)
{
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
    EXPECT_EQ(StdMsgBox(99, u"Išsaugoti?"_s), 6);
    EXPECT_EQ(StdMsgBox(99, u"Išsaugoti?"_s), 7);
    const int cancelled = StdMsgBox(99, u"Išsaugoti?"_s);
    EXPECT_NE(cancelled, 6);
    EXPECT_NE(cancelled, 7);
    EXPECT_EQ(boxes.at(2).kind, 99);
    EXPECT_TRUE(boxes.at(2).buttons.contains(u"Atšaukti"_s));
}

TEST(StdMsgBox, InformationWarningAndErrorHaveTheirIconsAndOneButton)
{
    NextBoxes boxes{QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
    StdMsgBox(33, u"a"_s);
    StdMsgBox(49, u"b"_s);
    StdMsgBox(81, u"c"_s);
    EXPECT_EQ(boxes.at(0).icon, QMessageBox::Information);
    EXPECT_EQ(boxes.at(1).icon, QMessageBox::Warning);
    EXPECT_EQ(boxes.at(2).icon, QMessageBox::Critical);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(boxes.at(i).buttons, QStringList{u"Gerai"_s});
}

TEST(StdMsgBox, EscapeAnswersNoWhenThereIsNoCancelButton)
{
    KeyOnBox escape(Qt::Key_Escape);
    EXPECT_EQ(StdMsgBox(18, u"?"_s), 7);
}

TEST(StdMsgBox, EscapeAnswersCancelWhereThereIsACancelButton)
{
    KeyOnBox escape(Qt::Key_Escape);
    EXPECT_EQ(StdMsgBox(99, u"?"_s), mrCancel);
}

TEST(StdMsgBox, NamesOutOfTheBooksAreNotReadAsMarkup)
{
    OnNextDialog<QMessageBox> shown([](QMessageBox &box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.text(), u"UAB <b>\"R&D\"</b>"_s);
        EXPECT_EQ(box.objectName(), u"StdMsgBox"_s);
        EXPECT_EQ(box.property("kind").toInt(), 33);
        pressButton(box, u"Gerai"_s);
    });
    StdMsgBox(33, u"UAB <b>\"R&D\"</b>"_s);
}

TEST(StdMsgBox, LineBreaksOfTheSystemAreLineBreaks)
{
    NextBoxes boxes{QMessageBox::Ok};
    StdMsgBox(33, u"a\r\n(b)"_s);
    EXPECT_EQ(boxes.at(0).text, u"a\n(b)"_s);
}

TEST(StdMsgBox, EnterAnswersNoWhereItCannotBeTakenBack)
{
    KeyOnBox enter(Qt::Key_Return);
    EXPECT_EQ(StdMsgBox(18, u"Ar tikrai norite ištrinti?"_s), mrNo);
}

TEST(StdMsgBox, BothKeysAnswerYesWhereNoCannotBeTakenBack)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        KeyOnBox pressed(key);
        EXPECT_EQ(StdMsgBox(18, u"Palikti?"_s, mrYes), mrYes) << key;
    }
}

TEST(StdMsgBox, EnterSavesWhereThereIsAWayBack)
{
    KeyOnBox enter(Qt::Key_Return);
    EXPECT_EQ(StdMsgBox(99, u"Išsaugoti?"_s), mrYes);
}

TEST(StdMsgBox, ItsTextCanBeCopied)
{
    QGuiApplication::clipboard()->clear();
    OnNextDialog<QMessageBox> shown([](QMessageBox &box) {
        QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
        pressButton(box, u"Gerai"_s);
    });
    StdMsgBox(81, u"Klaida 17"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Klaida 17"_s);
}
