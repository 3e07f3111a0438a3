#pragma once

#include "tests/host/books.h"
#include "tests/host/controls/bankai_screen.h"
#include "tests/support/message_box.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

// Three banks and the screen over them.
class Bankai : public WithMainDatas {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        addBank(10, u"Šiaulių bankas"_s, 0.25);
        addBank(20, u"Ąžuolo kreditas"_s, 1);
        addBank(30, u"Citadelė"_s, 0);
        bankEditor = [](const QString &, bool, Variant &) { return false; };
    }
    void TearDown() override
    {
        close();
        WithMainDatas::TearDown();
    }

    void addBank(int code, const QString &name, double fee, TDatabase *station = nullptr)
    {
        (station ? station : fin)
            ->ExecSQL(u"insert into bd_bankai (bnk_kodas, bnk_pavad, bnk_rink) values (:k, :p, :r)"_s,
                      {{u"k"_s, code}, {u"p"_s, name}, {u"r"_s, fee}});
    }
    // More banks than a list reads at once: codes from 1000, "Bankas 1000" and so on.
    void addManyBanks(int count)
    {
        fin->nativeExec(u"insert into bd_bankai (bnk_kodas, bnk_pavad, bnk_rink) "
                        "with recursive n(i) as (select 1000 union all select i + 1 from n where i < %1) "
                        "select i, 'Bankas ' || i, 0 from n"_s.arg(1000 + count - 1));
    }

    TBankaiFrm &open()
    {
        frm = createForm<TBankaiFrm>(nullptr);
        frm->show();
        return *frm;
    }
    void close()
    {
        if (frm)
            frm->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void load() { frm->dataSet()->RecordCount(); }

    QString shown(int row, int column) const
    {
        return frm->grid()->model()->index(row, column).data().toString();
    }
    QStringList names()
    {
        load();
        QCoreApplication::processEvents();
        QStringList all;
        for (int row = 0; row < frm->grid()->model()->rowCount(); ++row)
            all << shown(row, 2);
        return all;
    }
    int key() const { return frm->currentKey().toInt(); }
    QStringList stored() { return rows(*fin, u"select bnk_kodas from bd_bankai order by bnk_kodas"_s); }
    QLineEdit *findEdit() const { return frm->findChild<QLineEdit *>(u"FindEdit"_s); }
    // Shortcuts work in the active window alone.
    void activate()
    {
        frm->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(frm));
        frm->grid()->setFocus();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        activate();
        QTest::keyClick(frm->grid(), key, held);
    }

    QPointer<TBankaiFrm> frm;
};
