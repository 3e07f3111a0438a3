#include "src/money/Einsasdet.h"
#include "src/money/Einsasform.h"
#include "tests/src/catalogue.h"
#include "tests/support/refusal.h"
#include "toolkit/report/preview.h"

using Einsasdet::TEinSasItem;
using Einsasform::TEinSasFrm;

namespace {

// Books with two detail accounts.
class CurrentAccounts : public OnCatalogue<Einsasform::EinSasFrm, Einsasdet::EinSasItem> {
protected:
    void SetUp() override
    {
        OnCatalogue::SetUp();
        bank = account("2411");
        other = account("2412");
    }
    void place(int id, const QString &number, const Variant &bankCode, const Variant &bankName)
    {
        books().ExecSQL("insert into bd_einsas (ein_id, ein_nr, ein_sasid, ein_bank_kod, ein_bank_pav) "
                        "values (:id, :nr, :sas, :kod, :pav)",
                        {{"id", id}, {"nr", number}, {"sas", bank}, {"kod", bankCode}, {"pav", bankName}});
    }
    void fill(TEinSasItem &dialog, const QString &number, const QString &bankName)
    {
        type(edit(dialog, "EIN_NR"), number);
        picker(dialog, "EIN_SASID")->setValue(bank);
        type(edit(dialog, "EIN_BANK_PAV"), bankName);
    }
    QStringList stored()
    {
        return rows(books(), "select ein_id, ein_nr, ein_sasid, ein_bank_kod, ein_bank_pav from bd_einsas "
                             "order by ein_id");
    }
    QString row(int id, const QString &number, const QString &bankCode, const QString &bankName) const
    {
        return QString("%1|%2|%3|%4|%5").arg(id).arg(number).arg(bank).arg(bankCode, bankName);
    }
    // Adds an account with what is pasted as the code of its bank; the code as stored.
    QString codeStoredFor(const QString &pasted)
    {
        add([&](TEinSasItem &dialog) {
            fill(dialog, "LT1", "Bankas");
            paste(edit(dialog, "EIN_BANK_KOD"), pasted);
            save(dialog);
        });
        return value(books(), "select ein_bank_kod from bd_einsas "
                              "where ein_id = (select max(ein_id) from bd_einsas)");
    }

    int bank = 0, other = 0;
};
ON_BOTH_ENGINES(CurrentAccounts);

const QString refusedSave = "Šiuo metu koreguoti lentelės \"BD_EINSAS\" negalima";

} // namespace

TEST_P(CurrentAccounts, AreListedWithTheirAccountAndBank)
{
    place(1, "LT12", 70440, "Šiaulių bankas");
    open();
    EXPECT_EQ(list->windowTitle(), "Einamosios sąskaitos");
    EXPECT_EQ(titles(), QStringList({"Ein sąs. Nr", "Sąskaita", "Banko pavadinimas", "Banko kodas"}));
    EXPECT_EQ(shown(0) + shown(1) + shown(2) + shown(3),
              QStringList({"LT12", "2411  Sąskaita 2411", "Šiaulių bankas", "70440"}));
    EXPECT_EQ(Einsasform::EinSasFrm, list);
    close();
    EXPECT_EQ(Einsasform::EinSasFrm, nullptr);
}

TEST_P(CurrentAccounts, AnAccountTypedLastOpensTheSaveButtonBeforeItIsLeft)
{
    open();
    add([](TEinSasItem &dialog) {
        type(edit(dialog, "EIN_NR"), "LT1");
        type(edit(dialog, "EIN_BANK_PAV"), "Bankas");
        EXPECT_FALSE(saver(dialog)->isEnabled());
        type(edit(dialog, "EIN_SASID"), "9999");
        EXPECT_TRUE(saver(dialog)->isEnabled());
        EXPECT_TRUE(refusal(dialog).contains("9999"));
        type(edit(dialog, "EIN_SASID"), "2411");
        QTest::mouseClick(saver(dialog), Qt::LeftButton);
    });
    EXPECT_EQ(stored(), QStringList(row(1, "LT1", "NULL", "Bankas")));
}

TEST_P(CurrentAccounts, ANewOneGetsTheNextKeyAndBecomesCurrent)
{
    place(4, "LT12", Variant(), "Bankas");
    open();
    add([this](TEinSasItem &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Nauja sąskaita");
        EXPECT_FALSE(saver(dialog)->isEnabled());
        fill(dialog, "LT34", "O'Ąžuolo bankas 5 %");
        type(edit(dialog, "EIN_BANK_KOD"), "12345");
        save(dialog);
    });
    EXPECT_EQ(key(), 5);
    EXPECT_EQ(stored().last(), row(5, "LT34", "12345", "O'Ąžuolo bankas 5 %"));
    EXPECT_EQ(Einsasdet::EinSasItem, nullptr);
}

TEST_P(CurrentAccounts, AChangedOneKeepsItsKeyAndMayLoseItsBankCode)
{
    place(1, "LT12", 70440, "Bankas");
    open();
    change(1, [](TEinSasItem &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Koreguojama sąskaita");
        EXPECT_FALSE(saver(dialog)->isEnabled()) << "nothing was changed yet";
        type(edit(dialog, "EIN_BANK_KOD"), "");
        EXPECT_TRUE(saver(dialog)->isEnabled());
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList(row(1, "LT12", "NULL", "Bankas")));
}

TEST_P(CurrentAccounts, TheSaveButtonWaitsForNumberAccountAndBank)
{
    open();
    add([this](TEinSasItem &dialog) {
        fill(dialog, "LT1", "Bankas");
        EXPECT_TRUE(saver(dialog)->isEnabled());
        for (const char *column : {"EIN_NR", "EIN_BANK_PAV"}) {
            paste(edit(dialog, column), "   ");
            EXPECT_FALSE(saver(dialog)->isEnabled()) << "blanks are nothing: " << column;
            type(edit(dialog, column), "1");
            EXPECT_TRUE(saver(dialog)->isEnabled()) << column;
        }
        picker(dialog, "EIN_SASID")->setValue(0);
        EXPECT_FALSE(saver(dialog)->isEnabled());
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(CurrentAccounts, OnlyLettersAndDigitsAreTypedAsANumberAndOnlyDigitsAsACode)
{
    open();
    add([this](TEinSasItem &dialog) {
        fill(dialog, "L-T/1 2Š", "Bankas");
        EXPECT_EQ(edit(dialog, "EIN_NR")->text(), "LT12Š");
        type(edit(dialog, "EIN_BANK_KOD"), "7-0x4");
        EXPECT_EQ(edit(dialog, "EIN_BANK_KOD")->text(), "704");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList(row(1, "LT12Š", "704", "Bankas")));
}

TEST_P(CurrentAccounts, TheLongestNumberIsTakenWholeAndOneLetterMoreNotAtAll)
{
    open();
    add([this](TEinSasItem &dialog) {
        fill(dialog, "LT1", "Bankas");
        paste(edit(dialog, "EIN_NR"), QString(21, u'9'));
        EXPECT_EQ(edit(dialog, "EIN_NR")->text(), "LT1");
        paste(edit(dialog, "EIN_NR"), QString(20, u'9'));
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList(row(1, QString(20, u'9'), "NULL", "Bankas")));
}

TEST_P(CurrentAccounts, NoBankHasTheCodeZeroOrOneThatIsNoWholeNumber)
{
    open();
    for (const char *none : {"", "0", "000", "7a", "1,5", "1e5"})
        EXPECT_EQ(codeStoredFor(none), "NULL") << none;
    EXPECT_EQ(codeStoredFor(" 12345 "), "12345");
}

TEST_P(CurrentAccounts, ABankCodeTooLargeForItsColumnIsRefusedAndStays)
{
    open();
    add([this](TEinSasItem &dialog) {
        fill(dialog, "LT1", "Bankas");
        for (const QString &large : {QString(25, u'9'), QString("2147483648")}) {
            type(edit(dialog, "EIN_BANK_KOD"), large);
            EXPECT_EQ(refusal(dialog), "Laukas \"Banko kodas\": skaičius per didelis.");
            EXPECT_EQ(edit(dialog, "EIN_BANK_KOD")->text(), large);
        }
        type(edit(dialog, "EIN_BANK_KOD"), "2147483647");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList(row(1, "LT1", "2147483647", "Bankas")));
}

TEST_P(CurrentAccounts, WhatIsStoredAlreadyIsOfferedOnceInItsOrder)
{
    place(1, "LT2", 9, "Žemaičių bankas");
    place(2, "LT10", 70440, "Zuikių bankas");
    place(3, "LT2", 9, "Šiaulių bankas");
    place(4, "", Variant(), "Zuikių bankas");
    place(5, "LT10", Variant(), Variant());
    open();
    add([](TEinSasItem &dialog) {
        EXPECT_EQ(items(dialog, "EIN_NR"), QStringList({"LT10", "LT2"}));
        EXPECT_EQ(items(dialog, "EIN_BANK_KOD"), QStringList({"9", "70440"}));
        EXPECT_EQ(items(dialog, "EIN_BANK_PAV"),
                  QStringList({"Šiaulių bankas", "Zuikių bankas", "Žemaičių bankas"}));
        leaveUnsaved(dialog);
    });
}

TEST_P(CurrentAccounts, StayInTheirOrderWhenTheFirstIsRenamed)
{
    place(1, "LT1", Variant(), "Bankas");
    place(2, "LT2", Variant(), "Bankas");
    open();
    change(1, [](TEinSasItem &dialog) {
        type(edit(dialog, "EIN_NR"), "LT9");
        save(dialog);
    });
    EXPECT_EQ(shown(0), QStringList({"LT9", "LT2"}));
}

// --- what is refused

TEST_P(CurrentAccounts, DeletingAlwaysEndsInTheErrorOfTheFormat)
{
    place(1, "LT12", Variant(), "Bankas");
    open();
    const QStringList told = erase(1, {QMessageBox::Yes, QMessageBox::Ok});
    EXPECT_EQ(told, QStringList({"Ar tikrai norite ištrinti?",
                                 "Formato 'select f_CheckUsed('bd_einsas', 'ein_id', '%d') from dummy' "
                                 "negalima taikyti nurodytam argumentui"}));
    EXPECT_EQ(erase(1, {QMessageBox::No}).size(), 1) << "nothing is formatted before the answer";
    EXPECT_EQ(stored().size(), 1);
    EXPECT_FALSE(books().InTransaction());
}

TEST_P(CurrentAccounts, ASaveThatTheDatabaseRefusesIsToldInTheFixedWords)
{
    refuseInserting("bd_einsas", "ein_id = 1");
    open();
    add([this](TEinSasItem &dialog) {
        fill(dialog, "LT1", "Bankas");
        EXPECT_EQ(refusal(dialog), refusedSave);
        EXPECT_EQ(edit(dialog, "EIN_NR")->text(), "LT1");
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(CurrentAccounts, ARowThatCannotBeReadIsToldInTheFixedWords)
{
    books().nativeExec("alter table bd_einsas rename to bd_kita");
    double id = 1;
    EXPECT_EQ(refusalOf([&] { Einsasdet::ShowEinSas(AnsiString("Koreguojama sąskaita"), id, false); }),
              "Šiuo metu atidaryti lentelės \"BD_EINSAS\" negalima");
}

TEST_P(CurrentAccounts, TwoStationsThatDrawTheSameKeyNeverShareIt)
{
    open();
    addWhileItsKeyIsTaken("EIN_ID", "insert into bd_einsas (ein_id, ein_nr) values (1, 'LT9')", refusedSave,
                          [this](TEinSasItem &dialog) { fill(dialog, "LT1", "Bankas"); });
    EXPECT_EQ(rows(books(), "select ein_nr from bd_einsas order by ein_id"),
              engine() == Engine::PostgreSql ? QStringList({"LT9", "LT1"}) : QStringList("LT1"));
}

// --- the report

TEST_P(CurrentAccounts, PrintTheHostsReportByNumber)
{
    place(1, "LT2", 70440, "Šiaulių bankas");
    place(2, "LT1", Variant(), "Bankas");
    open();
    QStringList texts;
    OnNextDialog<TReportPreview> preview([&texts](TReportPreview &report) {
        for (const TReportPrimitive &primitive : report.layout().page(0))
            texts << primitive.text;
        report.close();
    });
    list->acPrint->trigger();
    EXPECT_TRUE(texts.contains("Einamosios sąskaitos"));
    EXPECT_GT(texts.indexOf("LT2"), texts.indexOf("LT1"));
    EXPECT_TRUE(texts.contains("70440") && texts.contains("Šiaulių bankas"));
    EXPECT_TRUE(texts.contains("2411  Sąskaita 2411"));
    EXPECT_TRUE(texts.contains("Iš viso: 2"));
}

TEST_P(CurrentAccounts, TheEndOfTheListEndsTheReportsToo)
{
    place(1, "LT2", 70440, "Šiaulių bankas");
    open();
    bool closed = false;
    OnNextDialog<TReportPreview> preview([&](TReportPreview &report) {
        delete list;
        closed = !report.isVisible();
        report.close();
    });
    OpenReports(AnsiString("/DBN=mnFin_Db /RPTID=82"));
    EXPECT_TRUE(closed);
}

TEST_P(CurrentAccounts, AViewOnlyUserMayLookAndPrint)
{
    place(1, "LT12", Variant(), "Bankas");
    CurrentUser().viewOnly = true;
    open();
    EXPECT_FALSE(list->acNew->isEnabled() || list->acDelete->isEnabled());
    EXPECT_TRUE(list->acPrint->isEnabled());
    change(1, [](TEinSasItem &dialog) {
        EXPECT_FALSE(edit(dialog, "EIN_NR")->isEnabled());
        EXPECT_FALSE(saver(dialog)->isEnabled());
        leaveUnsaved(dialog);
    });
}
