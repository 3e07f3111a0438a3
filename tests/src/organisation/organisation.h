#pragma once

#include "src/organisation/Orgatr.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPointer>
#include <QTest>

// The institution's record as its user has it.
class Organisation : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        books().ExecSQL("insert into bd_savivaldybes (sav_kod, sav_pavad) "
                        "values (13, 'Vilniaus miesto savivaldybė')");
        books().ExecSQL("insert into bd_savivaldybes (sav_kod, sav_pavad) "
                        "values (15, 'Druskininkų savivaldybė')");
        books().ExecSQL("insert into bd_org (org_pavad, org_adr, org_i_kod, org_pvm_kod, org_draud_kod, "
                        "org_savivaldybe, org_rejnum, org_tipas, org_kdv, org_dv, org_dv_iki, org_dv_old) "
                        "values ('Šilo mokykla', 'Šilo g. 7', 190000000, 'LT19', '990', 13, 'Registras', 1, "
                        "31, 2, '2030-01-01', 3)");
    }
    void TearDown() override
    {
        delete frm;
        OnOpenBooks::TearDown();
    }
    void open()
    {
        frm = createForm<Orgatr::TOrgFrm>(nullptr);
        frm->show();
        frm->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(frm));
    }
    // The name is being changed.
    void edited()
    {
        frm->acEdit->trigger();
        type(line("org_pavad"), "Gimnazija");
    }
    void fillRequired()
    {
        type(line("org_pavad"), "Gimnazija");
        type(line("org_adr"), "Žolynų g. 1");
        type(line("org_i_kod"), "190");
    }
    void gone()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(frm);
    }
    // A key for whatever has the keyboard.
    void press(Qt::Key key)
    {
        frm->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(frm));
        QWidget *focused = frm->focusWidget();
        QTest::keyClick(focused ? focused : frm.data(), key);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QString refusal()
    {
        NextBoxes told{QMessageBox::Ok};
        frm->acSave->trigger();
        return told.at(0).text;
    }
    // Saves, and answers the question of what another station changed; what it says.
    QString conflict(const QString &answer)
    {
        QString text;
        OnNextDialog<QMessageBox> box([&](QMessageBox &shown) {
            text = shown.text();
            pressButton(shown, answer);
        });
        frm->acSave->trigger();
        return text;
    }

    QLineEdit *line(const char *column) const { return frm->findChild<QLineEdit *>(column); }
    QComboBox *municipalities() const { return frm->findChild<QComboBox *>("SavivaldybeBox"); }
    TDBImage *emblem() const { return frm->findChild<TDBImage *>("org_zenklas"); }
    static void paste(QLineEdit *edit, const QString &text)
    {
        QApplication::clipboard()->setText(text);
        edit->setFocus();
        edit->selectAll();
        edit->paste();
    }
    QStringList texts() const
    {
        QStringList shown;
        for (const char *column : {"org_pavad", "org_adr", "org_i_kod", "org_pvm_kod", "ORG_DRAUD_KOD",
                                   "Org_Savivaldybe", "Org_RejNum"})
            shown << line(column)->text();
        return shown;
    }
    QStringList enabled() const
    {
        QStringList names;
        for (const QAction *action : {frm->acEdit, frm->acSave, frm->acCancel, frm->mnOpen, frm->mnDel})
            if (action->isEnabled())
                names << action->objectName();
        return names;
    }
    bool tells(const QString &text) const
    {
        for (const QLabel *label : frm->findChildren<QLabel *>())
            if (label->isVisible() && label->text() == text)
                return true;
        return false;
    }
    QStringList stored()
    {
        return rows(books(), "select org_pavad, org_adr, org_i_kod, org_pvm_kod, org_draud_kod, "
                             "org_savivaldybe, org_rejnum, org_tipas, org_kdv, org_dv, org_dv_iki, "
                             "org_dv_old from bd_org");
    }
    // From now on the database refuses to change the row, until it is allowed again.
    void refuseUpdating()
    {
        books().nativeExec(engine() == Engine::Sqlite
                               ? "create trigger t_org before update on bd_org begin "
                                 "select raise(abort, 'sugadinta tyčia'); end"
                               : "create function f_org() returns trigger language plpgsql as "
                                 "$$ begin raise exception 'sugadinta tyčia'; end $$;"
                                 "create trigger t_org before update on bd_org for each row "
                                 "execute function f_org()");
    }
    void allowUpdating()
    {
        books().nativeExec(engine() == Engine::Sqlite ? "drop trigger t_org"
                                                      : "drop trigger t_org on bd_org");
    }

    QPointer<Orgatr::TOrgFrm> frm;
};
