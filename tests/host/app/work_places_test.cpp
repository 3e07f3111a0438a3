#include "host/app/catalogues/darbo_vietos.h"
#include "host/app/catalogues/savivaldybes.h"
#include "tests/host/books.h"
#include "tests/support/late_refusal.h"
#include "tests/support/message_box.h"

#include <QAction>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A plain list of the host and its editor.
template<class Form, class Dialog> class OnPlainList : public WithMainDatas {
protected:
    void TearDown() override
    {
        list.reset();
        WithMainDatas::TearDown();
    }
    void open()
    {
        list.reset(createForm<Form>(nullptr));
        list->show();
    }
    void add(const std::function<void(Dialog &)> &user)
    {
        OnNextDialog<Dialog> dialog(user);
        list->NewBtnClick();
    }
    void change(int key, const std::function<void(Dialog &)> &user)
    {
        list->RefreshData(key);
        OnNextDialog<Dialog> dialog(user);
        list->EditBtnClick();
    }
    QStringList erase(int key, std::initializer_list<QMessageBox::StandardButton> answers)
    {
        list->RefreshData(key);
        NextBoxes boxes(answers);
        list->acDelete->trigger();
        return boxes.texts();
    }
    static void fill(Dialog &dialog, const char *column, const QString &text)
    {
        type(dialog.template findChild<QLineEdit *>(column), text);
    }
    static void save(QWidget &dialog) { pressButton(dialog, u"Išsaugoti"_s); }
    static QString refusal(QWidget &dialog)
    {
        NextBoxes told{QMessageBox::Ok};
        save(dialog);
        EXPECT_TRUE(dialog.isVisible());
        return told.at(0).text;
    }

    std::unique_ptr<Form> list;
};

class WorkPlaces : public OnPlainList<TDarboVietosFrm, TDarboVietaDlg> {
protected:
    void SetUp() override
    {
        OnPlainList::SetUp();
        ravl->ExecSQL(u"insert into bd_fin (fin_id, fin_pavad) values (1, 'Biudžetas')"_s);
        ravl->ExecSQL(u"insert into bd_usr (usr_id, usr_name) values (1, 'ona')"_s);
        ravl->ExecSQL(u"insert into bd_usr (usr_id, usr_name, usr_user_admin) values (2, 'rūta', 1)"_s);
        for (int k = 1; k <= 3; ++k)
            ravl->ExecSQL(u"insert into bd_kdv (kdv_id, kdv_pav) values (%1, 'Vieta %1')"_s.arg(k));
        ravl->ExecSQL(u"insert into bd_usrkdv (udv_usrid, udv_finid, udv_kdv) values (1, 1, 5)"_s);
        open();
    }
    void addPlace(const QString &name)
    {
        add([name](TDarboVietaDlg &dialog) {
            fill(dialog, "KDV_PAV", name);
            save(dialog);
        });
    }
    // User, source and mask.
    QStringList rights()
    {
        return rows(*ravl, u"select udv_usrid, udv_finid, udv_kdv from bd_usrkdv order by 1, 2"_s);
    }
    QStringList places() { return rows(*ravl, u"select kdv_id from bd_kdv order by kdv_id"_s); }
};
ON_BOTH_ENGINES(WorkPlaces);

class Municipalities : public OnPlainList<TSavivaldybesFrm, TSavivaldybeDlg> {
protected:
    void SetUp() override
    {
        OnPlainList::SetUp();
        for (TDatabase *book : {fin, ravl}) {
            book->ExecSQL(u"delete from bd_savivaldybes"_s);
            book->ExecSQL(u"insert into bd_savivaldybes values (13, 'Vilniaus miesto')"_s);
            book->ExecSQL(u"insert into bd_savivaldybes values (19, 'Kauno miesto')"_s);
        }
        open();
    }
    QStringList stored(TDatabase *book)
    {
        return rows(*book, u"select sav_kod, sav_pavad from bd_savivaldybes order by sav_kod"_s);
    }
};
ON_BOTH_ENGINES(Municipalities);

} // namespace

TEST_P(WorkPlaces, BelongToEveryAdministratorForEverySourceAndToNobodyElse)
{
    ravl->ExecSQL(u"insert into bd_fin (fin_id, fin_pavad) values (2, 'Spec. lėšos')"_s);
    ravl->ExecSQL(u"insert into bd_usrkdv (udv_usrid, udv_finid, udv_kdv) values (2, 1, 5)"_s);
    CurrentUser() = {.id = 2, .workPlaces = 5, .userAdmin = true};
    add([](TDarboVietaDlg &dialog) {
        fill(dialog, "KDV_PAV", u"Vieta 1"_s);
        EXPECT_EQ(refusal(dialog), u"Darbo vieta \"Vieta 1\" jau yra"_s);
        fill(dialog, "KDV_PAV", u"Kasa"_s);
        save(dialog);
    });
    EXPECT_EQ(rows(*ravl, u"select kdv_id, kdv_pav from bd_kdv"_s).last(), u"4|Kasa"_s);
    EXPECT_EQ(rights(), QStringList({"1|1|5", "2|1|13", "2|2|8"}));
    EXPECT_EQ(CurrentUser().workPlaces, 13);
}

TEST_P(WorkPlaces, ARightToAllThatWillEverBeStaysAsItIsForAnAdministratorOnly)
{
    ravl->ExecSQL(u"update bd_usrkdv set udv_kdv = 65535"_s);
    ravl->ExecSQL(u"insert into bd_usrkdv (udv_usrid, udv_finid, udv_kdv) values (2, 1, 65535)"_s);
    addPlace(u"Kasa"_s);
    EXPECT_EQ(rights(), QStringList({"1|1|65527", "2|1|65535"}));
}

TEST_P(WorkPlaces, AreSixteenAtMostAndAFreeNumberIsTakenAgain)
{
    for (int k = 5; k <= 16; ++k)
        ravl->ExecSQL(u"insert into bd_kdv (kdv_id, kdv_pav) values (%1, 'Vieta %1')"_s.arg(k));
    addPlace(u"Ketvirta"_s);
    EXPECT_EQ(value(*ravl, u"select kdv_id from bd_kdv where kdv_pav = 'Ketvirta'"_s), "4");
    add([](TDarboVietaDlg &dialog) {
        fill(dialog, "KDV_PAV", u"Dar viena"_s);
        EXPECT_EQ(refusal(dialog), u"Darbo vietų gali būti ne daugiau kaip 16: ištrinkite nereikalingą arba "
                                   "pakeiskite jos pavadinimą"_s);
        dialog.reject();
    });
    EXPECT_EQ(places().size(), 16);
}

TEST_P(WorkPlaces, ANameTakenMeanwhileIsTold)
{
    TDatabase &other = *secondRavl();
    other.StartTransaction();
    other.ExecSQL(u"insert into bd_kdv (kdv_id, kdv_pav) values (9, 'Kasa')"_s);
    TDatabase::setBusyHook([&other] { other.Commit(); });
    add([](TDarboVietaDlg &dialog) {
        fill(dialog, "KDV_PAV", u"Kasa"_s);
        EXPECT_EQ(refusal(dialog), u"Darbo vieta \"Kasa\" jau yra"_s);
        dialog.reject();
    });
    TDatabase::setBusyHook({});
    other.Commit();
    EXPECT_EQ(places(), QStringList({"1", "2", "3", "9"}));
}

TEST_P(WorkPlaces, InUseByARightAreNotDeleted)
{
    EXPECT_EQ(erase(3, {QMessageBox::Ok}), QStringList(u"Darbo vieta \"Vieta 3\" yra vartotojų teisėse!"_s));
    EXPECT_EQ(erase(2, {QMessageBox::Yes}).size(), 1);
    EXPECT_EQ(places(), QStringList({"1", "3"}));
}

TEST_P(WorkPlaces, AddedByMistakeAreDeletedWithTheRightsOfAdministrators)
{
    ravl->ExecSQL(u"insert into bd_usrkdv (udv_usrid, udv_finid, udv_kdv) values (2, 1, 7)"_s);
    addPlace(u"Klaida"_s);
    EXPECT_EQ(rights(), QStringList({"1|1|5", "2|1|15"}));
    EXPECT_EQ(erase(4, {QMessageBox::Yes}).size(), 1);
    EXPECT_EQ(places(), QStringList({"1", "2", "3"}));
    EXPECT_EQ(rights(), QStringList({"1|1|5", "2|1|7"}));
}

TEST_P(Municipalities, AreWrittenToBothBooks)
{
    add([](TSavivaldybeDlg &dialog) {
        fill(dialog, "SAV_KOD", u"13"_s);
        fill(dialog, "SAV_PAVAD", u"Klaipėdos miesto"_s);
        EXPECT_EQ(refusal(dialog), u"Kodas \"13\" jau egzistuoja"_s);
        fill(dialog, "SAV_KOD", u"40000"_s);
        EXPECT_TRUE(refusal(dialog).contains(u"Kodas"_s));
        fill(dialog, "SAV_KOD", u"0"_s);
        save(dialog);
    });
    change(19, [](TSavivaldybeDlg &dialog) {
        EXPECT_TRUE(dialog.findChild<QLineEdit *>("SAV_KOD")->isReadOnly());
        fill(dialog, "SAV_PAVAD", u"Kauno"_s);
        save(dialog);
    });
    const QStringList expected{u"0|Klaipėdos miesto"_s, u"13|Vilniaus miesto"_s, u"19|Kauno"_s};
    EXPECT_EQ(stored(fin), expected);
    EXPECT_EQ(stored(ravl), expected);
    EXPECT_EQ(erase(13, {QMessageBox::Yes}).size(), 1);
    EXPECT_EQ(stored(fin).size(), 2);
    EXPECT_EQ(stored(ravl).size(), 2);
}

TEST_P(Municipalities, InUseInEitherBookAreNotDeleted)
{
    fin->ExecSQL(u"insert into bd_org (org_pavad, org_savivaldybe) values ('Mokykla', 13)"_s);
    ravl->ExecSQL(u"insert into bd_fin (fin_pavad, fin_savivaldybe) values ('Biudžetas', 19)"_s);
    EXPECT_EQ(erase(13, {QMessageBox::Ok}), QStringList(u"Savivaldybė \"Vilniaus miesto\" yra naudojama!"_s));
    EXPECT_EQ(erase(19, {QMessageBox::Ok}), QStringList(u"Savivaldybė \"Kauno miesto\" yra naudojama!"_s));
    EXPECT_EQ(stored(fin), stored(ravl));
}

TEST_P(Municipalities, WhatOneBookRefusesIsInNeither)
{
    ravl->nativeExec(engine() == Engine::Sqlite ? u"drop table bd_fin; drop table bd_savivaldybes"_s
                                                : u"drop table bd_savivaldybes cascade"_s);
    add([](TSavivaldybeDlg &dialog) {
        fill(dialog, "SAV_KOD", u"21"_s);
        fill(dialog, "SAV_PAVAD", u"Klaipėdos miesto"_s);
        EXPECT_FALSE(refusal(dialog).isEmpty());
        EXPECT_EQ(dialog.findChild<QLineEdit *>("SAV_PAVAD")->text(), u"Klaipėdos miesto"_s);
        dialog.reject();
    });
    EXPECT_EQ(stored(fin).size(), 2);
}

// The budget book has the change already when the main book's commit fails.
TEST_P(Municipalities, AreAlikeInBothBooksOnceASaveWhoseSecondCommitFailedIsRepeated)
{
    refuseAtCommit(*fin, u"bd_savivaldybes"_s);
    add([this](TSavivaldybeDlg &dialog) {
        fill(dialog, "SAV_KOD", u"21"_s);
        fill(dialog, "SAV_PAVAD", u"Klaipėdos miesto"_s);
        EXPECT_FALSE(refusal(dialog).isEmpty());
        EXPECT_EQ(dialog.findChild<QLineEdit *>("SAV_PAVAD")->text(), u"Klaipėdos miesto"_s);
        EXPECT_EQ(stored(fin).size(), 2);
        EXPECT_FALSE(fin->InTransaction() || ravl->InTransaction());
        allowAtCommit(*fin);
        save(dialog);
    });
    EXPECT_EQ(stored(fin),
              (QStringList{u"13|Vilniaus miesto"_s, u"19|Kauno miesto"_s, u"21|Klaipėdos miesto"_s}));
    EXPECT_EQ(stored(ravl), stored(fin));
}
