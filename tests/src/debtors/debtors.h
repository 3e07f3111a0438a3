#pragma once

#include "host/data/sas_edit.h"
#include "src/debtors/Chdbkr.h"
#include "src/debtors/Copydbkr.h"
#include "src/debtors/Dbkr.h"
#include "src/debtors/Dbkrsut.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"
#include "toolkit/text/format.h"

#include <QLabel>
#include <QTest>

using Chdbkr::TEditDbKrDlg;
using Copydbkr::TCopyDbKrFrm;
using Dbkr::TDbKrFrm;
using Dbkrsut::TDbKrSutart;

// Books of an institution with three detail accounts under a summary one.
class Debtors : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        books().ExecSQL("insert into bd_org (org_pavad, org_tipas) values ('Mokykla', 0)");
        owed = account("221");
        owing = account("431");
        summary = account("4");
        books().ExecSQL("update bd_sasplan set sas_tip = 'S' where sas_id = :id", {{"id", summary}});
    }

    void party(int id, const QString &code, const QString &name)
    {
        books().ExecSQL("insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_sasid, dka_sasid_2) "
                        "values (:id, :kod, :pavad, :a, :b)",
                        {{"id", id}, {"kod", code}, {"pavad", name}, {"a", owed}, {"b", owing}});
    }

    static QLineEdit *edit(QWidget &dialog, const QString &column)
    {
        auto *found = dialog.findChild<QWidget *>(column);
        auto *line = qobject_cast<QLineEdit *>(found);
        return line ? line : found->findChild<QLineEdit *>();
    }
    static TSasEdit *picker(QWidget &dialog, const QString &column = "DKA_SASID")
    {
        return dialog.findChild<TSasEdit *>(column);
    }
    static void fill(QWidget &dialog, const QString &name, const QString &code, double accountId)
    {
        type(edit(dialog, "DKA_PAVAD"), name);
        type(edit(dialog, "DKA_KOD"), code);
        picker(dialog)->setValue(accountId);
    }
    // Presses the default button and expects the refusal to be shown; the dialog stays open.
    static QString refusal(QWidget &dialog)
    {
        NextBoxes shown{QMessageBox::Ok};
        pressButton(dialog, "&Išsaugoti");
        EXPECT_TRUE(dialog.isVisible());
        return shown.at(0).text;
    }
    // Adds a counterparty; the function does in the editor what the user does.
    static bool add(std::function<void(TEditDbKrDlg &)> user, double *id = nullptr)
    {
        double key = 0;
        OnNextDialog<TEditDbKrDlg> dialog(std::move(user));
        const bool saved = Chdbkr::EditDbKr(AnsiString("Naujas"), true, key);
        if (id)
            *id = key;
        return saved;
    }
    static bool change(double id, std::function<void(TEditDbKrDlg &)> user)
    {
        OnNextDialog<TEditDbKrDlg> dialog(std::move(user));
        return Chdbkr::EditDbKr(AnsiString("Keisti"), false, id);
    }
    QStringList stored()
    {
        return rows(books(), "select dka_id, dka_kod, dka_pavad, dka_sasid, dka_sasid_2 "
                             "from bd_dbkrasm order by dka_id");
    }
    QString row(int id, const QString &code, const QString &name, int a, int b) const
    {
        return QString("%1|%2|%3|%4|%5").arg(id).arg(code, name).arg(a).arg(b);
    }

    int owed = 0, owing = 0, summary = 0;
};
