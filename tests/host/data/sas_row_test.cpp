#include "host/data/account_row.h"

#include "host/common/forms.h"
#include "tests/host/row_dialog.h"

#include <QLabel>
#include <QToolButton>

using namespace Qt::StringLiterals;

// A department whose account is 221 (key 3).
class SasRowInDialog : public WithRowDialog {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        addSmallChart(fin);
        store(3);
        edit(u"select * from bd_pad where pad_id = 1"_s);
    }

    void store(int account)
    {
        fin->ExecSQL(u"delete from bd_pad"_s);
        fin->ExecSQL(u"insert into bd_pad (pad_id, pad_pavad, pad_sasid) values (1, 'Skyrius', :sas)"_s,
                     {{u"sas"_s, account}});
    }
    QString stored() { return value(*fin, u"select pad_sasid from bd_pad"_s); }

    bool run(const TSasRule &rule, std::function<void()> user)
    {
        const QList<TFieldRow> rows{SasRow(u"&Sąskaita"_s, u"pad_sasid"_s, rule),
                                    TFieldRow::edit(u"&Pavadinimas"_s, u"pad_pavad"_s)};
        return WithRowDialog::run(rows, [&] {
            sas = control<TSasEdit>(u"pad_sasid"_s);
            line = sas->findChild<QLineEdit *>();
            user();
        });
    }
    using WithRowDialog::column;
    TField *column() const { return column(u"pad_sasid"_s); }
    QString note() const { return sas->findChild<QLabel *>()->text(); }
    bool isMarked() const { return WithRowDialog::isMarked(line); }

    TSasEdit *sas = nullptr;
    QLineEdit *line = nullptr;
};
ON_BOTH_ENGINES(SasRowInDialog);

TEST_P(SasRowInDialog, ShowsTheColumnAndIsTypedInFirst)
{
    run({}, [this] {
        EXPECT_EQ(sas->GetText(), "221");
        EXPECT_EQ(note(), u"Pirkėjų skolos");
        EXPECT_EQ(sas->value(), 3);
        EXPECT_EQ(QApplication::focusWidget(), line);
        EXPECT_EQ(line->accessibleName(), u"Sąskaita");
        press({Qt::Key_Tab});
        EXPECT_EQ(QApplication::focusWidget()->objectName(), "pad_pavad") << "one stop of the tab key";
        cancel();
    });
}

TEST_P(SasRowInDialog, TheNumberAndEnterSaveAtOnce)
{
    EXPECT_TRUE(run({}, [this] {
        keys(u"222"_s);
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "4");
}

TEST_P(SasRowInDialog, TheNumberAndTabGoOnToTheNextField)
{
    EXPECT_TRUE(run({}, [this] {
        keys(u"222"_s);
        press({Qt::Key_Tab});
        EXPECT_EQ(column()->AsFloat(), 4);
        EXPECT_EQ(note(), u"Šilumos skolos");
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "4");
}

TEST_P(SasRowInDialog, HalfANameDownEnterChoosesAndEnterSaves)
{
    EXPECT_TRUE(run({}, [this] {
        keys(u"sko"_s);
        press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
        EXPECT_TRUE(dialog->isVisible()) << "Enter on an offer only chooses it";
        EXPECT_EQ(sas->GetText(), "222");
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "4");
}

TEST_P(SasRowInDialog, AClosedAccountIsToldAndTheOneThatIsStoredStays)
{
    fin->ExecSQL(u"update bd_sasplan set sas_tip = 'U' where sas_id in (3, 4)"_s);
    EXPECT_FALSE(run({}, [this] {
        EXPECT_EQ(note(), u"Pirkėjų skolos");
        keys(u"222"_s);
        press({Qt::Key_Return});
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(note(), u"Sąskaita „222“ uždaryta");
        cancel();
    }));
    EXPECT_TRUE(run({}, [this] { press({Qt::Key_Return}); }));
    EXPECT_EQ(stored(), "3");
}

TEST_P(SasRowInDialog, EnterOnNoAccountKeepsTheDialogOpenAndTellsWhy)
{
    run({}, [this] {
        keys(u"9999"_s);
        press({Qt::Key_Return});
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(note(), u"Sąskaitos „9999“ nėra");
        EXPECT_EQ(QApplication::focusWidget(), line);
        EXPECT_EQ(column()->AsFloat(), 3);
        EXPECT_EQ(sas->value(), 0);
        cancel();
    });
    EXPECT_EQ(stored(), "3");
}

TEST_P(SasRowInDialog, SavingNamesWhatIsNoAccountAndGoesThere)
{
    run({}, [this] {
        keys(u"9999"_s);
        press({Qt::Key_Tab});
        EXPECT_EQ(refusal(), u"Sąskaitos „9999“ nėra");
        EXPECT_EQ(QApplication::focusWidget(), line);
        EXPECT_EQ(line->text(), "9999");
        EXPECT_TRUE(isMarked());
        cancel();
    });
}

TEST_P(SasRowInDialog, EscLeavesTheOffersFirst)
{
    EXPECT_FALSE(run({}, [this] {
        keys(u"22"_s);
        EXPECT_TRUE(sas->findChild<TOfferList *>()->isVisible());
        press({Qt::Key_Escape});
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_FALSE(sas->findChild<TOfferList *>()->isVisible());
        press({Qt::Key_Escape});
        EXPECT_FALSE(dialog->isVisible());
    }));
    EXPECT_EQ(stored(), "3");
}

TEST_P(SasRowInDialog, KeepTakesASummaryAccount)
{
    EXPECT_TRUE(run({.whenNotDetail = TSasRule::Keep}, [this] {
        keys(u"22"_s);
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "2");
}

TEST_P(SasRowInDialog, RefuseKeepsTheAccountOfTheColumn)
{
    run({.whenNotDetail = TSasRule::Refuse}, [this] {
        keys(u"22"_s);
        press({Qt::Key_Tab});
        EXPECT_EQ(column()->AsFloat(), 3);
        EXPECT_EQ(sas->value(), 3);
        EXPECT_EQ(line->text(), "22");
        EXPECT_EQ(refusal(), u"Sąskaita „22“ yra suminė: pasirinkite detaliąją");
        EXPECT_EQ(QApplication::focusWidget(), line);
        cancel();
    });
}

TEST_P(SasRowInDialog, ClearEmptiesTheColumnAndSaysWhy)
{
    EXPECT_TRUE(run({.whenNotDetail = TSasRule::Clear}, [this] {
        keys(u"22"_s);
        press({Qt::Key_Tab});
        EXPECT_TRUE(column()->IsNull());
        EXPECT_EQ(sas->value(), 0);
        EXPECT_EQ(refusal(), u"Sąskaita „22“ yra suminė: pasirinkite detaliąją");
        type(line, u"9999"_s);
        leave(line);
        EXPECT_TRUE(column()->IsNull());
        EXPECT_EQ(refusal(), u"Sąskaitos „9999“ nėra");
        type(line, {});
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "NULL");
}

TEST_P(SasRowInDialog, AnEmptiedEditEmptiesTheColumn)
{
    EXPECT_TRUE(run({}, [this] {
        type(line, {});
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "NULL");
}

TEST_P(SasRowInDialog, WhereZeroKeepsTheColumnStaysAndIsShownAgain)
{
    EXPECT_TRUE(run({.zeroKeeps = true}, [this] {
        type(line, {});
        leave(line);
        EXPECT_EQ(line->text(), "221");
        EXPECT_EQ(sas->value(), 3);
        sas->setValue(0);
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "3");
}

TEST_P(SasRowInDialog, TheColumnsOwnRuleRefusesAndKeepsTheTextToBeCorrected)
{
    query->describe(u"pad_sasid"_s, [](TField &field) {
        field.OnValidate = [](TField &, const Variant &proposed) {
            if (proposed.toDouble() == 2)
                throw Exception(u"Sąskaita negali būti suminė!"_s);
        };
    });
    run({}, [this] {
        keys(u"22"_s);
        press({Qt::Key_Tab});
        EXPECT_EQ(column()->AsFloat(), 3);
        EXPECT_EQ(sas->value(), 3);
        EXPECT_EQ(note(), u"Sąskaita negali būti suminė!");
        EXPECT_EQ(refusal(), u"Sąskaita negali būti suminė!");
        EXPECT_EQ(line->text(), "22");
        EXPECT_THROW(sas->setValue(2), Exception);
        sas->setValue(4);
        EXPECT_EQ(note(), u"Šilumos skolos");
        EXPECT_EQ(column()->AsFloat(), 4);
        cancel();
    });
}

TEST_P(SasRowInDialog, OnChangeHearsEveryKeyAndTheNewValue)
{
    QStringList heard;
    run({}, [&] {
        sas->OnChange = [&] { heard << u"%1%2"_s.arg(sas->Status()).arg(sas->value()); };
        keys(u"22"_s);
        EXPECT_EQ(heard, QStringList({"S3", "S3"}));
        keys(u"2"_s);
        press({Qt::Key_Tab});
        EXPECT_EQ(heard.last(), " 4");
        column()->setValue(5);
        EXPECT_EQ(heard.last(), " 5") << "the column was set elsewhere";
        EXPECT_EQ(line->text(), "24");
        cancel();
    });
}

TEST_P(SasRowInDialog, PostEndsTheSearch)
{
    run({}, [this] {
        keys(u"222"_s);
        query->Post();
        EXPECT_EQ(stored(), "4");
        EXPECT_EQ(note(), u"Šilumos skolos");
        EXPECT_TRUE(line->isReadOnly()) << "nothing is typed outside of editing";
        sas->setValue(5);
        EXPECT_EQ(sas->value(), 4);
        QTest::keyClick(line, Qt::Key_F4);
        cancel();
    });
}

TEST_P(SasRowInDialog, TheFormKnowsWhetherAnAccountStandsThere)
{
    run({}, [this] {
        int heard = 0;
        static_cast<TDBControl *>(sas)->whenEdited(sas, [&] { ++heard; });
        EXPECT_TRUE(sas->showsValue());
        sas->setValue(0);
        EXPECT_FALSE(sas->showsValue());
        heard = 0;
        keys(u"9"_s);
        EXPECT_EQ(heard, 1);
        EXPECT_TRUE(sas->showsValue()) << "it may become one";
        press({Qt::Key_Tab});
        EXPECT_FALSE(sas->showsValue()) << "no account";
        EXPECT_GT(heard, 1) << "what is wrong may close the save button";
        sas->setValue(0);
        EXPECT_FALSE(sas->showsValue());
        column()->setValue(77);
        EXPECT_FALSE(sas->showsValue()) << "gone";
        column()->setValue(4);
        EXPECT_TRUE(sas->showsValue());
        cancel();
    });
}

TEST_P(SasRowInDialog, AnotherAccountMayBeShownInstead)
{
    run({}, [this] {
        sas->showInstead(5);
        EXPECT_EQ(line->text(), "24");
        EXPECT_EQ(sas->value(), 5);
        EXPECT_EQ(column()->AsFloat(), 3);
        EXPECT_TRUE(line->isReadOnly());
        EXPECT_TRUE(sas->showsValue());
        sas->showInstead(0);
        EXPECT_EQ(line->text(), "221");
        EXPECT_FALSE(line->isReadOnly());
        cancel();
    });
}

TEST_P(SasRowInDialog, WhoMayOnlyLookChangesNothing)
{
    run({}, [this] {
        DisableFormControls(dialog);
        EXPECT_FALSE(line->isEnabled());
        EXPECT_FALSE(sas->findChild<QToolButton *>()->isEnabled());
        QTest::keyClick(line, Qt::Key_F4);
        QTest::mouseClick(sas->findChild<QToolButton *>(), Qt::LeftButton);
        query->Cancel();
        query->Edit();
        EXPECT_FALSE(sas->findChild<QToolButton *>()->isEnabled());
        cancel();
    });
}

TEST_P(SasRowInDialog, AnAccountThatIsGoneIsToldAndKeptUntilItIsChanged)
{
    store(77);
    EXPECT_TRUE(run({}, [this] {
        EXPECT_EQ(note(), u"Sąskaitos nebėra");
        EXPECT_EQ(line->text(), "");
        EXPECT_TRUE(isMarked());
        EXPECT_EQ(sas->value(), 0);
        EXPECT_EQ(column()->AsFloat(), 77);
        press({Qt::Key_Tab});
        type(QApplication::focusWidget(), u"Kitas"_s);
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(rows(*fin, u"select pad_sasid, pad_pavad from bd_pad"_s), QStringList("77|Kitas"));
    EXPECT_TRUE(run({}, [this] {
        keys(u"221"_s);
        EXPECT_FALSE(isMarked());
        EXPECT_EQ(line->toolTip(), "");
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "3");
}

TEST_P(SasRowInDialog, WhereOnlyDetailAccountsCountAGoneOneIsRefusedAtTheSave)
{
    store(77);
    run({.whenNotDetail = TSasRule::Clear}, [this] {
        EXPECT_EQ(refusal(), u"Sąskaitos nebėra");
        EXPECT_EQ(QApplication::focusWidget(), line);
        dialog->findChild<TSasEdit *>()->setVisible(false);
        pressButton(*dialog, u"&Išsaugoti"_s);
        EXPECT_FALSE(dialog->isVisible()) << "what cannot be seen stands in nobody's way";
    });
    EXPECT_EQ(stored(), "77");
}

TEST_P(SasRowInDialog, AnAccountDeletedWhileItWasOfferedIsTold)
{
    run({}, [this] {
        keys(u"222"_s);
        press({Qt::Key_Down});
        secondFin()->ExecSQL(u"delete from bd_sasplan where sas_id = 4"_s);
        press({Qt::Key_Return});
        EXPECT_EQ(note(), u"Sąskaitos nebėra");
        EXPECT_EQ(column()->AsFloat(), 3);
        cancel();
    });
}
