#include "host/controls/record_dialog.h"
#include "tests/host/books.h"
#include "tests/support/late_refusal.h"
#include "tests/support/message_box.h"
#include "tests/support/refusal.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString nextObject = u"select max(obj_id) from bd_objektai"_s;

TRecordDescription objects()
{
    return {.name = u"TObjektDlg"_s,
            .newCaption = u"Naujas objektas"_s,
            .editCaption = u"Objektas"_s,
            .table = u"bd_objektai"_s,
            .keyColumn = u"OBJ_ID"_s,
            .key = TKeyRule::largestPlusOne(nextObject),
            .sql = u"select * from bd_objektai where obj_id = :id"_s,
            .rows = {TFieldRow::edit(u"Pavadinimas"_s, u"OBJ_PAVAD"_s).required()}};
}

class TObjektDlg : public TRecordDialog {
public:
    TObjektDlg(TRecordDescription how, const TRecordStart &start)
        : TRecordDialog(std::move(how), start, nullptr)
    {
    }
    QLineEdit *name() { return control<QLineEdit>(u"OBJ_PAVAD"_s); }
    QPushButton *saver() { return saveButton(); }
    TQuery &set() { return row(); }
};

class RecordDialog : public WithMainDatas {
protected:
    QStringList stored()
    {
        return rows(*fin, u"select obj_id, obj_pavad from bd_objektai order by obj_id"_s);
    }
    bool run(TRecordDescription how, const TRecordStart &start, std::function<void(TObjektDlg &)> user)
    {
        OnNextDialog<TObjektDlg> shown(std::move(user));
        return editRecord<TObjektDlg>(key, std::move(how), start);
    }
    double key = 0;
};
ON_BOTH_ENGINES(RecordDialog);

} // namespace

TEST_P(RecordDialog, ANewRowGetsTheNextKeyAndGivesItBackToItsCaller)
{
    EXPECT_TRUE(run(objects(), TRecordStart::newRow(), [](TObjektDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Naujas objektas");
        type(dialog.name(), u"Sandėlis"_s);
        pressButton(dialog, u"Išsaugoti"_s);
    }));
    EXPECT_EQ(key, 1);
    EXPECT_EQ(stored(), QStringList(u"1|Sandėlis"_s));
    EXPECT_FALSE(run(objects(), TRecordStart::row(1), [](TObjektDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Objektas");
        type(dialog.name(), u"Kitas"_s);
        pressButton(dialog, u"Atšaukti"_s);
    }));
    EXPECT_EQ(stored(), QStringList(u"1|Sandėlis"_s));
}

TEST_P(RecordDialog, ARowThatIsGoneIsToldAndNothingIsShown)
{
    EXPECT_THROW(editRecord<TObjektDlg>(key, objects(), TRecordStart::row(7)), ERowGone);
}

TEST_P(RecordDialog, AFailedSaveGivesTheKeyBackAndKeepsWhatWasTyped)
{
    fin->nativeExec(u"create unique index i_fail on bd_objektai (obj_pavad)"_s);
    fin->ExecSQL(u"insert into bd_objektai (obj_id, obj_pavad) values (5, 'A')"_s);
    EXPECT_TRUE(run(objects(), TRecordStart::newRow(), [](TObjektDlg &dialog) {
        type(dialog.name(), u"A"_s);
        {
            NextBoxes refused{QMessageBox::Ok};
            pressButton(dialog, u"Išsaugoti"_s);
        }
        EXPECT_EQ(dialog.set().State(), dsInsert);
        EXPECT_TRUE(dialog.rowKey().isNull());
        EXPECT_EQ(dialog.name()->text(), u"A");
        type(dialog.name(), u"B"_s);
        pressButton(dialog, u"Išsaugoti"_s);
    }));
    EXPECT_EQ(stored(), QStringList({u"5|A"_s, u"6|B"_s}));
}

// Saves what is refused when it is committed, and once more when that is over.
TEST_P(RecordDialog, ASaveThatIsRefusedAtItsVeryEndIsWholeAtTheNextTry)
{
    fin->ExecSQL(u"insert into bd_objektai (obj_id, obj_pavad) values (5, 'A')"_s);
    refuseAtCommit(*fin, u"bd_objektai"_s);
    const auto saveTwice = [this](TObjektDlg &dialog) {
        const QStringList before = stored();
        type(dialog.name(), u"B"_s);
        {
            NextBoxes refused{QMessageBox::Ok};
            pressButton(dialog, u"Išsaugoti"_s);
        }
        EXPECT_EQ(dialog.name()->text(), u"B");
        EXPECT_EQ(stored(), before);
        allowAtCommit(*fin);
        pressButton(dialog, u"Išsaugoti"_s);
    };
    EXPECT_TRUE(run(objects(), TRecordStart::row(5), saveTwice));
    EXPECT_EQ(stored(), QStringList(u"5|B"_s));
    fin->ExecSQL(u"delete from t_vaikas"_s);
    fin->ExecSQL(u"delete from t_tevas"_s);
    EXPECT_TRUE(run(objects(), TRecordStart::newRow(), saveTwice));
    EXPECT_EQ(stored(), QStringList({u"5|B"_s, u"6|B"_s}));
    EXPECT_EQ(key, 6);
}

TEST_P(RecordDialog, FixedTextsStandForTheDatabasesOwn)
{
    fin->nativeExec(u"create unique index i_fail on bd_objektai (obj_pavad)"_s);
    fin->ExecSQL(u"insert into bd_objektai (obj_id, obj_pavad) values (5, 'A')"_s);
    TRecordDescription how = objects();
    how.saveFailure = u"Šiuo metu koreguoti negalima"_s;
    how.openFailure = u"Šiuo metu atidaryti negalima"_s;
    run(how, TRecordStart::newRow(), [](TObjektDlg &dialog) {
        type(dialog.name(), u"A"_s);
        NextBoxes refused{QMessageBox::Ok};
        pressButton(dialog, u"Išsaugoti"_s);
        EXPECT_EQ(refused.at(0).text, u"Šiuo metu koreguoti negalima");
        pressButton(dialog, u"Atšaukti"_s);
    });
    how.sql = u"select * from bd_objektai where obj_id = :id and nera_tokio = 1"_s;
    EXPECT_EQ(refusalOf([&] { editRecord<TObjektDlg>(key, how, TRecordStart::newRow()); }),
              u"Šiuo metu atidaryti negalima");
}

TEST_P(RecordDialog, TheSaveButtonIsJudgedAtEveryKeystroke)
{
    TRecordDescription how = objects();
    how.save = TSaveRule::WhenFilledAndChanged;
    fin->ExecSQL(u"insert into bd_objektai (obj_id, obj_pavad) values (5, 'A')"_s);
    run(how, TRecordStart::row(5), [](TObjektDlg &dialog) {
        EXPECT_FALSE(dialog.saver()->isEnabled()) << "nothing was changed yet";
        type(dialog.name(), u"B"_s);
        EXPECT_TRUE(dialog.saver()->isEnabled());
        type(dialog.name(), u"  "_s);
        EXPECT_FALSE(dialog.saver()->isEnabled());
        pressButton(dialog, u"Atšaukti"_s);
    });
}

TEST_P(RecordDialog, WhoMayOnlyLookChangesNothing)
{
    fin->ExecSQL(u"insert into bd_objektai (obj_id, obj_pavad) values (5, 'A')"_s);
    CurrentUser().viewOnly = true;
    run(objects(), TRecordStart::row(5), [](TObjektDlg &dialog) {
        EXPECT_FALSE(dialog.name()->isEnabled());
        EXPECT_FALSE(dialog.saver()->isEnabled());
        pressButton(dialog, u"Atšaukti"_s);
    });
    CurrentUser().viewOnly = false;
}

TEST_P(RecordDialog, OverItsListsRowItHoldsTheChangesUntilTheyAreSaved)
{
    fin->nativeExec(u"create unique index i_fail on bd_objektai (obj_pavad)"_s);
    fin->ExecSQL(u"insert into bd_objektai (obj_id, obj_pavad) values (5, 'A')"_s);
    TQuery list(fin, u"select * from bd_objektai order by obj_id"_s);
    list.CachedUpdates = true;
    list.InsertSQL = u"insert into bd_objektai (OBJ_ID, OBJ_PAVAD) values (:OBJ_ID, :OBJ_PAVAD)"_s;
    list.ModifySQL = u"update bd_objektai set OBJ_PAVAD = :OBJ_PAVAD where OBJ_ID = :OLD_OBJ_ID"_s;
    list.Open();
    list.Append();
    EXPECT_TRUE(run(objects(), TRecordStart::on(list), [&list](TObjektDlg &dialog) {
        type(dialog.name(), u"A"_s);
        {
            NextBoxes refused{QMessageBox::Ok};
            pressButton(dialog, u"Išsaugoti"_s);
        }
        EXPECT_TRUE(list.editing());
        EXPECT_TRUE(dialog.rowKey().isNull());
        type(dialog.name(), u"B"_s);
        pressButton(dialog, u"Išsaugoti"_s);
    }));
    EXPECT_EQ(stored(), QStringList({u"5|A"_s, u"6|B"_s}));
    EXPECT_EQ(list.RecordCount(), 2);
    list.Edit();
    EXPECT_FALSE(run(objects(), TRecordStart::on(list), [](TObjektDlg &dialog) {
        type(dialog.name(), u"C"_s);
        pressButton(dialog, u"Atšaukti"_s);
    }));
    EXPECT_EQ(list.FieldByName(u"obj_pavad"_s)->AsString(), u"B");
    EXPECT_FALSE(list.UpdatesPending());
    list.Edit();
    EXPECT_FALSE(run(objects(), TRecordStart::on(list), [](TObjektDlg &dialog) {
        type(dialog.name(), u"A"_s);
        NextBoxes refused{QMessageBox::Ok};
        pressButton(dialog, u"Išsaugoti"_s);
        pressButton(dialog, u"Atšaukti"_s);
    }));
    EXPECT_EQ(list.FieldByName(u"obj_pavad"_s)->AsString(), u"B");
    EXPECT_FALSE(list.UpdatesPending());
}
