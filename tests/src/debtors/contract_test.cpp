#include "tests/src/debtors/debtors.h"

#include <QRadioButton>

namespace {

const QString wrongOrder = "Data nuo negali būti didesnė už datą iki";

class Contract : public Debtors {
protected:
    void SetUp() override
    {
        Debtors::SetUp();
        party(3, "A", "Pirmas");
    }
    static void show(const Variant &id, std::function<void(TDbKrSutart &)> user)
    {
        OnNextDialog<TDbKrSutart> dialog(std::move(user));
        Dbkrsut::DbKrShow(id);
    }
    static QRadioButton *choice(QWidget &dialog, const QString &text)
    {
        for (auto *button : dialog.findChildren<QRadioButton *>())
            if (button->text().remove(u'&') == text)
                return button;
        return nullptr;
    }
    void contract(const QString &kind)
    {
        books().ExecSQL(
            "insert into bd_dbkrsut (dks_id, dks_dkaid, dks_nr, dks_nuo, dks_iki, dks_tipas, dks_suma) "
            "values (8, 3, 'S-1', '2010-01-01', '2010-12-31', :tipas, 12.5)",
            {{"tipas", kind}});
    }
    QStringList stored()
    {
        return rows(books(),
                    "select dks_dkaid, dks_nr, dks_nuo, dks_iki, dks_tipas, dks_suma from bd_dbkrsut");
    }
};
ON_BOTH_ENGINES(Contract);

} // namespace

TEST_P(Contract, ANewOneStartsOnAFixedDayForTheWholeContract)
{
    show(3, [](TDbKrSutart &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Sutartis");
        EXPECT_TRUE(choice(dialog, "Bendras")->isChecked());
        EXPECT_EQ(Dbkrsut::Tipas, 'B');
        type(edit(dialog, "DKS_NR"), "S-7");
        type(edit(dialog, "DKS_IKI"), "2007.12.31");
        type(edit(dialog, "DKS_SUMA"), "1500,50");
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList("3|S-7|2007-01-01|2007-12-31|B|1500.5"));
    EXPECT_EQ(Dbkrsut::DbKrSutart, nullptr);
}

TEST_P(Contract, TheKindIsShownAndChosen)
{
    contract("M");
    show(3, [](TDbKrSutart &dialog) {
        EXPECT_TRUE(choice(dialog, "Mėnesinis")->isChecked());
        EXPECT_EQ(Dbkrsut::Tipas, 'M');
        choice(dialog, "Bendras")->click();
        EXPECT_EQ(Dbkrsut::Tipas, 'B');
        choice(dialog, "Mėnesinis")->click();
        EXPECT_EQ(Dbkrsut::Tipas, 'M');
        choice(dialog, "Bendras")->click();
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList("3|S-1|2010-01-01|2010-12-31|B|12.5"));
}

TEST_P(Contract, AnyOtherKindOpensAndIsSavedAsWhole)
{
    contract("X");
    show(3, [](TDbKrSutart &dialog) {
        EXPECT_TRUE(choice(dialog, "Bendras")->isChecked());
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList("3|S-1|2010-01-01|2010-12-31|B|12.5"));
}

TEST_P(Contract, CancelWritesNothing)
{
    contract("X");
    const QStringList before = dump(books());
    show(3, [](TDbKrSutart &dialog) {
        type(edit(dialog, "DKS_NR"), "kitas");
        pressButton(dialog, "&Atsisakyti");
    });
    EXPECT_EQ(dump(books()), before);
}

TEST_P(Contract, DatesThatContradictHoldTheFocus)
{
    contract("B");
    show(3, [](TDbKrSutart &dialog) {
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        QLineEdit *last = edit(dialog, "DKS_IKI");
        type(last, "2009.12.31");
        {
            NextBoxes box{QMessageBox::Ok};
            QTest::keyClick(last, Qt::Key_Tab);
            QCoreApplication::processEvents();
            EXPECT_EQ(box.at(0).text, wrongOrder);
        }
        EXPECT_EQ(dialog.focusWidget(), last);
        EXPECT_EQ(refusal(dialog), wrongOrder);
        type(last, "2010.01.01");
        QTest::keyClick(last, Qt::Key_Tab);
        EXPECT_NE(dialog.focusWidget(), last);
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList("3|S-1|2010-01-01|2010-01-01|B|12.5"));
}

TEST_P(Contract, AFirstDayBehindTheLastIsToldWhereItIsTyped)
{
    contract("B");
    show(3, [](TDbKrSutart &dialog) {
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        QLineEdit *first = edit(dialog, "DKS_NUO");
        type(first, "2011.01.01");
        NextBoxes box{QMessageBox::Ok};
        QTest::keyClick(first, Qt::Key_Tab);
        QCoreApplication::processEvents();
        EXPECT_EQ(box.at(0).text, wrongOrder);
        EXPECT_EQ(dialog.focusWidget(), first);
        pressButton(dialog, "&Atsisakyti");
    });
}

TEST_P(Contract, StoredDatesThatContradictAreNotSavedAgain)
{
    contract("B");
    books().ExecSQL("update bd_dbkrsut set dks_iki = '2009-12-31'");
    show(3, [](TDbKrSutart &dialog) {
        type(edit(dialog, "DKS_NR"), "S-2");
        EXPECT_EQ(refusal(dialog), wrongOrder);
        pressButton(dialog, "&Atsisakyti");
    });
    EXPECT_EQ(stored(), QStringList("3|S-1|2010-01-01|2009-12-31|B|12.5"));
}

TEST_P(Contract, ContradictingDatesDoNotHoldWhoGivesUp)
{
    contract("B");
    show(3, [](TDbKrSutart &dialog) {
        type(edit(dialog, "DKS_IKI"), "2009.12.31");
        pressButton(dialog, "&Atsisakyti");
    });
    EXPECT_EQ(stored(), QStringList("3|S-1|2010-01-01|2010-12-31|B|12.5"));
}

TEST_P(Contract, ADateThatIsNoneIsRefusedAndStays)
{
    show(3, [](TDbKrSutart &dialog) {
        type(edit(dialog, "DKS_IKI"), "rytoj");
        EXPECT_EQ(refusal(dialog), "Laukas \"Iki\": „rytoj“ nėra data.");
        EXPECT_EQ(edit(dialog, "DKS_IKI")->text(), "rytoj");
        pressButton(dialog, "&Atsisakyti");
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(Contract, ADateThatIsNoneIsToldThoughTheStoredOnesContradict)
{
    contract("B");
    books().ExecSQL("update bd_dbkrsut set dks_nuo = '2010-12-31', dks_iki = '2010-01-01'");
    show(3, [](TDbKrSutart &dialog) {
        type(edit(dialog, "DKS_IKI"), "rytoj");
        EXPECT_EQ(refusal(dialog), "Laukas \"Iki\": „rytoj“ nėra data.");
        EXPECT_EQ(edit(dialog, "DKS_IKI")->text(), "rytoj");
        pressButton(dialog, "&Atsisakyti");
    });
    EXPECT_EQ(stored(), QStringList("3|S-1|2010-12-31|2010-01-01|B|12.5"));
}

TEST_P(Contract, OfACounterpartyThatIsNotSavedBelongsToNobodyYet)
{
    add([](TEditDbKrDlg &editor) {
        OnNextDialog<TDbKrSutart> contract([](TDbKrSutart &dialog) {
            type(edit(dialog, "DKS_NR"), "S-0");
            pressButton(dialog, "&Išsaugoti");
        });
        pressButton(editor, "&Sutartis");
        pressButton(editor, "&Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList("0|S-0|2007-01-01|NULL|B|NULL"));
}

TEST_P(Contract, OfTwoFirstOnesAtOnceTheSecondIsToldAndNotWritten)
{
    show(3, [this](TDbKrSutart &dialog) {
        type(edit(dialog, "DKS_NR"), "S-2");
        secondFin()->ExecSQL("insert into bd_dbkrsut (dks_id, dks_dkaid, dks_nr) values (8, 3, 'S-1')");
        EXPECT_TRUE(refusal(dialog).startsWith("Kita darbo vieta ką tik įrašė"));
        EXPECT_EQ(edit(dialog, "DKS_NR")->text(), "S-2");
        pressButton(dialog, "&Atsisakyti");
    });
    EXPECT_EQ(stored(), QStringList("3|S-1|NULL|NULL|NULL|NULL"));
}
