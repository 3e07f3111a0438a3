#pragma once

#include "tests/host/books.h"
#include "tests/support/message_box.h"
#include "toolkit/data/query.h"
#include "toolkit/widgets/dialog.h"
#include "toolkit/widgets/invalid_mark.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

// A dialog made of some rows over a set, which it edits.
class TRowDialog : public TDialog {
public:
    TRowDialog(TDataSet *set, const QList<TFieldRow> &rows)
    {
        describe(QStringLiteral("Eilutės"), rows, set);
    }
    void Load() override
    {
        dataSet()->Open();
        dataSet()->Edit();
    }
};

// A record in a dialog with real keys: run() shows it, the function does what the user does.
class WithRowDialog : public WithMainDatas {
protected:
    void edit(const QString &select)
    {
        query = std::make_unique<TQuery>(fin, select);
        query->RequestLive = true;
    }
    void TearDown() override
    {
        query.reset();
        WithMainDatas::TearDown();
    }

    bool run(const QList<TFieldRow> &rows, std::function<void()> user)
    {
        TRowDialog shown(query.get(), rows);
        dialog = &shown;
        OnNextDialog<TRowDialog> acts([&](TRowDialog &window) {
            ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
            user();
        });
        return shown.run();
    }
    template<class Control> Control *control(const QString &name) const
    {
        return dynamic_cast<Control *>(dialog->findChild<QWidget *>(name));
    }
    QLineEdit *line(const QString &name) const
    {
        return dialog->findChild<QWidget *>(name)->findChild<QLineEdit *>();
    }
    static void press(std::initializer_list<Qt::Key> keys)
    {
        for (const Qt::Key key : keys)
            QTest::keyClick(QApplication::focusWidget(), key);
    }
    static void keys(const QString &text) { typeKeys(QApplication::focusWidget(), text); }
    void cancel() { pressButton(*dialog, QStringLiteral("Atšaukti")); }
    // Presses the save button and gives the message that comes; the dialog stays open.
    QString refusal()
    {
        NextBoxes shown{QMessageBox::Ok};
        pressButton(*dialog, QStringLiteral("Išsaugoti"));
        EXPECT_TRUE(dialog->isVisible());
        dialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
        return shown.at(0).text;
    }
    TField *column(const QString &name) const { return query->FieldByName(name); }
    static bool isMarked(const QWidget *part)
    {
        const QObjectList inside = part->children();
        return std::any_of(inside.begin(), inside.end(),
                           [](QObject *child) { return dynamic_cast<TInvalidMark *>(child) != nullptr; });
    }

    std::unique_ptr<TQuery> query;
    TRowDialog *dialog = nullptr;
};
