#include "host/data/sas_edit.h"

#include "tests/host/books.h"
#include "tests/support/message_box.h"
#include "toolkit/widgets/guard.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
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
        sas = new TSasEdit;
        layout->addWidget(sas);
        other = new QLineEdit;
        layout->addWidget(other);
        line = sas->findChild<QLineEdit *>();
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        sas->OnChange = [this] { heard << u"%1%2"_s.arg(sas->Status()).arg(sas->value()); };
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
        const QAbstractItemModel *model = sas->findChild<QCompleter *>()->completionModel();
        for (int row = 0; row < model->rowCount(); ++row)
            texts << model->index(row, 0).data().toString();
        return texts;
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

TEST_P(SasEdit, AnAccountThatDoesNotExistCountsAsNone)
{
    sas->setValue(99);
    EXPECT_EQ(sas->value(), 0);
    EXPECT_EQ(heard, QStringList());
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
    sas->findChild<QCompleter *>()->popup()->hide();
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(sas->value(), 5);
}

TEST_P(SasEdit, ATextThatOneAccountFitsIsThatAccount)
{
    typeText(u"silumos"_s);
    sas->commit();
    EXPECT_EQ(sas->value(), 4);
    EXPECT_EQ(sas->GetText(), "222");
}

TEST_P(SasEdit, AnythingElseIsNoAccountAndStaysToBeCorrected)
{
    sas->setValue(3);
    typeText(u"9999"_s);
    sas->commit();
    EXPECT_EQ(sas->value(), 0);
    EXPECT_EQ(sas->GetText(), "9999");
    EXPECT_EQ(line->toolTip(), u"Tokios sąskaitos nėra");
    typeText(u"221"_s);
    sas->commit();
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
    sas->setDetailOnly(true);
    typeText(u"22"_s);
    EXPECT_EQ(offers(), QStringList({u"221  Pirkėjų skolos"_s, u"222  Šilumos skolos"_s}));
    leave(line);
    EXPECT_EQ(sas->value(), 2) << "a summary account typed in full is the screen's to refuse";
}

TEST_P(SasEdit, AnOfferedAccountIsChosenByKeys)
{
    typeText(u"22"_s);
    QWidget *popup = sas->findChild<QCompleter *>()->popup();
    ASSERT_TRUE(popup->isVisible());
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(popup, key);
    EXPECT_EQ(sas->GetText(), "221");
    EXPECT_EQ(sas->value(), 3);
}

TEST_P(SasEdit, LeavingTakesTheHighlightedOffer)
{
    typeText(u"22"_s);
    QWidget *popup = sas->findChild<QCompleter *>()->popup();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Tab})
        QTest::keyClick(popup, key);
    EXPECT_EQ(sas->GetText(), "222");
    EXPECT_EQ(sas->value(), 4);
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
    NextBoxes boxes{QMessageBox::Ok};
    typeText(u"2"_s);
    leave(line);
    EXPECT_EQ(boxes.at(0).text, u"Sąskaita negali būti suminė!");
    EXPECT_EQ(sas->value(), 3);
    EXPECT_EQ(sas->GetText(), "221");
}

TEST_P(SasEdit, ButtonAndKeysAskForThePicker)
{
    QSignalSpy asked(sas, &TSasEdit::browse);
    QTest::mouseClick(sas->findChild<QToolButton *>(), Qt::LeftButton);
    QTest::keyClick(line, Qt::Key_F4);
    QTest::keyClick(line, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(asked.count(), 3);
    sas->setReadOnly(true);
    QTest::keyClick(line, Qt::Key_F4);
    EXPECT_EQ(asked.count(), 3);
}

TEST_P(SasEdit, ClosingTheWindowAmidASearchTakesNothing)
{
    typeText(u"221"_s);
    heard.clear();
    window.reset();
    EXPECT_EQ(heard, QStringList());
}

TEST_P(SasEdit, PostingEndsTheSearch)
{
    fin->ExecSQL(u"insert into bd_kasos (kas_id, kas_sasid, kas_pavad) values (1, 3, 'Kasa')"_s);
    TQuery query(fin, u"select * from bd_kasos"_s);
    query.RequestLive = true;
    query.Open();
    sas->setValue(3);
    sas->commitWith(&query);
    sas->OnChange = [&] {
        if (sas->Status() != u'S')
            query.FieldByName(u"kas_sasid"_s)->setAsFloat(sas->value());
    };
    query.Edit();
    typeText(u"222"_s);
    EXPECT_EQ(query.FieldByName(u"kas_sasid"_s)->AsFloat(), 3);
    query.Post();
    EXPECT_EQ(value(*fin, u"select kas_sasid from bd_kasos"_s), "4");
    query.Close();
    delete sas;
    query.Open();
    query.Edit();
    query.FieldByName(u"kas_pavad"_s)->setAsString(u"Kita"_s);
    query.Post();
    EXPECT_EQ(value(*fin, u"select kas_pavad from bd_kasos"_s), "Kita");
}

TEST_P(SasEdit, EveryPartOfItHasAName)
{
    sas->setLabel(u"&Gautinų sumų sąs. Nr"_s);
    EXPECT_EQ(line->accessibleName(), u"Gautinų sumų sąs. Nr");
    EXPECT_FALSE(sas->findChild<QToolButton *>()->accessibleName().isEmpty());
}

TEST_P(SasEdit, ANumberAddedByAnotherStationIsFound)
{
    typeText(u"5"_s);
    secondFin()->ExecSQL(
        u"insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) values (8, '5', 'Nauja', 'D')"_s);
    leave(line);
    EXPECT_EQ(sas->value(), 8);
}
