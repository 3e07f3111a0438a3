#include "host/common/settings_store.h"
#include "toolkit/widgets/db_grid.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {
class SettingsStore : public testing::Test {
protected:
    void SetUp() override { settingsStore().clear(); }

    QString path() const { return FormsPath(); }
    void keep(const QString &key, const QVariant &value)
    {
        settingsStore().setValue(path().replace(u'\\', u'/') + u"/Frm/"_s + key, value);
    }
};

// A window with a grid of three columns.
struct Window : QWidget {
    Window()
    {
        grid.setObjectName(u"DBGrid"_s);
        grid.setColumns({{.field = u"kodas"_s, .title = u"Kodas"_s, .width = 50},
                         {.field = u"pavad"_s, .title = u"Pavadinimas"_s, .width = 90},
                         {.field = u"suma"_s, .title = u"Suma"_s, .width = 70}});
        grid.setGeometry(0, 0, 300, 200);
    }
    TDBGrid grid{this};
};
} // namespace

TEST_F(SettingsStore, PlacementComesBack)
{
    QWidget saved;
    saved.setGeometry(40, 50, 320, 240);
    SaveToReg(&saved, path(), u"Frm"_s, false);
    QWidget opened;
    EXPECT_TRUE(ReadFromReg(&opened, path(), u"Frm"_s));
    EXPECT_EQ(opened.geometry(), QRect(40, 50, 320, 240));
}

TEST_F(SettingsStore, NothingKeptLeavesTheWindowAlone)
{
    QWidget window;
    window.setGeometry(10, 20, 300, 200);
    EXPECT_FALSE(ReadFromReg(&window, path(), u"Frm"_s));
    EXPECT_EQ(window.geometry(), QRect(10, 20, 300, 200));
}

TEST_F(SettingsStore, DamagedPlacementLeavesTheWindowAlone)
{
    keep(u"Geometry"_s, QByteArray("damaged"));
    QWidget window;
    window.setGeometry(10, 20, 300, 200);
    EXPECT_FALSE(ReadFromReg(&window, path(), u"Frm"_s));
    EXPECT_EQ(window.geometry(), QRect(10, 20, 300, 200));
}

TEST_F(SettingsStore, DamagedPlacementLeavesAnInnerWindowAlone)
{
    const QList<QVariantMap> damages = {
        {{u"Left"_s, 1}, {u"Top"_s, 1}, {u"Width"_s, 100}},
        {{u"Left"_s, 1}, {u"Top"_s, 1}, {u"Width"_s, 100}, {u"Height"_s, u"1x0"_s}},
        {{u"Left"_s, 1}, {u"Top"_s, 1}, {u"Width"_s, -5}, {u"Height"_s, 100}},
        {{u"Left"_s, 1}, {u"Top"_s, 1}, {u"Width"_s, 1000000}, {u"Height"_s, 100}},
        {{u"Left"_s, u"99999999999999"_s}, {u"Top"_s, 1}, {u"Width"_s, 100}, {u"Height"_s, 100}},
    };
    for (const QVariantMap &damage : damages) {
        settingsStore().clear();
        for (const auto &[key, value] : damage.asKeyValueRange())
            keep(key, value);
        QWidget around;
        QWidget window(&around);
        window.setGeometry(10, 20, 300, 200);
        EXPECT_FALSE(ReadFromReg(&window, path(), u"Frm"_s));
        EXPECT_EQ(window.geometry(), QRect(10, 20, 300, 200));
    }
}

TEST_F(SettingsStore, AnInnerWindowComesBackInsideTheOneAroundIt)
{
    QWidget wide;
    wide.resize(1000, 800);
    QWidget saved(&wide);
    saved.setGeometry(600, 500, 300, 200);
    SaveToReg(&saved, path(), u"Frm"_s, false);
    QWidget narrow;
    narrow.resize(640, 480);
    QWidget opened(&narrow);
    EXPECT_TRUE(ReadFromReg(&opened, path(), u"Frm"_s));
    EXPECT_EQ(opened.geometry(), QRect(340, 280, 300, 200));
}

TEST_F(SettingsStore, AMaximisedWindowComesBackMaximisedAndReturnsToItsPlace)
{
    QMdiArea area;
    area.resize(900, 700);
    area.show();
    const auto open = [&area] {
        QMdiSubWindow *window = area.addSubWindow(new QWidget);
        window->show();
        return window;
    };
    QMdiSubWindow *first = open();
    first->setGeometry(30, 40, 400, 300);
    SaveToReg(first, path(), u"Frm"_s, false);
    first->showMaximized();
    SaveToReg(first, path(), u"Frm"_s, false);
    delete first;

    QMdiSubWindow *second = open();
    EXPECT_TRUE(ReadFromReg(second, path(), u"Frm"_s));
    EXPECT_TRUE(second->isMaximized());
    second->showNormal();
    EXPECT_EQ(second->geometry(), QRect(30, 40, 400, 300));
}

TEST_F(SettingsStore, PlacementOutsideEveryScreenComesBackOntoOne)
{
    QWidget saved;
    saved.setGeometry(9000, 8000, 320, 240);
    SaveToReg(&saved, path(), u"Frm"_s, false);
    QWidget opened;
    EXPECT_TRUE(ReadFromReg(&opened, path(), u"Frm"_s));
    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(opened.geometry()));
    EXPECT_EQ(opened.size(), QSize(320, 240));
}

TEST_F(SettingsStore, ColumnWidthsComeBackWhenAskedFor)
{
    Window saved;
    saved.grid.setColumnWidth(1, 177);
    SaveToReg(&saved, path(), u"Frm"_s, false);
    Window without;
    ReadFromReg(&without, path(), u"Frm"_s);
    EXPECT_NE(without.grid.columnWidth(1), 177);
    SaveToReg(&saved, path(), u"Frm"_s, true);
    Window with;
    ReadFromReg(&with, path(), u"Frm"_s);
    EXPECT_EQ(with.grid.columnWidth(1), 177);
}

TEST_F(SettingsStore, WidthsOfOtherColumnsOrDamagedOnesAreLeftOut)
{
    Window other;
    other.grid.setColumns({{.field = u"kodas"_s, .width = 50}, {.field = u"pavad"_s, .width = 60}});
    other.grid.setColumnWidth(0, 177);
    const QByteArray damaged = QByteArray(other.grid.arrangement()).replace(0, 4, "\x7f\xff\xff\xff");
    for (const QVariant &kept : {QVariant(other.grid.arrangement()), QVariant(damaged),
                                 QVariant(QStringList{u"177"_s, u"60"_s, u"70"_s})}) {
        Window window;
        keep(u"Columns_DBGrid"_s, kept);
        ReadFromReg(&window, path(), u"Frm"_s);
        EXPECT_EQ(window.grid.columnWidth(0), 50);
    }
}

TEST_F(SettingsStore, DamagedFileIsNotWrittenOver)
{
    settingsStore().setValue(u"a/b"_s, 1);
    settingsStore().sync();
    const QString file = settingsStore().fileName();
    ASSERT_TRUE(CanSave());
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("[broken\nthis is no setting\n");
    damaged.close();
    settingsStore().sync();
    EXPECT_FALSE(CanSave());
    QWidget window;
    SaveToReg(&window, path(), u"Frm"_s, true);
    settingsStore().sync();
    ASSERT_TRUE(damaged.open(QIODevice::ReadOnly));
    EXPECT_EQ(damaged.readAll(), "[broken\nthis is no setting\n");
    damaged.close();
    QFile::remove(file);
}
