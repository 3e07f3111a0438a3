#pragma once

#include "host/app/close_check/close_check_frm.h"
#include "host/app/home/home_page.h"
#include "host/app/home/link.h"
#include "host/data/backups.h"
#include "tests/host/app/main_window.h"

#include <QDir>
#include <QMdiSubWindow>
#include <QTreeWidget>

// The home page and the windows of checks inside the real main window; February 2026 is to be closed.
class Home : public MainWindow {
protected:
    void SetUp() override
    {
        MainWindow::SetUp();
        for (const char *sql : {"insert into bd_period values (1, 2026, 0, 0), (2, 2026, 1, 0), (6, 2026, 1, "
                                "1), (7, 2026, 1, 2)",
                                "insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) values (1, "
                                "'24', 'Pinigai', 'D'), "
                                "(2, '43', 'Skolos', 'D')",
                                "insert into bd_org (org_pavad) values ('Ežero mokykla')"})
            books().ExecSQL(sql);
        GetPeriod();
    }
    void entry(int id, double debit, double credit)
    {
        books().ExecSQL("insert into bd_irasai (irs_id, irs_perid, irs_data, irs_dok, irs_sasid, irs_sum_db, "
                        "irs_sum_kr) values (:id, 7, '2026-02-03', :dok, 1, :db, :kr)",
                        {{"id", id}, {"dok", QString("D-%1").arg(id)}, {"db", debit}, {"kr", credit}});
    }
    THomePage *home() const { return window->findChild<THomePage *>(); }
    THomeSection *section(const QString &name) const { return window->findChild<THomeSection *>(name); }
    QStringList lines(const QString &name) const
    {
        QStringList texts;
        for (const auto *link : section(name)->findChildren<TLink *>())
            if (link->isVisible())
                texts << link->text();
        for (const auto *label : section(name)->findChildren<QLabel *>())
            if (label->isVisible())
                texts << label->text();
        return texts;
    }
    bool comes(const QString &section, const QString &text) const
    {
        return QTest::qWaitFor([&] { return lines(section).contains(text); }, 5000);
    }
    void follow(const QString &text)
    {
        for (auto *link : home()->findChildren<TLink *>())
            if (link->isVisible() && link->text() == text) {
                link->setFocus();
                press(Qt::Key_Return);
                return;
            }
        ADD_FAILURE() << "no link " << qPrintable(text);
    }
    QString active() const
    {
        const QMdiSubWindow *shown = window->documents()->activeSubWindow();
        return shown ? shown->objectName() : QString();
    }
    // A backup of today, as far as its head and its length tell.
    static void backUp()
    {
        QDir().mkpath(backupFolder());
        writeArchive(QDir(backupFolder()).filePath(backupName(BackupKind::Day, Now().dateTime(), {})),
                     {.engine = "sqlite", .createdAt = {}, .parts = {}}, {});
    }
    // The window of checks, when all are made.
    TCloseCheckFrm *checked() const
    {
        auto *frm = window->findChild<TCloseCheckFrm *>();
        const auto done = [frm] {
            return frm->lines()->findItems("ikrinama", Qt::MatchContains, 1).isEmpty();
        };
        EXPECT_TRUE(frm && QTest::qWaitFor(done, 5000));
        return frm;
    }
    QString currentLine() const
    {
        const QTreeWidgetItem *line = checked()->lines()->currentItem();
        return line ? line->text(0) : QString();
    }
};
