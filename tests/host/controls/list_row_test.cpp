// A list whose dialog stands on its own row: what the dialog holds, writes and drops.

#include "host/controls/browse_frm.h"
#include "host/controls/record_dialog.h"
#include "tests/host/books.h"
#include "tests/support/message_box.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class TTarnDlg : public TRecordDialog {
public:
    TTarnDlg()
        : TRecordDialog({.name = u"TTarnDlg"_s,
                         .newCaption = u"Nauja"_s,
                         .table = u"bd_tarn"_s,
                         .keyColumn = u"TRN_ID"_s,
                         .key = TKeyRule::drawnAtEverySave(
                             u"select GetNextTableColumnId('dba','bd_tarn','trn_id') from dummy"_s),
                         .rows = {TFieldRow::edit(u"Pavadinimas"_s, u"TRN_PAVAD"_s),
                                  TFieldRow::edit(u"Koef"_s, u"TRN_KOEF"_s)}},
                        TRecordStart::onRowOf(u"TTarnFrm"_s), nullptr)
    {
    }
    QLineEdit *name() { return control<QLineEdit>(u"TRN_PAVAD"_s); }
    QLineEdit *factor() { return control<QLineEdit>(u"TRN_KOEF"_s); }
    QPushButton *saver() { return saveButton(); }
};

int asked = 0; // how often the text of a key was looked up

TBrowseDescription categories()
{
    return {
        .name = u"TTarnFrm"_s,
        .keyColumn = u"trn_id"_s,
        .table = u"bd_tarn"_s,
        .sql = u"select * from bd_tarn order by trn_pavad"_s,
        .columns = {{u"trn_pavad"_s, u"Pavadinimas"_s},
                    {.field = u"trn_koef"_s,
                     .title = u"Koef"_s,
                     .text = [](const Variant &key) { return u"%1/%2"_s.arg(key.toInt()).arg(++asked); }}},
        .editRow = [](const QString &, bool) { TTarnDlg().run(); },
        .statements = {.insert = u"insert into bd_tarn (TRN_ID, TRN_PAVAD, TRN_KOEF) "
                                 "values (:TRN_ID, :TRN_PAVAD, :TRN_KOEF)"_s,
                       .update = u"update bd_tarn set TRN_PAVAD = :TRN_PAVAD, TRN_KOEF = :TRN_KOEF "
                                 "where TRN_ID = :OLD_TRN_ID"_s,
                       .remove = u"delete from bd_tarn where TRN_ID = :OLD_TRN_ID"_s}};
}

class ListRow : public WithMainDatas {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        for (const char *values : {"(1, 'A', 1)", "(2, 'B', 2)", "(3, 'C', 3)"})
            fin->ExecSQL(u"insert into bd_tarn (trn_id, trn_pavad, trn_koef) values "_s +
                         QString::fromLatin1(values));
        list.reset(createForm<TBrowseFrm>(categories(), nullptr));
        list->show();
        set = list->dataSet();
        set->RecordCount();
        set->setRecNo(1);
    }
    void TearDown() override
    {
        list.reset();
        WithMainDatas::TearDown();
    }

    QStringList stored()
    {
        return rows(*secondFin(), u"select trn_id, trn_pavad, trn_koef from bd_tarn order by trn_id"_s);
    }
    void elsewhere(const QString &sql) { secondFin()->ExecSQL(sql); }
    QString name() const { return set->FieldByName(u"trn_pavad"_s)->AsString(); }
    static void save(TTarnDlg &dialog) { pressButton(dialog, u"Išsaugoti"_s); }
    static void cancel(TTarnDlg &dialog) { pressButton(dialog, u"Atšaukti"_s); }
    static QString refusal(TTarnDlg &dialog)
    {
        NextBoxes shown{QMessageBox::Ok};
        save(dialog);
        EXPECT_TRUE(dialog.isVisible());
        return shown.at(0).text;
    }
    void add(std::function<void(TTarnDlg &)> user)
    {
        OnNextDialog<TTarnDlg> dialog(std::move(user));
        list->NewBtnClick();
    }
    void edit(std::function<void(TTarnDlg &)> user)
    {
        OnNextDialog<TTarnDlg> dialog(std::move(user));
        list->EditBtnClick();
    }
    void expectNothingHeld() const
    {
        EXPECT_FALSE(set->editing());
        EXPECT_FALSE(set->UpdatesPending());
    }

    const QStringList untouched{u"1|A|1"_s, u"2|B|2"_s, u"3|C|3"_s};
    std::unique_ptr<TBrowseFrm> list;
    TQuery *set = nullptr;
};
ON_BOTH_ENGINES(ListRow);

} // namespace

TEST_P(ListRow, ANewOneStaysShownAndCurrent)
{
    add([](TTarnDlg &dialog) {
        type(dialog.name(), u"Aa"_s);
        type(dialog.factor(), u"5"_s);
        save(dialog);
    });
    EXPECT_EQ(stored().last(), u"4|Aa|5");
    EXPECT_EQ(set->RecNo(), 3) << "the list is not read anew";
    EXPECT_EQ(list->currentKey().toInt(), 4);
    EXPECT_EQ(list->panel(0), u"Įrašų kiekis: 4");
    expectNothingHeld();
}

TEST_P(ListRow, AChangedOneKeepsItsKeyAlthoughOneIsDrawn)
{
    edit([](TTarnDlg &dialog) {
        type(dialog.name(), u"Bb"_s);
        save(dialog);
    });
    EXPECT_EQ(stored().at(1), u"2|Bb|2");
    EXPECT_EQ(list->currentKey().toInt(), 2);
    EXPECT_EQ(name(), u"Bb");
    EXPECT_EQ(fin->fieldResult(u"select GetNextTableColumnId('dba','bd_tarn','trn_id') from dummy"_s).toInt(),
              5);
}

TEST_P(ListRow, ItsTextsAreLookedUpAnewAfterASave)
{
    const QModelIndex factor = set->index(1, set->FieldByName(u"trn_koef"_s)->index());
    const QString before = factor.data().toString();
    edit([](TTarnDlg &dialog) {
        type(dialog.name(), u"Bb"_s);
        save(dialog);
    });
    EXPECT_NE(factor.data().toString(), before);
}

TEST_P(ListRow, CancellingANewOneGoesBackToTheRowBefore)
{
    add([](TTarnDlg &dialog) {
        type(dialog.name(), u"X"_s);
        cancel(dialog);
    });
    EXPECT_EQ(list->currentKey().toInt(), 2);
    EXPECT_EQ(set->RecordCount(), 3);
    expectNothingHeld();
}

TEST_P(ListRow, CancellingAChangeBringsTheRowBack)
{
    edit([](TTarnDlg &dialog) {
        type(dialog.name(), u"X"_s);
        cancel(dialog);
    });
    EXPECT_EQ(name(), u"B");
    EXPECT_EQ(stored(), untouched);
    expectNothingHeld();
}

// The server refuses after the row was posted: the held change must neither stay nor block the next try.
TEST_P(ListRow, ARefusedOneIsInEditAgainWithoutItsKeyAndMayBeCancelled)
{
    fin->nativeExec(u"create unique index i_fail on bd_tarn (trn_pavad)"_s);
    add([this](TTarnDlg &dialog) {
        type(dialog.name(), u"A"_s);
        refusal(dialog);
        EXPECT_TRUE(set->editing());
        EXPECT_TRUE(dialog.rowKey().isNull());
        EXPECT_EQ(dialog.name()->text(), u"A");
        cancel(dialog);
    });
    expectNothingHeld();
    EXPECT_EQ(list->currentKey().toInt(), 2);
    EXPECT_EQ(set->RecordCount(), 3);
    edit([](TTarnDlg &dialog) {
        type(dialog.name(), u"A"_s);
        refusal(dialog);
        EXPECT_EQ(dialog.rowKey().toInt(), 2);
        type(dialog.name(), u"D"_s);
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList({u"1|A|1"_s, u"2|D|2"_s, u"3|C|3"_s}));
}

TEST_P(ListRow, CtrlEnterGoesOnToTheNextNewOne)
{
    OnNextDialog<TTarnDlg> first([](TTarnDlg &dialog) {
        type(dialog.name(), u"D"_s);
        QTest::keyClick(dialog.name(), Qt::Key_Return, Qt::ControlModifier);
    });
    OnNextDialog<TTarnDlg> second([](TTarnDlg &dialog) {
        EXPECT_EQ(dialog.name()->text(), QString());
        cancel(dialog);
    });
    list->EditBtnClick();
    EXPECT_EQ(stored().at(1), u"2|D|2");
    EXPECT_EQ(set->RecordCount(), 3);
}

TEST_P(ListRow, WhoMayOnlyLookSeesItAndChangesNothing)
{
    CurrentUser().viewOnly = true;
    list->CheckToolButtons();
    edit([](TTarnDlg &dialog) {
        EXPECT_EQ(dialog.name()->text(), u"B");
        EXPECT_FALSE(dialog.name()->isEnabled());
        EXPECT_FALSE(dialog.saver()->isEnabled());
        cancel(dialog);
    });
    expectNothingHeld();
}

TEST_P(ListRow, OfTwoListsTheOneInEditIsMeant)
{
    const std::unique_ptr<TBrowseFrm> later(createForm<TBrowseFrm>(categories(), nullptr));
    edit([](TTarnDlg &dialog) {
        EXPECT_EQ(dialog.rowKey().toInt(), 2);
        cancel(dialog);
    });
    EXPECT_THROW(TTarnDlg(), Exception);
}

TEST_P(ListRow, ASearchThatWaitsDoesNotLeadAwayFromIt)
{
    type(list->findChild<QLineEdit *>(u"FindEdit"_s), u"C"_s);
    add([this](TTarnDlg &dialog) {
        QTest::qWait(400);
        EXPECT_EQ(set->State(), dsInsert);
        cancel(dialog);
    });
    EXPECT_EQ(stored(), untouched);
}

// --- the other station

TEST_P(ListRow, IsReadAnewBeforeItIsChanged)
{
    elsewhere(u"update bd_tarn set trn_pavad = 'Jų' where trn_id = 2"_s);
    edit([](TTarnDlg &dialog) {
        EXPECT_EQ(dialog.name()->text(), u"Jų");
        cancel(dialog);
    });
}

TEST_P(ListRow, WhatAnotherStationChangedInItIsKept)
{
    edit([this](TTarnDlg &dialog) {
        elsewhere(u"update bd_tarn set trn_koef = 9 where trn_id = 2"_s);
        type(dialog.name(), u"Mano"_s);
        save(dialog);
    });
    EXPECT_EQ(stored().at(1), u"2|Mano|9");
    EXPECT_EQ(set->FieldByName(u"trn_koef"_s)->AsFloat(), 9);
}

TEST_P(ListRow, WhatBothChangedIsToldAndDecided)
{
    edit([this](TTarnDlg &dialog) {
        elsewhere(u"update bd_tarn set trn_pavad = 'Jų' where trn_id = 2"_s);
        type(dialog.name(), u"Mano"_s);
        {
            OnNextDialog<QMessageBox> told([](QMessageBox &box) {
                EXPECT_TRUE(box.text().contains(u"Pavadinimas: buvo „B“, dabar „Jų“"_s));
                pressButton(box, u"Grįžti"_s);
            });
            save(dialog);
        }
        EXPECT_EQ(dialog.name()->text(), u"Mano");
        EXPECT_EQ(stored().at(1), u"2|Jų|2");
        OnNextDialog<QMessageBox> again([](QMessageBox &box) { pressButton(box, u"Palikti savo"_s); });
        save(dialog);
    });
    EXPECT_EQ(stored().at(1), u"2|Mano|2");
    EXPECT_EQ(list->currentKey().toInt(), 2);
    expectNothingHeld();
}

TEST_P(ListRow, TheOthersValueThatIsTakenIsWhatStaysStored)
{
    edit([this](TTarnDlg &dialog) {
        elsewhere(u"update bd_tarn set trn_pavad = 'Jų' where trn_id = 2"_s);
        type(dialog.name(), u"Mano"_s);
        OnNextDialog<QMessageBox> told([](QMessageBox &box) { pressButton(box, u"Imti naują reikšmę"_s); });
        save(dialog);
        EXPECT_EQ(dialog.name()->text(), u"Jų");
        save(dialog);
    });
    EXPECT_EQ(stored().at(1), u"2|Jų|2");
    expectNothingHeld();
}

TEST_P(ListRow, DeletedMeanwhileItIsToldAndGoneFromTheListAtTheNextTry)
{
    edit([this](TTarnDlg &dialog) {
        elsewhere(u"delete from bd_tarn where trn_id = 2"_s);
        type(dialog.name(), u"Mano"_s);
        EXPECT_EQ(refusal(dialog), u"Įrašas jau ištrintas kitoje darbo vietoje");
        EXPECT_EQ(dialog.name()->text(), u"Mano");
        cancel(dialog);
    });
    expectNothingHeld();
    EXPECT_EQ(name(), u"B");
    EXPECT_THROW(list->EditBtnClick(), ERowGone);
    EXPECT_EQ(set->RecordCount(), 2);
}
