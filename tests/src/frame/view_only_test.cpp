// A user who may only look opens everything that the package has and tries whatever there is to try; the
// books stay as they were, byte for byte. An ordinary user with the same hands changes them.

#include "host/controls/browse_frm.h"
#include "src/frame/registry.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"
#include "toolkit/report/preview.h"
#include "toolkit/widgets/guard.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

namespace {

bool onlyLeaves(const QString &caption)
{
    const QString plain = QString(caption).remove(u'&');
    return plain == "Atšaukti" || plain == "Atsisakyti" || plain == "Ne" || plain == "Uždaryti";
}

// Types into every edit, ticks every item and presses every button of a window.
void tryEverything(QWidget &window)
{
    const QPointer<QWidget> there(&window);
    for (const auto &edit : window.findChildren<QLineEdit *>())
        if (edit->isVisible() && edit->isEnabled() && !edit->isReadOnly()) {
            QTest::keyClick(edit, Qt::Key_End);
            QTest::keyClick(edit, Qt::Key_1);
        }
    for (const auto &list : window.findChildren<QListWidget *>())
        for (int row = 0; list->isVisible() && row < list->count(); ++row) {
            list->setCurrentRow(row);
            QTest::keyClick(list, Qt::Key_Space);
            QTest::keyClick(list, Qt::Key_Insert);
        }
    QList<QPointer<QAbstractButton>> buttons;
    for (auto *button : window.findChildren<QAbstractButton *>())
        buttons << button;
    for (const QPointer<QAbstractButton> &button : buttons)
        if (there && button && button->isVisible() && button->isEnabled() && !onlyLeaves(button->text()))
            QTest::mouseClick(button, Qt::LeftButton);
    if (there && there->isVisible())
        there->close();
}

// Answers whatever modal window comes: questions with yes, dialogs by trying everything in them.
class AnyWindow : public ModalExpectation {
public:
    bool awaits(QWidget *) const override { return true; }
    void answer(QWidget *window) override
    {
        if (auto *box = qobject_cast<QMessageBox *>(window)) {
            QAbstractButton *yes = box->button(QMessageBox::Yes);
            (yes ? yes : box->buttons().first())->click();
        } else if (qobject_cast<TReportPreview *>(window) || ++depth > 3) {
            window->close();
        } else {
            tryEverything(*window);
        }
        depth = std::max(0, depth - 1);
    }

private:
    int depth = 0;
};

void tryList(TBrowseFrm &list)
{
    for (int row = 0; row < 2; ++row) {
        for (QAction *action : list.findChildren<QAction *>()) {
            const bool leaves =
                action == list.acClose || action == list.acHelp || action->objectName() == "acEscape";
            if (!leaves && action->isEnabled() && action->isVisible())
                action->trigger();
        }
        // What is switched off may still be called by its key or from the program.
        list.NewBtnClick();
        list.EditBtnClick();
        list.DelBtnClick();
    }
}

void tryEntry(const TPackageEntry &entry)
{
    if (entry.call) {
        entry.call();
        return;
    }
    const std::unique_ptr<QWidget> window(entry.create(nullptr));
    window->show();
    if (auto *list = qobject_cast<TBrowseFrm *>(window.get()))
        tryList(*list);
    else
        tryEverything(*window);
}

class ViewOnly : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        startOfWork(2026, 1, 1);
        balance(account("241"), 100, 0);
        balance(account("401"), 0, 100);
        for (const char *sql :
             {"insert into bd_org (org_pavad, org_tipas) values ('Mokykla', 0)",
              "insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_sasid, dka_sasid_2) "
              "values (1, 'A', 'B', 1, 1)",
              "insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_sasid, dka_sasid_2) "
              "values (2, 'C', 'D', 1, 1)",
              "insert into bd_prg (prg_id, prg_pavad) values (1, 'A')",
              "insert into bd_pad (pad_id, pad_pavad, pad_kodas) values (1, 'A', '1')",
              "insert into bd_atsasm values (1, 'A', '1', 1, 1)",
              "insert into bd_matasm values (1, 'A', '1', 1, 1)",
              "insert into bd_matasm values (2, 'A', '1', 1, 1)",
              "insert into bd_einsas values (1, 'A', 1, 1, 'B')",
              "insert into bd_nuomasm (nuom_id, nuom_kod, nuom_pavad) values (1, 'A', 'B')"})
            books().ExecSQL(sql);
        for (const char *sql :
             {"insert into bd_fin (fin_id, fin_pavad) values (1, 'Biudžetas')",
              "insert into bd_kdv (kdv_id, kdv_pav) values (1, 'Kasa')",
              "insert into bd_usr values (1, 'ona', 'Ona', 'Onaitė', '', 0, 1)",
              "insert into bd_usr values (2, 'ada', 'Ada', 'Adaitė', '', 1, 0)",
              "insert into bd_usrkdv values (1, 1, 1)", "insert into bd_usrkdv values (2, 1, 1)"})
            MainDatas()->mnRavl()->ExecSQL(sql);
        CurrentUser().workPlaces = 0xFFFF;
        before = everything();
    }

    QStringList everything() { return dump(*secondFin()) + dump(*secondRavl()); }

    void tryAll()
    {
        AnyWindow answers;
        for (const TPackageEntry &entry : packageEntries()) {
            SCOPED_TRACE(entry.name.toStdString());
            // What the engine refuses is told to the user, here to nobody.
            runGuarded(nullptr, [&entry] { tryEntry(entry); });
        }
    }

    QStringList before;
};
ON_BOTH_ENGINES(ViewOnly);

} // namespace

TEST_P(ViewOnly, NothingCanBeChangedAnywhere)
{
    CurrentUser().viewOnly = true;
    MainDatas()->makeReadOnly();
    tryAll();
    EXPECT_EQ(everything(), before);
}

// The users are his to keep, so that he can take the mark from himself again.
TEST_P(ViewOnly, NorInTheMainBooksByAnAdministratorWhoMayOnlyLook)
{
    CurrentUser().viewOnly = true;
    CurrentUser().userAdmin = true;
    MainDatas()->makeReadOnly();
    const QStringList mainBooks = dump(*secondFin());
    tryAll();
    EXPECT_EQ(dump(*secondFin()), mainBooks);
}

TEST_P(ViewOnly, TheSessionsThemselvesRefuseToWrite)
{
    CurrentUser().viewOnly = true;
    MainDatas()->makeReadOnly();
    EXPECT_THROW(books().ExecSQL("delete from bd_saslik"), EDatabaseError);
    EXPECT_THROW(MainDatas()->mnRavl()->ExecSQL("delete from bd_usrkdv"), EDatabaseError);
    EXPECT_THROW(books().ExecSQL("call Close_Per()"), EDatabaseError);
    EXPECT_EQ(everything(), before);
}

// The same hands without the bonds.
TEST_P(ViewOnly, AnOrdinaryUserDoesChangeTheBooks)
{
    CurrentUser().userAdmin = true;
    tryAll();
    const QStringList after = everything();
    EXPECT_NE(after, before);
    EXPECT_EQ(rows(*secondFin(), "select count(*) from bd_dbkrasm").value(0) == "2" &&
                  rows(*secondFin(), "select count(*) from bd_saslik").value(0) == "2",
              false)
        << "neither a counterparty nor a balance was deleted or carried over";
}
