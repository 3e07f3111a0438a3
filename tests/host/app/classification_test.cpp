#include "host/app/catalogues/funkcijos.h"
#include "host/app/catalogues/klasifikacija.h"
#include "host/app/catalogues/knygos.h"
#include "host/data/code_picker.h"
#include "tests/host/app/tree_screen.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

// Keys of the nodes below.
enum : int { Islaidos = 1, Uzmokestis, Socialinis, Prekes, Kita };

// Two books; the first with 2 Išlaidos: 2.1 Užmokestis, 2.1.1 Socialinis, 2.2 Prekės, and 9 Kita.
class Nodes : public OnTreeScreen<TMazgaiFrm, TMazgasDlg> {
protected:
    void SetUp() override
    {
        OnTreeScreen::SetUp();
        for (const char *book : {"1, 'Aplinka'", "2, 'Švietimas'"})
            fin->ExecSQL(
                u"insert into bd_asgisl (isl_id, isl_pavad) values (%1)"_s.arg(QString::fromUtf8(book)));
        for (const char *node : {"1, 1, null, '2', 'Išlaidos', 0", "2, 1, 1, '2.1', 'Užmokestis', 0",
                                 "3, 1, 2, '2.1.1', 'Socialinis', 1", "4, 1, 1, '2.2', 'Prekės', 1",
                                 "5, 1, null, '9', 'Kita', 0"})
            fin->ExecSQL(u"insert into bd_jve values (%1)"_s.arg(QString::fromUtf8(node)));
        open();
    }

    static void fill(TMazgasDlg &dialog, const QString &code, const QString &name)
    {
        type(edit(dialog, "JVE_KODAS"), code);
        type(edit(dialog, "JVE_PAVAD"), name);
    }
    // One row of the balances refers to the node.
    void use(int node)
    {
        fin->ExecSQL(u"insert into bd_isllik (sml_id, sml_perid, sml_jveid) values (1, 6, %1)"_s.arg(node));
    }
    QString parentOf(int node)
    {
        return value(*fin, u"select jve_tevid from bd_jve where jve_id = %1"_s.arg(node));
    }
};
ON_BOTH_ENGINES(Nodes);

} // namespace

TEST_P(Nodes, AreTheTreeOfTheChosenBook)
{
    EXPECT_EQ(branches(), QStringList({u"Visi kodai"_s, u" 2  Išlaidos"_s, u"  2.1  Užmokestis"_s,
                                       u"   2.1.1  Socialinis"_s, u"  2.2  Prekės"_s, u" 9  Kita"_s}));
    choose("2.1");
    EXPECT_EQ(listed(), QStringList({"2.1", "2.1.1"}));
    EXPECT_EQ(listed(3), QStringList({"2", u"2 › 2.1"_s})) << "codes may repeat: the branch tells them apart";
    auto *books = screen->findChild<QComboBox *>("BookBox");
    books->setCurrentIndex(books->findText(u"Švietimas"_s));
    emit books->activated(books->currentIndex());
    EXPECT_EQ(branches(), QStringList(u"Visi kodai"_s));
    add([](TMazgasDlg &dialog) {
        fill(dialog, u"2"_s, u"Išlaidos"_s);
        save(dialog);
    });
    EXPECT_EQ(value(*fin, u"select max(jve_islid) from bd_jve where jve_kodas = '2'"_s), "2");
}

TEST_P(Nodes, AreAddedBelowTheChosenOneAndOneLevelHasNoCodeTwice)
{
    choose("2 ");
    add([](TMazgasDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Naujas kodas po: 2  Išlaidos"_s);
        fill(dialog, u"2.2"_s, u"Kitos prekės"_s);
        EXPECT_EQ(refusal(dialog), u"Kodas \"2.2\" šiame lygyje jau yra"_s);
        fill(dialog, u"2.3"_s, u"Kitos prekės"_s);
        save(dialog);
    });
    EXPECT_EQ(
        rows(*fin, u"select jve_islid, jve_tevid, jve_pavad, jve_duom from bd_jve where jve_kodas = '2.3'"_s),
        QStringList(u"1|1|Kitos prekės|1"_s));
}

TEST_P(Nodes, InUseAreNeitherDeletedNorMovedNorUnmarked)
{
    use(Socialinis);
    EXPECT_EQ(erase(Socialinis, {QMessageBox::Ok}), QStringList(u"Kodas \"2.1.1\" yra naudojamas!"_s));
    const QString stays = u"Kodas ar žemesnio lygio kodas yra naudojamas, todėl neperkeliamas"_s;
    EXPECT_EQ(drag("2.1.1", "9", {QMessageBox::Ok}), QStringList(stays));
    EXPECT_EQ(drag("2.1", "9", {QMessageBox::Ok}), QStringList(stays));
    EXPECT_EQ(parentOf(Socialinis), "2");
    change(Socialinis, [](TMazgasDlg &dialog) {
        dialog.findChild<QCheckBox *>()->click();
        EXPECT_EQ(refusal(dialog), u"Kodas jau turi sumų (sąmatą, likučių ar įrašų)"_s);
        leaveUnsaved(dialog);
    });
}

TEST_P(Nodes, WithOthersBelowThemAreNotMarkedAsCarryingAmounts)
{
    change(Islaidos, [](TMazgasDlg &dialog) {
        type(edit(dialog, "JVE_PAVAD"), u"Visos išlaidos"_s);
        dialog.findChild<QCheckBox *>()->click();
        EXPECT_EQ(refusal(dialog), u"Kodas turi žemesnių kodų, todėl pats sumų neturi"_s);
        EXPECT_EQ(edit(dialog, "JVE_PAVAD")->text(), u"Visos išlaidos"_s);
        leaveUnsaved(dialog);
    });
    change(Kita, [](TMazgasDlg &dialog) {
        dialog.findChild<QCheckBox *>()->click();
        save(dialog);
    });
    EXPECT_EQ(rows(*fin, u"select jve_id from bd_jve where jve_duom = 1 order by 1"_s),
              QStringList({"3", "4", "5"}));
}

TEST_P(Nodes, AreDraggedElsewhereAfterAQuestion)
{
    EXPECT_EQ(drag("2.1", "9", {QMessageBox::No}),
              QStringList(u"Ar perkelti „2.1  Užmokestis“ po „9  Kita“?"_s));
    EXPECT_EQ(parentOf(Uzmokestis), "1");
    drag("2.1", "9", {QMessageBox::Yes});
    EXPECT_EQ(parentOf(Uzmokestis), "5");
    EXPECT_EQ(parentOf(Socialinis), "2");
    EXPECT_EQ(drag("9", "2.1.1", {QMessageBox::Ok}),
              QStringList(u"„9  Kita“ negali stovėti pats po savimi"_s));
    EXPECT_EQ(drag("2.1", "Visi", {QMessageBox::Yes}),
              QStringList(u"Ar perkelti „2.1  Užmokestis“ į pirmą lygį?"_s));
    EXPECT_EQ(parentOf(Uzmokestis), "NULL");
}

TEST_P(Nodes, AreNotMovedWhereAnotherStationHasDeletedOrMovedWhatIsThere)
{
    secondFin()->ExecSQL(u"delete from bd_jve where jve_id = 5"_s);
    EXPECT_EQ(drag("2.2", "9", {QMessageBox::Ok}),
              QStringList(u"Įrašas, po kuriuo perkeliama, jau ištrintas kitoje darbo vietoje"_s));
    secondFin()->ExecSQL(u"update bd_jve set jve_tevid = 4 where jve_id = 2"_s);
    EXPECT_EQ(drag("2.2", "2.1", {QMessageBox::Ok}),
              QStringList(u"„2.2  Prekės“ negali stovėti pats po savimi"_s));
    secondFin()->ExecSQL(u"delete from bd_jve where jve_id = 3"_s);
    EXPECT_EQ(drag("2.1.1", "2.2", {QMessageBox::Ok}),
              QStringList(u"Įrašas jau ištrintas kitoje darbo vietoje"_s));
}

TEST_P(Nodes, AreNotMovedWhereTheirCodeIsAlready)
{
    fin->ExecSQL(u"insert into bd_jve values (6, 1, 5, '2.2', 'Kitos prekės', 1)"_s);
    EXPECT_EQ(drag("2.2", "9", {QMessageBox::Ok}), QStringList(u"Kodas \"2.2\" šiame lygyje jau yra"_s));
    fin->ExecSQL(u"insert into bd_jve values (7, 2, null, '2.2', 'Kita knyga', 1)"_s);
    stand(Prekes);
    NextBoxes asked{QMessageBox::Yes};
    screen->acMoveTop->trigger();
    EXPECT_EQ(parentOf(Prekes), "NULL");
}

TEST_P(Nodes, WhatIsDraggedFromAnotherTreeIsNotTaken)
{
    const std::unique_ptr<TMazgaiFrm> second(createForm<TMazgaiFrm>(nullptr));
    second->show();
    const QAbstractItemModel &theirs = *second->findChild<TMoveTree *>()->model();
    const std::unique_ptr<QMimeData> row(theirs.mimeData({theirs.index(0, 0, theirs.index(0, 0))}));
    EXPECT_FALSE(drop(*row, "9"));
    QCoreApplication::processEvents(); // no question comes
    EXPECT_EQ(parentOf(Islaidos), "NULL");
}

TEST_P(Nodes, AreMovedToWhatIsPicked)
{
    stand(Prekes);
    NextBoxes asked{QMessageBox::Yes};
    OnNextDialog<TCodePicker> picker([](TCodePicker &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Kur perkelti 2.2  Prekės?"_s);
        type(dialog.findChild<QLineEdit *>(), u"kita"_s);
        pressButton(dialog, u"Pasirinkti"_s);
    });
    screen->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(screen.get()));
    QTest::keyClick(screen->grid(), Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(asked.texts(), QStringList(u"Ar perkelti „2.2  Prekės“ po „9  Kita“?"_s));
    EXPECT_EQ(parentOf(Prekes), "5");
    EXPECT_EQ(screen->currentKey().toInt(), Prekes);
}

TEST_P(Nodes, BecomeHeadingsWithTheFirstBelowThem)
{
    const QString loss = u"Kodas „2.2  Prekės“ turės žemesnių kodų, todėl pats sumų nebeturės."_s;
    const auto mark = [this] { return value(*fin, u"select jve_duom from bd_jve where jve_id = 4"_s); };
    choose("2.2");
    add([&](TMazgasDlg &dialog) {
        EXPECT_EQ(dialog.findChild<QLabel *>("hint")->text(), loss);
        fill(dialog, u"2.2.1"_s, u"Kanceliarinės"_s);
        save(dialog);
    });
    EXPECT_EQ(mark(), "0");
    add([&](TMazgasDlg &dialog) {
        EXPECT_EQ(dialog.findChild<QLabel *>("hint"), nullptr);
        leaveUnsaved(dialog);
    });
    fin->ExecSQL(u"update bd_jve set jve_duom = 1 where jve_id = 4"_s);
    EXPECT_EQ(drag("9", "2.2", {QMessageBox::No}),
              QStringList(u"Ar perkelti „9  Kita“ po „2.2  Prekės“?\n"_s + loss));
    EXPECT_EQ(mark(), "1");
    drag("9", "2.2", {QMessageBox::Yes});
    EXPECT_EQ(mark(), "0");
}

TEST_P(Nodes, WithAmountsTakeNoneBelowThem)
{
    use(Prekes);
    const QString refused =
        u"Kodas „2.2  Prekės“ jau turi sumų (sąmatą, likučių ar įrašų): kitų kodų po juo dėti "
        "negalima"_s;
    choose("2.2");
    add([&](TMazgasDlg &dialog) {
        fill(dialog, u"2.2.1"_s, u"Kanceliarinės"_s);
        EXPECT_EQ(refusal(dialog), refused);
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(drag("9", "2.2", {QMessageBox::Ok}), QStringList(refused));
    EXPECT_EQ(rows(*fin, u"select jve_duom from bd_jve where jve_tevid = 4 or jve_id = 4"_s),
              QStringList("1"));
}

TEST_P(Nodes, ThatAnotherStationIsGivingAmountsTakeNoneBelowThem)
{
    choose("2.2");
    TDatabase &other = *secondFin();
    other.StartTransaction();
    other.ExecSQL(u"insert into bd_isllik (sml_id, sml_perid, sml_jveid) values (1, 6, 4)"_s);
    TDatabase::setBusyHook([&other] { other.Commit(); });
    add([](TMazgasDlg &dialog) {
        fill(dialog, u"2.2.1"_s, u"Maistas"_s);
        EXPECT_TRUE(refusal(dialog).contains(u"jau turi sumų"_s));
        leaveUnsaved(dialog);
    });
    TDatabase::setBusyHook({});
    other.Commit();
    EXPECT_EQ(value(*fin, u"select jve_duom from bd_jve where jve_id = 4"_s), "1");
}

TEST_P(Nodes, ABookAddedElsewhereIsOfferedAfterARefreshAndTheChosenOneStays)
{
    auto *books = screen->findChild<QComboBox *>("BookBox");
    books->setCurrentIndex(books->findText(u"Švietimas"_s));
    emit books->activated(books->currentIndex());
    secondFin()->ExecSQL(u"insert into bd_asgisl (isl_id, isl_pavad) values (3, 'Kultūra')"_s);
    stand(0);
    EXPECT_EQ(books->currentText(), u"Švietimas"_s);
    EXPECT_EQ(books->count(), 3);
}

// The other station's move is under way when this one begins.
TEST_P(Nodes, TwoMovesAtOnceMakeNoCircle)
{
    TDatabase &other = *secondFin();
    other.StartTransaction();
    other.ExecSQL(u"update bd_jve set jve_tevid = 4 where jve_id = 2"_s);
    TDatabase::setBusyHook([&other] { other.Commit(); });
    const QStringList told = drag("2.2", "2.1", {QMessageBox::Ok});
    TDatabase::setBusyHook({});
    other.Commit();
    EXPECT_EQ(told, QStringList(u"„2.2  Prekės“ negali stovėti pats po savimi"_s));
    EXPECT_EQ(parentOf(Prekes), "1");
}

TEST_P(Nodes, InUseWithoutAParentCanBeGivenOne)
{
    use(Socialinis);
    withoutReferences(u"update bd_jve set jve_tevid = 99 where jve_id = 3"_s,
                      u"bd_jve.bd_jve_jve_tevid_fkey"_s);
    stand(0);
    EXPECT_TRUE(branches().contains(u" 2.1.1  Socialinis"_s));
    drag("2.1.1", "2.1", {QMessageBox::Yes});
    EXPECT_EQ(parentOf(Socialinis), "2");
}

TEST_P(Nodes, ACircleIsShownAndCanBeRepaired)
{
    fin->ExecSQL(u"update bd_jve set jve_tevid = 3 where jve_id = 2"_s);
    stand(Uzmokestis);
    EXPECT_EQ(branches().size(), 6);
    NextBoxes asked{QMessageBox::Yes};
    screen->acMoveTop->trigger();
    EXPECT_EQ(parentOf(Uzmokestis), "NULL");
    EXPECT_EQ(parentOf(Socialinis), "2");
}

TEST_P(Nodes, OpenAndAreSearchedWhereThereAreTwentyThousand)
{
    fin->StartTransaction();
    for (int i = 0; i < 20000; ++i)
        fin->ExecSQL(u"insert into bd_jve values (%1, 1, %2, '%3', 'Kodas %3', 1)"_s.arg(
            QString::number(100 + i), i < 200 ? u"1"_s : QString::number(100 + i % 200),
            QString::number(10000 + i)));
    fin->Commit();
    QElapsedTimer timer;
    timer.start();
    open();
    screen->SetFindStr(u"29999"_s);
    while (screen->searching())
        QCoreApplication::processEvents();
    EXPECT_EQ(screen->currentKey().toInt(), 20099);
    EXPECT_LT(timer.elapsed(), 3000);
}

namespace {
class Books : public OnTreeScreen<TMazgaiFrm, TMazgasDlg> {
protected:
    void TearDown() override
    {
        list.reset();
        OnTreeScreen::TearDown();
    }
    void add(const QString &name, const QString &told = {})
    {
        OnNextDialog<TKnygaDlg> dialog([&](TKnygaDlg &editor) {
            type(edit(editor, "ISL_PAVAD"), name);
            if (told.isEmpty()) {
                save(editor);
                return;
            }
            EXPECT_EQ(refusal(editor), told);
            leaveUnsaved(editor);
        });
        list->NewBtnClick();
    }

    std::unique_ptr<TKnygosFrm> list;
};
ON_BOTH_ENGINES(Books);

class Functions : public OnTreeScreen<TFunkcijosFrm, TFunkcijaDlg> {};
ON_BOTH_ENGINES(Functions);
} // namespace

TEST_P(Books, AreAddedAndLeadToTheirNodes)
{
    list.reset(createForm<TKnygosFrm>(nullptr));
    list->show();
    add(u"Švietimas"_s);
    add(u"Švietimas"_s, u"Knyga \"Švietimas\" jau yra"_s);
    OnNextDialog<TMazgaiFrm> nodes([](TMazgaiFrm &tree) {
        EXPECT_EQ(tree.findChild<QComboBox *>("BookBox")->currentText(), u"Švietimas"_s);
        tree.close();
    });
    list->findChild<QAction *>("acKodai")->trigger();
    EXPECT_EQ(rows(*fin, u"select isl_pavad from bd_asgisl"_s), QStringList(u"Švietimas"_s));
}

TEST_P(Books, ANameTakenMeanwhileIsTold)
{
    list.reset(createForm<TKnygosFrm>(nullptr));
    list->show();
    TDatabase &other = *secondFin();
    other.StartTransaction();
    other.ExecSQL(u"insert into bd_asgisl values (9, 'Aplinka')"_s);
    TDatabase::setBusyHook([&other] { other.Commit(); });
    add(u"Aplinka"_s, u"Knyga \"Aplinka\" jau yra"_s);
    TDatabase::setBusyHook({});
    other.Commit();
    EXPECT_EQ(rows(*fin, u"select isl_id from bd_asgisl"_s), QStringList("9"));
}

TEST_P(Books, InUseAreNotDeleted)
{
    fin->ExecSQL(u"insert into bd_asgisl values (1, 'Aplinka')"_s);
    fin->ExecSQL(u"insert into bd_jve values (1, 1, null, '2', 'Išlaidos', 0)"_s);
    list.reset(createForm<TKnygosFrm>(nullptr));
    list->show();
    NextBoxes told{QMessageBox::Ok};
    list->acDelete->trigger();
    EXPECT_EQ(told.texts(), QStringList(u"Knyga \"Aplinka\" yra naudojama!"_s));
}

TEST_P(Functions, AreATreeAndStayWhereTheyAreOnceADepartmentHasThem)
{
    open();
    OnNextDialog<TFunkcijaDlg> first([](TFunkcijaDlg &dialog) {
        type(edit(dialog, "FUN_KODAS"), u"09"_s);
        type(edit(dialog, "FUN_PAVAD"), u"Švietimas"_s);
        save(dialog);
    });
    screen->NewBtnClick();
    choose("09");
    add([](TFunkcijaDlg &dialog) {
        type(edit(dialog, "FUN_KODAS"), u"09"_s);
        type(edit(dialog, "FUN_PAVAD"), u"Mokyklos"_s);
        EXPECT_EQ(refusal(dialog), u"Kodas \"09\" jau egzistuoja"_s);
        type(edit(dialog, "FUN_KODAS"), u"09.2"_s);
        save(dialog);
    });
    EXPECT_EQ(branches(), QStringList({u"Visos funkcijos"_s, u" 09  Švietimas"_s, u"  09.2  Mokyklos"_s}));
    fin->ExecSQL(u"insert into bd_pad (pad_id, pad_pavad, pad_funid) values (1, 'Mokykla', 2)"_s);
    EXPECT_EQ(drag("09.2", "Visos", {QMessageBox::Ok}),
              QStringList(u"Kodas ar žemesnio lygio kodas yra naudojamas, todėl neperkeliamas"_s));
    EXPECT_EQ(erase(2, {QMessageBox::Ok}), QStringList(u"Funkcija \"09.2\" yra naudojama!"_s));
}

TEST_P(Functions, ACodeTakenMeanwhileIsTold)
{
    open();
    TDatabase &other = *secondFin();
    other.StartTransaction();
    other.ExecSQL(u"insert into bd_fun (fun_id, fun_kodas, fun_pavad) values (9, '09', 'Švietimas')"_s);
    TDatabase::setBusyHook([&other] { other.Commit(); });
    add([](TFunkcijaDlg &dialog) {
        type(edit(dialog, "FUN_KODAS"), u"09"_s);
        type(edit(dialog, "FUN_PAVAD"), u"Mokyklos"_s);
        EXPECT_EQ(refusal(dialog), u"Kodas \"09\" jau egzistuoja"_s);
        EXPECT_EQ(edit(dialog, "FUN_PAVAD")->text(), u"Mokyklos"_s);
        leaveUnsaved(dialog);
    });
    TDatabase::setBusyHook({});
    other.Commit();
    EXPECT_EQ(rows(*fin, u"select fun_id from bd_fun"_s), QStringList("9"));
}
