#include "src/export/Tableexp.h"

#include "tests/src/open_books.h"
#include "tests/support/files.h"
#include "tests/support/message_box.h"
#include "toolkit/text/format.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QProgressDialog>
#include <QTest>

using Tableexp::TFrRavlExp;

namespace {

// The budget books with two work places, and the dialog over them.
class Export : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        ASSERT_TRUE(QDir().mkpath(place()));
        budget().nativeExec("insert into bd_kdv values (1, 'Buhalterija'), (4, 'Sandėlis')");
    }
    void TearDown() override
    {
        dialog.reset();
        FormatSettings() = settings;
        OnOpenBooks::TearDown();
    }

    static TDatabase &budget() { return *MainDatas()->mnRavl(); }
    QString place() const { return folder() + "/eksportas"; }
    QString file() const { return place() + "/lentele.sql"; }
    QStringList files() const { return QDir(place()).entryList(QDir::Files | QDir::Hidden); }

    void open(const QString &table)
    {
        dialog = std::make_unique<TFrRavlExp>(nullptr);
        dialog->show();
        list()->setCurrentText(table);
    }
    QComboBox *list() { return dialog->findChild<QComboBox *>("cmbLenteles"); }
    QStringList tables()
    {
        QStringList names;
        for (int i = 0; i < list()->count(); ++i)
            names << list()->itemText(i);
        return names;
    }
    void press() { pressButton(*dialog, "Eksportuoti"); }

    // Chooses a file as the user does, by its name.
    static void choose(QFileDialog &files, const QString &name)
    {
        files.findChild<QLineEdit *>("fileNameEdit")->setText(name);
        QMetaObject::invokeMethod(&files, "accept");
    }
    // Presses the button, chooses the file and answers the one box that comes then.
    ShownBox exportTo(const QString &name)
    {
        OnNextDialog<QFileDialog> chooses([&](QFileDialog &files) { choose(files, name); });
        NextBoxes boxes{QMessageBox::Ok};
        press();
        EXPECT_TRUE(dialog->isVisible());
        return boxes.at(0);
    }

    std::unique_ptr<TFrRavlExp> dialog;

private:
    const TFormatSettings settings = FormatSettings();
};
ON_BOTH_ENGINES(Export);

} // namespace

TEST_P(Export, OffersTheTablesThatPeopleFillInTheOrderOfTheirNames)
{
    for (const char *table :
         {"ul_a", "spt_a", "satmp_a", "rs_a", "ml_a", "ix_a", "jdbc_a", "migrate_a", "aa"})
        budget().nativeExec(QString("create table %1 (a integer)").arg(table));
    open({});
    EXPECT_EQ(dialog->windowTitle(), "Lenteles eksportas insertui");
    EXPECT_EQ(tables(), QStringList({"aa", "bd_baleil", "bd_balsas", "bd_fin", "bd_kdv", "bd_savivaldybes",
                                     "bd_usr", "bd_usrkdv"}));
    EXPECT_EQ(list()->currentIndex(), -1);
    EXPECT_EQ(GetListValue(list()->model(), 4).toString(),
              value(budget(), "select table_id from systable where table_name = 'bd_kdv'"));
    EXPECT_EQ(Tableexp::FrRavlExp, dialog.get());
    dialog.reset();
    EXPECT_EQ(Tableexp::FrRavlExp, nullptr);
}

TEST_P(Export, WithoutAChosenTableSaysSoAndAsksForNoFile)
{
    open({});
    NextBoxes boxes{QMessageBox::Ok};
    press();
    EXPECT_EQ(boxes.at(0).text, "Pasirinkite lentelę");
    EXPECT_TRUE(dialog->isVisible());
}

TEST_P(Export, AsksForAFileAndTellsThatItIsWritten)
{
    open("bd_kdv");
    OnNextDialog<QFileDialog> chooses([this](QFileDialog &files) {
        EXPECT_EQ(files.objectName(), "SaveRavlexp");
        EXPECT_EQ(files.windowTitle(), "1a SD eksportas");
        EXPECT_EQ(files.nameFilters(), QStringList("SQL failiukas (*.SQL)"));
        EXPECT_EQ(files.acceptMode(), QFileDialog::AcceptSave);
        choose(files, file());
    });
    NextBoxes boxes{QMessageBox::Ok};
    press();
    EXPECT_EQ(boxes.at(0).kind, 33);
    EXPECT_EQ(boxes.at(0).text, "Letele sėkmingai eksportuota į failą: \"" + file() + "\"");
    EXPECT_EQ(contentOf(file()), "insert into bd_kdv(kdv_id,kdv_pav) values('1','Buhalterija');\n"
                                 "insert into bd_kdv(kdv_id,kdv_pav) values('4','Sand\xeblis');\n");
    EXPECT_TRUE(dialog->isVisible());
}

TEST_P(Export, BeginsWithTheDeletingWhereThatIsTicked)
{
    open("bd_baleil");
    dialog->findChild<QCheckBox *>("cbxDrop")->click();
    exportTo(file());
    EXPECT_EQ(contentOf(file()), "delete from bd_baleil;\n");
}

TEST_P(Export, AFileWithoutAnEndingGetsOne)
{
    open("bd_baleil");
    EXPECT_EQ(exportTo(place() + "/lentele").kind, 33);
    EXPECT_EQ(files(), QStringList("lentele.ffdata"));
}

TEST_P(Export, WithoutAFileDoesNothing)
{
    open("bd_kdv");
    OnNextDialog<QFileDialog> chooses([](QFileDialog &files) { files.reject(); });
    press();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(files(), QStringList());
}

TEST_P(Export, AsksBeforeItReplacesAFile)
{
    writeFile(file(), "sena");
    open("bd_kdv");
    OnNextDialog<QFileDialog> chooses([this](QFileDialog &files) {
        NextBoxes boxes{QMessageBox::No, QMessageBox::Yes};
        choose(files, file());
        EXPECT_TRUE(boxes.at(0).text.contains("lentele.sql")) << qPrintable(boxes.at(0).text);
        EXPECT_TRUE(files.isVisible());
        EXPECT_EQ(contentOf(file()), "sena");
        choose(files, file());
    });
    NextBoxes written{QMessageBox::Ok};
    press();
    EXPECT_EQ(written.at(0).kind, 33);
    EXPECT_EQ(contentOf(file()).count('\n'), 2);
}

TEST_P(Export, OfATableThatIsGoneMeanwhileLeavesTheOldFile)
{
    budget().nativeExec("create table senas (a integer)");
    open("senas");
    budget().nativeExec("drop table senas");
    EXPECT_EQ(exportTo(file()).text, "Lentelės „senas“ duomenų bazėje nebėra.");
    EXPECT_EQ(files(), QStringList());
}

TEST_P(Export, TellsWhatCannotBeWrittenAndLeavesTheOldFile)
{
    budget().nativeExec("update bd_kdv set kdv_pav = 'Кухня' where kdv_id = 4");
    open("bd_kdv");
    EXPECT_EQ(exportTo(file()).text,
              "Lentelės „bd_kdv“ 2 eilutė (kdv_id: 4), stulpelis „kdv_pav“: simbolio „К“ "
              "negalima įrašyti kodų lentele 1257");
    EXPECT_EQ(files(), QStringList());
}

TEST_P(Export, KeepsTheDecimalSeparatorOfTheProgram)
{
    FormatSettings().DecimalSeparator = ',';
    budget().nativeExec("create table skaiciai (a numeric(15,4), b varchar(9));"
                        "insert into skaiciai values (1.25, 'x')");
    open("skaiciai");
    exportTo(file());
    EXPECT_EQ(contentOf(file()), "insert into skaiciai(a,b) values('1.25','x');\n");
    EXPECT_EQ(FormatSettings().DecimalSeparator, ',');
    budget().nativeExec("update skaiciai set b = '☃'");
    EXPECT_EQ(exportTo(place() + "/kita.sql").icon, QMessageBox::Critical);
    EXPECT_EQ(FormatSettings().DecimalSeparator, ',');
}

TEST_P(Export, OfFinancingSourcesWritesNoPicture)
{
    budget().ExecSQL("insert into bd_fin (fin_id, fin_pavad, fin_org_zenklas) values (1, 'L''ėšos', :z)",
                     {{"z", QByteArray("\x89PNG'")}});
    open("bd_fin");
    exportTo(file());
    EXPECT_EQ(contentOf(file()),
              "insert into bd_fin(fin_id,fin_pavad,fin_dir,fin_org_pavad,fin_adr,fin_i_kod,"
              "fin_pvm_kod,fin_draud_kod,fin_savivaldybe,fin_rejnum,fin_org_zenklas,"
              "fin_rodyti) values('1','L'\xeb\xf0os','','','','','','','','','','');\n");
}

TEST_P(Export, EscStopsItInTheMiddleAndLeavesTheOldFile)
{
    budget().nativeExec("create table dideles (a integer, b varchar(100)); insert into dideles "
                        "with recursive n(i) as (select 1 union all select i + 1 from n where i < 800000) "
                        "select i, 'Ilgas tekstas apie nieką' from n");
    writeFile(file(), "sena");
    open("dideles");
    OnNextDialog<QFileDialog> chooses([this](QFileDialog &files) {
        NextBoxes replaces{QMessageBox::Yes};
        choose(files, file());
    });
    OnNextDialog<QProgressDialog> progress([](QProgressDialog &shown) {
        EXPECT_EQ(shown.labelText(), "Rašoma lentelė „dideles“…");
        EXPECT_EQ(shown.maximum(), 800000);
        EXPECT_GT(shown.value(), 0);
        EXPECT_TRUE(QTest::qWaitFor([&shown] { return shown.isActiveWindow(); }));
        QTest::keyClick(&shown, Qt::Key_Escape);
    });
    press();
    EXPECT_TRUE(progress.came());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(contentOf(file()), "sena");
    EXPECT_EQ(files().size(), 1);
}
