#pragma once

#include "host/app/catalogues/move_tree.h"
#include "host/app/catalogues/tree_frm.h"
#include "tests/host/books.h"
#include "tests/support/editor_hands.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>

// A catalogue with a tree as its user has it, on books of both engines.
template<class Form, class Dialog> class OnTreeScreen : public WithMainDatas, protected EditorHands {
protected:
    void TearDown() override
    {
        screen.reset();
        WithMainDatas::TearDown();
    }
    void open()
    {
        screen.reset(createForm<Form>(nullptr));
        screen->show();
    }

    // --- what is seen
    QStringList listed(int column = 0)
    {
        screen->dataSet()->RecordCount();
        QCoreApplication::processEvents();
        QStringList texts;
        for (int row = 0; row < screen->grid()->model()->rowCount(); ++row)
            texts << screen->grid()->model()->index(row, column).data().toString();
        return texts;
    }
    TMoveTree &tree() const { return *screen->template findChild<TMoveTree *>(); }
    // The lines of the tree from top to bottom, each indented by its level.
    QStringList branches() const
    {
        QStringList texts;
        for (QTreeWidgetItemIterator each(&tree()); *each; ++each) {
            int level = 0;
            for (auto *above = (*each)->parent(); above; above = above->parent())
                ++level;
            texts << QString(level, u' ') + (*each)->text(0);
        }
        return texts;
    }
    QTreeWidgetItem *lineOf(const QString &beginning) const
    {
        for (QTreeWidgetItemIterator each(&tree()); *each; ++each)
            if ((*each)->text(0).startsWith(beginning))
                return *each;
        ADD_FAILURE() << "no line " << qPrintable(beginning);
        return nullptr;
    }

    // --- what is done
    void choose(const QString &beginning) { tree().setCurrentItem(lineOf(beginning)); }
    void stand(double key) { screen->RefreshData(key); }
    void add(const std::function<void(Dialog &)> &user)
    {
        OnNextDialog<Dialog> dialog(user);
        screen->NewBtnClick();
    }
    void change(double key, const std::function<void(Dialog &)> &user)
    {
        stand(key);
        OnNextDialog<Dialog> dialog(user);
        screen->EditBtnClick();
    }
    // Deletes the row with the key; the texts of the boxes that come, each answered as given.
    QStringList erase(double key, std::initializer_list<QMessageBox::StandardButton> answers)
    {
        stand(key);
        NextBoxes boxes(answers);
        screen->acDelete->trigger();
        return boxes.texts();
    }
    // Drags a line of the tree onto another; the texts of the boxes that come.
    QStringList drag(const QString &line, const QString &onto,
                     std::initializer_list<QMessageBox::StandardButton> answers)
    {
        tree().expandAll();
        NextBoxes boxes(answers);
        drop(*std::unique_ptr<QMimeData>(tree().model()->mimeData({tree().indexFromItem(lineOf(line))})),
             onto);
        QCoreApplication::processEvents();
        return boxes.texts();
    }
    // Drops what is dragged onto a line; true when the tree would take it.
    bool drop(const QMimeData &data, const QString &onto)
    {
        const QPoint at = tree().visualItemRect(lineOf(onto)).center();
        QDragEnterEvent enter(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(tree().viewport(), &enter);
        QDropEvent dropped(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(tree().viewport(), &dropped);
        return enter.isAccepted();
    }

    // As somebody else's program may leave the books: references are not looked after.
    void withoutReferences(const QString &statement, const QString &constraint)
    {
        if (engine() == Engine::Sqlite)
            fin->nativeExec("pragma foreign_keys = off; " + statement + "; pragma foreign_keys = on");
        else
            fin->nativeExec("alter table " + constraint.section('.', 0, 0) + " drop constraint " +
                            constraint.section('.', 1) + "; " + statement);
    }

    std::unique_ptr<Form> screen;
};
