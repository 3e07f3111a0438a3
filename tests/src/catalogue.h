#pragma once

#include "host/data/sas_edit.h"
#include "tests/src/open_books.h"
#include "tests/support/editor_hands.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>

// A catalogue as its user has it: the list, and the editor that opens from it, both named by their exported
// globals.
template<auto &listGlobal, auto &dialogGlobal> class OnCatalogue : public OnOpenBooks, protected EditorHands {
protected:
    using List = std::remove_pointer_t<std::remove_reference_t<decltype(listGlobal)>>;
    using Dialog = std::remove_pointer_t<std::remove_reference_t<decltype(dialogGlobal)>>;
    using User = std::function<void(Dialog &)>;

    void TearDown() override
    {
        close();
        OnOpenBooks::TearDown();
    }
    void open()
    {
        list = createForm<List>(nullptr);
        list->show();
        EXPECT_EQ(listGlobal, list);
    }
    void close()
    {
        if (list)
            list->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(listGlobal, nullptr);
        EXPECT_EQ(dialogGlobal, nullptr);
    }

    // --- the list
    // What a column shows, from top to bottom.
    QStringList shown(int column)
    {
        list->dataSet()->RecordCount();
        QCoreApplication::processEvents();
        QStringList texts;
        for (int row = 0; row < list->grid()->model()->rowCount(); ++row)
            texts << list->grid()->model()->index(row, column).data().toString();
        return texts;
    }
    QStringList titles()
    {
        QStringList texts;
        for (int column = 0; column < list->grid()->model()->columnCount(); ++column)
            texts << list->grid()->model()->headerData(column, Qt::Horizontal).toString();
        return texts;
    }
    int key() const { return list->currentKey().toInt(); }
    void add(User user)
    {
        OnNextDialog<Dialog> dialog(exported(std::move(user)));
        list->NewBtnClick();
    }
    void change(const Variant &row, User user)
    {
        list->RefreshData(row);
        OnNextDialog<Dialog> dialog(exported(std::move(user)));
        list->EditBtnClick();
    }
    // Answers the question with yes; the texts of all boxes that come.
    QStringList erase(const Variant &row,
                      std::initializer_list<QMessageBox::StandardButton> answers = {QMessageBox::Yes})
    {
        list->RefreshData(row);
        NextBoxes boxes(answers);
        list->acDelete->trigger();
        return boxes.texts();
    }

    // --- the editor
    static User exported(User user)
    {
        return [user = std::move(user)](Dialog &dialog) {
            EXPECT_EQ(dialogGlobal, &dialog);
            user(dialog);
        };
    }
    static QComboBox *box(QWidget &dialog, const char *column)
    {
        return dialog.findChild<QComboBox *>(column);
    }
    static TSasEdit *picker(QWidget &dialog, const char *column)
    {
        return dialog.findChild<TSasEdit *>(column);
    }
    static QStringList items(QWidget &dialog, const char *column)
    {
        QStringList texts;
        for (int item = 0; item < box(dialog, column)->count(); ++item)
            texts << box(dialog, column)->itemText(item);
        return texts;
    }
    static void choose(QWidget &dialog, const char *column, const QString &item)
    {
        QComboBox *list = box(dialog, column);
        list->setFocus();
        list->setCurrentIndex(list->findText(item));
        emit list->activated(list->currentIndex());
    }
    static void paste(QLineEdit *line, const QString &text)
    {
        QApplication::clipboard()->setText(text);
        line->selectAll();
        line->paste();
    }
    static QPushButton *saver(QWidget &dialog) { return dialog.findChild<QPushButton *>("Išsaugoti"); }

    // --- the other station
    // Runs once, inside the save, when the key of the new row is drawn.
    void whenKeyIsDrawn(QWidget &dialog, const char *keyColumn, std::function<void()> happens)
    {
        auto *own = dialog.findChild<TQuery *>();
        (own ? own : list->dataSet())->describe(keyColumn, [happens](TField &drawn) {
            drawn.OnChange = [happens, done = false](TField &) mutable {
                if (!std::exchange(done, true))
                    happens();
            };
        });
    }
    // Adds what the user fills in, while another station takes the key by its own statement. An embedded
    // database lets the other wait for the save; a server refuses who comes second, in these words, and the
    // user saves again.
    void addWhileItsKeyIsTaken(const char *keyColumn, const QString &theirs, const QString &words, User fill)
    {
        const bool isServer = engine() == Engine::PostgreSql;
        add([&](Dialog &dialog) {
            fill(dialog);
            bool taken = false;
            whenKeyIsDrawn(dialog, keyColumn, [&] {
                taken = elsewhere([&theirs](TDatabase &station) { station.ExecSQL(theirs); });
            });
            if (isServer) {
                EXPECT_EQ(refusal(dialog), words);
            }
            save(dialog);
            EXPECT_EQ(taken, isServer);
        });
    }
    // Whether another station could write just now; it does not wait.
    bool elsewhere(const std::function<void(TDatabase &)> &write)
    {
        TSessionSettings settings = finSettings();
        settings.busyTimeoutMs = 50;
        try {
            write(*OnBothEngines::open(settings));
            return true;
        } catch (const EDatabaseBusy &) {
            return false;
        }
    }

    QPointer<List> list;
};
