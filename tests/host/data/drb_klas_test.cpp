#include "host/data/drb_klas.h"

#include "host/data/code_picker.h"
#include "tests/host/row_dialog.h"

#include <QLabel>

using namespace Qt::StringLiterals;

class DrbKlas : public WithRowDialog {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        fin->ExecSQL(u"insert into du_drbklas (kla_kodas, kla_pavad) values (23, 'Mokytojai')"_s);
        fin->ExecSQL(u"insert into du_drbklas (kla_kodas, kla_pavad) values (47, 'Šoferiai')"_s);
        fin->ExecSQL(u"insert into bd_prg (prg_id, prg_pavad, prg_kla_kod) values (1, 'Mokytojas', 23)"_s);
        edit(u"select * from bd_prg where prg_id = 1"_s);
    }
    bool run(std::function<void()> user)
    {
        const auto maker = [](QWidget *parent) { return new TDrbKlasFra(parent); };
        return WithRowDialog::run({TFieldRow::bound(u"&Grupė"_s, u"prg_kla_kod"_s, maker)}, [&] {
            klas = control<TDrbKlasFra>(u"prg_kla_kod"_s);
            user();
        });
    }
    QString note() const { return klas->findChild<QLabel *>()->text(); }
    QString stored() { return value(*fin, u"select prg_kla_kod from bd_prg"_s); }

    TDrbKlasFra *klas = nullptr;
};
ON_BOTH_ENGINES(DrbKlas);

TEST_P(DrbKlas, ACodeIsTypedAndItsNameStandsBesideIt)
{
    EXPECT_TRUE(run([this] {
        EXPECT_EQ(klas->f_kodas(), Variant(23.0));
        EXPECT_EQ(note(), "Mokytojai");
        keys(u"47"_s);
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "47");
}

TEST_P(DrbKlas, HalfANameFindsIt)
{
    EXPECT_TRUE(run([this] {
        keys(u"sof"_s);
        press({Qt::Key_Down, Qt::Key_Return});
        EXPECT_EQ(klas->GetText(), "47");
        press({Qt::Key_Return});
    }));
    EXPECT_EQ(stored(), "47");
}

TEST_P(DrbKlas, WhatIsNoGroupSaysSo)
{
    run([this] {
        keys(u"99"_s);
        EXPECT_EQ(refusal(), u"Profesinės grupės „99“ nėra");
        EXPECT_EQ(klas->f_kodas(), Variant());
        keys(u"x"_s);
        EXPECT_EQ(refusal(), u"Profesinės grupės „x“ nėra");
        cancel();
    });
    EXPECT_EQ(stored(), "23");
}

TEST_P(DrbKlas, IsChosenFromAList)
{
    EXPECT_TRUE(run([this] {
        OnNextDialog<TCodePicker> picker([](TCodePicker &shown) {
            EXPECT_EQ(shown.windowTitle(), u"Profesinės grupės");
            QTest::keyClicks(shown.focusWidget(), u"47"_s);
            pressButton(shown, u"Pasirinkti"_s);
        });
        press({Qt::Key_F4});
        EXPECT_EQ(klas->f_kodas(), Variant(47.0));
        klas->p_kodas(Variant());
        EXPECT_TRUE(column(u"prg_kla_kod"_s)->IsNull());
        klas->p_kodas(23);
        klas->p_kodas(47);
        pressButton(*dialog, u"Išsaugoti"_s);
    }));
    EXPECT_EQ(stored(), "47");
}

TEST_P(DrbKlas, WithoutAColumnHoldsItsOwnValue)
{
    TDrbKlasFra own;
    EXPECT_EQ(own.f_kodas(), Variant());
    own.p_kodas(47);
    EXPECT_EQ(own.f_kodas(), Variant(47.0));
    EXPECT_EQ(own.GetText(), "47");
    own.p_kodas({});
    EXPECT_EQ(own.f_kodas(), Variant());
}
