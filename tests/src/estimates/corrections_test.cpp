#include "src/estimates/Korlist.h"
#include "src/estimates/Samkor.h"
#include "tests/src/estimates/estimates.h"
#include "toolkit/widgets/db_grid.h"

#include <QToolBar>

using Korlist::TKorListDlg;
using Samkor::Koreguoti;
using Samkor::TSamKorDlg;

namespace {

class Corrections : public Estimates {
protected:
    void SetUp() override
    {
        Estimates::SetUp();
        estimate({400, 100, 100, 100, 100});
        open();
    }
    double correct(double id, std::function<void(TSamKorDlg &)> user)
    {
        OnNextDialog<TSamKorDlg> dialog(std::move(user));
        Koreguoti(id, 20);
        return id;
    }
    static void save(TSamKorDlg &dialog) { pressButton(dialog, "Taip"); }
    static QString refusal(TSamKorDlg &dialog)
    {
        NextBoxes told{QMessageBox::Ok};
        save(dialog);
        EXPECT_TRUE(dialog.isVisible());
        return told.at(0).text;
    }
    // A correction of the first quarter that is stored already.
    void stored(double amount)
    {
        books().ExecSQL("insert into bd_samkor (sak_id, sak_samid, sak_data, sak_i_ketv) "
                        "values (1, 20, '2005-02-01', :sum)",
                        {{"sum", amount}});
    }
    QStringList documents()
    {
        return rows(books(), "select sak_id, sak_samid, sak_doknr, sak_i_ketv, sak_ii_ketv, sak_iii_ketv, "
                             "sak_iv_ketv from bd_samkor order by sak_id");
    }
};
ON_BOTH_ENGINES(Corrections);

QString tooSmall(const QString &quarter)
{
    return "Samata " + quarter + " ketverčiui, įskaitant koregavimą, negali būti mažesnė už 0!";
}

} // namespace

TEST_P(Corrections, AreSavedWithTodaysDateAndFollowedByTheEstimates)
{
    EXPECT_EQ(correct(0,
                      [](TSamKorDlg &dialog) {
                          EXPECT_EQ(dialog.windowTitle(), "Koreguota samata");
                          dialog.activateWindow();
                          ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
                          type(edit(dialog, "SAK_DOKNR"), "K-1");
                          type(edit(dialog, "SAK_I_KETV"), "20");
                          type(edit(dialog, "SAK_II_KETV"), "-5,5");
                          leave(edit(dialog, "SAK_II_KETV"));
                          EXPECT_EQ(QString(edit(dialog, "SAK_SUM")->text()).replace(',', '.'), "14.50");
                          save(dialog);
                      }),
              1);
    EXPECT_EQ(documents(), QStringList("1|20|K-1|20|-5.5|0|0"));
    EXPECT_EQ(books().fieldResult("select sak_data from bd_samkor").toDate(), QDate::currentDate());
    EXPECT_EQ(corrected(), QStringList({"14.5", "20", "-5.5", "0", "0"}));
    correct(1, [](TSamKorDlg &dialog) {
        EXPECT_EQ(QString(edit(dialog, "SAK_SUM")->text()).replace(',', '.'), "14.50");
        type(edit(dialog, "SAK_I_KETV"), "30");
        save(dialog);
    });
    EXPECT_EQ(corrected(), QStringList({"24.5", "30", "-5.5", "0", "0"}));
}

TEST_P(Corrections, OfAllZerosCannotBeSaved)
{
    correct(0, [](TSamKorDlg &dialog) {
        save(dialog);
        EXPECT_TRUE(dialog.isVisible());
        pressButton(dialog, "Ne");
    });
    EXPECT_EQ(documents(), QStringList());
}

TEST_P(Corrections, MayTakeAQuarterToNothingAndNotBelow)
{
    correct(0, [](TSamKorDlg &dialog) {
        type(edit(dialog, "SAK_I_KETV"), "-100.01");
        EXPECT_EQ(refusal(dialog), tooSmall("I"));
        EXPECT_EQ(edit(dialog, "SAK_I_KETV")->text(), "-100.01");
        type(edit(dialog, "SAK_I_KETV"), "-100");
        save(dialog);
    });
    EXPECT_EQ(documents(), QStringList("1|20|NULL|-100|0|0|0"));
}

TEST_P(Corrections, OfTheThirdQuarterCountTheFirstThreeTogether)
{
    correct(0, [](TSamKorDlg &dialog) {
        type(edit(dialog, "SAK_III_KETV"), "-300.01");
        EXPECT_EQ(refusal(dialog), tooSmall("III"));
        type(edit(dialog, "SAK_III_KETV"), "-300");
        save(dialog);
    });
    EXPECT_EQ(documents(), QStringList("1|20|NULL|0|0|-300|0"));
}

TEST_P(Corrections, DoNotTakeTheYearBelowNothing)
{
    correct(0, [](TSamKorDlg &dialog) {
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        for (const auto &[column, amount] : {std::pair("SAK_III_KETV", "-300"), {"SAK_IV_KETV", "-400"}}) {
            type(edit(dialog, column), amount);
            leave(edit(dialog, column));
        }
        type(edit(dialog, "SAK_I_KETV"), "-1");
        EXPECT_EQ(refusal(dialog), "Samata metams, įskaitant koregavimą, negali būti mažesnė už 0!");
        pressButton(dialog, "Ne");
    });
    EXPECT_EQ(documents(), QStringList());
}

TEST_P(Corrections, AnEmptyQuarterIsNothing)
{
    correct(0, [](TSamKorDlg &dialog) {
        type(edit(dialog, "SAK_I_KETV"), "5");
        type(edit(dialog, "SAK_II_KETV"), "");
        save(dialog);
    });
    EXPECT_EQ(documents(), QStringList("1|20|NULL|5|0|0|0"));
}

TEST_P(Corrections, ARefusedQuarterKeepsTheFocus)
{
    correct(0, [](TSamKorDlg &dialog) {
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        type(edit(dialog, "SAK_I_KETV"), "-500");
        NextBoxes told{QMessageBox::Ok};
        leave(edit(dialog, "SAK_I_KETV"));
        QTest::qWait(0);
        EXPECT_EQ(told.texts(), QStringList(tooSmall("I")));
        EXPECT_EQ(dialog.focusWidget(), edit(dialog, "SAK_I_KETV"));
        pressButton(dialog, "Ne");
    });
}

TEST_P(Corrections, AreNotMeasuredWithoutTheEstimatesScreen)
{
    frm.reset();
    correct(0, [](TSamKorDlg &dialog) {
        type(edit(dialog, "SAK_I_KETV"), "-100.01");
        save(dialog);
    });
    EXPECT_EQ(documents().size(), 1);
}

TEST_P(Corrections, TheQuarterBeingEditedIsRaisedAndAClickOnItLeadsThere)
{
    correct(0, [](TSamKorDlg &dialog) {
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        EXPECT_EQ(dialog.focusWidget()->objectName(), "SAK_DATA");
        QLabel *panel = nullptr;
        for (auto *label : dialog.findChildren<QLabel *>())
            if (label->buddy() == edit(dialog, "SAK_II_KETV"))
                panel = label;
        ASSERT_TRUE(panel);
        QTest::mouseClick(panel, Qt::LeftButton);
        EXPECT_EQ(dialog.focusWidget(), edit(dialog, "SAK_II_KETV"));
        EXPECT_EQ(panel->frameShadow(), QFrame::Raised);
        edit(dialog, "SAK_III_KETV")->setFocus();
        EXPECT_EQ(panel->frameShape(), QFrame::NoFrame);
        pressButton(dialog, "Ne");
    });
}

TEST_P(Corrections, OneThatAnotherStationChangedIsDecidedByTheUser)
{
    stored(5);
    correct(1, [this](TSamKorDlg &dialog) {
        secondFin()->ExecSQL("update bd_samkor set sak_i_ketv = 6");
        type(edit(dialog, "SAK_I_KETV"), "7");
        OnNextDialog<QMessageBox> told([](QMessageBox &box) {
            EXPECT_TRUE(box.text().contains("I Ketvertis: buvo „5")) << qPrintable(box.text());
            pressButton(box, "Palikti savo");
        });
        save(dialog);
    });
    EXPECT_EQ(documents(), QStringList("1|20|NULL|7|0|0|0"));
    EXPECT_EQ(corrected(), QStringList({"7", "7", "0", "0", "0"}));
}

TEST_P(Corrections, OneThatAnotherStationDeletedIsTold)
{
    stored(5);
    correct(1, [this](TSamKorDlg &dialog) {
        secondFin()->ExecSQL("delete from bd_samkor");
        type(edit(dialog, "SAK_I_KETV"), "6");
        EXPECT_EQ(refusal(dialog), "Įrašas jau ištrintas kitoje darbo vietoje");
        pressButton(dialog, "Ne");
    });
    EXPECT_EQ(corrected().first(), "0");
}

TEST_P(Corrections, AreListedByDateAddedAndDeletedFromTheEstimates)
{
    books().ExecSQL("insert into bd_samkor (sak_id, sak_samid, sak_data, sak_doknr, sak_i_ketv) "
                    "values (1, 20, '2005-02-01', 'K-1', 5)");
    OnNextDialog<TKorListDlg> list([this](TKorListDlg &corrections) {
        EXPECT_EQ(corrections.windowTitle(), "Sąmatų koregavimas");
        EXPECT_EQ(corrections.grid()->model()->headerData(1, Qt::Horizontal).toString(), "Dok. Nr.");
        {
            OnNextDialog<TSamKorDlg> adding([](TSamKorDlg &dialog) {
                type(edit(dialog, "SAK_IV_KETV"), "7");
                save(dialog);
            });
            corrections.NewBtnClick();
        }
        EXPECT_EQ(corrections.currentKey().toInt(), 2);
        corrections.RefreshData(1);
        NextBoxes asked{QMessageBox::Yes};
        corrections.DelBtnClick();
        EXPECT_EQ(documents(), QStringList("2|20|NULL|0|0|0|7"));
        corrections.close();
    });
    frm->acKor->trigger();
    EXPECT_EQ(frm->estimates().FieldByName("sam_sam_kor")->AsFloat(), 7) << "the yearly row follows";
}

TEST_P(Corrections, AreListedByAKeyAndWithFewTools)
{
    for (int time = 0; time < 2; ++time) {
        OnNextDialog<TKorListDlg> list([](TKorListDlg &corrections) {
            EXPECT_FALSE(corrections.acCaptions->isChecked());
            EXPECT_EQ(corrections.findChild<QToolBar *>()->toolButtonStyle(), Qt::ToolButtonIconOnly);
            for (const QAction *hidden : {corrections.acFind, corrections.acOrder, corrections.acPrint})
                EXPECT_FALSE(hidden->isVisible()) << qPrintable(hidden->text());
            corrections.acCaptions->trigger();
            corrections.close();
        });
        frm->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(frm.get()));
        QTest::keyClick(frm->findChild<TDBGrid *>(), Qt::Key_K, Qt::ControlModifier);
    }
}

TEST_P(Corrections, OfAnEarlierYearAreOnlyLookedAt)
{
    OnNextDialog<TKorListDlg> list([](TKorListDlg &corrections) {
        EXPECT_FALSE(corrections.Editable());
        corrections.close();
    });
    Korlist::SamKorList(20, false);
}
