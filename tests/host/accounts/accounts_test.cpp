#include "host/accounts/accounts.h"

#include "host/data/code_picker.h"
#include "tests/host/books.h"
#include "tests/support/message_box.h"

#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

class Accounts : public WithMainDatas {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        addSmallChart(fin);
    }

    static QAbstractItemView *view(TCodePicker &picker)
    {
        return static_cast<QAbstractItemView *>(picker.findChild<QStackedWidget *>()->currentWidget());
    }
    static QString currentCode(TCodePicker &picker)
    {
        return view(picker)->currentIndex().siblingAtColumn(ccCode).data().toString();
    }
    static QStringList codes(TCodePicker &picker)
    {
        QStringList shown;
        const QAbstractItemModel *model = view(picker)->model();
        for (int row = 0; row < model->rowCount(); ++row)
            shown << model->index(row, ccCode).data().toString();
        return shown;
    }
    static QLineEdit *search(TCodePicker &picker) { return picker.findChild<QLineEdit *>(); }
    static QPushButton *chooser(TCodePicker &picker)
    {
        for (QPushButton *button : picker.findChildren<QPushButton *>()) {
            if (button->isDefault())
                return button;
        }
        return nullptr;
    }
};
ON_BOTH_ENGINES(Accounts);

TEST_P(Accounts, AnAccountIsTextByItsKey)
{
    EXPECT_EQ(GetSasById(3, false), "221");
    EXPECT_EQ(GetSasById(3, true), u"221  Pirkėjų skolos");
    EXPECT_EQ(GetSasById(99, true), "");
}

TEST_P(Accounts, AnAccountIsFoundByItsNumber)
{
    EXPECT_EQ(GetSasByNr(u"221"_s), 3);
    EXPECT_EQ(GetSasByNr(u" 221 "_s), 3);
    EXPECT_EQ(GetSasByNr(u"22"_s), 2);
    EXPECT_EQ(GetSasByNr(u"2213"_s), 0);
    EXPECT_EQ(GetSasByNr(u"' or 1=1 --"_s), 0);
}

TEST_P(Accounts, SummaryAccountsHaveChildren)
{
    EXPECT_TRUE(SasHasChildren(u"22"_s));
    EXPECT_FALSE(SasHasChildren(u"221"_s));
    EXPECT_FALSE(SasHasChildren(u"77"_s));
    EXPECT_EQ(GetSasKind(2), "S");
    EXPECT_EQ(GetSasKind(3), "D");
    EXPECT_EQ(GetSasKind(99), "");
}

TEST_P(Accounts, ChangesOfAnotherStationAreSeenAtOnce)
{
    secondFin()->ExecSQL(u"update bd_sasplan set sas_pavad = 'Kitaip' where sas_id = 3"_s);
    EXPECT_EQ(GetSasById(3, true), "221  Kitaip");
}

TEST_P(Accounts, ThePickerShowsTheTreeFirst)
{
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        EXPECT_EQ(picker.windowTitle(), u"Sąskaitų planas");
        EXPECT_TRUE(qobject_cast<QTreeView *>(view(picker)));
        EXPECT_EQ(codes(picker), QStringList({"2", "4"}));
        picker.reject();
    });
    EXPECT_EQ(OpenSasModal(false, 1), 0);
}

TEST_P(Accounts, ThePickerShowsTheListOfAllFirst)
{
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        EXPECT_EQ(codes(picker), QStringList({"2", "22", "221", "222", "24", "4", "43"}));
        picker.reject();
    });
    EXPECT_EQ(OpenSasModal(true, 2), 0);
}

TEST_P(Accounts, SearchListsHitsAndEnterChooses)
{
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        type(search(picker), u"skolos silum"_s);
        EXPECT_EQ(codes(picker), QStringList({"222"}));
        QTest::keyClick(search(picker), Qt::Key_Return);
    });
    EXPECT_EQ(OpenSasModal(false, 1), 4);
}

TEST_P(Accounts, ArrowsLeadFromTheSearchIntoTheHits)
{
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        type(search(picker), u"22"_s);
        QTest::keyClick(search(picker), Qt::Key_Down);
        QTest::keyClick(view(picker), Qt::Key_Down);
        QTest::keyClick(view(picker), Qt::Key_Return);
    });
    EXPECT_EQ(OpenSasModal(false, 1), 3);
}

TEST_P(Accounts, ASummaryAccountOnlyOpensWhenDetailsAreWanted)
{
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        EXPECT_EQ(currentCode(picker), "2");
        EXPECT_FALSE(chooser(picker)->isEnabled());
        QTest::keyClick(view(picker), Qt::Key_Return);
        EXPECT_TRUE(picker.isVisible());
        EXPECT_TRUE(picker.findChild<QTreeView *>()->isExpanded(view(picker)->currentIndex()));
        QTest::keyClick(view(picker), Qt::Key_Down);
        QTest::keyClick(view(picker), Qt::Key_Down);
        EXPECT_EQ(currentCode(picker), "24");
        EXPECT_TRUE(chooser(picker)->isEnabled());
        pressButton(picker, u"Pasirinkti"_s);
    });
    EXPECT_EQ(OpenSasModal(false, 1), 5);
}

TEST_P(Accounts, ASummaryAccountAmongTheHitsOpensInTheTree)
{
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        type(search(picker), u"gautinos"_s);
        QTest::keyClick(search(picker), Qt::Key_Return);
        EXPECT_TRUE(picker.isVisible());
        EXPECT_TRUE(qobject_cast<QTreeView *>(view(picker)));
        EXPECT_EQ(currentCode(picker), "22");
        EXPECT_EQ(search(picker)->text(), "");
        picker.reject();
    });
    EXPECT_EQ(OpenSasModal(false, 1), 0);
}

TEST_P(Accounts, ASummaryAccountIsChosenWhenAnyIsWanted)
{
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        type(search(picker), u"22"_s);
        QTest::keyClick(search(picker), Qt::Key_Return);
    });
    EXPECT_EQ(OpenSasModal(true, 2), 2);
}

TEST_P(Accounts, ADetailKindWithAccountsBelowIsNoDetailAccount)
{
    fin->ExecSQL(u"update bd_sasplan set sas_tip = 'D' where sas_id = 2"_s);
    fin->ExecSQL(u"update bd_sasplan set sas_tip = 'S' where sas_id = 5"_s);
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        type(search(picker), u"gautinos"_s);
        EXPECT_FALSE(chooser(picker)->isEnabled());
        type(search(picker), u"pinigai"_s);
        EXPECT_FALSE(chooser(picker)->isEnabled());
        picker.reject();
    });
    OpenSasModal(false, 1);
}

TEST_P(Accounts, DoubleClickChoosesAndEscCancels)
{
    {
        OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
            QAbstractItemView *list = view(picker);
            const QRect place = list->visualRect(list->model()->index(2, ccName));
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place.center());
            QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place.center());
        });
        EXPECT_EQ(OpenSasModal(false, 2), 3);
    }
    OnNextDialog<TCodePicker> dialog(
        [](TCodePicker &picker) { QTest::keyClick(search(picker), Qt::Key_Escape); });
    EXPECT_EQ(OpenSasModal(true, 2), 0);
}

TEST_P(Accounts, NothingFoundMeansNothingToChoose)
{
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        type(search(picker), u"zzz"_s);
        EXPECT_EQ(codes(picker), QStringList());
        EXPECT_FALSE(chooser(picker)->isEnabled());
        QTest::keyClick(search(picker), Qt::Key_Return);
        EXPECT_TRUE(picker.isVisible());
        picker.reject();
    });
    EXPECT_EQ(OpenSasModal(true, 2), 0);
}

TEST_P(Accounts, ThePickerRemembersItsSize)
{
    for (int round = 0; round < 2; ++round) {
        OnNextDialog<TCodePicker> dialog([round](TCodePicker &picker) {
            EXPECT_EQ(picker.size() == QSize(500, 400), round == 1);
            picker.resize(500, 400);
            picker.reject();
        });
        OpenSasModal(true, 1);
    }
}

TEST_P(Accounts, AnEmptyChartCanBeLookedAt)
{
    fin->ExecSQL(u"update bd_sasplan set sas_tevid = null"_s);
    fin->ExecSQL(u"delete from bd_sasplan"_s);
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        EXPECT_FALSE(chooser(picker)->isEnabled());
        picker.reject();
    });
    EXPECT_EQ(OpenSasModal(true, 1), 0);
}

TEST_P(Accounts, EveryControlOfThePickerHasAName)
{
    OnNextDialog<TCodePicker> dialog([](TCodePicker &picker) {
        for (QAbstractItemView *each : picker.findChildren<QAbstractItemView *>())
            EXPECT_TRUE(!each->accessibleName().isEmpty() || each->inherits("QHeaderView"));
        EXPECT_EQ(search(picker)->placeholderText(), "Numeris arba pavadinimas");
        picker.reject();
    });
    OpenSasModal(true, 1);
}
