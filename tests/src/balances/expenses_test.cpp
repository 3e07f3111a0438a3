#include "src/balances/Ilikuciai.h"
#include "src/balances/Isllikedit.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using Ilikuciai::IslFrm;
using Ilikuciai::TIslFrm;
using Isllikedit::EditIslLik;
using Isllikedit::TIslLikDlg;

namespace {

// A book with the folder 1 and below it the node 2, which carries data. Work began in January 2004.
class Expenses : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        startOfWork(2004, 1, 1);
        for (const char *sql :
             {"insert into bd_asgisl (isl_id, isl_pavad) values (1, 'Biudžetas')",
              "insert into bd_jve (jve_id, jve_islid, jve_kodas, jve_pavad, jve_duom) "
              "values (1, 1, '01', 'Paslaugos', 0)",
              "insert into bd_jve (jve_id, jve_islid, jve_tevid, jve_kodas, jve_pavad, jve_duom) "
              "values (2, 1, 1, '2.1', 'Darbo užmokestis', 1)"})
            books().ExecSQL(sql);
    }
    void TearDown() override
    {
        frm.reset();
        EXPECT_EQ(IslFrm, nullptr);
        OnOpenBooks::TearDown();
    }
    void open(double node = 2)
    {
        frm.reset(createForm<TIslFrm>(nullptr));
        frm->show();
        frm->activateWindow();
        frm->SetJungId(node);
    }
    void balance(int id, int period, double asigKr, double fakKr)
    {
        books().ExecSQL("insert into bd_isllik (sml_id, sml_perid, sml_jveid, sml_asig_db, sml_asig_kr, "
                        "sml_kas_db, sml_kas_kr, sml_fak_db, sml_fak_kr) "
                        "values (:id, :per, 2, 0, :asig, 0, 0, 0, :fak)",
                        {{"id", id}, {"per", period}, {"asig", asigKr}, {"fak", fakKr}});
    }
    void balanceElsewhere()
    {
        secondFin()->ExecSQL(
            "insert into bd_isllik (sml_id, sml_perid, sml_jveid, sml_asig_db, sml_asig_kr, "
            "sml_kas_db, sml_kas_kr, sml_fak_db, sml_fak_kr) values (9, 6, 2, 1, 0, 0, 0, 0, 0)");
    }
    void month(int id, int year, int quarter, int number)
    {
        books().ExecSQL("insert into bd_period values (:id, :year, :quarter, :number)",
                        {{"id", id}, {"year", year}, {"quarter", quarter}, {"number", number}});
        GetPeriod();
    }
    void inDialog(QAction *action, std::function<void(TIslLikDlg &)> user)
    {
        OnNextDialog<TIslLikDlg> dialog(std::move(user));
        action->trigger();
    }
    static QLineEdit *edit(QWidget &dialog, const char *column)
    {
        return dialog.findChild<QLineEdit *>(column);
    }
    static QRadioButton *side(QWidget &dialog, const char *group, const char *which)
    {
        return dialog.findChild<QWidget *>(group)->findChild<QRadioButton *>(which);
    }
    QString enabled() const
    {
        return QString("%1%2%3").arg(frm->acNew->isEnabled() ? "N" : "-",
                                     frm->acEdit->isEnabled() ? "K" : "-",
                                     frm->acDelete->isEnabled() ? "T" : "-");
    }
    QStringList stored()
    {
        return rows(books(), "select sml_id, sml_perid, sml_jveid, sml_asig_db, sml_asig_kr, sml_kas_db, "
                             "sml_kas_kr, sml_fak_db, sml_fak_kr from bd_isllik order by sml_id");
    }

    std::unique_ptr<TIslFrm> frm;
};
ON_BOTH_ENGINES(Expenses);

} // namespace

// --- the screen

TEST_P(Expenses, TheGridIsSeenWhereTheNodeCarriesData)
{
    open(1);
    auto *grid = frm->findChild<TDBGrid *>();
    EXPECT_FALSE(grid->isVisible());
    EXPECT_EQ(enabled(), "---");
    frm->SetJungId(2);
    EXPECT_TRUE(grid->isVisible());
    QStringList titles;
    for (int column = 0; column < grid->model()->columnCount(); ++column)
        titles << grid->model()->headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(titles, QStringList({"Asignavimų deb.", "Asignavimų kred.", "Kasos išl. deb.",
                                   "Kasos išl. kred.", "Fakt. išl. deb.", "Fakt. išl. kred."}));
}

TEST_P(Expenses, WithOneMonthAllMayBeDoneAndANodeHasOneRow)
{
    open();
    EXPECT_EQ(enabled(), "N--");
    balance(1, 6, 5, 0);
    frm->RefreshBook();
    EXPECT_EQ(enabled(), "-KT");
}

TEST_P(Expenses, WithSeveralMonthsDeletingIsOverAndChangingIsForJanuaryOnly)
{
    month(7, 2004, 1, 2);
    balance(1, 7, 5, 0);
    open();
    EXPECT_EQ(enabled(), "---") << "February is the current month";
    month(12, 2005, 1, 1);
    balance(2, 12, 5, 0);
    open();
    EXPECT_EQ(enabled(), "-K-") << "January is";
}

TEST_P(Expenses, WithoutAPeriodThereIsNothingToDo)
{
    books().ExecSQL("delete from bd_period");
    GetPeriod();
    open();
    EXPECT_EQ(enabled(), "---");
    EXPECT_FALSE(EditIslLik(false));
}

TEST_P(Expenses, WhoMayOnlyLookOpensTheDialogAlone)
{
    balance(1, 6, 5, 0);
    CurrentUser().viewOnly = true;
    open();
    EXPECT_EQ(enabled(), "-K-");
    inDialog(frm->acEdit, [](TIslLikDlg &dialog) {
        EXPECT_FALSE(edit(dialog, "SML_ASIG_KR")->isEnabled());
        pressButton(dialog, "Atšaukti");
    });
}

TEST_P(Expenses, ABalanceIsDeletedAfterAQuestion)
{
    balance(1, 6, 5, 0);
    open();
    NextBoxes asked{QMessageBox::No, QMessageBox::Yes};
    frm->acDelete->trigger();
    EXPECT_EQ(stored().size(), 1);
    frm->acDelete->trigger();
    EXPECT_EQ(asked.texts().last(), "Ar tikrai norite ištrinti?");
    EXPECT_EQ(stored(), QStringList());
    EXPECT_EQ(enabled(), "N--");
}

TEST_P(Expenses, ARefusedDeleteLeavesTheBalance)
{
    balance(1, 6, 5, 0);
    open();
    refuseDeleting("bd_isllik");
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    frm->acDelete->trigger();
    EXPECT_EQ(stored().size(), 1);
    EXPECT_EQ(frm->balances().FieldByName("SML_ASIG_KR")->AsFloat(), 5);
    EXPECT_EQ(enabled(), "-KT");
    secondFin()->ExecSQL("update bd_isllik set sml_asig_kr = 6");
    EXPECT_EQ(stored(), QStringList("1|6|2|0|6|0|0|0|0")) << "nothing is held against another station";
}

TEST_P(Expenses, APeriodThatCannotBeReadOffersNothing)
{
    month(12, 2005, 1, 1);
    open();
    EXPECT_EQ(enabled(), "N--");
    books().nativeExec("alter table bd_isllik rename to kita");
    auto *period = frm->findChild<TPeriodBox *>();
    OnNextDialog<QMessageBox> told([this](QMessageBox &box) {
        EXPECT_EQ(enabled(), "---");
        box.accept();
    });
    period->setCurrentIndex(0);
    books().nativeExec("alter table kita rename to bd_isllik");
    period->setCurrentIndex(1);
    EXPECT_EQ(enabled(), "N--");
}

// --- the dialog

TEST_P(Expenses, ACreditStandsOnItsSideAlone)
{
    open();
    inDialog(frm->acNew, [](TIslLikDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Naujas");
        EXPECT_TRUE(edit(dialog, "SML_ASIG_DB")->isVisible());
        EXPECT_FALSE(edit(dialog, "SML_ASIG_KR")->isVisible());
        side(dialog, "AsigSide", "KredRadio")->click();
        EXPECT_FALSE(edit(dialog, "SML_ASIG_DB")->isVisible());
        type(edit(dialog, "SML_ASIG_KR"), "100");
        pressButton(dialog, "Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList("1|6|2|0|100|0|0|0|0"));
}

TEST_P(Expenses, ANewRowBelongsToTheCurrentPeriodWhateverThePickerShows)
{
    month(12, 2005, 1, 1);
    open();
    frm->findChild<TPeriodBox *>()->setCurrentIndex(0);
    inDialog(frm->acNew, [](TIslLikDlg &dialog) {
        type(edit(dialog, "SML_KAS_DB"), "5");
        pressButton(dialog, "Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList("1|12|2|0|0|5|0|0|0"));
}

TEST_P(Expenses, AmountsThatCancelEachOtherAreNotSaved)
{
    open();
    inDialog(frm->acNew, [](TIslLikDlg &dialog) {
        type(edit(dialog, "SML_ASIG_DB"), "5");
        type(edit(dialog, "SML_KAS_DB"), "-5");
        pressButton(dialog, "Išsaugoti");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(edit(dialog, "SML_KAS_DB")->text(), "-5.00") << "and nothing is told";
        pressButton(dialog, "Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList());
    EXPECT_TRUE(frm->balances().IsEmpty());
}

TEST_P(Expenses, AFactualCreditOpensOnItsDebitSideAndIsLostUnlessTheSideIsChosen)
{
    balance(1, 6, 5, 50);
    open();
    inDialog(frm->acEdit, [](TIslLikDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Koreguojamas");
        EXPECT_TRUE(side(dialog, "AsigSide", "KredRadio")->isChecked());
        EXPECT_TRUE(side(dialog, "KasSide", "KredRadio")->isChecked()) << "of an amount of nothing, too";
        EXPECT_TRUE(side(dialog, "FakSide", "DebRadio")->isChecked());
        side(dialog, "FakSide", "KredRadio")->click();
        type(edit(dialog, "SML_ASIG_KR"), "6");
        pressButton(dialog, "Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList("1|6|2|0|6|0|0|0|50"));
    inDialog(frm->acEdit, [](TIslLikDlg &dialog) { pressButton(dialog, "Išsaugoti"); });
    EXPECT_EQ(stored(), QStringList("1|6|2|0|6|0|0|0|0"));
}

TEST_P(Expenses, ASideChosenByMistakeAndBackLeavesTheAmounts)
{
    balance(1, 6, 5, 50);
    open();
    inDialog(frm->acEdit, [](TIslLikDlg &dialog) {
        side(dialog, "FakSide", "KredRadio")->click();
        side(dialog, "AsigSide", "DebRadio")->click();
        side(dialog, "AsigSide", "KredRadio")->click();
        EXPECT_EQ(edit(dialog, "SML_ASIG_KR")->text(), "5.00");
        pressButton(dialog, "Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList("1|6|2|0|5|0|0|0|50"));
}

TEST_P(Expenses, AnAmountThatIsNoneKeepsItsSideBeforeTheUsersEyes)
{
    open();
    inDialog(frm->acNew, [](TIslLikDlg &dialog) {
        type(edit(dialog, "SML_KAS_DB"), "abc");
        {
            NextBoxes told{QMessageBox::Ok};
            side(dialog, "KasSide", "KredRadio")->click();
            EXPECT_TRUE(told.at(0).text.contains("Kasos išl. deb.")) << qPrintable(told.at(0).text);
        }
        EXPECT_TRUE(side(dialog, "KasSide", "DebRadio")->isChecked());
        EXPECT_EQ(edit(dialog, "SML_KAS_DB")->text(), "abc");
        pressButton(dialog, "Atšaukti");
    });
}

TEST_P(Expenses, TheSidesOfAGroupAreTakenTogether)
{
    balance(1, 6, 0, 50);
    open();
    inDialog(frm->acEdit, [this](TIslLikDlg &dialog) {
        secondFin()->ExecSQL("update bd_isllik set sml_asig_kr = 7");
        side(dialog, "AsigSide", "DebRadio")->click();
        type(edit(dialog, "SML_ASIG_DB"), "6");
        {
            OnNextDialog<QMessageBox> told([](QMessageBox &box) {
                EXPECT_TRUE(box.text().contains("Asignavimų kred.: buvo „0.00“, dabar „7.00“"))
                    << qPrintable(box.text());
                pressButton(box, "Imti naują reikšmę");
            });
            pressButton(dialog, "Išsaugoti");
        }
        EXPECT_TRUE(side(dialog, "AsigSide", "KredRadio")->isChecked());
        EXPECT_EQ(edit(dialog, "SML_ASIG_KR")->text(), "7.00");
        type(edit(dialog, "SML_KAS_DB"), "1");
        pressButton(dialog, "Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList("1|6|2|0|7|1|0|0|0"));
}

TEST_P(Expenses, TypingClearsTheOtherSidesAtOnce)
{
    balance(1, 6, 5, 50);
    open();
    inDialog(frm->acEdit, [this](TIslLikDlg &dialog) {
        QTest::keyClick(edit(dialog, "SML_ASIG_KR"), Qt::Key_1);
        EXPECT_EQ(frm->balances().FieldByName("SML_FAK_KR")->AsFloat(), 0);
        pressButton(dialog, "Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList("1|6|2|0|5|0|0|0|50")) << "cancelling leaves it all";
    EXPECT_EQ(frm->balances().FieldByName("SML_FAK_KR")->AsFloat(), 50);
}

TEST_P(Expenses, ARefusedSaveKeepsTheDialogOpenWithWhatWasTyped)
{
    open();
    refuseInserting("bd_isllik", "sml_asig_db = 5");
    inDialog(frm->acNew, [](TIslLikDlg &dialog) {
        type(edit(dialog, "SML_ASIG_DB"), "5");
        {
            NextBoxes told{QMessageBox::Ok};
            pressButton(dialog, "Išsaugoti");
        }
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(edit(dialog, "SML_ASIG_DB")->text(), "5.00");
        type(edit(dialog, "SML_ASIG_DB"), "6");
        pressButton(dialog, "Išsaugoti");
    });
    EXPECT_EQ(stored().size(), 1);
}

TEST_P(Expenses, AMonthClosedMeanwhileLeavesTheDialogAsItIs)
{
    open();
    inDialog(frm->acNew, [this](TIslLikDlg &dialog) {
        type(edit(dialog, "SML_ASIG_DB"), "5");
        month(7, 2004, 1, 2);
        EXPECT_EQ(edit(dialog, "SML_ASIG_DB")->text(), "5");
        pressButton(dialog, "Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList("1|7|2|5|0|0|0|0|0"));
    EXPECT_EQ(frm->findChild<TPeriodBox *>()->count(), 2) << "and then the new one is offered";
}

TEST_P(Expenses, AMonthClosedWhileTheQuestionStandsLeavesTheBalanceThatIsMeant)
{
    balance(1, 6, 5, 0);
    open();
    OnNextDialog<QMessageBox> asked([this](QMessageBox &box) {
        balance(2, 7, 5, 0);
        month(7, 2004, 1, 2);
        pressButton(box, "Taip");
    });
    frm->acDelete->trigger();
    EXPECT_EQ(stored(), QStringList("2|7|2|0|5|0|0|0|0"));
}

TEST_P(Expenses, WithoutACurrentPeriodNothingIsSavedAndNothingTypedIsLost)
{
    open();
    inDialog(frm->acNew, [this](TIslLikDlg &dialog) {
        type(edit(dialog, "SML_ASIG_DB"), "5");
        books().ExecSQL("delete from bd_period");
        GetPeriod();
        NextBoxes told{QMessageBox::Ok};
        pressButton(dialog, "Išsaugoti");
        EXPECT_EQ(told.texts(), QStringList("Darbo pradžios periodas nenustatitas!"));
        EXPECT_EQ(edit(dialog, "SML_ASIG_DB")->text(), "5.00");
        pressButton(dialog, "Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList());
}

// --- the other station

TEST_P(Expenses, ARowAddedMeanwhileIsShownAfterARefresh)
{
    open();
    EXPECT_EQ(enabled(), "N--");
    balanceElsewhere();
    frm->acRefresh->trigger();
    EXPECT_EQ(enabled(), "-KT");
}

TEST_P(Expenses, ARowAddedMeanwhileIsShownInsteadOfTheDialogOfASecondOne)
{
    open();
    balanceElsewhere();
    frm->acNew->trigger();
    EXPECT_EQ(enabled(), "-KT");
    EXPECT_EQ(frm->balances().FieldByName("SML_ASIG_DB")->AsFloat(), 1);
}

TEST_P(Expenses, ARowAddedWhileTheDialogIsOpenRefusesASecondOneAndLosesNothingTyped)
{
    open();
    inDialog(frm->acNew, [this](TIslLikDlg &dialog) {
        type(edit(dialog, "SML_ASIG_DB"), "5");
        balanceElsewhere();
        {
            NextBoxes told{QMessageBox::Ok};
            pressButton(dialog, "Išsaugoti");
            EXPECT_EQ(told.texts(), QStringList("Toks įrašas jau yra."));
        }
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(edit(dialog, "SML_ASIG_DB")->text(), "5.00");
        pressButton(dialog, "Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList("9|6|2|1|0|0|0|0|0"));
    EXPECT_EQ(enabled(), "-KT") << "and the other station's row is shown";
}

TEST_P(Expenses, ARowDeletedMeanwhileIsTold)
{
    balance(1, 6, 5, 0);
    open();
    secondFin()->ExecSQL("delete from bd_isllik");
    NextBoxes told{QMessageBox::Ok};
    frm->acEdit->trigger();
    EXPECT_EQ(told.texts(), QStringList("Įrašas jau ištrintas kitoje darbo vietoje"));
    EXPECT_EQ(enabled(), "N--");
}
