#pragma once

#include "host/data/sas_edit.h"
#include "src/balances/Saslikedit.h"
#include "src/balances/Slikuciai.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"
#include "toolkit/text/format.h"

#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using Saslikedit::TSasLikDlg;
using Slikuciai::SasLikFrm;
using Slikuciai::TSasLikFrm;

// Books whose work began in January 2004, with three detail accounts under a summary one.
class Balances : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        FormatSettings().DecimalSeparator = u'.';
        startOfWork(2004, 1, 1);
        bank = account("241");
        cash = account("262");
        capital = account("401");
        summary = account("24");
        books().ExecSQL("update bd_sasplan set sas_tip = 'S' where sas_id = :id", {{"id", summary}});
        books().ExecSQL("update bd_sasplan set sas_tevid = :id where sas_id = :child",
                        {{"id", summary}, {"child", bank}});
    }
    void TearDown() override
    {
        closeList();
        FormatSettings() = kept;
        OnOpenBooks::TearDown();
    }

    TSasLikFrm &openList()
    {
        frm = createForm<TSasLikFrm>(nullptr);
        frm->show();
        return *frm;
    }
    void closeList()
    {
        if (frm)
            frm->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void nextMonth()
    {
        books().ExecSQL("insert into bd_period values (7, 2004, 1, 2)");
        GetPeriod();
    }

    // Adds a balance through the dialog; the function does in it what the user does.
    static bool addBalance(std::function<void(TSasLikDlg &)> user)
    {
        double id = 0;
        OnNextDialog<TSasLikDlg> dialog(std::move(user));
        return Saslikedit::EditLik(false, id);
    }
    static void chooseAccount(TSasLikDlg &dialog, double id) { dialog.findChild<TSasEdit *>()->setValue(id); }
    static QLineEdit *amount(TSasLikDlg &dialog)
    {
        QLineEdit *debit = dialog.findChild<QLineEdit *>("SSL_SUM_DB");
        QLineEdit *credit = dialog.findChild<QLineEdit *>("SSL_SUM_KR");
        EXPECT_NE(debit->isVisible(), credit->isVisible());
        return debit->isVisible() ? debit : credit;
    }
    static QRadioButton *credit(TSasLikDlg &dialog) { return dialog.findChild<QRadioButton *>("KredRadio"); }
    static QRadioButton *debit(TSasLikDlg &dialog) { return dialog.findChild<QRadioButton *>("DebRadio"); }
    static bool maySave(TSasLikDlg &dialog)
    {
        return dialog.findChild<QPushButton *>("Išsaugoti")->isEnabled();
    }
    // Presses the default button and expects the refusal to be shown; the dialog stays open.
    static QString refusal(TSasLikDlg &dialog)
    {
        NextBoxes shown{QMessageBox::Ok};
        pressButton(dialog, "&Išsaugoti");
        EXPECT_TRUE(dialog.isVisible());
        return shown.at(0).text;
    }

    QStringList stored()
    {
        return rows(books(), "select ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr "
                             "from bd_saslik order by ssl_id");
    }
    QString row(int id, int account, const QString &debitSum, const QString &creditSum) const
    {
        return QString("%1|%2|6|%3|%4").arg(id).arg(account).arg(debitSum, creditSum);
    }

    int bank = 0, cash = 0, capital = 0, summary = 0;
    QPointer<TSasLikFrm> frm;

private:
    TFormatSettings kept = FormatSettings();
};
