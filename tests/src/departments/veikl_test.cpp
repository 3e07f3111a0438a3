#include "src/departments/Veiklred.h"
#include "src/departments/Veiklsar.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"

#include <QAction>
#include <QLineEdit>

using Veiklred::TVeiklRedFrm;
using Veiklsar::TVeiklFrm;
using Veiklsar::VeiklFrm;

namespace {

class ActivityTypes : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        books().ExecSQL("insert into du_veikl (vkl_id, vkl_kodas, vkl_pavad) values (1, 8531, 'Ugdymas')");
        books().ExecSQL("insert into du_veikl (vkl_id, vkl_kodas, vkl_pavad) values (2, 8510, 'Darželis')");
        list.reset(createForm<TVeiklFrm>(nullptr));
        list->show();
    }
    void TearDown() override
    {
        list.reset();
        EXPECT_EQ(VeiklFrm, nullptr);
        OnOpenBooks::TearDown();
    }

    QStringList stored()
    {
        return rows(*secondFin(), "select vkl_id, vkl_kodas, vkl_pavad from du_veikl order by vkl_id");
    }
    static QLineEdit *edit(QWidget &dialog, const char *name) { return dialog.findChild<QLineEdit *>(name); }
    static void fill(TVeiklRedFrm &dialog, const QString &code, const QString &name)
    {
        type(edit(dialog, "VKL_KODAS"), code);
        type(edit(dialog, "VKL_PAVAD"), name);
    }
    static QString refusal(TVeiklRedFrm &dialog)
    {
        NextBoxes shown{QMessageBox::Ok};
        pressButton(dialog, "Išsaugoti");
        EXPECT_TRUE(dialog.isVisible());
        return shown.at(0).text;
    }

    std::unique_ptr<TVeiklFrm> list;
};
ON_BOTH_ENGINES(ActivityTypes);

} // namespace

TEST_P(ActivityTypes, AreListedAddedChangedAndDeleted)
{
    EXPECT_EQ(list->windowTitle(), "Veiklos rūšys");
    OnNextDialog<TVeiklRedFrm> adding([](TVeiklRedFrm &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Naujos veiklos rūšies įvedimas");
        fill(dialog, "8899", "Dienos centras");
        pressButton(dialog, "Išsaugoti");
    });
    list->NewBtnClick();
    EXPECT_EQ(list->currentKey().toInt(), 3);
    OnNextDialog<TVeiklRedFrm> changing([](TVeiklRedFrm &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Veiklos įrašo redagavimas");
        type(edit(dialog, "VKL_PAVAD"), "Vaikų dienos centras");
        pressButton(dialog, "Išsaugoti");
    });
    list->EditBtnClick();
    EXPECT_EQ(stored().last(), "3|8899|Vaikų dienos centras");
    NextBoxes asked{QMessageBox::Yes};
    list->DelBtnClick();
    EXPECT_EQ(stored().size(), 2);
}

TEST_P(ActivityTypes, WhatIsNoCodeAndBlanksForANameAreRefusedInWords)
{
    OnNextDialog<TVeiklRedFrm> adding([](TVeiklRedFrm &dialog) {
        fill(dialog, "-1e5", "Ugdymas");
        EXPECT_EQ(edit(dialog, "VKL_KODAS")->text(), "15") << "digits alone are typed";
        const QString outside = "Laukas \"Kodas\" turi būti nuo 0 iki 2147483647!";
        for (const auto &[pasted, why] :
             {std::pair("1e400", QString("Laukas \"Kodas\": „1e400“ nėra skaičius.")),
              std::pair("0,5", QString("Laukas \"Kodas\": reikia sveikojo skaičiaus.")),
              std::pair("-5", outside), std::pair("1e5", outside), std::pair("2147483648", outside)}) {
            edit(dialog, "VKL_KODAS")->clear();
            edit(dialog, "VKL_KODAS")->insert(pasted);
            EXPECT_EQ(refusal(dialog), why) << pasted;
        }
        fill(dialog, "", "   ");
        EXPECT_EQ(refusal(dialog), "Laukas \"Pavadinimas\" negali būti tuščias!");
        type(edit(dialog, "VKL_PAVAD"), QString(101, u'ž'));
        EXPECT_EQ(edit(dialog, "VKL_PAVAD")->text().size(), 100);
        pressButton(dialog, "Išsaugoti");
    });
    list->NewBtnClick();
    EXPECT_EQ(stored().last(), "3|NULL|" + QString(100, u'ž'));
}

TEST_P(ActivityTypes, TheLargestCodeIsTaken)
{
    OnNextDialog<TVeiklRedFrm> adding([](TVeiklRedFrm &dialog) {
        fill(dialog, "2147483647", "Ugdymas");
        pressButton(dialog, "Išsaugoti");
    });
    list->NewBtnClick();
    EXPECT_EQ(stored().last(), "3|2147483647|Ugdymas");
}

TEST_P(ActivityTypes, OneThatADepartmentHasIsNotDeleted)
{
    books().ExecSQL("insert into bd_pad (pad_id, pad_vklid) values (1, 2)");
    list->RefreshData(2);
    NextBoxes refused{QMessageBox::Ok};
    list->acDelete->trigger();
    EXPECT_EQ(refused.at(0).text, "Veiklos rūšis \"Darželis\" yra naudojama!");
    EXPECT_EQ(stored().size(), 2);
}

TEST_P(ActivityTypes, TwoStationsNeverDrawTheSameKey)
{
    OnNextDialog<TVeiklRedFrm> adding([this](TVeiklRedFrm &dialog) {
        const QString theirs =
            secondFin()
                ->fieldResult("select GetNextTableColumnId('dba','DU_VEIKL','VKL_ID') from dummy")
                .toString();
        EXPECT_EQ(theirs, "3");
        fill(dialog, "1", "Mūsų");
        pressButton(dialog, "Išsaugoti");
    });
    list->NewBtnClick();
    EXPECT_EQ(stored().last(), "4|1|Mūsų");
}

TEST_P(ActivityTypes, TheEditorStandsOnTheRowOfItsListAlone)
{
    EXPECT_THROW(Veiklred::VeiklRedShow(), Exception);
}
