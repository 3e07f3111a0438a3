#include "host/data/sas_edit.h"

#include "host/data/code_picker.h"
#include "tests/host/books.h"
#include "tests/support/message_box.h"
#include "toolkit/widgets/guard.h"

#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

class SasEdit : public WithMainDatas {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        addSmallChart(fin);
        window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(window.get());
        other = new QLineEdit;
        layout->addWidget(other);
        make({.detailOnly = false});
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    void TearDown() override
    {
        window.reset();
        WithMainDatas::TearDown();
    }

    void typeText(const QString &text) { type(line, text); }
    QString shownName() const { return sas->findChild<QLabel *>()->text(); }
    QStringList offers() const
    {
        QStringList texts;
        for (int row = 0; row < list()->offerCount(); ++row)
            texts << list()->at(row).text;
        return texts;
    }
    TOfferList *list() const { return sas->findChild<TOfferList *>(); }
    void press(std::initializer_list<Qt::Key> keys)
    {
        for (const Qt::Key key : keys)
            QTest::keyClick(line, key);
    }
    // Ends the search and gives the complaint.
    QString refusal()
    {
        try {
            sas->commit();
        } catch (const Exception &error) {
            return error.message();
        }
        return {};
    }
    void make(const TSasRule &rule)
    {
        delete sas;
        sas = new TSasEdit(rule);
        window->layout()->addWidget(sas);
        line = sas->findChild<QLineEdit *>();
        sas->OnChange = [this] { heard << u"%1%2"_s.arg(sas->Status()).arg(sas->value()); };
        line->setFocus();
    }

    std::unique_ptr<QWidget> window;
    TSasEdit *sas = nullptr;
    QLineEdit *line = nullptr;
    QLineEdit *other = nullptr;
    QStringList heard; // status and value at every call of OnChange
};
ON_BOTH_ENGINES(SasEdit);

TEST_P(SasEdit, ASetAccountShowsItsNumberAndName)
{
    sas->setValue(3);
    EXPECT_EQ(sas->value(), 3);
    EXPECT_EQ(sas->GetText(), "221");
    EXPECT_EQ(shownName(), u"Pirkėjų skolos");
    EXPECT_EQ(heard, QStringList({" 3"}));
    sas->setValue(3);
    EXPECT_EQ(heard.size(), 1) << "the same value is no change";
    sas->setValue(0);
    EXPECT_EQ(sas->GetText(), "");
    EXPECT_EQ(heard, QStringList({" 3", " 0"}));
}

TEST_P(SasEdit, AnAccountThatDoesNotExistCountsAsNoneAndIsTold)
{
    sas->setValue(99);
    EXPECT_EQ(sas->value(), 0);
    EXPECT_EQ(sas->GetText(), "");
    EXPECT_EQ(shownName(), u"Sąskaitos nebėra");
    EXPECT_TRUE(sas->isGone());
    EXPECT_EQ(heard, QStringList());
    sas->setValue(0);
    EXPECT_EQ(shownName(), "");
}

TEST_P(SasEdit, AHalfTypedNumberNeverBecomesTheValue)
{
    sas->setValue(5);
    heard.clear();
    typeText(u"22"_s);
    EXPECT_EQ(sas->Status(), u'S');
    EXPECT_EQ(sas->value(), 5);
    EXPECT_FALSE(heard.isEmpty());
    for (const QString &call : heard)
        EXPECT_EQ(call, "S5");
}

TEST_P(SasEdit, LeavingTakesTheNumber)
{
    typeText(u"221"_s);
    heard.clear();
    leave(line);
    EXPECT_EQ(sas->value(), 3);
    EXPECT_EQ(sas->Status(), u' ');
    EXPECT_EQ(shownName(), u"Pirkėjų skolos");
    EXPECT_EQ(heard, QStringList({" 3"}));
}

TEST_P(SasEdit, EnterTakesTheNumber)
{
    typeText(u"24"_s);
    press({Qt::Key_Return});
    EXPECT_EQ(sas->value(), 5);
    EXPECT_FALSE(list()->isVisible());
}

TEST_P(SasEdit, ATextThatOneAccountFitsIsThatAccount)
{
    typeText(u"silumos"_s);
    sas->commit();
    EXPECT_EQ(sas->value(), 4);
    EXPECT_EQ(sas->GetText(), "222");
}

TEST_P(SasEdit, AnythingElseIsNoAccountSaysSoAndStaysToBeCorrected)
{
    sas->setValue(3);
    typeText(u" 9999 "_s);
    EXPECT_EQ(refusal(), u"Sąskaitos „9999“ nėra");
    EXPECT_EQ(sas->value(), 0);
    EXPECT_EQ(sas->Status(), u' ');
    EXPECT_EQ(sas->GetText(), " 9999 ");
    EXPECT_EQ(shownName(), u"Sąskaitos „9999“ nėra");
    EXPECT_EQ(line->toolTip(), shownName());
    EXPECT_EQ(line->accessibleDescription(), shownName());
    EXPECT_EQ(heard.last(), " 0");
    EXPECT_EQ(refusal(), u"Sąskaitos „9999“ nėra") << "as long as it stands there";
    typeText(u"221"_s);
    EXPECT_EQ(shownName(), "") << "what is typed anew is not yet wrong";
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(sas->value(), 3);
    EXPECT_EQ(line->toolTip(), "");
}

TEST_P(SasEdit, AnEmptiedEditHasNoAccount)
{
    sas->setValue(3);
    type(line, QString());
    leave(line);
    EXPECT_EQ(sas->value(), 0);
    EXPECT_EQ(line->toolTip(), "");
}

TEST_P(SasEdit, OffersAccountsByNumberAndByNameWithoutDiacritics)
{
    typeText(u"22"_s);
    EXPECT_EQ(offers(),
              QStringList({u"22  Gautinos sumos"_s, u"221  Pirkėjų skolos"_s, u"222  Šilumos skolos"_s}));
    typeText(u"isipar"_s);
    EXPECT_EQ(offers(), QStringList({u"4  Įsipareigojimai"_s}));
}

TEST_P(SasEdit, DetailOnlyOffersNoSummaryAccounts)
{
    make({});
    typeText(u"22"_s);
    EXPECT_EQ(offers(), QStringList({u"221  Pirkėjų skolos"_s, u"222  Šilumos skolos"_s}));
    leave(line);
    EXPECT_EQ(sas->value(), 2) << "a summary account typed in full is the screen's to refuse";
}

TEST_P(SasEdit, AnOfferedAccountIsChosenByKeys)
{
    typeText(u"22"_s);
    ASSERT_TRUE(list()->isVisible());
    EXPECT_TRUE(line->hasFocus());
    press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(sas->GetText(), "221");
    EXPECT_EQ(sas->value(), 3);
    EXPECT_FALSE(list()->isVisible());
}

TEST_P(SasEdit, TheOffersAreWalkedThroughByKeys)
{
    typeText(u"22"_s);
    const auto highlighted = [this] { return list()->highlighted().value_or(0); };
    EXPECT_EQ(highlighted(), 0);
    press({Qt::Key_Up});
    EXPECT_EQ(highlighted(), 4) << "up goes to the last one";
    press({Qt::Key_Down});
    EXPECT_EQ(highlighted(), 4);
    press({Qt::Key_Up, Qt::Key_Up});
    EXPECT_EQ(highlighted(), 2);
    press({Qt::Key_PageDown});
    EXPECT_EQ(highlighted(), 4);
    press({Qt::Key_PageUp});
    EXPECT_EQ(highlighted(), 2);
    press({Qt::Key_Escape});
    EXPECT_FALSE(list()->isVisible());
    EXPECT_EQ(highlighted(), 0);
    EXPECT_EQ(sas->GetText(), "22");
    EXPECT_EQ(sas->Status(), u'S');
}

TEST_P(SasEdit, AnOfferIsChosenByTheMouse)
{
    typeText(u"22"_s);
    const QRect second = list()->visualItemRect(list()->item(1));
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, second.center());
    EXPECT_EQ(sas->value(), 3);
    EXPECT_FALSE(list()->isVisible());
}

TEST_P(SasEdit, LeavingTakesTheHighlightedOffer)
{
    typeText(u"22"_s);
    press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Tab});
    EXPECT_FALSE(line->hasFocus());
    EXPECT_EQ(sas->GetText(), "222");
    EXPECT_EQ(sas->value(), 4);
    EXPECT_FALSE(list()->isVisible());
}

TEST_P(SasEdit, TheOffersGoWithTheWindow)
{
    typeText(u"22"_s);
    window->move(window->pos() + QPoint(40, 40));
    EXPECT_FALSE(list()->isVisible());
    typeText(u"22"_s);
    EXPECT_TRUE(list()->isVisible());
    window->hide();
    EXPECT_FALSE(list()->isVisible());
}

TEST_P(SasEdit, ARefusedAccountLeavesTheFormerOne)
{
    sas->setValue(3);
    sas->OnChange = [this] {
        if (sas->Status() != u'S')
            throw EConvertError(u"Sąskaita negali būti suminė!"_s);
    };
    EXPECT_THROW(sas->setValue(2), EConvertError);
    EXPECT_EQ(sas->value(), 3);
    EXPECT_EQ(sas->GetText(), "221");
    typeText(u"2"_s);
    leave(line);
    EXPECT_EQ(shownName(), u"Sąskaita negali būti suminė!");
    EXPECT_EQ(sas->value(), 3);
    EXPECT_EQ(sas->GetText(), "2") << "what the user typed stays to be corrected";
}

TEST_P(SasEdit, ButtonAndKeysOpenThePicker)
{
    sas->setValue(5);
    const auto choosing = [](int down) {
        return [down](TCodePicker &picker) {
            for (int i = 0; i < down; ++i)
                QTest::keyClick(picker.findChild<QTableView *>(), Qt::Key_Down);
            pressButton(picker, u"Pasirinkti"_s);
        };
    };
    {
        OnNextDialog<TCodePicker> shown(choosing(0));
        QTest::mouseClick(sas->findChild<QToolButton *>(), Qt::LeftButton);
        EXPECT_EQ(sas->value(), 5) << "the account that is there is the one shown";
    }
    {
        OnNextDialog<TCodePicker> shown(choosing(1));
        QTest::keyClick(line, Qt::Key_F4);
        EXPECT_EQ(sas->value(), 6);
    }
    {
        OnNextDialog<TCodePicker> shown(choosing(1));
        QTest::keyClick(line, Qt::Key_Down, Qt::AltModifier);
        EXPECT_EQ(sas->value(), 7);
    }
    OnNextDialog<TCodePicker> cancelled([](TCodePicker &picker) { picker.reject(); });
    QTest::keyClick(line, Qt::Key_F4);
    EXPECT_EQ(sas->value(), 7);
}

TEST_P(SasEdit, ThePickerOpensAsTheRuleSays)
{
    make({.picker = {false, 1}});
    OnNextDialog<TCodePicker> shown([](TCodePicker &picker) {
        EXPECT_TRUE(picker.findChild<QTreeView *>()->isVisible());
        EXPECT_FALSE(picker.canChoose(0));
        picker.reject();
    });
    QTest::keyClick(line, Qt::Key_F4);
}

TEST_P(SasEdit, ClosingTheWindowAmidASearchTakesNothing)
{
    typeText(u"221"_s);
    heard.clear();
    window.reset();
    EXPECT_EQ(heard, QStringList());
}

TEST_P(SasEdit, EveryPartOfItHasAName)
{
    sas->setLabel(u"&Gautinų sumų sąs. Nr"_s);
    EXPECT_EQ(line->accessibleName(), u"Gautinų sumų sąs. Nr");
    EXPECT_EQ(sas->findChild<QToolButton *>()->accessibleName(),
              u"Gautinų sumų sąs. Nr: pasirinkti iš sąskaitų plano");
}

TEST_P(SasEdit, ANumberAddedByAnotherStationIsFound)
{
    typeText(u"5"_s);
    secondFin()->ExecSQL(
        u"insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) values (8, '5', 'Nauja', 'D')"_s);
    leave(line);
    EXPECT_EQ(sas->value(), 8);
}
