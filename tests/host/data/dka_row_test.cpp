#include "host/data/party_row.h"

#include "tests/host/row_dialog.h"

using namespace Qt::StringLiterals;

// A debtor's opening balance with its two counterparty edits.
class DkaRows : public WithRowDialog {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        addSmallChart(fin);
        party(1, u"M1"_s, u"UAB „Šilumos tinklai“"_s, 123456789, 3);
        party(2, u"M2"_s, u"UAB „Žalia giria“"_s, 123450000, 4);
        party(3, u"K7"_s, u"Žemaitis"_s, {}, 3);
        store({}, u"Laisva įmonė"_s);
        edit(u"select * from bd_dbkrlik where dkl_id = 1"_s);
    }
    void party(int id, const QString &code, const QString &name, const Variant &company, int account)
    {
        fin->ExecSQL(
            u"insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_i_kod, dka_sasid, dka_sasid_2) "
            "values (:id, :kod, :pavad, :ikod, :sas, 7)"_s,
            {{u"id"_s, id}, {u"kod"_s, code}, {u"pavad"_s, name}, {u"ikod"_s, company}, {u"sas"_s, account}});
    }
    void store(const Variant &id, const Variant &name)
    {
        fin->ExecSQL(u"delete from bd_dbkrlik"_s);
        fin->ExecSQL(
            u"insert into bd_dbkrlik (dkl_id, dkl_perid, dkl_dkaid, dkl_pavad, dkl_sum_db, dkl_sum_kr) "
            "values (1, 1, :id, :pavad, 1, 0)"_s,
            {{u"id"_s, id}, {u"pavad"_s, name}});
    }
    QString stored()
    {
        return rows(*fin, u"select dkl_dkaid, dkl_i_kod, dkl_pavad from bd_dbkrlik"_s).join(u';');
    }

    bool run(std::function<void()> user)
    {
        const QList<TFieldRow> described{
            DkaRow(u"&Kodas"_s, {u"DKL_DKAID"_s, u"DKL_I_KOD"_s, u"DKA_I_KOD"_s}),
            DkaRow(u"&Pavadinimas"_s, {u"DKL_DKAID"_s, u"DKL_PAVAD"_s, u"DKA_PAVAD"_s})};
        return WithRowDialog::run(described, [&] {
            byCode = control<TDKAComboBox>(u"DKL_I_KOD"_s);
            byName = control<TDKAComboBox>(u"DKL_PAVAD"_s);
            user();
        });
    }
    static TOfferList *offersOf(TDKAComboBox *box) { return box->findChild<TOfferList *>(); }
    static QStringList offered(TDKAComboBox *box)
    {
        QStringList texts;
        for (int row = 0; row < offersOf(box)->offerCount(); ++row)
            texts << offersOf(box)->at(row).text;
        return texts;
    }
    QLineEdit *codeLine() const { return byCode->findChild<QLineEdit *>(); }
    QLineEdit *nameLine() const { return byName->findChild<QLineEdit *>(); }
    void goToName() { nameLine()->setFocus(Qt::TabFocusReason); }

    TDKAComboBox *byCode = nullptr;
    TDKAComboBox *byName = nullptr;
};
ON_BOTH_ENGINES(DkaRows);

TEST_P(DkaRows, ShowAFreeCounterpartyByItsOwnTexts)
{
    run([this] {
        EXPECT_EQ(byName->GetText(), u"Laisva įmonė");
        EXPECT_EQ(byCode->GetText(), "");
        EXPECT_EQ(byName->value(), 0);
        EXPECT_EQ(byName->Get_dkaSASID(), 0);
        cancel();
    });
}

TEST_P(DkaRows, ShowACounterpartyOfTheRegisterByItsColumns)
{
    store(1, {});
    run([this] {
        EXPECT_EQ(byCode->GetText(), "123456789");
        EXPECT_EQ(byName->GetText(), u"UAB „Šilumos tinklai“");
        EXPECT_EQ(byCode->value(), 1);
        EXPECT_EQ(byCode->Get_dkaSASID(), 3);
        EXPECT_EQ(codeLine()->accessibleName(), "Kodas");
        cancel();
    });
}

TEST_P(DkaRows, ACodeOfTheRegisterBecomesTheKeyAndTheFreeTextsGo)
{
    EXPECT_TRUE(run([this] {
        keys(u"123450000"_s);
        press({Qt::Key_Tab});
        EXPECT_EQ(byName->GetText(), u"UAB „Žalia giria“") << "the other edit follows";
        EXPECT_EQ(byName->Get_dkaSASID(), 4);
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "2|NULL|NULL");
}

TEST_P(DkaRows, TheSearchCodeIsACodeToo)
{
    EXPECT_TRUE(run([this] {
        keys(u"K7"_s);
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "3|NULL|NULL");
}

TEST_P(DkaRows, HalfANameDownEnterChoosesAndEnterSaves)
{
    EXPECT_TRUE(run([this] {
        goToName();
        keys(u"zalia"_s);
        press({Qt::Key_Down, Qt::Key_Return});
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(byName->GetText(), u"UAB „Žalia giria“");
        EXPECT_EQ(byCode->GetText(), "123450000");
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "2|NULL|NULL");
}

TEST_P(DkaRows, AFreeTextEmptiesTheKey)
{
    store(1, {});
    EXPECT_TRUE(run([this] {
        goToName();
        type(nameLine(), u"Kita firma"_s);
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), u"NULL|NULL|Kita firma");
}

TEST_P(DkaRows, AFreeCodeIsANumber)
{
    EXPECT_TRUE(run([this] {
        keys(u"abc"_s);
        EXPECT_EQ(refusal(), u"Laukas \"Kodas\": „abc“ nėra skaičius.");
        EXPECT_EQ(QApplication::focusWidget(), codeLine());
        EXPECT_EQ(column(u"DKL_PAVAD"_s)->AsString(), u"Laisva įmonė");
        type(codeLine(), u"777"_s);
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), u"NULL|777|Laisva įmonė");
}

TEST_P(DkaRows, AnEmptiedEditLeavesNoCounterparty)
{
    store(1, {});
    EXPECT_TRUE(run([this] {
        type(codeLine(), {});
        press({Qt::Key_Tab});
        EXPECT_EQ(byName->GetText(), "");
        EXPECT_FALSE(byName->showsValue());
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "NULL|NULL|NULL");
}

TEST_P(DkaRows, ATextOfSeveralIsToBeChosenFromTheList)
{
    party(4, u"M4"_s, u"Zuikis"_s, {}, 3);
    party(5, u"M5"_s, u"ZUIKIS"_s, {}, 3);
    EXPECT_TRUE(run([this] {
        goToName();
        type(nameLine(), u"zuikis"_s);
        EXPECT_EQ(refusal(), u"Tokių įmonių registre yra kelios: pasirinkite iš sąrašo (F4)");
        EXPECT_EQ(column(u"DKL_PAVAD"_s)->AsString(), u"Laisva įmonė");
        press({Qt::Key_F4});
        EXPECT_EQ(offered(byName).size(), 2);
        press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
        EXPECT_EQ(byName->value(), 4);
        type(nameLine(), byName->GetText());
        press({Qt::Key_Return});
    })) << "the text of the one that is chosen means that one";
    EXPECT_EQ(stored(), "4|NULL|NULL");
}

TEST_P(DkaRows, ANameIsTheSameInSmallAndCapitalLetters)
{
    party(4, u"M4"_s, u"Zuikis"_s, {}, 3);
    EXPECT_TRUE(run([this] {
        goToName();
        type(nameLine(), u"ZUIKIS"_s);
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "4|NULL|NULL");
}

TEST_P(DkaRows, WhatFitsIsOfferedAfterAPause)
{
    run([this] {
        goToName();
        type(nameLine(), u"uab"_s);
        EXPECT_FALSE(offersOf(byName)->isVisible());
        EXPECT_TRUE(QTest::qWaitFor([this] { return offersOf(byName)->isVisible(); }));
        EXPECT_EQ(offered(byName), QStringList({u"M1  UAB „Šilumos tinklai“, 123456789"_s,
                                                u"M2  UAB „Žalia giria“, 123450000"_s}));
        press({Qt::Key_Escape});
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_FALSE(offersOf(byName)->isVisible());
        press({Qt::Key_Escape});
        EXPECT_FALSE(dialog->isVisible());
    });
}

TEST_P(DkaRows, OfferByCodesFirstAndThenByTheWordsOfTheName)
{
    const auto found = [this](const QString &text) {
        QStringList codes;
        for (const TParty &each : partiesLike(fin, text, 50))
            codes << each.code;
        return codes.join(u' ');
    };
    EXPECT_EQ(found(u"m"_s), "M1 M2 K7") << "codes first, then names that have it";
    EXPECT_EQ(found(u"12345"_s), "M2 M1");
    EXPECT_EQ(found(u"1234567"_s), "M1");
    EXPECT_EQ(found(u"2345"_s), "") << "a code is known by its beginning";
    EXPECT_EQ(found(u"tinklai silumos"_s), "M1");
    EXPECT_EQ(found(u"ZEM"_s), "K7");
    EXPECT_EQ(found(u"nera tokio"_s), "");
    EXPECT_EQ(found({}), "M1 M2 K7");
    EXPECT_EQ(partiesLike(fin, {}, 2).size(), 2);
}

TEST_P(DkaRows, F4AndTheButtonShowTheListWithoutTyping)
{
    run([this] {
        QTest::keyClick(codeLine(), Qt::Key_Down, Qt::AltModifier);
        EXPECT_EQ(offered(byCode).size(), 3);
        press({Qt::Key_Down, Qt::Key_Tab});
        EXPECT_EQ(byCode->value(), 1) << "leaving takes the one that the user moved to";
        cancel();
    });
}

TEST_P(DkaRows, ACounterpartyDeletedMeanwhileIsToldAtTheSave)
{
    run([this] {
        keys(u"K7"_s);
        press({Qt::Key_Tab});
        secondFin()->ExecSQL(u"delete from bd_dbkrasm where dka_id = 3"_s);
        EXPECT_EQ(refusal(), u"Įmonės registre nebėra");
        EXPECT_EQ(QApplication::focusWidget(), codeLine());
        cancel();
    });
    EXPECT_EQ(stored(), u"NULL|NULL|Laisva įmonė");
}

TEST_P(DkaRows, ACounterpartyDeletedWhileItWasOfferedIsTold)
{
    run([this] {
        keys(u"K"_s);
        press({Qt::Key_Down});
        secondFin()->ExecSQL(u"delete from bd_dbkrasm where dka_id = 3"_s);
        press({Qt::Key_Return});
        EXPECT_TRUE(isMarked(codeLine()));
        EXPECT_EQ(codeLine()->toolTip(), u"Įmonės registre nebėra");
        cancel();
    });
}

TEST_P(DkaRows, OfAHugeRegisterReadAFewRows)
{
    const QString columns =
        u"insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_i_kod, dka_sasid, dka_sasid_2) "_s;
    fin->nativeExec(
        columns +
        (engine() == Engine::Sqlite
             ? u"with recursive n(i) as (select 100 union all select i + 1 from n where i < 300099) "
               "select i, 'P' || i, 'Įmonė Nr. ' || i, 500000000 + i, 3, 7 from n"_s
             : u"select i, 'P' || i, 'Įmonė Nr. ' || i, 500000000 + i, 3, 7 "
               "from generate_series(100, 300099) i"_s));
    run([this] {
        for (const QString &text : {u"P"_s, u"imone"_s, u"5"_s, u"nr. 29999"_s}) {
            type(codeLine(), text);
            press({Qt::Key_F4});
            EXPECT_GT(offered(byCode).size(), 10) << text.toStdString();
            EXPECT_LE(offered(byCode).size(), 50) << text.toStdString();
        }
        type(codeLine(), u"500299999"_s);
        press({Qt::Key_Tab});
        EXPECT_EQ(byName->GetText(), u"Įmonė Nr. 299999");
        cancel();
    });
}
