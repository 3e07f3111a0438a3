#include "tests/src/accounts/operations.h"

// How a row that is being typed in is left: by every key, by the mouse, and what stays of it where it is
// refused.

namespace {

class LeavingARow : public Operations {
protected:
    // Every way out of a cell of the operations.
    struct TWay {
        const char *name;
        std::function<void()> go;
    };
    std::vector<TWay> ways()
    {
        return {{"Enter", [this] { press(Qt::Key_Return); }},
                {"Tab", [this] { press(Qt::Key_Tab); }},
                {"Shift+Tab", [this] { press(Qt::Key_Backtab, Qt::ShiftModifier); }},
                {"Up", [this] { press(Qt::Key_Up); }},
                {"Down", [this] { press(Qt::Key_Down); }},
                {"Ctrl+S", [this] { press(Qt::Key_S, Qt::ControlModifier); }},
                {"Ctrl+W", [this] { press(Qt::Key_W, Qt::ControlModifier); }},
                {"row above", [this] { click(operations(), 0); }},
                {"row below", [this] { click(operations(), 2); }},
                {"another control", [this] { go(elsewhere); }}};
    }
    void open()
    {
        Operations::open();
        elsewhere = new QLineEdit(frm);
        elsewhere->show();
        press(Qt::Key_Down);
    }
    QString current() { return set(operations()).FieldByName("opr_pavad")->AsString(); }
    // What another station changed is asked about, however the row is left.
    QString conflict(const QString &answer, const std::function<void()> &leaving)
    {
        QString text;
        OnNextDialog<QMessageBox> box([&](QMessageBox &shown) {
            text = shown.text();
            pressButton(shown, answer);
        });
        leaving();
        return text;
    }

    QLineEdit *elsewhere = nullptr;
};
ON_BOTH_ENGINES(LeavingARow);

} // namespace

TEST_P(LeavingARow, ANameThatIsRefusedIsToldOnceAndStaysInItsCell)
{
    open();
    for (const Qt::Key start : {Qt::Key_Insert, Qt::Key_Return})
        for (const TWay &way : ways()) {
            SCOPED_TRACE(way.name);
            press(start);
            keys("Ąžuolas 日");
            for (int attempt = 0; attempt < 2; ++attempt) {
                EXPECT_EQ(refusal(way.go),
                          "Laukas \"Operacijos pavadinimas\": ženklo „日“ negalima įrašyti.");
                ASSERT_TRUE(frm && cell(operations()));
                EXPECT_EQ(cell(operations())->text(), "Ąžuolas 日");
                activate();
                EXPECT_TRUE(cell(operations())->hasFocus());
                EXPECT_EQ(enabled(), changing);
            }
            press(Qt::Key_Escape);
            EXPECT_EQ(enabled(), resting);
            EXPECT_EQ(marked(operations()), current());
            EXPECT_EQ(shown(operations()), QStringList({"Gavimas", "Apmokėjimas", "Nurašymas"}));
            EXPECT_EQ(storedOperations(), QStringList({"1|Gavimas", "2|Apmokėjimas", "3|Nurašymas"}));
        }
}

TEST_P(LeavingARow, ANameThatIsMendedIsStored)
{
    open();
    press(Qt::Key_End);
    press(Qt::Key_Insert);
    keys("Ąžuolas日");
    refusal([this] { press(Qt::Key_Down); });
    press(Qt::Key_Backspace);
    press(Qt::Key_Tab);
    EXPECT_EQ(storedOperations().last(), "4|Ąžuolas");
}

TEST_P(LeavingARow, TheRowThatWasClickedBecomesCurrentThoughTheListIsReadAnew)
{
    for (const char *clicked : {"Gavimas", "Nurašymas"}) {
        books().ExecSQL("delete from bd_opr where opr_id > 3");
        open();
        press(Qt::Key_End);
        press(Qt::Key_Insert);
        keys("Inkasavimas");
        click(operations(), int(shown(operations()).indexOf(clicked)));
        EXPECT_EQ(storedOperations().last(), "4|Inkasavimas");
        EXPECT_EQ(current(), clicked);
        EXPECT_EQ(marked(operations()), clicked);
        delete frm;
    }
}

TEST_P(LeavingARow, DownGoesToTheRowBelowThoughTheListIsReadAnew)
{
    open();
    press(Qt::Key_End);
    press(Qt::Key_Insert);
    keys("Inkasavimas");
    press(Qt::Key_Down);
    EXPECT_EQ(current(), "Nurašymas");
    EXPECT_EQ(marked(operations()), "Nurašymas");
}

TEST_P(LeavingARow, TheLineThatWasClickedBecomesCurrent)
{
    line(2, stock, "D");
    open();
    go(debit());
    press(Qt::Key_Insert);
    keys("2411");
    const QString last = shown(debit()).last();
    click(debit(), 2);
    EXPECT_EQ(shown(debit()).size(), 3);
    EXPECT_EQ(enabled(), resting);
    EXPECT_EQ(marked(debit()), last);
    EXPECT_EQ(debit()->currentIndex().row(), set(debit()).RecNo());
}

TEST_P(LeavingARow, WhereItIsRefusedTheMarkStaysOnIt)
{
    open();
    press(Qt::Key_Home);
    press(Qt::Key_Insert);
    keys("Inkasavimas");
    EXPECT_EQ(refusal([this] { click(operations(), 2); }), "Toks įrašas jau yra: Operacijos numeris „2“.");
    EXPECT_EQ(current(), "Inkasavimas");
    EXPECT_EQ(marked(operations()), "Inkasavimas");
    EXPECT_EQ(enabled(), changing);
}

TEST_P(LeavingARow, HoweverItIsLeftTheUserDecidesWhatAnotherStationChanged)
{
    open();
    QString name = "Apmokėjimas";
    for (const TWay &way : ways()) {
        if (way.name == QString("Enter") || way.name == QString("Ctrl+W"))
            continue; // the one does not leave the row, the other has a test of its own
        SCOPED_TRACE(way.name);
        if (current() != name)
            click(operations(), int(shown(operations()).indexOf(name)));
        go(operations());
        press(Qt::Key_Return);
        keys(QString("Per ") + way.name);
        secondFin()->ExecSQL("update bd_opr set opr_pavad = 'Kitaip' where opr_id = 2");
        EXPECT_EQ(conflict("&Grįžti", way.go),
                  "Kita darbo vieta tuo tarpu pakeitė: Operacijos pavadinimas: buvo „" + name +
                      "“, dabar „Kitaip“.");
        EXPECT_EQ(enabled(), changing);
        EXPECT_EQ(current(), QString("Per ") + way.name);
        conflict("&Palikti savo", way.go);
        name = QString("Per ") + way.name;
        EXPECT_EQ(storedOperations().at(1), "2|" + name);
        EXPECT_EQ(enabled(), resting);
    }
}

TEST_P(LeavingARow, ClosingAsksAboutItToo)
{
    open();
    press(Qt::Key_Return);
    keys("Pirkimas");
    secondFin()->ExecSQL("update bd_opr set opr_pavad = 'Kitaip' where opr_id = 2");
    conflict("&Imti naują reikšmę", [this] { press(Qt::Key_W, Qt::ControlModifier); });
    ASSERT_TRUE(frm);
    EXPECT_EQ(current(), "Kitaip");
    EXPECT_EQ(enabled(), changing) << "taking a value is no saving";
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(frm);
    EXPECT_EQ(storedOperations().at(1), "2|Kitaip");
}

TEST_P(LeavingARow, ALineOfAnOperationThatAnotherStationDeletedIsToldAndStays)
{
    open();
    go(debit());
    press(Qt::Key_Insert);
    keys("2411");
    secondFin()->ExecSQL("delete from bd_opr where opr_id = 2");
    EXPECT_EQ(refusal([this] { press(Qt::Key_Tab); }),
              "Įrašas susietas su kitais įrašais: nurodytas įrašas neegzistuoja arba jis naudojamas.");
    EXPECT_EQ(enabled(), changing);
    EXPECT_TRUE(shown(debit()).contains("2411  Sąskaita 2411"));
    press(Qt::Key_Escape);
    EXPECT_EQ(shown(debit()), QStringList("691  Sąskaita 691"));
}
