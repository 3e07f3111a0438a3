#include "host/app/start_of_work.h"

#include "tests/host/books.h"
#include "tests/support/message_box.h"
#include "toolkit/widgets/dialog.h"

namespace {

class StartOfWork : public WithMainDatas {
protected:
    // Months after the start of work, each with a balance and two entries; and the estimate of a later year.
    void closeMonths(int months)
    {
        for (const char *sql :
             {"insert into bd_period values (1, 2026, 0, 0)", "insert into bd_period values (2, 2026, 1, 0)",
              "insert into bd_period values (6, 2026, 1, 1)"})
            fin->ExecSQL(sql);
        addSmallChart(fin);
        fin->ExecSQL("insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid) values (1, 5, 6)");
        for (int month = 1; month <= months; ++month) {
            fin->ExecSQL("insert into bd_period values (:id, 2026, 1, :month)",
                         {{"id", 6 + month}, {"month", 1 + month}});
            fin->ExecSQL("insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid) values (:id, 5, :per)",
                         {{"id", 1 + month}, {"per", 6 + month}});
            for (const int entry : {0, 1})
                fin->ExecSQL("insert into bd_irasai (irs_id, irs_perid) values (:id, :per)",
                             {{"id", 2 * month + entry}, {"per", 6 + month}});
        }
        if (months > 0) {
            fin->ExecSQL("insert into bd_asgisl values (1, 'Ekonominė')");
            fin->ExecSQL("insert into bd_jve values (1, 1, NULL, '2.1', 'Darbo užmokestis', 1)");
            fin->ExecSQL("insert into bd_samatos (sam_id, sam_jveid, sam_perid) values (1, 1, 40)");
        }
        GetPeriod();
    }
    bool embedded() const { return GetParam() == Engine::Sqlite; }
};
ON_BOTH_ENGINES(StartOfWork);

// Embedded books are backed up by the program: there the answer is not all.
class StartOfWorkOnServer : public StartOfWork {};
ON_ENGINE(StartOfWorkOnServer, Engine::PostgreSql);

} // namespace

TEST_P(StartOfWork, IsSetWithoutAQuestionWhileNoMonthIsClosed)
{
    EXPECT_TRUE(agreedLoss());
    closeMonths(0);
    EXPECT_TRUE(agreedLoss());
}

TEST_P(StartOfWork, TheQuestionTellsWhatWouldBeLostAndWhoMakesTheBackup)
{
    closeMonths(2);
    NextBoxes asked{QMessageBox::No};
    EXPECT_FALSE(agreedLoss());
    const QString text = asked.at(0).text;
    EXPECT_TRUE(text.contains("Mėnesių, kurie bus ištrinti: 2\nLikučių, kurie liks be periodo: 2\n"
                              "Įrašų, kurie liks be periodo: 4\nSąmatų, kurios liks be periodo: 1\n"))
        << qPrintable(text);
    EXPECT_EQ(text.contains("bus padaryta atsarginė kopija"), embedded()) << qPrintable(text);
    EXPECT_EQ(text.contains("pasidarykite serverio"), !embedded()) << qPrintable(text);
}

TEST_P(StartOfWork, AMonthClosedElsewhereWhileTheDialogIsOpenIsNotLostUnasked)
{
    closeMonths(0);
    struct TStartDlg : TDialog {
        TStartDlg() { describe("Pradžia", {}, nullptr); }
        void Save() override { saved = true; }
        bool saved = false;
    } dialog;
    loseNoMore(dialog, agreedLoss().value());
    secondFin()->ExecSQL("insert into bd_period values (7, 2026, 1, 2)");
    NextBoxes told{QMessageBox::Ok};
    EXPECT_FALSE(dialog.trySave());
    EXPECT_TRUE(told.at(0).text.contains("kita darbo vieta")) << qPrintable(told.at(0).text);
    EXPECT_FALSE(dialog.saved);
    secondFin()->ExecSQL("delete from bd_period where per_id = 7");
    EXPECT_TRUE(dialog.trySave());
    EXPECT_TRUE(dialog.saved);
}

TEST_P(StartOfWorkOnServer, TheAnswerAloneDecides)
{
    closeMonths(1);
    NextBoxes asked{QMessageBox::Yes};
    EXPECT_EQ(agreedLoss(), (TLostMonths{1, 1, 2, 1}));
}
