#include "src/departments/Laikymovietos.h"
#include "src/departments/Lvedit.h"
#include "src/departments/Skyriailist.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"
#include "tests/support/uncommitted.h"

#include <QAction>
#include <QLineEdit>
#include <QTest>

using Laikymovietos::LaikymoVietosFrm;
using Laikymovietos::ShowLaikymoVietos;
using Laikymovietos::TLaikymoVietosFrm;
using Lvedit::ShowLVEdit;
using Lvedit::TLVEditFrm;

namespace {

class StoragePlaces : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        books().ExecSQL("insert into bd_pad (pad_id, pad_pavad) values (7, 'Virtuvė')");
        books().ExecSQL("insert into bd_pad (pad_id, pad_pavad) values (8, 'Ūkis')");
    }
    void place(int id, int department, const QString &name)
    {
        books().ExecSQL("insert into bd_laikymo_vieta (lv_id, lv_padid, lv_pav) values (:id, :pad, :pav)",
                        {{"id", id}, {"pad", department}, {"pav", name}});
    }
    QStringList stored()
    {
        return rows(*secondFin(), "select lv_id, lv_padid, lv_pav from bd_laikymo_vieta order by lv_id");
    }
    static QLineEdit *name(QWidget &dialog) { return dialog.findChild<QLineEdit *>("LV_PAV"); }
    static void show(std::function<void(TLaikymoVietosFrm &)> user)
    {
        OnNextDialog<TLaikymoVietosFrm> places([&user](TLaikymoVietosFrm &list) {
            user(list);
            list.close();
        });
        ShowLaikymoVietos(7, AnsiString("Virtuvė"));
        EXPECT_EQ(LaikymoVietosFrm, nullptr);
    }
};
ON_BOTH_ENGINES(StoragePlaces);

class StoragePlacesOnServer : public StoragePlaces {};
ON_ENGINE(StoragePlacesOnServer, Engine::PostgreSql);

} // namespace

TEST_P(StoragePlaces, AreThoseOfOneDepartment)
{
    place(1, 7, "Sandėlis");
    place(2, 8, "Garažas");
    const std::unique_ptr<QWidget> list(createForm<Skyriailist::TSkyriaiFrm>(nullptr));
    static_cast<TBrowseFrm *>(list.get())->RefreshData(7);
    OnNextDialog<TLaikymoVietosFrm> places([](TLaikymoVietosFrm &shown) {
        EXPECT_EQ(shown.windowTitle(), "Turto laikymo vietos įstaigai: Virtuvė");
        EXPECT_EQ(shown.dataSet()->RecordCount(), 1);
        EXPECT_EQ(shown.acClose->text(), "&Uždaryti");
        shown.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
        QTest::keyClick(&shown, Qt::Key_Escape);
        EXPECT_FALSE(shown.isVisible());
    });
    auto *action = list->findChild<QAction *>("acLaikymoVietos");
    EXPECT_EQ(action->text(), "&Turto laikymo vieta");
    action->trigger();
}

TEST_P(StoragePlaces, TheFirstOneEverGetsKeyOne)
{
    show([](TLaikymoVietosFrm &list) {
        OnNextDialog<TLVEditFrm> adding([](TLVEditFrm &dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Laikymo vietos Pavadinimas");
            type(name(dialog), "Rūsys");
            pressButton(dialog, "Gerai");
        });
        list.NewBtnClick();
        EXPECT_EQ(list.currentKey().toInt(), 1);
    });
    EXPECT_EQ(stored(), QStringList("1|7|Rūsys"));
}

TEST_P(StoragePlacesOnServer, TwoStationsThatDrawTheSameKeyNeverShareIt)
{
    double id = 0;
    OnNextDialog<TLVEditFrm> adding([this](TLVEditFrm &dialog) {
        type(name(dialog), "Rūsys");
        {
            const Uncommitted theirs(
                *secondFin(), "insert into bd_laikymo_vieta (lv_id, lv_padid, lv_pav) values (1, 8, 'Jų')");
            NextBoxes told{QMessageBox::Ok};
            pressButton(dialog, "Gerai");
            EXPECT_EQ(told.texts(), QStringList("Toks įrašas jau yra."));
        }
        EXPECT_EQ(name(dialog)->text(), "Rūsys");
        pressButton(dialog, "Gerai");
    });
    EXPECT_TRUE(ShowLVEdit(id, 7, dsInsert));
    EXPECT_EQ(id, 2);
    EXPECT_EQ(stored(), QStringList({"1|8|Jų", "2|7|Rūsys"}));
}

TEST_P(StoragePlaces, AreChangedAndDeletedUnlessThereAreAssets)
{
    place(3, 7, "Rūsys");
    show([this](TLaikymoVietosFrm &list) {
        OnNextDialog<TLVEditFrm> changing([](TLVEditFrm &dialog) {
            type(name(dialog), "Palėpė");
            pressButton(dialog, "Gerai");
        });
        list.EditBtnClick();
        EXPECT_EQ(stored(), QStringList("3|7|Palėpė"));
        books().ExecSQL("insert into it_turtas (tur_id, tur_lvid) values (1, 3)");
        {
            NextBoxes refused{QMessageBox::Ok};
            list.acDelete->trigger();
            EXPECT_EQ(refused.at(0).text, "Laikymo vieta \"Palėpė\" yra naudojama!");
        }
        books().ExecSQL("delete from it_turtas");
        NextBoxes asked{QMessageBox::Yes};
        list.acDelete->trigger();
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(StoragePlaces, WithoutANameTheDialogStaysOpenAndCanBeLeft)
{
    double id = 0;
    OnNextDialog<TLVEditFrm> adding([](TLVEditFrm &dialog) {
        for (const char *typed : {"", "   "}) {
            NextBoxes told{QMessageBox::Ok};
            type(name(dialog), typed);
            pressButton(dialog, "Gerai");
            EXPECT_EQ(told.at(0).kind, 49);
            EXPECT_EQ(told.at(0).text, "Būtina įvesti laikymo vietos pavadinimą!");
            EXPECT_TRUE(dialog.isVisible());
        }
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        EXPECT_TRUE(name(dialog)->hasFocus());
        QTest::keyClick(name(dialog), Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_FALSE(ShowLVEdit(id, 7, dsInsert));
    EXPECT_EQ(id, 0);
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(StoragePlaces, InAnyOtherStateOneIsOnlyShown)
{
    place(3, 7, "Rūsys");
    double id = 3;
    OnNextDialog<TLVEditFrm> looking([](TLVEditFrm &dialog) {
        EXPECT_EQ(name(dialog)->text(), "Rūsys");
        EXPECT_FALSE(name(dialog)->isEnabled());
        pressButton(dialog, "Atsisakyti");
    });
    EXPECT_FALSE(ShowLVEdit(id, 7, dsBrowse));
}
