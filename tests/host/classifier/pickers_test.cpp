#include "host/classifier/classifier.h"

#include "host/classifier/book_picker.h"
#include "host/data/code_picker.h"
#include "tests/host/classifier/book.h"
#include "tests/support/message_box.h"

#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

using UserBook = WithClassification;
ON_BOTH_ENGINES(UserBook);

TEST_P(UserBook, IsTheOneThatTheUserPicks)
{
    OnNextDialog<TBookPicker> dialog([](TBookPicker &picker) {
        auto *list = picker.findChild<QListWidget *>();
        EXPECT_EQ(list->count(), 2);
        EXPECT_EQ(list->currentItem()->text(), u"Biudžetas");
        QTest::keyClick(list, Qt::Key_Down);
        pressButton(picker, u"Pasirinkti"_s);
    });
    EXPECT_EQ(GetUserKnygaId(), 2);
}

TEST_P(UserBook, IsRememberedForEachUser)
{
    CurrentUser().id = 1;
    setUserKnyga(2);
    CurrentUser().id = 2;
    EXPECT_EQ(userKnyga(), 1) << "another user starts with the first book";
    CurrentUser().id = 1;
    EXPECT_EQ(userKnyga(), 2);
    OnNextDialog<TBookPicker> dialog([](TBookPicker &picker) {
        EXPECT_EQ(picker.findChild<QListWidget *>()->currentItem()->text(), "Fondai");
        QTest::keyClick(&picker, Qt::Key_Return);
    });
    EXPECT_EQ(GetUserKnygaId(), 2);
}

TEST_P(UserBook, CancellingGivesNoneAndKeepsTheFormerChoice)
{
    setUserKnyga(2);
    OnNextDialog<TBookPicker> dialog([](TBookPicker &picker) { QTest::keyClick(&picker, Qt::Key_Escape); });
    EXPECT_EQ(GetUserKnygaId(), 0);
    EXPECT_EQ(userKnyga(), 2);
}

TEST_P(UserBook, ADeletedChoiceFallsBackToTheFirstBook)
{
    setUserKnyga(77);
    EXPECT_EQ(userKnyga(), 1);
}

TEST_P(UserBook, WithoutBooksThereIsNothingToPick)
{
    fin->ExecSQL(u"delete from bd_jve where jve_tevid = 12"_s);
    fin->ExecSQL(u"delete from bd_jve where jve_tevid = 10"_s);
    fin->ExecSQL(u"delete from bd_jve"_s);
    fin->ExecSQL(u"delete from bd_asgisl"_s);
    NextBoxes boxes{QMessageBox::Ok};
    EXPECT_EQ(GetUserKnygaId(), 0);
    EXPECT_EQ(boxes.at(0).kind, 33);
    EXPECT_EQ(userKnyga(), 0);
}

class Functions : public WithMainDatas {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        fin->ExecSQL(u"insert into bd_fun (fun_id, fun_kodas, fun_pavad) values (1, '09', 'Švietimas')"_s);
        fin->ExecSQL(
            u"insert into bd_fun (fun_id, fun_tevid, fun_kodas, fun_pavad) values (2, 1, '09.01', 'Mokyklos')"_s);
    }
    static QAbstractItemView *view(TCodePicker &picker)
    {
        return static_cast<QAbstractItemView *>(picker.findChild<QStackedWidget *>()->currentWidget());
    }
};
ON_BOTH_ENGINES(Functions);

TEST_P(Functions, AreTextByTheirKey)
{
    EXPECT_EQ(GetFunById(2), "09.01  Mokyklos");
    EXPECT_EQ(GetFunById(99), "");
}

TEST_P(Functions, AnyMayBeChosenFromTheTree)
{
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        EXPECT_TRUE(qobject_cast<QTreeView *>(view(picker)));
        EXPECT_EQ(picker.windowTitle(), u"Valstybės funkcijos");
        QTest::keyClick(view(picker), Qt::Key_Return);
    });
    EXPECT_EQ(OpenFunModal(false, false), 1);
}

TEST_P(Functions, OnlyLeavesWhenAskedFor)
{
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        QTest::keyClick(view(picker), Qt::Key_Return);
        EXPECT_TRUE(picker.isVisible());
        QTest::keyClick(view(picker), Qt::Key_Down);
        QTest::keyClick(view(picker), Qt::Key_Return);
    });
    EXPECT_EQ(OpenFunModal(true, false), 2);
}

TEST_P(Functions, StandInAListWhenAskedFor)
{
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        EXPECT_FALSE(qobject_cast<QTreeView *>(view(picker)));
        EXPECT_EQ(view(picker)->model()->rowCount(), 2);
        EXPECT_EQ(picker.findChild<QLineEdit *>()->placeholderText(), "Kodas arba pavadinimas");
        picker.reject();
    });
    EXPECT_EQ(OpenFunModal(false, true), 0);
}
