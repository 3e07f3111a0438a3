#pragma once

#include "tests/support/message_box.h"
#include "toolkit/data/query.h"
#include "toolkit/text/format.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

// A small set of books and a live data set over it, for controls in a window of their own.
class InWindow : public testing::Test {
protected:
    void SetUp() override
    {
        FormatSettings().DecimalSeparator = u'.';
        db = std::make_unique<TDatabase>(TSessionSettings{
            .alias = u"mnFin_Db"_s, .engine = Engine::Sqlite, .file = folder.filePath(u"fin.db"_s)});
        db->Open();
        db->nativeExec(uR"(
            create table prekes (pre_id integer primary key, pre_kodas varchar(5), pre_pavad varchar(20) not null,
                                 pre_suma numeric(15,4), pre_data date, pre_tip varchar(1), pre_grpid integer,
                                 pre_zenklas blob);
            create table grupes (grp_id integer primary key, grp_pavad varchar(30));
            insert into grupes values (1, 'Maistas'), (2, 'Kuras'), (3, 'Žaliavos');
            insert into prekes values (1, 'AB1', 'Agurkai', 12.5, '2005-06-07', '1', 2, null),
                                      (2, 'CD2', 'Bulvės', 0.0051, null, '0', null, null),
                                      (3, null, 'Čiobreliai', null, '2004-02-29', null, 3, null);)"_s);
        db->forgetCatalogue();
        set = std::make_unique<TQuery>(db.get(), u"select * from prekes order by pre_id"_s);
        set->RequestLive = true;
        set->describe(u"pre_pavad"_s, [](TField &field) { field.DisplayLabel = u"Pavadinimas"_s; });
        set->describe(u"pre_suma"_s, [](TField &field) {
            field.DisplayLabel = u"Suma"_s;
            field.DisplayFormat = u"0.00"_s;
        });
        set->Open();
    }

    void TearDown() override
    {
        window.reset();
        set.reset();
        db.reset();
        FormatSettings() = kept;
    }

    // Adds a control to the window.
    template<typename T, typename... Args> T *add(Args &&...args)
    {
        auto *control = new T(std::forward<Args>(args)...);
        window->layout()->addWidget(control);
        return control;
    }

    // Shows the window; the given control has the focus then.
    void show(QWidget *focus = nullptr)
    {
        window->show();
        QApplication::setActiveWindow(window.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        if (focus)
            focus->setFocus();
    }

    QString stored(const QString &column, int id = 1)
    {
        return db->fieldResult(u"select %1 from prekes where pre_id = %2"_s.arg(column).arg(id)).toString();
    }

    static std::unique_ptr<QWidget> makeWindow()
    {
        auto made = std::make_unique<QWidget>();
        new QVBoxLayout(made.get());
        return made;
    }

    QTemporaryDir folder;
    std::unique_ptr<TDatabase> db;
    std::unique_ptr<TQuery> set;
    std::unique_ptr<QWidget> window = makeWindow();

private:
    TFormatSettings kept = FormatSettings();
};

// Types any text, letter by letter, as a keyboard with a Lithuanian layout does.
inline void typeLetters(QWidget *control, const QString &text)
{
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, control, Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

// Goes to a control and types over what stands in it.
inline void typeOver(QWidget *control, const QString &text)
{
    control->setFocus();
    QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(control, Qt::Key_Delete);
    typeLetters(control, text);
}

inline std::string str(const QString &text)
{
    return text.toStdString();
}
