#include "toolkit/report/preview.h"

#include "tests/support/files.h"
#include "tests/support/message_box.h"
#include "toolkit/report/painting.h"
#include "toolkit/widgets/dialog.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QScreen>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

namespace {

// Rows that say their number; slow ones take a while each.
class Numbers : public TReportRows {
public:
    explicit Numbers(int howMany, int msEach = 0) : number(howMany), pause(msEach) {}
    int count() override { return number; }
    QVariant value(int row, const QString &) override
    {
        QThread::msleep(pause);
        return QString("Eilutė %1").arg(row + 1);
    }

private:
    int number;
    unsigned long pause;
};

TReport numbered()
{
    TReport report;
    report.caption = "Eilutės";
    report.detail = {14, {{.width = 200, .expression = "N", .wrap = true}}};
    return report;
}

class Preview : public testing::Test {
protected:
    TReportPreview &open(int rows)
    {
        preview = std::make_unique<TReportPreview>(numbered(), std::make_unique<Numbers>(rows), nullptr);
        preview->show();
        preview->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(preview.get()));
        return *preview;
    }
    void key(Qt::Key key, Qt::KeyboardModifiers held = {})
    {
        preview->view()->setFocus();
        QTest::keyClick(preview->view(), key, held);
    }
    int page() const { return preview->view()->currentPage(); }

    std::unique_ptr<TReportPreview> preview;
};

} // namespace

TEST_F(Preview, AWideReportStandsOnASmallScreenWhole)
{
    TReport report = numbered();
    report.page.setOrientation(QPageLayout::Landscape);
    TReportPreview wide(report, std::make_unique<Numbers>(1), nullptr);
    wide.show();
    const QRect screen = wide.screen()->availableGeometry();
    ASSERT_LT(screen.width(), 1000) << "a control: the window would like to be wider";
    EXPECT_TRUE(screen.contains(wide.geometry()));
}

TEST_F(Preview, NamesTheReportAndCountsItsPages)
{
    open(500);
    EXPECT_EQ(preview->windowTitle(), "Eilutės – peržiūra");
    EXPECT_EQ(preview->findChild<QSpinBox *>()->text(), "1 iš 10");
}

TEST_F(Preview, EveryToolHasAPictureAHintAndAKey)
{
    open(1);
    int tools = 0;
    for (const QAction *action : preview->findChildren<QAction *>()) {
        if (action->text().isEmpty())
            continue;
        ++tools;
        EXPECT_FALSE(action->icon().isNull()) << qPrintable(action->text());
        EXPECT_FALSE(action->shortcut().isEmpty()) << qPrintable(action->text());
        EXPECT_TRUE(action->toolTip().contains(action->shortcut().toString(QKeySequence::NativeText)));
    }
    EXPECT_GE(tools, 12);
}

TEST_F(Preview, KeysAndThePageNumberMoveThroughThePages)
{
    open(500);
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(page(), 9);
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(page(), 8);
    key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(page(), 0);
    key(Qt::Key_G, Qt::ControlModifier);
    auto *number = preview->findChild<QSpinBox *>();
    EXPECT_TRUE(number->hasFocus());
    QTest::keyClicks(number, "4");
    QTest::keyClick(number, Qt::Key_Return);
    EXPECT_EQ(page(), 3);
}

TEST_F(Preview, ZoomsByKeysAndFitsTheWindow)
{
    open(5);
    const qreal before = preview->view()->zoom();
    key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(preview->view()->zoom(), before);
    key(Qt::Key_9, Qt::ControlModifier);
    const qreal whole = preview->view()->zoom();
    key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_GT(preview->view()->zoom(), whole);
    for (int step = 0; step < 30; ++step)
        key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(preview->view()->zoom(), 0.25);
}

TEST_F(Preview, SearchGoesFromPageToPageAndSaysWhenThereIsNothing)
{
    open(500);
    key(Qt::Key_F, Qt::ControlModifier);
    auto *find = preview->findChild<QLineEdit *>("FindEdit");
    ASSERT_TRUE(find->hasFocus());
    find->setText("eilutė 499");
    QTest::keyClick(find, Qt::Key_Return);
    EXPECT_EQ(page(), 9);
    auto *found = preview->findChild<QLabel *>("FoundLabel");
    EXPECT_EQ(found->text(), "");
    find->setText("Eilutė 999");
    key(Qt::Key_F3);
    EXPECT_EQ(found->text(), " Nerasta: Eilutė 999");
}

TEST_F(Preview, EscapeEndsTheModalPreview)
{
    TReportPreview shown(numbered(), std::make_unique<Numbers>(5), nullptr);
    OnNextDialog<TReportPreview> user([](TReportPreview &window) {
        EXPECT_TRUE(QTest::qWaitFor([&window] { return window.view()->hasFocus(); }));
        QTest::keyClick(window.view(), Qt::Key_Escape);
    });
    shown.ShowModal();
    EXPECT_FALSE(shown.isVisible());
}

TEST_F(Preview, EscapeClosesItFromTheSearchAndThePageNumberToo)
{
    for (const char *edit : {"FindEdit", "PageEdit"}) {
        open(5);
        auto *focused = preview->findChild<QWidget *>(edit);
        focused->setFocus();
        QTest::keyClick(focused, Qt::Key_Escape);
        EXPECT_FALSE(preview->isVisible()) << edit;
    }
}

TEST_F(Preview, F1ShowsItsHelp)
{
    int topic = 0;
    TDialog::setHelpDisplay([&topic](int asked) { topic = asked; });
    open(1);
    key(Qt::Key_F1);
    TDialog::setHelpDisplay({});
    EXPECT_EQ(topic, 90);
    EXPECT_TRUE(QFile::exists(sourceFolder() + "/docs/help/90.md"));
}

TEST_F(Preview, AFileIsCalledAfterTheReportAndItsPeriodOrDay)
{
    TReport report = numbered();
    report.caption = "Pajamos/išlaidos";
    report.date = QDate(2007, 1, 2);
    const auto named = [](const TReport &shown) {
        return TReportPreview(shown, std::make_unique<Numbers>(1), nullptr).fileName();
    };
    EXPECT_EQ(named(report), "Pajamos-išlaidos 2007.01.02");
    report.period = "2006 m. gruodis";
    EXPECT_EQ(named(report), "Pajamos-išlaidos 2006 m. gruodis");
    preview = std::make_unique<TReportPreview>(report, std::make_unique<Numbers>(1), nullptr);
    preview->show();
    preview->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(preview.get()));
    OnNextDialog<QFileDialog> files([](QFileDialog &dialog) {
        EXPECT_EQ(QFileInfo(dialog.selectedFiles().value(0)).fileName(),
                  "Pajamos-išlaidos 2006 m. gruodis.pdf");
        dialog.reject();
    });
    key(Qt::Key_S, Qt::ControlModifier);
}

TEST_F(Preview, EscapeStopsALongPreparation)
{
    OnNextDialog<QProgressDialog> progress([](QProgressDialog &shown) {
        EXPECT_EQ(shown.labelText(), "Ruošiama ataskaita…");
        EXPECT_TRUE(QTest::qWaitFor([&shown] { return shown.isActiveWindow(); }));
        QTest::keyClick(&shown, Qt::Key_Escape);
    });
    EXPECT_THROW(TReportPreview(numbered(), std::make_unique<Numbers>(10'000, 1), nullptr), EAbort);
}

TEST(ReportPdf, IsWrittenWholeOrNotAtAll)
{
    const QTemporaryDir folder;
    Numbers rows(200);
    const TReport report = numbered();
    const TReportLayout layout(report, rows);
    const QString file = folder.filePath("sąrašas.pdf");
    EXPECT_THROW(writeReportPdf(report, layout, file, [](int pages) { return pages < 2; }), EAbort);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList());
    writeReportPdf(report, layout, file);
    EXPECT_TRUE(contentOf(file).startsWith("%PDF"));
    EXPECT_THROW(writeReportPdf(report, layout, folder.filePath("nera/sarasas.pdf")), Exception);
}
