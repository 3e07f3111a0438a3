#pragma once

#include "src/users/Confpas.h"
#include "src/users/Usersch.h"
#include "src/users/Userslist.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"

#include <QCheckBox>
#include <QDrag>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <QDropEvent>

using Confpas::TConfPassFrm;
using Usersch::Add_ChUser;
using Usersch::TEditUserDlg;
using Userslist::TUsersFrm;

// Two financing sources, four work places, and an administrator who sees all sixteen.
class Users : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        for (const char *values : {"1, 'Biudžetas'", "2, 'Fondas'"})
            budget().ExecSQL(QString("insert into bd_fin (fin_id, fin_pavad) values (%1)").arg(values));
        for (const char *values : {"1, 'Buhalterija'", "2, 'Kasa'", "3, 'Sandėlis'", "4, 'Virtuvė'"})
            budget().ExecSQL(QString("insert into bd_kdv (kdv_id, kdv_pav) values (%1)").arg(values));
        CurrentUser().workPlaces = 0xFFFF;
        CurrentUser().userAdmin = true;
    }

    static TDatabase &budget() { return *MainDatas()->mnRavl(); }

    static void user(int id, const QString &login, bool isAdmin, int workPlaces = 1)
    {
        budget().ExecSQL("insert into bd_usr values (:id, :name, 'Ona', 'Onaitė', 'slapta', 0, :adm)",
                         {{"id", id}, {"name", login}, {"adm", isAdmin ? 1 : 0}});
        if (workPlaces > 0)
            budget().ExecSQL("insert into bd_usrkdv values (:id, 1, :kdv)",
                             {{"id", id}, {"kdv", workPlaces}});
    }

    // --- what the user does
    static bool add(int id, std::function<void(TEditUserDlg &)> hands)
    {
        OnNextDialog<TEditUserDlg> dialog(std::move(hands));
        return Add_ChUser(false, id);
    }
    static bool change(int id, std::function<void(TEditUserDlg &)> hands)
    {
        OnNextDialog<TEditUserDlg> dialog(std::move(hands));
        return Add_ChUser(true, id);
    }
    static void fill(TEditUserDlg &dialog, const QString &login)
    {
        type(dialog.LogNameEdit, login);
        type(dialog.NameEdit, "Jonas");
        type(dialog.PavardeEdit, "Jonaitis");
    }
    // Ticks work places by their ids.
    static void tick(TEditUserDlg &dialog, std::initializer_list<int> workPlaces)
    {
        for (const int id : workPlaces) {
            QListWidgetItem *item =
                dialog.KDVCheckList->item(IndexOfObject(dialog.KDVCheckList->model(), id));
            dialog.KDVCheckList->setCurrentItem(item);
            QTest::keyClick(dialog.KDVCheckList, Qt::Key_Space);
        }
    }
    // Drags what is selected in a list onto the tree.
    static void drag(TRightsList *list, TRightsTree *tree, QTreeWidgetItem *onto = nullptr)
    {
        const std::unique_ptr<QMimeData> dragged(
            list->model()->mimeData({list->model()->index(std::max(list->currentRow(), 0), 0)}));
        const QPoint at =
            onto ? tree->visualItemRect(onto).center() : QPoint(5, tree->viewport()->height() - 3);
        dropOnto(tree, at, dragged.get());
    }
    static void dropOnto(TRightsTree *tree, QPoint at, const QMimeData *dragged)
    {
        QDragEnterEvent enter(at, Qt::CopyAction, dragged, Qt::LeftButton, {});
        QApplication::sendEvent(tree->viewport(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(at, Qt::CopyAction, dragged, Qt::LeftButton, {});
        QApplication::sendEvent(tree->viewport(), &drop);
    }
    // The same with the mouse: pressed on an item and moved on. What is picked up that way is dropped by
    // hand, since not every platform of the tests has a pointer to drag with.
    static void dragByMouse(TRightsList *list, int row, TRightsTree *tree, QPoint at)
    {
        const QPoint from = list->visualItemRect(list->item(row)).center();
        QTest::mousePress(list->viewport(), Qt::LeftButton, {}, from);
        QTimer::singleShot(0, tree,
                           [] { QDrag::cancel(); }); // where there is one, the drag waits for the mouse
        for (int step = 1; step <= 3; ++step)
            moveHeld(list->viewport(), from + QPoint(step * QApplication::startDragDistance(), 0));
        const auto *begun = list->findChild<QDrag *>();
        ASSERT_TRUE(begun);
        dropOnto(tree, at, begun->mimeData());
        QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, from);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static void moveHeld(QWidget *widget, QPoint at)
    {
        QMouseEvent move(QEvent::MouseMove, at, widget->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(widget, &move);
    }
    static void selectSources(TEditUserDlg &dialog, std::initializer_list<int> rows)
    {
        dialog.FinList->clearSelection();
        for (const int row : rows)
            dialog.FinList->item(row)->setSelected(true);
    }
    // One right: the first source with work place 1.
    static void giveRight(TEditUserDlg &dialog)
    {
        tick(dialog, {1});
        selectSources(dialog, {0});
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
    }
    // The database refuses this write of rights, or allows it again.
    void refuseRights(const QString &write, const QString &condition)
    {
        budget().nativeExec(engine() == Engine::Sqlite
                                ? QString("create trigger t_fail before %1 on bd_usrkdv when %2 begin "
                                          "select raise(abort, 'sugadinta tyčia'); end")
                                      .arg(write, condition)
                                : QString("create function f_fail() returns trigger language plpgsql as "
                                          "$$ begin raise exception 'sugadinta tyčia'; end $$;"
                                          "create trigger t_fail before %1 on bd_usrkdv for each row "
                                          "when (%2) execute function f_fail()")
                                      .arg(write, condition));
    }
    void allowRights()
    {
        budget().nativeExec(engine() == Engine::Sqlite ? "drop trigger t_fail"
                                                       : "drop trigger t_fail on bd_usrkdv");
    }

    static QString refusal(QWidget &dialog)
    {
        NextBoxes shown{QMessageBox::Ok};
        pressButton(dialog, "Iš&saugoti");
        EXPECT_TRUE(dialog.isVisible());
        return shown.at(0).text;
    }

    // The tree as text: "Biudžetas=5(Buhalterija,Sandėlis)".
    static QString tree(const TEditUserDlg &dialog)
    {
        QStringList nodes;
        for (int i = 0; i < dialog.RightsTree->topLevelItemCount(); ++i) {
            const QTreeWidgetItem *node = dialog.RightsTree->topLevelItem(i);
            QStringList places;
            for (int child = 0; child < node->childCount(); ++child)
                places << node->child(child)->text(0);
            nodes << QString("%1=%2(%3)")
                         .arg(node->text(0))
                         .arg(TRightsTree::valueOf(node))
                         .arg(places.join(","));
        }
        return nodes.join(" ");
    }
    static QStringList storedUsers()
    {
        return rows(budget(), "select usr_id, usr_name, usr_vardas, usr_pavarde, usr_pasw, usr_perziurai, "
                              "usr_user_admin from bd_usr order by usr_id");
    }
    static QStringList storedRights()
    {
        return rows(budget(),
                    "select udv_usrid, udv_finid, udv_kdv from bd_usrkdv order by udv_usrid, udv_finid");
    }
};
