#include "host/app/history/history_frm.h"

#include "database/history.h"
#include "host/app/catalogues/sas_plan.h"
#include "host/app/table_names.h"
#include "host/data/login.h"
#include "tests/host/books.h"
#include "tests/support/clock.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QComboBox>
#include <QDateEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class HistoryScreen : public WithMainDatas {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        addSmallChart(fin);
        fin->ExecSQL(u"insert into bd_period values (6, 2026, 1, 1)"_s);
        for (TDatabase *book : {fin, ravl})
            keepHistory(*book, {u"ona"_s, u"stotis1"_s});
    }
    void TearDown() override
    {
        screen.reset();
        setRowHistoryOpener({});
        WithMainDatas::TearDown();
    }

    template<class... Arguments> void open(const Arguments &...arguments)
    {
        screen.reset(createForm<THistoryFrm>(nullptr, arguments...));
        screen->show();
    }
    // What is seen of a column, the newest first.
    QStringList listed(int column)
    {
        screen->dataSet()->RecordCount();
        QCoreApplication::processEvents();
        QStringList texts;
        for (int line = 0; line < screen->grid()->model()->rowCount(); ++line)
            texts << screen->grid()->model()->index(line, column).data().toString();
        return texts;
    }
    void choose(const QString &name, const QString &text)
    {
        auto *box = screen->findChild<QComboBox *>(name);
        const int index = box->findText(text);
        ASSERT_GE(index, 0) << text.toStdString();
        box->setCurrentIndex(index);
        emit box->activated(index);
    }

    enum Column : int { Moment, Person, Station, List, Row, Operation, Changes };
    std::unique_ptr<THistoryFrm> screen;
};
ON_BOTH_ENGINES(HistoryScreen);

} // namespace

TEST_P(HistoryScreen, TellsInWordsWhatWasDone)
{
    fin->ExecSQL(u"insert into bd_kasos values (4, 5, 'Didžioji kasa')"_s);
    fin->ExecSQL(u"update bd_kasos set kas_sasid = 7, kas_pavad = 'Mažoji kasa'"_s);
    open();
    EXPECT_EQ(listed(Changes).value(0), u"Sąskaita: buvo „24 Pinigai“, yra „43 Mokėtinos sumos“; "
                                        "Kasos pavadinimas: buvo „Didžioji kasa“, yra „Mažoji kasa“");
    EXPECT_EQ(listed(Changes).value(1), u"Sąskaita: „24 Pinigai“; Kasos pavadinimas: „Didžioji kasa“");
    EXPECT_EQ(listed(List).value(0), u"Kasos");
    EXPECT_EQ(listed(Row).value(0), u"Mažoji kasa");
    EXPECT_EQ(listed(Operation).mid(0, 2), (QStringList{u"Pakeista"_s, u"Įrašyta"_s}));
    EXPECT_EQ(listed(Person).value(0), u"ona");
}

TEST_P(HistoryScreen, AmountsDatesPeriodsAndFlagsReadAsPeopleHaveThem)
{
    fin->ExecSQL(u"insert into bd_saslik values (1, 5, 6, 1234.5, 0)"_s);
    open();
    const QString amount = FormatFloat(u"0.00"_s, 1234.5);
    EXPECT_EQ(
        listed(Changes).value(0),
        u"Sąskaita: „24 Pinigai“; Periodas: „2026 m. sausis“; Debetas: „%1“; Kreditas: „0“"_s.arg(amount));
    fin->ExecSQL(u"insert into bd_dbkrsut (dks_id, dks_dkaid, dks_nuo) values (1, 0, '2026-02-28')"_s);
    fin->ExecSQL(u"insert into bd_pad (pad_id, pad_ist) values (1, 1)"_s);
    screen->RefreshBtnClick();
    EXPECT_TRUE(listed(Changes).value(1).contains(u"Nuo: „2026.02.28“"_s))
        << listed(Changes).value(1).toStdString();
    EXPECT_TRUE(listed(Changes).value(0).contains(u"Įstaiga: „Taip“"_s));
}

TEST_P(HistoryScreen, IsNarrowedByTablePersonAndDays)
{
    fin->ExecSQL(u"insert into bd_objektai values (1, 'Sandėlis')"_s);
    keepHistory(*fin, {u"petras"_s, u"stotis2"_s});
    fin->ExecSQL(u"insert into bd_kasos values (4, 5, 'Kasa')"_s);
    open();
    choose(u"TableBox"_s, u"Objektai"_s);
    EXPECT_EQ(listed(Changes), (QStringList{u"Pavadinimas: „Sandėlis“"_s}));
    choose(u"PersonBox"_s, u"petras"_s);
    EXPECT_EQ(listed(Changes), QStringList());
    choose(u"TableBox"_s, u"Visi"_s);
    EXPECT_EQ(listed(List), (QStringList{u"Kasos"_s}));
    screen->findChild<QDateEdit *>(u"ToEdit"_s)->setDate(QDate::currentDate().addDays(-3));
    EXPECT_EQ(listed(List), QStringList());
}

TEST_P(HistoryScreen, TheOtherBookHasItsOwn)
{
    ravl->ExecSQL(u"insert into bd_usr (usr_id, usr_name, usr_pasw) values (1, 'ona', 'Slapta1')"_s);
    open();
    choose(u"BookBox"_s, u"Biudžeto"_s);
    EXPECT_EQ(listed(Changes).value(0), u"Prisijungimo vardas: „ona“; Slaptažodis: „pakeista“");
    EXPECT_FALSE(listed(List).contains(u"Sąskaitų planas"_s));
    EXPECT_EQ(screen->findChild<QComboBox *>(u"TableBox"_s)->findText(u"Kasos"_s), -1);
}

TEST_P(HistoryScreen, NothingInItCanBeChanged)
{
    fin->ExecSQL(u"insert into bd_objektai values (1, 'Sandėlis')"_s);
    open();
    for (const QAction *action : {screen->acNew, screen->acEdit, screen->acDelete})
        EXPECT_FALSE(action->isVisible() && action->isEnabled()) << action->text().toStdString();
}

TEST_P(HistoryScreen, CtrlHOnARowOfAListShowsItsChangesAlone)
{
    std::optional<TRowOfHistory> asked;
    setRowHistoryOpener([&](const TRowOfHistory &row) { asked = row; });
    fin->ExecSQL(u"update bd_sasplan set sas_pavad = 'Pinigai ir kita' where sas_id = 5"_s);
    fin->ExecSQL(u"update bd_sasplan set sas_pavad = 'Skolos' where sas_id = 3"_s);
    const std::unique_ptr<TSasPlanFrm> list(createForm<TSasPlanFrm>(nullptr));
    list->show();
    list->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(list.get()));
    list->RefreshData(5);
    QTest::keyClick(list->grid(), Qt::Key_H, Qt::ControlModifier);
    ASSERT_TRUE(asked);
    EXPECT_EQ(asked->key, u"5");
    open(*asked);
    EXPECT_EQ(listed(Changes).value(0), u"Pavadinimas: buvo „Pinigai“, yra „Pinigai ir kita“");
    EXPECT_FALSE(listed(Row).contains(u"221 Skolos"_s));
    EXPECT_TRUE(screen->windowTitle().contains(list->windowTitle()));
}

TEST_P(HistoryScreen, AClockThatWasSetBackHidesNothingAndMixesUpNoRow)
{
    fin->ExecSQL(u"insert into bd_objektai values (1, 'Sandėlis')"_s);
    const ClockAt back(QDateTime::currentDateTime().addDays(-1));
    fin->ExecSQL(u"update bd_objektai set obj_pavad = 'Garažas'"_s);
    open();
    EXPECT_TRUE(listed(Changes).contains(u"Pavadinimas: „Sandėlis“"_s));
    EXPECT_TRUE(listed(Changes).contains(u"Pavadinimas: buvo „Sandėlis“, yra „Garažas“"_s));
    open(TRowOfHistory{TSession::Main, u"bd_objektai"_s, u"1"_s, u"Objektai"_s});
    EXPECT_EQ(listed(Operation), (QStringList{u"Pakeista"_s, u"Įrašyta"_s}));
}

TEST_P(HistoryScreen, APauseLeavesNoRecordAndEnds)
{
    {
        const THistoryPause pause(*fin);
        fin->ExecSQL(u"insert into bd_objektai values (1, 'Sandėlis')"_s);
    }
    fin->ExecSQL(u"insert into bd_objektai values (2, 'Garažas')"_s);
    open();
    choose(u"TableBox"_s, u"Objektai"_s);
    EXPECT_EQ(listed(Changes), (QStringList{u"Pavadinimas: „Garažas“"_s}));
}

TEST_P(HistoryScreen, WhoLogsInLeavesRecordsInHisOwnNameWhereHeMayWrite)
{
    ravl->ExecSQL(u"insert into bd_usr (usr_id, usr_name, usr_pasw, usr_perziurai, usr_user_admin) values "
                  "(1, 'petras', 'x', 0, 0), (2, 'jonas', 'x', 1, 1), (3, 'ema', 'x', 1, 0)"_s);
    const auto last = [](TDatabase &book) {
        return rows(book, u"select ist_login, ist_stotis, ist_raktas from bd_istorija order by ist_id desc"_s)
            .value(0);
    };
    const QString station = QSysInfo::machineHostName();
    ASSERT_TRUE(logIn(*MainDatas(), u"petras"_s, u"x"_s));
    fin->ExecSQL(u"insert into bd_objektai values (1, 'Sandėlis')"_s);
    EXPECT_EQ(last(*fin), u"petras|%1|1"_s.arg(station));

    ASSERT_TRUE(logIn(*MainDatas(), u"jonas"_s, u"x"_s)) << "looks only, but administers users";
    MainDatas()->makeReadOnly();
    MainDatas()->mnRavl()->ExecSQL(u"update bd_usr set usr_vardas = 'Ema' where usr_id = 3"_s);
    EXPECT_EQ(last(*MainDatas()->mnRavl()), u"jonas|%1|3"_s.arg(station));
    const QString insert = u"insert into bd_objektai values (2, 'Garažas')"_s;
    EXPECT_THROW(MainDatas()->mnFin_Db()->ExecSQL(insert), EDatabaseError);

    ASSERT_TRUE(logIn(*MainDatas(), u"ema"_s, u"x"_s));
    MainDatas()->makeReadOnly();
    EXPECT_THROW(MainDatas()->mnFin_Db()->ExecSQL(insert), EDatabaseError);
    EXPECT_THROW(MainDatas()->mnRavl()->ExecSQL(u"delete from bd_usr"_s), EDatabaseError);
    EXPECT_EQ(last(*MainDatas()->mnFin_Db()), u"petras|%1|1"_s.arg(station));
}

// No table and no column is left without a name.
TEST_P(HistoryScreen, EveryTableAndColumnHasAName)
{
    for (TDatabase *book : {fin, ravl})
        for (const QString &table : rows(*book, u"select table_name from systable order by table_name"_s)) {
            EXPECT_NE(tableName(table), table);
            for (const QString &column : book->columnNames(table))
                EXPECT_NE(THistoryWords::column(column), column) << table.toStdString();
        }
}
