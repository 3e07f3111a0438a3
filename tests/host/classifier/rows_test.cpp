#include "host/classifier/classifier_rows.h"

#include "host/classifier/book_picker.h"
#include "host/classifier/classifier.h"
#include "host/data/code_picker.h"
#include "tests/host/row_dialog.h"

#include <QLabel>
#include <QListWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;

// A department with a function and a book.
class ClassifierRows : public WithRowDialog {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        fin->ExecSQL(u"insert into bd_fun (fun_id, fun_kodas, fun_pavad) values (1, '09', 'Švietimas')"_s);
        fin->ExecSQL(u"insert into bd_fun (fun_id, fun_kodas, fun_pavad) values (2, '10', 'Sveikata')"_s);
        fin->ExecSQL(u"insert into bd_asgisl (isl_id, isl_pavad) values (1, 'Biudžetas')"_s);
        fin->ExecSQL(u"insert into bd_asgisl (isl_id, isl_pavad) values (2, 'Fondai')"_s);
        fin->ExecSQL(u"insert into bd_pad (pad_id, pad_pavad, pad_funid, pad_islid) values (1, 'S', 1, 1)"_s);
        edit(u"select * from bd_pad where pad_id = 1"_s);
    }
    bool run(std::function<void()> user)
    {
        return WithRowDialog::run(
            {FunRow(u"Va&lstybės funkcija"_s, u"pad_funid"_s), BookRow(u"K&nyga"_s, u"pad_islid"_s)}, [&] {
                function = control<TFunEdit>(u"pad_funid"_s);
                book = control<TBookEdit>(u"pad_islid"_s);
                user();
            });
    }
    QString stored() { return rows(*fin, u"select pad_funid, pad_islid from bd_pad"_s).join(u';'); }

    TFunEdit *function = nullptr;
    TBookEdit *book = nullptr;
};
ON_BOTH_ENGINES(ClassifierRows);

TEST_P(ClassifierRows, AreReadAndNotTypedIn)
{
    run([this] {
        EXPECT_EQ(function->GetText(), u"09  Švietimas");
        EXPECT_EQ(book->GetText(), u"Biudžetas");
        keys(u"x"_s);
        EXPECT_EQ(function->GetText(), u"09  Švietimas");
        press({Qt::Key_Tab});
        EXPECT_EQ(QApplication::focusWidget(), book->findChild<QToolButton *>()) << "the text is passed over";
        EXPECT_EQ(book->findChild<QToolButton *>()->accessibleName(),
                  u"Knyga: pasirinkti klasifikacijos knygą");
        cancel();
    });
}

TEST_P(ClassifierRows, AreChosenByKeysAndSaved)
{
    EXPECT_TRUE(run([this] {
        {
            OnNextDialog<TCodePicker> picker([](TCodePicker &shown) {
                QTest::keyClicks(shown.focusWidget(), u"10"_s);
                pressButton(shown, u"Pasirinkti"_s);
            });
            press({Qt::Key_F4});
        }
        EXPECT_EQ(function->GetText(), "10  Sveikata");
        dialog->activateWindow();
        book->setFocus();
        OnNextDialog<TBookPicker> picker([](TBookPicker &shown) {
            QTest::keyClick(shown.findChild<QListWidget *>(), Qt::Key_Down);
            pressButton(shown, u"Pasirinkti"_s);
        });
        QTest::keyClick(book->findChild<QToolButton *>(), Qt::Key_Space);
        EXPECT_EQ(book->GetText(), "Fondai");
        pressButton(*dialog, u"Išsaugoti"_s);
    }));
    EXPECT_EQ(stored(), "2|2");
    EXPECT_EQ(userKnyga(), 2) << "the book is the user's from now on";
}

TEST_P(ClassifierRows, CancellingThePickerChangesNothingAnywhere)
{
    EXPECT_TRUE(run([this] {
        OnNextDialog<TBookPicker> picker([](TBookPicker &shown) {
            QTest::keyClick(shown.findChild<QListWidget *>(), Qt::Key_Down);
            shown.reject();
        });
        QTest::keyClick(book->findChild<QToolButton *>(), Qt::Key_F4);
        EXPECT_EQ(book->GetText(), u"Biudžetas");
        pressButton(*dialog, u"Išsaugoti"_s);
    }));
    EXPECT_EQ(stored(), "1|1");
    EXPECT_EQ(userKnyga(), 1);
}

TEST_P(ClassifierRows, DeleteEmptiesThem)
{
    EXPECT_TRUE(run([this] {
        press({Qt::Key_Delete});
        EXPECT_EQ(function->GetText(), "");
        QTest::keyClick(book->findChild<QToolButton *>(), Qt::Key_Backspace);
        EXPECT_EQ(book->GetText(), "");
        pressButton(*dialog, u"Išsaugoti"_s);
    }));
    EXPECT_EQ(stored(), "NULL|NULL");
}

TEST_P(ClassifierRows, ARequiredOneIsNotEmptied)
{
    query->describe(u"pad_funid"_s, [](TField &field) { field.Required = true; });
    run([this] {
        press({Qt::Key_Delete});
        EXPECT_EQ(function->GetText(), u"09  Švietimas");
        cancel();
    });
}

TEST_P(ClassifierRows, WhatIsGoneIsTold)
{
    fin->ExecSQL(u"update bd_pad set pad_funid = 77, pad_islid = 78"_s);
    EXPECT_TRUE(run([this] {
        EXPECT_EQ(function->findChild<QLabel *>()->text(), u"Funkcijos nebėra");
        EXPECT_EQ(book->findChild<QLabel *>()->text(), u"Knygos nebėra");
        EXPECT_EQ(book->value(), 0);
        pressButton(*dialog, u"Išsaugoti"_s);
    }));
    EXPECT_EQ(stored(), "77|78");
}
