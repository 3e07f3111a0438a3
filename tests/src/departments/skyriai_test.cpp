#include "src/departments/Laikymovietos.h"
#include "src/departments/Paditem.h"
#include "src/departments/Skyriailist.h"
#include "tests/src/catalogue.h"

#include <QCheckBox>

using Paditem::TPadItemFrm;
using Skyriailist::SkyriaiFrm;
using Skyriailist::TSkyriaiFrm;

namespace {

class Departments : public OnCatalogue<Skyriailist::SkyriaiFrm, Paditem::PadItemFrm> {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        account("241");
        account("401");
        for (const char *sql :
             {"insert into du_veikl (vkl_id, vkl_kodas, vkl_pavad) values (1, 85, 'Ugdymas')",
              "insert into du_veikl (vkl_id, vkl_kodas, vkl_pavad) values (2, 88, 'Globa')",
              "insert into bd_asgisl (isl_id, isl_pavad) values (4, 'Knyga')",
              "insert into bd_fun (fun_id, fun_kodas, fun_pavad) values (3, '09', 'Švietimas')",
              "insert into bd_pad (pad_id, pad_pavad, pad_kodas, pad_vklid, pad_sasid, pad_funid, pad_islid, "
              "pad_sasid2) values (7, 'Administracija', 'ab1', 2, 1, 3, 4, 99)",
              "insert into bd_pad (pad_id, pad_pavad, pad_kodas) values (8, 'Virtuvė', 'žv')"})
            books().ExecSQL(sql);
        open();
    }
    void TearDown() override
    {
        OnCatalogue::TearDown();
        EXPECT_EQ(SkyriaiFrm, nullptr);
    }

    QStringList stored(const char *columns)
    {
        return rows(*secondFin(), QString("select %1 from bd_pad order by pad_id").arg(columns));
    }
    using OnCatalogue::elsewhere;
    void elsewhere(const QString &sql) { secondFin()->ExecSQL(sql); }
    QStringList cells(int row)
    {
        QStringList texts;
        for (int column = 0; column < list->grid()->model()->columnCount(); ++column)
            texts << list->grid()->model()->index(row, column).data().toString();
        return texts;
    }
    template<class T = QWidget> static T *part(QWidget &dialog, const char *name)
    {
        return dialog.findChild<T *>(name);
    }
    static void cancel(QWidget &dialog) { pressButton(dialog, "Atsisakyti"); }
};
ON_BOTH_ENGINES(Departments);

} // namespace

TEST_P(Departments, AreShownByTheTextsOfTheirKeysAndNothingForAKeyThatIsNotFound)
{
    EXPECT_EQ(cells(0), QStringList({"Administracija", "", "", "ab1", "241  Sąskaita 241", "09  Švietimas",
                                     "Knyga", ""}));
    EXPECT_EQ(cells(1), QStringList({"Virtuvė", "", "", "žv", "", "", "", ""}));
}

TEST_P(Departments, AreAddedChangedAndDeleted)
{
    add([](TPadItemFrm &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Naujas skyrius");
        type(part(dialog, "PAD_PAVAD"), "O'Ąžuolas 5 %");
        type(part(dialog, "PAD_ADR"), "Šilo g. 7");
        type(part(dialog, "PAD_KODAS"), "'%\"");
        part<QCheckBox>(dialog, "PAD_IST")->click();
        part<QComboBox>(dialog, "PAD_VKLID")->setCurrentIndex(0);
        type(edit(dialog, "PAD_SASID"), "401");
        type(edit(dialog, "PAD_SASID2"), "241");
        save(dialog);
    });
    EXPECT_EQ(list->currentKey().toInt(), 9);
    EXPECT_EQ(cells(2).mid(2),
              QStringList({"Taip", "'%\"", "401  Sąskaita 401", "", "", "241  Sąskaita 241"}));
    change(9, [](TPadItemFrm &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Koreguojamas skyrius");
        part<QCheckBox>(dialog, "PAD_IST")->click();
        save(dialog);
    });
    EXPECT_EQ(stored("*").last(), "9|O'Ąžuolas 5 %|Šilo g. 7|0|'%\"|1|2|NULL|NULL|1");
    NextBoxes asked{QMessageBox::Yes};
    list->DelBtnClick();
    EXPECT_EQ(stored("pad_id"), QStringList({"7", "8"}));
}

TEST_P(Departments, OneWithoutAnActivityGetsTheFirst)
{
    change(8, [](TPadItemFrm &dialog) { save(dialog); });
    EXPECT_EQ(stored("pad_vklid"), QStringList({"2", "1"}));
}

TEST_P(Departments, AnActivityAddedElsewhereIsOfferedTheNextTimeInTheHostsList)
{
    change(8, [](TPadItemFrm &dialog) {
        EXPECT_EQ(items(dialog, "PAD_VKLID"), QStringList({"Globa", "Ugdymas"}));
        EXPECT_TRUE(MainDatas()->Veikl()->Active());
        cancel(dialog);
    });
    elsewhere("insert into du_veikl (vkl_id, vkl_pavad) values (3, 'Menai')");
    change(8, [](TPadItemFrm &dialog) {
        EXPECT_EQ(items(dialog, "PAD_VKLID"), QStringList({"Globa", "Menai", "Ugdymas"}));
        cancel(dialog);
    });
}

TEST_P(Departments, AnEmptiedAccountLeavesTheColumnAsItWas)
{
    books().ExecSQL("update bd_pad set pad_sasid2 = 2 where pad_id = 7");
    list->RefreshData(7);
    change(7, [](TPadItemFrm &dialog) {
        type(edit(dialog, "PAD_SASID"), "");
        EXPECT_EQ(picker(dialog, "PAD_SASID2")->value(), 2);
        picker(dialog, "PAD_SASID2")->setValue(0);
        save(dialog);
    });
    EXPECT_EQ(stored("pad_sasid, pad_sasid2").first(), "1|2");
}

TEST_P(Departments, FunctionAndBookAreShownAndMayBeEmptied)
{
    change(7, [](TPadItemFrm &dialog) {
        EXPECT_EQ(edit(dialog, "PAD_FUNID")->text(), "09  Švietimas");
        EXPECT_EQ(edit(dialog, "PAD_ISLID")->text(), "Knyga");
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        for (const char *name : {"PAD_FUNID", "PAD_ISLID"}) {
            part(dialog, name)->setFocus();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
        }
        save(dialog);
    });
    EXPECT_EQ(stored("pad_funid, pad_islid").first(), "NULL|NULL");
}

TEST_P(Departments, BlanksAreStoredAsNullAndAreNoCodeOfAnother)
{
    elsewhere("update bd_pad set pad_kodas = '   ' where pad_id = 8");
    change(7, [](TPadItemFrm &dialog) {
        for (const char *name : {"PAD_PAVAD", "PAD_ADR", "PAD_KODAS"})
            type(part(dialog, name), "   ");
        save(dialog);
    });
    EXPECT_EQ(stored("pad_pavad, pad_adr, pad_kodas").first(), "NULL|NULL|NULL");
}

TEST_P(Departments, TheRulesAreTheDataSetsOwn)
{
    TQuery &set = *list->dataSet();
    set.Edit();
    set.FieldByName("PAD_PAVAD")->setAsString("  ");
    EXPECT_TRUE(set.FieldByName("PAD_PAVAD")->IsNull());
    set.FieldByName("PAD_KODAS")->setAsString(" ");
    EXPECT_TRUE(set.FieldByName("PAD_KODAS")->IsNull());
    EXPECT_THROW(set.FieldByName("PAD_KODAS")->setAsString("ŽV"), Exception);
    EXPECT_TRUE(set.FieldByName("PAD_KODAS")->IsNull());
    set.Cancel();
}

TEST_P(Departments, ACodeThatDiffersOnlyInCaseIsRefusedWhenItIsEntered)
{
    add([](TPadItemFrm &dialog) {
        type(part(dialog, "PAD_PAVAD"), "Kita");
        for (const auto &[code, message] : {std::pair("AB1", "Kodas: \"AB1\" jau egzistuoja!"),
                                            std::pair("ŽV", "Kodas: \"ŽV\" jau egzistuoja!")}) {
            dialog.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            NextBoxes told{QMessageBox::Ok};
            type(part(dialog, "PAD_KODAS"), code);
            part(dialog, "PAD_ADR")->setFocus();
            QTRY_COMPARE(told.count(), 1);
            EXPECT_EQ(told.at(0).text, message);
        }
        EXPECT_EQ(part<QLineEdit>(dialog, "PAD_PAVAD")->text(), "Kita");
        EXPECT_EQ(refusal(dialog), "Kodas: \"ŽV\" jau egzistuoja!");
        cancel(dialog);
    });
    EXPECT_EQ(stored("pad_id").size(), 2);
}

TEST_P(Departments, AQuoteAndAPercentSignInACodeAreOrdinaryLetters)
{
    for (const QString code : {"a%", "o'k"})
        add([&](TPadItemFrm &dialog) {
            type(part(dialog, "PAD_PAVAD"), "Kita");
            type(part(dialog, "PAD_KODAS"), code);
            save(dialog);
        });
    EXPECT_EQ(stored("pad_kodas").mid(2), QStringList({"a%", "o'k"}));
    add([](TPadItemFrm &dialog) {
        type(part(dialog, "PAD_PAVAD"), "Dar viena");
        type(part(dialog, "PAD_KODAS"), "O'K");
        EXPECT_EQ(refusal(dialog), "Kodas: \"O'K\" jau egzistuoja!");
        cancel(dialog);
    });
}

TEST_P(Departments, OneKeepsItsOwnCode)
{
    change(7, [](TPadItemFrm &dialog) {
        type(part(dialog, "PAD_KODAS"), "AB1");
        save(dialog);
    });
    EXPECT_EQ(stored("pad_kodas").first(), "AB1");
}

TEST_P(Departments, TheLongestTextsArePastedAndLongerOnesRefused)
{
    change(7, [](TPadItemFrm &dialog) {
        for (const auto &[column, longest] : {std::pair("PAD_PAVAD", 50), std::pair("PAD_KODAS", 5)}) {
            auto *edit = part<QLineEdit>(dialog, column);
            edit->clear();
            edit->insert(QString(longest + 1, u'ū'));
            EXPECT_EQ(edit->text(), "");
            edit->insert(QString(longest, u'ū'));
        }
        save(dialog);
    });
    EXPECT_EQ(stored("pad_pavad, pad_kodas").first(), QString(50, u'ū') + "|ūūūūū");
}

TEST_P(Departments, OneInUseIsNotDeleted)
{
    books().ExecSQL("insert into bd_laikymo_vieta (lv_id, lv_padid, lv_pav) values (1, 7, 'Rūsys')");
    NextBoxes refused{QMessageBox::Ok};
    list->acDelete->trigger();
    EXPECT_EQ(refused.at(0).text, "Skyrius \"Administracija\" yra naudojamas!");
    EXPECT_EQ(stored("pad_id").size(), 2);
}

TEST_P(Departments, WhoMayOnlyLookSeesOneWithEverythingDisabled)
{
    CurrentUser().viewOnly = true;
    change(7, [](TPadItemFrm &dialog) {
        for (const char *name : {"PAD_PAVAD", "PAD_KODAS", "PAD_IST", "PAD_VKLID"})
            EXPECT_FALSE(part(dialog, name)->isEnabled()) << name;
        cancel(dialog);
    });
    EXPECT_EQ(stored("pad_vklid").first(), "2");
}

TEST_P(Departments, WhatTheServerRefusesStaysToBeMended)
{
    refuseInserting("bd_pad", "pad_kodas = 'X'");
    add([this](TPadItemFrm &dialog) {
        type(part(dialog, "PAD_KODAS"), "X");
        EXPECT_TRUE(refusal(dialog).contains("sugadinta tyčia"));
        EXPECT_TRUE(list->dataSet()->editing());
        EXPECT_TRUE(dialog.rowKey().isNull());
        type(part(dialog, "PAD_KODAS"), "Y");
        save(dialog);
    });
    EXPECT_EQ(stored("pad_id, pad_kodas").last(), "9|Y");
}

// --- the other station

TEST_P(Departments, TwoStationsWithTheSameCodeAndTheSameNextKey)
{
    add([this](TPadItemFrm &dialog) {
        type(part(dialog, "PAD_KODAS"), "X");
        type(part(dialog, "PAD_PAVAD"), "Kita");
        elsewhere("insert into bd_pad (pad_id, pad_kodas) values (9, 'x')");
        EXPECT_EQ(refusal(dialog), "Kodas: \"X\" jau egzistuoja!");
        EXPECT_TRUE(dialog.rowKey().isNull());
        type(part(dialog, "PAD_KODAS"), "Y");
        save(dialog);
    });
    EXPECT_EQ(stored("pad_id, pad_kodas, pad_pavad").mid(2), QStringList({"9|x|NULL", "10|Y|Kita"}));
    EXPECT_EQ(list->currentKey().toInt(), 10);
}

TEST_P(Departments, TwoStationsThatDrawTheSameKeyNeverShareIt)
{
    addWhileItsKeyIsTaken("PAD_ID", "insert into bd_pad (pad_id, pad_kodas) values (9, 'Y')",
                          "Toks įrašas jau yra.",
                          [](TPadItemFrm &dialog) { type(part(dialog, "PAD_KODAS"), "X"); });
    EXPECT_EQ(stored("pad_id, pad_kodas").mid(2),
              engine() == Engine::PostgreSql ? QStringList({"9|Y", "10|X"}) : QStringList("9|X"));
}

TEST_P(Departments, OneDeletedWhileItsDialogIsOpenIsTold)
{
    change(8, [this](TPadItemFrm &dialog) {
        elsewhere("delete from bd_pad where pad_id = 8");
        type(part(dialog, "PAD_ADR"), "Šilo g. 7");
        EXPECT_EQ(refusal(dialog), "Įrašas jau ištrintas kitoje darbo vietoje");
        EXPECT_EQ(part<QLineEdit>(dialog, "PAD_ADR")->text(), "Šilo g. 7");
        cancel(dialog);
    });
    EXPECT_EQ(stored("pad_id"), QStringList("7"));
}

TEST_P(Departments, WhatAnotherStationChangedBesideOnesOwnIsKept)
{
    change(7, [this](TPadItemFrm &dialog) {
        elsewhere("update bd_pad set pad_pavad = 'Jų' where pad_id = 7");
        type(part(dialog, "PAD_ADR"), "Mano");
        save(dialog);
    });
    EXPECT_EQ(stored("pad_pavad, pad_adr").first(), "Jų|Mano");
}
