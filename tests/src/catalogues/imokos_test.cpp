#include "src/catalogues/Imokos.h"
#include "src/catalogues/Newimok.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using Imokos::ImokosFrm;
using Imokos::TImokosFrm;
using Newimok::TNewImokDlg;

namespace {

class PaymentCodes : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        books().ExecSQL(
            "insert into pp_imok (imo_kod, imo_pavad) values ('GPM', 'Gyventojų pajamų mokestis')");
        books().ExecSQL("insert into pp_imok (imo_kod, imo_pavad) values ('PSD', 'Sveikatos draudimas')");
        list.reset(createForm<TImokosFrm>(nullptr));
        list->show();
    }
    void TearDown() override
    {
        list.reset();
        EXPECT_EQ(ImokosFrm, nullptr);
        OnOpenBooks::TearDown();
    }

    QStringList stored(TDatabase *in = nullptr)
    {
        return rows(in ? *in : books(), "select imo_kod, imo_pavad from pp_imok order by imo_kod");
    }
    static QLineEdit *edit(QWidget &dialog, const char *name) { return dialog.findChild<QLineEdit *>(name); }
    static void fill(TNewImokDlg &dialog, const QString &code, const QString &name)
    {
        type(edit(dialog, "IMO_KOD"), code);
        type(edit(dialog, "IMO_PAVAD"), name);
    }
    static QString refusal(TNewImokDlg &dialog)
    {
        NextBoxes shown{QMessageBox::Ok};
        pressButton(dialog, "Išsaugoti");
        EXPECT_TRUE(dialog.isVisible());
        return shown.at(0).text;
    }

    std::unique_ptr<TImokosFrm> list;
};
ON_BOTH_ENGINES(PaymentCodes);

} // namespace

TEST_P(PaymentCodes, AreListedAddedChangedAndDeleted)
{
    EXPECT_EQ(list->windowTitle(), "Mokesčių, rinkliavų ir kitų įmokų kodų sąrašas");
    OnNextDialog<TNewImokDlg> adding([](TNewImokDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Įmokos kodas");
        fill(dialog, "ABC", "Rinkliava");
        pressButton(dialog, "Išsaugoti");
    });
    list->NewBtnClick();
    EXPECT_EQ(list->currentKey().toString(), "ABC");
    OnNextDialog<TNewImokDlg> changing([](TNewImokDlg &dialog) {
        EXPECT_EQ(edit(dialog, "IMO_PAVAD")->text(), "Rinkliava");
        type(edit(dialog, "IMO_PAVAD"), "Vietinė rinkliava");
        pressButton(dialog, "Išsaugoti");
    });
    list->EditBtnClick();
    EXPECT_EQ(stored().first(), "ABC|Vietinė rinkliava");
    NextBoxes asked{QMessageBox::Yes};
    list->DelBtnClick();
    EXPECT_EQ(stored().size(), 2);
}

TEST_P(PaymentCodes, ACodeThatIsThereIsRefusedAndOnesOwnIsKept)
{
    OnNextDialog<TNewImokDlg> adding([](TNewImokDlg &dialog) {
        fill(dialog, "GPM", "Kitas");
        EXPECT_EQ(refusal(dialog), "Kodas \"GPM\" jau egzistuoja");
        EXPECT_EQ(edit(dialog, "IMO_PAVAD")->text(), "Kitas");
        pressButton(dialog, "Atsisakyti");
    });
    list->NewBtnClick();
    list->RefreshData("PSD");
    OnNextDialog<TNewImokDlg> changing([](TNewImokDlg &dialog) {
        type(edit(dialog, "IMO_KOD"), "GPM");
        EXPECT_EQ(refusal(dialog), "Kodas \"GPM\" jau egzistuoja");
        fill(dialog, "PSD", "Kitaip");
        pressButton(dialog, "Išsaugoti");
    });
    list->EditBtnClick();
    EXPECT_EQ(stored(), QStringList({"GPM|Gyventojų pajamų mokestis", "PSD|Kitaip"}));
}

TEST_P(PaymentCodes, BlanksAreNoCodeAndNoName)
{
    OnNextDialog<TNewImokDlg> adding([](TNewImokDlg &dialog) {
        fill(dialog, "  ", "Kitas");
        EXPECT_EQ(refusal(dialog), "Laukas \"Kodas\" negali būti tuščias!");
        fill(dialog, "ABC", "  ");
        EXPECT_EQ(refusal(dialog), "Laukas \"Pavadinimas\" negali būti tuščias!");
        pressButton(dialog, "Atsisakyti");
    });
    list->NewBtnClick();
    EXPECT_EQ(stored().size(), 2);
}

TEST_P(PaymentCodes, QuotesAndPercentSignsAreOrdinaryLetters)
{
    OnNextDialog<TNewImokDlg> adding([](TNewImokDlg &dialog) {
        fill(dialog, "'%\"", "O'Ąžuolas 5 %");
        pressButton(dialog, "Išsaugoti");
    });
    list->NewBtnClick();
    EXPECT_EQ(list->currentKey().toString(), "'%\"");
    EXPECT_TRUE(stored().contains("'%\"|O'Ąžuolas 5 %"));
}

TEST_P(PaymentCodes, CodesThatDifferInCaseAreTwo)
{
    OnNextDialog<TNewImokDlg> adding([](TNewImokDlg &dialog) {
        fill(dialog, "gpm", "Kitas");
        pressButton(dialog, "Išsaugoti");
    });
    list->NewBtnClick();
    EXPECT_EQ(list->currentKey().toString(), "gpm");
    EXPECT_EQ(stored(),
              QStringList({"GPM|Gyventojų pajamų mokestis", "PSD|Sveikatos draudimas", "gpm|Kitas"}));
}

TEST_P(PaymentCodes, CtrlEnterSavesAndBeginsTheNext)
{
    OnNextDialog<TNewImokDlg> first([](TNewImokDlg &dialog) {
        fill(dialog, "A1", "Pirmas");
        QTest::keyClick(edit(dialog, "IMO_PAVAD"), Qt::Key_Return, Qt::ControlModifier);
    });
    OnNextDialog<TNewImokDlg> second([](TNewImokDlg &dialog) {
        EXPECT_EQ(edit(dialog, "IMO_KOD")->text(), "");
        fill(dialog, "A2", "Antras");
        QTest::keyClick(edit(dialog, "IMO_PAVAD"), Qt::Key_Return);
    });
    list->NewBtnClick();
    EXPECT_EQ(stored().mid(0, 2), QStringList({"A1|Pirmas", "A2|Antras"}));
}

// --- the other station

TEST_P(PaymentCodes, WhatAnotherStationChangedIsToldAndMayBeTaken)
{
    list->RefreshData("GPM");
    OnNextDialog<TNewImokDlg> changing([this](TNewImokDlg &dialog) {
        secondFin()->ExecSQL("update pp_imok set imo_pavad = 'Jų' where imo_kod = 'GPM'");
        type(edit(dialog, "IMO_PAVAD"), "Mano");
        {
            OnNextDialog<QMessageBox> told([](QMessageBox &box) {
                EXPECT_TRUE(box.text().contains("Pavadinimas: buvo „Gyventojų pajamų mokestis“, dabar „Jų“"))
                    << qPrintable(box.text());
                pressButton(box, "Imti naują reikšmę");
            });
            pressButton(dialog, "Išsaugoti");
        }
        EXPECT_EQ(stored().first(), "GPM|Jų");
        EXPECT_EQ(edit(dialog, "IMO_PAVAD")->text(), "Jų");
        pressButton(dialog, "Išsaugoti");
    });
    list->EditBtnClick();
    EXPECT_EQ(stored().first(), "GPM|Jų");
}

TEST_P(PaymentCodes, OnesOwnValueMayBeKeptInstead)
{
    list->RefreshData("GPM");
    OnNextDialog<TNewImokDlg> changing([this](TNewImokDlg &dialog) {
        secondFin()->ExecSQL("update pp_imok set imo_pavad = 'Jų' where imo_kod = 'GPM'");
        type(edit(dialog, "IMO_PAVAD"), "Mano");
        {
            OnNextDialog<QMessageBox> told([](QMessageBox &box) { pressButton(box, "Grįžti"); });
            pressButton(dialog, "Išsaugoti");
        }
        EXPECT_EQ(stored().first(), "GPM|Jų") << "going back writes nothing";
        EXPECT_EQ(edit(dialog, "IMO_PAVAD")->text(), "Mano");
        OnNextDialog<QMessageBox> again([](QMessageBox &box) { pressButton(box, "Palikti savo"); });
        pressButton(dialog, "Išsaugoti");
    });
    list->EditBtnClick();
    EXPECT_EQ(stored().first(), "GPM|Mano");
}

TEST_P(PaymentCodes, ARowThatIsGoneIsToldWithTheDialogOpen)
{
    list->RefreshData("GPM");
    OnNextDialog<TNewImokDlg> changing([this](TNewImokDlg &dialog) {
        secondFin()->ExecSQL("delete from pp_imok where imo_kod = 'GPM'");
        type(edit(dialog, "IMO_PAVAD"), "Mano");
        EXPECT_EQ(refusal(dialog), "Įrašas jau ištrintas kitoje darbo vietoje");
        EXPECT_EQ(edit(dialog, "IMO_PAVAD")->text(), "Mano");
        pressButton(dialog, "Atsisakyti");
    });
    list->EditBtnClick();
    EXPECT_EQ(stored(), QStringList("PSD|Sveikatos draudimas"));
}
