#include "host/app/catalogues/sas_plan.h"

#include "host/data/accounts_chart.h"
#include "tests/host/app/tree_screen.h"

#include <QElapsedTimer>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

// Keys of the small chart.
enum : int { Turtas = 1, Gautinos, Pirkejai, Silumos, Pinigai, Isipareigojimai, Moketinos };

class ChartOfAccounts : public OnTreeScreen<TSasPlanFrm, TSasPlanDlg> {
protected:
    void SetUp() override
    {
        OnTreeScreen::SetUp();
        addSmallChart(fin);
        fin->ExecSQL(u"insert into bd_period values (6, 2026, 1, 1)"_s);
        GetPeriod();
        open();
    }

    static void fill(TSasPlanDlg &dialog, const QString &number, const QString &name)
    {
        type(edit(dialog, "SAS_SASNR"), number);
        type(edit(dialog, "SAS_PAVAD"), name);
    }
    static void setKind(TSasPlanDlg &dialog, const QString &kind)
    {
        for (auto *button : dialog.findChildren<QRadioButton *>())
            if (button->text().remove(u'&') == kind)
                button->click();
    }
    void balance(int account, double amount)
    {
        fin->ExecSQL(u"insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) "
                     "values (:id, :id, 6, :suma, 0)"_s,
                     {{u"id"_s, account}, {u"suma"_s, amount}});
    }
    // Number, name and kind, and the parent's number.
    QString stored(const QString &number)
    {
        return rows(*fin,
                    u"select a.sas_sasnr, a.sas_pavad, a.sas_tip, v.sas_sasnr as virs from bd_sasplan a "
                    "left outer join bd_sasplan v on (v.sas_id = a.sas_tevid) where a.sas_sasnr = "_s +
                        TDatabase::quoted(number))
            .join(u';');
    }
};
ON_BOTH_ENGINES(ChartOfAccounts);

// What another station has begun to write; it ends as soon as somebody waits for it.
struct UnderWay {
    UnderWay(TDatabase &station, const QString &statement) : other(station)
    {
        other.StartTransaction();
        other.ExecSQL(statement);
        TDatabase::setBusyHook([this] { other.Commit(); });
    }
    ~UnderWay()
    {
        TDatabase::setBusyHook({});
        other.Commit();
    }
    TDatabase &other;
};

} // namespace

TEST_P(ChartOfAccounts, IsATreeWithTheAccountsOfTheChosenBranchBesideIt)
{
    EXPECT_EQ(branches(),
              QStringList({u"Visos sąskaitos"_s, u" 2  Turtas"_s, u"  22  Gautinos sumos"_s,
                           u"   221  Pirkėjų skolos"_s, u"   222  Šilumos skolos"_s, u"  24  Pinigai"_s,
                           u" 4  Įsipareigojimai"_s, u"  43  Mokėtinos sumos"_s}));
    EXPECT_EQ(listed(), QStringList({"2", "22", "221", "222", "24", "4", "43"}));
    choose("22");
    EXPECT_EQ(listed(), QStringList({"22", "221", "222"}));
    EXPECT_EQ(listed(2), QStringList({"Suminė", "Detali", "Detali"}));
}

TEST_P(ChartOfAccounts, IsSearchedWholeByNumberOrName)
{
    screen->SetFindStr(u"222"_s);
    EXPECT_EQ(screen->currentKey().toInt(), Silumos);
    screen->SetFindStr(u"mokėtinos"_s, screen->dataSet()->FieldByName(u"SAS_PAVAD"_s));
    EXPECT_EQ(screen->currentKey().toInt(), Moketinos);
}

TEST_P(ChartOfAccounts, TakesAnAccountBelowTheChosenOne)
{
    choose("22");
    add([](TSasPlanDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Nauja sąskaita po: 22  Gautinos sumos"_s);
        fill(dialog, u"223"_s, u"Nuomos skolos"_s);
        save(dialog);
    });
    EXPECT_EQ(stored(u"223"_s), u"223|Nuomos skolos|D|22"_s);
    EXPECT_EQ(listed(), QStringList({"22", "221", "222", "223"}));
}

TEST_P(ChartOfAccounts, TakesAnAccountAtTheTop)
{
    add([](TSasPlanDlg &dialog) {
        fill(dialog, u"9"_s, u"Nebalansinės"_s);
        save(dialog);
    });
    EXPECT_EQ(stored(u"9"_s), u"9|Nebalansinės|D|NULL"_s);
}

TEST_P(ChartOfAccounts, AnUnusedDetailAccountBecomesASummaryOneWithTheFirstBelowIt)
{
    stand(Pinigai);
    OnNextDialog<TSasPlanDlg> dialog([this](TSasPlanDlg &editor) {
        fill(editor, u"24"_s, u"Kasa"_s);
        EXPECT_TRUE(refusal(editor).contains(u"Sąskaita 24 jau yra: Pinigai"_s));
        EXPECT_EQ(stored(u"24"_s), u"24|Pinigai|D|2"_s) << "a refused save changes nothing";
        fill(editor, u"241"_s, u"Kasa"_s);
        save(editor);
    });
    screen->acNewBelow->trigger();
    EXPECT_EQ(stored(u"24"_s), u"24|Pinigai|S|2"_s);
    EXPECT_EQ(stored(u"241"_s), u"241|Kasa|D|24"_s);
}

TEST_P(ChartOfAccounts, ADetailAccountInUseTakesNoneBelowIt)
{
    balance(Pinigai, 10);
    choose("24");
    add([](TSasPlanDlg &dialog) {
        fill(dialog, u"241"_s, u"Kasa"_s);
        EXPECT_EQ(refusal(dialog),
                  u"Sąskaita „24  Pinigai“ yra naudojama (likučiai, įrašai ar kiti duomenys): "
                  "kitų sąskaitų po ja dėti negalima"_s);
        EXPECT_EQ(edit(dialog, "SAS_PAVAD")->text(), u"Kasa"_s);
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(u"24"_s), u"24|Pinigai|D|2"_s);
}

TEST_P(ChartOfAccounts, RefusesNumbersThatAreNone)
{
    choose("22");
    add([](TSasPlanDlg &dialog) {
        fill(dialog, u"221"_s, u"Nauja"_s);
        EXPECT_TRUE(refusal(dialog).contains(u"Sąskaita 221 jau yra: Pirkėjų skolos"_s));
        fill(dialog, u""_s, u"Nauja"_s);
        EXPECT_TRUE(refusal(dialog).contains(u"Numeris"_s));
        for (const QString &wrong : {u"22a"_s, u"22345678901"_s, u"22 1"_s}) {
            edit(dialog, "SAS_SASNR")->setText(wrong);
            edit(dialog, "SAS_SASNR")->setModified(true);
            EXPECT_FALSE(refusal(dialog).isEmpty()) << qPrintable(wrong);
        }
        for (const QString &foreign : {u"31"_s, u"20"_s}) {
            fill(dialog, foreign, u"Nauja"_s);
            EXPECT_TRUE(
                refusal(dialog).contains(u"turi prasidėti aukštesnės sąskaitos „22  Gautinos sumos“"_s));
        }
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(rows(*fin, u"select count(*) from bd_sasplan"_s), QStringList("7"));
}

TEST_P(ChartOfAccounts, ANumberWithOthersBelowItStays)
{
    change(Gautinos, [](TSasPlanDlg &dialog) {
        type(edit(dialog, "SAS_SASNR"), u"23"_s);
        EXPECT_TRUE(refusal(dialog).contains(u"numeris nekeičiamas"_s));
        fill(dialog, u"22"_s, u"Gautinos"_s);
        save(dialog);
    });
    EXPECT_EQ(stored(u"22"_s), u"22|Gautinos|S|2"_s);
}

TEST_P(ChartOfAccounts, AClosedAccountIsOfferedNoMoreAndCanBeOpenedAgain)
{
    balance(Pinigai, 10);
    change(Pinigai, [](TSasPlanDlg &dialog) {
        setKind(dialog, u"Uždaryta"_s);
        EXPECT_EQ(refusal(dialog), u"Sąskaita einamąjį periodą turi likutį ar įrašų, todėl neuždaroma"_s);
        leaveUnsaved(dialog);
    });
    fin->ExecSQL(u"delete from bd_saslik"_s);
    change(Pinigai, [](TSasPlanDlg &dialog) {
        setKind(dialog, u"Uždaryta"_s);
        save(dialog);
    });
    EXPECT_EQ(stored(u"24"_s), u"24|Pinigai|U|2"_s);
    EXPECT_EQ(chartOfAccounts(fin).rowOfCode(u"24"_s), -1);
    EXPECT_TRUE(listed().contains(u"24"_s));
    change(Pinigai, [](TSasPlanDlg &dialog) {
        setKind(dialog, u"Detali"_s);
        save(dialog);
    });
    EXPECT_NE(chartOfAccounts(fin).rowOfCode(u"24"_s), -1);
}

TEST_P(ChartOfAccounts, WhatAnAccountIsFollowsFromWhatStandsBelowAndWhatUsesIt)
{
    change(Gautinos, [](TSasPlanDlg &dialog) {
        setKind(dialog, u"Detali"_s);
        EXPECT_EQ(refusal(dialog), u"Sąskaita turi žemesnio lygio sąskaitų, todėl lieka suminė"_s);
        leaveUnsaved(dialog);
    });
    balance(Pinigai, 0);
    change(Pinigai, [](TSasPlanDlg &dialog) {
        setKind(dialog, u"Suminė"_s);
        EXPECT_EQ(refusal(dialog), u"Sąskaita yra naudojama, todėl negali būti suminė"_s);
        leaveUnsaved(dialog);
    });
}

TEST_P(ChartOfAccounts, AnAccountInUseIsNotDeleted)
{
    balance(Pinigai, 0);
    EXPECT_EQ(erase(Pinigai, {QMessageBox::Ok}), QStringList(u"Sąskaita 24 yra naudojama!"_s));
    EXPECT_EQ(
        erase(Gautinos, {QMessageBox::Ok}),
        QStringList(u"„22  Gautinos sumos“ turi žemesnio lygio įrašų: pirmiausia ištrinkite ar perkelkite "
                    "juos."_s));
    EXPECT_EQ(erase(Silumos, {QMessageBox::Yes}).size(), 1);
    EXPECT_EQ(stored(u"222"_s), QString());
    EXPECT_NE(stored(u"24"_s), QString());
}

TEST_P(ChartOfAccounts, AfterADeletionTheBranchAboveIsShown)
{
    choose("222");
    EXPECT_EQ(listed(), QStringList("222"));
    erase(Silumos, {QMessageBox::Yes});
    EXPECT_EQ(listed(), QStringList({"22", "221"}));
}

TEST_P(ChartOfAccounts, MovesBetweenWhatItsNumberBeginsWith)
{
    fin->ExecSQL(u"insert into bd_sasplan values (8, '2220', 'Miesto', 'D', 2)"_s);
    balance(8, 5);
    stand(0);
    EXPECT_EQ(drag("2220", "222", {QMessageBox::No}),
              QStringList(u"Ar perkelti „2220  Miesto“ po „222  Šilumos skolos“?"_s));
    EXPECT_EQ(stored(u"2220"_s), u"2220|Miesto|D|22"_s);
    EXPECT_EQ(stored(u"222"_s), u"222|Šilumos skolos|D|22"_s);
    drag("2220", "222", {QMessageBox::Yes});
    EXPECT_EQ(stored(u"2220"_s), u"2220|Miesto|D|222"_s);
    EXPECT_EQ(stored(u"222"_s), u"222|Šilumos skolos|S|22"_s);
    EXPECT_TRUE(drag("2220", "43", {QMessageBox::Ok}).value(0).contains(u"turi prasidėti"_s));
    EXPECT_EQ(drag("2", "222", {QMessageBox::Ok}),
              QStringList(u"„2  Turtas“ negali stovėti pats po savimi"_s));
    EXPECT_EQ(stored(u"2"_s), u"2|Turtas|S|NULL"_s);
}

TEST_P(ChartOfAccounts, WithoutAParentIsAtTheTopAndCanBeRepaired)
{
    withoutReferences(u"update bd_sasplan set sas_tevid = 99 where sas_id = 2"_s,
                      u"bd_sasplan.bd_sasplan_sas_tevid_fkey"_s);
    stand(0);
    EXPECT_TRUE(branches().contains(u" 22  Gautinos sumos"_s));
    drag("22", "2", {QMessageBox::Yes});
    EXPECT_EQ(stored(u"22"_s), u"22|Gautinos sumos|S|2"_s);
    EXPECT_TRUE(branches().contains(u"  22  Gautinos sumos"_s));
}

TEST_P(ChartOfAccounts, ACircleIsShownAndCanBeRepaired)
{
    fin->ExecSQL(u"update bd_sasplan set sas_tevid = 2 where sas_id = 1"_s);
    stand(0);
    EXPECT_EQ(listed().size(), 7);
    EXPECT_EQ(branches().size(), 8);
    stand(Turtas);
    NextBoxes asked{QMessageBox::Yes};
    screen->acMoveTop->trigger();
    EXPECT_EQ(stored(u"2"_s), u"2|Turtas|S|NULL"_s);
    EXPECT_EQ(stored(u"22"_s), u"22|Gautinos sumos|S|2"_s);
}

TEST_P(ChartOfAccounts, TwoStationsDoNotAddTheSameNumber)
{
    choose("22");
    add([this](TSasPlanDlg &dialog) {
        fill(dialog, u"223"_s, u"Mano"_s);
        secondFin()->ExecSQL(u"insert into bd_sasplan values (50, '223', 'Jų', 'D', 2)"_s);
        EXPECT_TRUE(refusal(dialog).contains(u"Sąskaita 223 jau yra: Jų"_s));
        EXPECT_EQ(edit(dialog, "SAS_PAVAD")->text(), u"Mano"_s);
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(u"223"_s), u"223|Jų|D|22"_s);
}

// What is typed is accepted before the save begins; the other station ends after that.
TEST_P(ChartOfAccounts, ANumberIsJudgedAgainWhenItIsSaved)
{
    choose("22");
    add([this](TSasPlanDlg &dialog) {
        fill(dialog, u"223"_s, u"Nuomos skolos"_s);
        leave(edit(dialog, "SAS_PAVAD"));
        const UnderWay other(*secondFin(), u"update bd_sasplan set sas_sasnr = '23' where sas_id = 2"_s);
        EXPECT_TRUE(refusal(dialog).contains(u"turi prasidėti aukštesnės sąskaitos „23  Gautinos sumos“"_s));
        EXPECT_EQ(edit(dialog, "SAS_PAVAD")->text(), u"Nuomos skolos"_s);
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(u"223"_s), QString());
    change(Pinigai, [this](TSasPlanDlg &dialog) {
        fill(dialog, u"25"_s, u"Pinigai"_s);
        leave(edit(dialog, "SAS_PAVAD"));
        const UnderWay other(*secondFin(), u"insert into bd_sasplan values (50, '241', 'Kasa', 'D', 5)"_s);
        EXPECT_TRUE(refusal(dialog).contains(u"Sąskaitos 24 numeris nekeičiamas"_s));
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(u"25"_s), QString());
}

TEST_P(ChartOfAccounts, ANumberBeginsWithThatOfTheParentItHasByThen)
{
    fin->ExecSQL(u"insert into bd_sasplan values (8, '2220', 'Miesto', 'D', 2)"_s);
    change(8, [this](TSasPlanDlg &dialog) {
        fill(dialog, u"2230"_s, u"Miesto"_s);
        leave(edit(dialog, "SAS_PAVAD"));
        const UnderWay other(*secondFin(), u"update bd_sasplan set sas_tevid = 4 where sas_id = 8"_s);
        EXPECT_TRUE(refusal(dialog).contains(u"turi prasidėti aukštesnės sąskaitos „222  Šilumos skolos“"_s));
        leaveUnsaved(dialog);
    });
}

TEST_P(ChartOfAccounts, AnAccountInTheFormOfTheBudgetBookIsNeitherDeletedNorRenumbered)
{
    ravl->ExecSQL(u"insert into bd_baleil (bel_kod, bel_pavad) values ('A0101', 'Pinigai')"_s);
    ravl->ExecSQL(u"insert into bd_balsas (bss_balkod, bss_sasnr) values ('A0101', '2221, 24')"_s);
    const QString refused =
        u"Sąskaita 24 yra biudžeto balanso formos eilutėje A0101: pirmiausia išimkite ją iš "
        "formos"_s;
    EXPECT_EQ(erase(Pinigai, {QMessageBox::Ok}), QStringList(refused));
    change(Pinigai, [&](TSasPlanDlg &dialog) {
        type(edit(dialog, "SAS_SASNR"), u"25"_s);
        EXPECT_TRUE(refusal(dialog).contains(refused));
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(u"24"_s), u"24|Pinigai|D|2"_s);
    EXPECT_EQ(erase(Silumos, {QMessageBox::Yes}).size(), 1) << "222 is another account than 2221";
}

TEST_P(ChartOfAccounts, AParentDeletedMeanwhileIsTold)
{
    choose("24");
    add([this](TSasPlanDlg &dialog) {
        fill(dialog, u"241"_s, u"Kasa"_s);
        secondFin()->ExecSQL(u"delete from bd_sasplan where sas_id = 5"_s);
        EXPECT_EQ(refusal(dialog), u"Sąskaita, po kuria dedama, jau ištrinta kitoje darbo vietoje"_s);
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(u"241"_s), QString());
}

TEST_P(ChartOfAccounts, AnAccountThatAnotherStationIsPuttingToUseTakesNoneBelowIt)
{
    choose("24");
    const UnderWay use(*secondFin(), u"insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db) "
                                     "select 1, sas_id, 6, 5 from bd_sasplan where sas_sasnr = '24'"_s);
    add([](TSasPlanDlg &dialog) {
        fill(dialog, u"241"_s, u"Kasa"_s);
        EXPECT_TRUE(refusal(dialog).contains(u"yra naudojama (likučiai, įrašai ar kiti duomenys)"_s));
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(u"241"_s), QString());
    EXPECT_EQ(value(*fin, u"select sas_tip from bd_sasplan where sas_sasnr = '24'"_s), "D");
}

TEST_P(ChartOfAccounts, WhoMayOnlyLookMovesNothing)
{
    CurrentUser().viewOnly = true;
    open();
    stand(Silumos);
    EXPECT_FALSE(screen->acNew->isVisible() || screen->acDelete->isVisible());
    EXPECT_FALSE(screen->acMove->isEnabled() || screen->acMoveTop->isEnabled() ||
                 screen->acNewBelow->isEnabled());
    EXPECT_FALSE(tree().dragEnabled());
    EXPECT_EQ(drag("222", "2", {}), QStringList());
    EXPECT_EQ(stored(u"222"_s), u"222|Šilumos skolos|D|22"_s);
    change(Silumos, [](TSasPlanDlg &dialog) {
        EXPECT_FALSE(edit(dialog, "SAS_PAVAD")->isEnabled());
        leaveUnsaved(dialog);
    });
}

TEST_P(ChartOfAccounts, OpensAndSearchesTwentyThousandAccounts)
{
    fin->StartTransaction();
    for (int i = 0; i < 20000; ++i)
        addAccount(fin, 100 + i, QString::number(500000 + i), u"Sąskaita %1"_s.arg(i), u"D"_s,
                   Isipareigojimai);
    fin->Commit();
    QElapsedTimer timer;
    timer.start();
    open();
    screen->SetFindStr(u"519999"_s);
    while (screen->searching())
        QCoreApplication::processEvents();
    EXPECT_EQ(screen->currentKey().toInt(), 20099);
    EXPECT_LT(timer.elapsed(), 3000);
}
