#include "toolkit/report/layout.h"

#include "toolkit/report/painting.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

namespace {

// Rows of an account number, a name and two amounts.
class Balances : public TReportRows {
public:
    struct Row {
        QString number;
        double debit;
        double credit;
    };
    explicit Balances(std::vector<Row> list) : all(std::move(list)) {}
    int count() override { return int(all.size()); }
    QVariant value(int row, const QString &field) override
    {
        const Row &at = all[size_t(row)];
        if (field == "SAS_SASNR")
            return at.number;
        if (field == "DB")
            return at.debit;
        return field == "KR" ? QVariant(at.credit) : QVariant();
    }

private:
    std::vector<Row> all;
};

Balances manyRows(int count)
{
    std::vector<Balances::Row> list;
    list.reserve(size_t(count));
    for (int row = 0; row < count; ++row)
        list.push_back({QString::number(100 + row / 7) + "1", 0.10, 0});
    return Balances(list);
}

TReport balanceReport()
{
    TReport report;
    report.caption = "Likučiai";
    report.title = {30, {{.width = 300, .text = "Likučiai"}}};
    report.columnHeader = {20, {{.width = 100, .text = "Sąskaita"}}};
    report.detail = {14,
                     {{.width = 100, .expression = "SAS_SASNR"},
                      {.x = 200, .width = 80, .expression = "DB", .mask = "#0.00"}}};
    report.groups.push_back({"QRGroup1",
                             "COPY(SAS_SASNR,1,3)",
                             {},
                             {16,
                              {{.width = 100, .expression = "COPY(SAS_SASNR,1,3)"},
                               {.x = 200, .width = 80, .expression = "Sum(DB)", .mask = "#0.00"}}}});
    report.summary = {
        20,
        {{.width = 100, .text = "Viso"}, {.x = 200, .width = 80, .expression = "Sum(DB)", .mask = "#0.00"}}};
    report.pageFooter = {16, {{.width = 100, .expression = "PAGENUMBER + ' / ' + PAGECOUNT"}}};
    return report;
}

QStringList texts(const TReportPage &page)
{
    QStringList found;
    for (const TReportPrimitive &primitive : page)
        if (primitive.kind == TReportPrimitive::Kind::Text)
            found << primitive.text;
    return found;
}

} // namespace

TEST(ReportLayout, PrintsTheBandsInTheirOrder)
{
    const TReport report = balanceReport();
    Balances rows({{"2411", 100, 0}, {"2412", 50.5, 0}, {"4011", 0, 150.5}});
    const TReportLayout layout(report, rows);
    ASSERT_EQ(layout.pageCount(), 1);
    EXPECT_EQ(texts(layout.page(0)),
              QStringList({"Likučiai", "Sąskaita", "2411", "100.00", "2412", "50.50", "241", "150.50", "4011",
                           "0.00", "401", "0.00", "Viso", "150.50", "1 / 1"}));
}

TEST(ReportLayout, WithoutRowsOnlyTheFixedBandsStand)
{
    const TReport report = balanceReport();
    Balances rows({});
    const TReportLayout layout(report, rows);
    EXPECT_EQ(texts(layout.page(0)), QStringList({"Likučiai", "Sąskaita", "Viso", "0.00", "1 / 1"}));
}

TEST(ReportLayout, EveryRowStandsOnExactlyOnePage)
{
    const TReport report = balanceReport();
    Balances rows = manyRows(1000);
    const TReportLayout layout(report, rows);
    EXPECT_GT(layout.pageCount(), 10);
    int details = 0;
    for (int number = 0; number < layout.pageCount(); ++number) {
        const QStringList page = texts(layout.page(number));
        EXPECT_EQ(page.count("Sąskaita"), 1);
        EXPECT_EQ(page.last(), QString("%1 / %2").arg(number + 1).arg(layout.pageCount()));
        details += int(page.count("0.10"));
    }
    EXPECT_EQ(details, 1000);
    EXPECT_TRUE(texts(layout.page(layout.pageCount() - 1)).contains("100.00"));
}

TEST(ReportLayout, NothingReachesOverTheEdgeOfThePage)
{
    const TReport report = balanceReport();
    const QSizeF area = report.page.paintRect(QPageLayout::Point).size();
    Balances rows = manyRows(500);
    const TReportLayout layout(report, rows);
    for (int number = 0; number < layout.pageCount(); ++number)
        for (const TReportPrimitive &primitive : layout.page(number))
            EXPECT_TRUE(QRectF(QPointF(), area).adjusted(-1, -1, 1, 1).contains(primitive.rect.bottomRight()))
                << qPrintable(primitive.text);
}

TEST(ReportLayout, APageLaidOutAgainIsTheSame)
{
    const TReport report = balanceReport();
    Balances rows = manyRows(500);
    const TReportLayout layout(report, rows);
    const QStringList first = texts(layout.page(3));
    layout.page(7);
    EXPECT_EQ(texts(layout.page(3)), first);
}

TEST(ReportLayout, AGroupHeaderIsNotLeftAloneAtTheFoot)
{
    TReport report = balanceReport();
    report.groups[0].header = {14, {{.width = 100, .text = "Grupė"}}};
    const qreal bodyEnd = report.page.paintRect(QPageLayout::Point).height() - report.pageFooter.height;
    Balances rows = manyRows(700);
    const TReportLayout layout(report, rows);
    int kept = 0; // headers that would have stood at the foot alone
    for (int number = 0; number + 1 < layout.pageCount(); ++number) {
        const TReportPage page = layout.page(number);
        const TReportPrimitive &last = page.at(page.size() - 2);
        EXPECT_NE(last.text, "Grupė");
        const bool fits = last.rect.top() + 16 + report.groups[0].header.height <= bodyEnd;
        kept += texts(layout.page(number + 1)).at(1) == "Grupė" && fits ? 1 : 0;
    }
    EXPECT_GT(kept, 0);
}

TEST(ReportLayout, LongTextThatWrapsMakesItsBandGrow)
{
    TReport report;
    report.detail = {14, {{.width = 60, .expression = "SAS_SASNR", .wrap = true}}};
    Balances rows({{"Labai ilgas sąskaitos pavadinimas, kuris netelpa", 0, 0}, {"kita", 0, 0}});
    const TReportLayout layout(report, rows);
    const TReportPage page = layout.page(0);
    EXPECT_GT(page.at(1).rect.top(), 28);
}

TEST(ReportLayout, StopsWhenTold)
{
    const TReport report = balanceReport();
    Balances rows = manyRows(5000);
    EXPECT_THROW(TReportLayout(report, rows, [](int done) { return done < 1000; }), EAbort);
}

TEST(ReportLayout, ABandHigherThanThePageIsTold)
{
    TReport report = balanceReport();
    report.detail.height = 2000;
    Balances rows = manyRows(1);
    EXPECT_THROW(TReportLayout(report, rows), Exception);
}

TEST(ReportPainting, MarksWhatIsSearchedFor)
{
    const TReportPage page = {{TReportPrimitive::Kind::Text, QRectF(10, 10, 100, 14), "Sąskaita"}};
    const auto painted = [&page](const QString &highlight) {
        QImage image(200, 50, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        paintReportPage(painter, page, highlight);
        painter.end();
        return image;
    };
    EXPECT_NE(painted("sąsk"), painted({}));
    EXPECT_EQ(painted("debetas"), painted({}));
}

TEST(ReportPainting, WritesAPdfWithAllPages)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("likuciai.pdf");
    const TReport report = balanceReport();
    Balances rows = manyRows(300);
    const TReportLayout layout(report, rows);
    writeReportPdf(report, layout, file);
    QFile pdf(file);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    const QByteArray content = pdf.readAll();
    EXPECT_TRUE(content.startsWith("%PDF"));
    EXPECT_TRUE(content.contains("/Count " + QByteArray::number(layout.pageCount())));
}

TEST(ReportPainting, AStoppedPdfLeavesNoFile)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("likuciai.pdf");
    const TReport report = balanceReport();
    Balances rows = manyRows(300);
    const TReportLayout layout(report, rows);
    EXPECT_THROW(writeReportPdf(report, layout, file, [](int) { return false; }), EAbort);
    EXPECT_FALSE(QFile::exists(file));
}

TEST(ReportPainting, AFolderThatCannotBeWrittenIsTold)
{
    const TReport report = balanceReport();
    Balances rows = manyRows(1);
    const TReportLayout layout(report, rows);
    EXPECT_THROW(writeReportPdf(report, layout, "/nera/tokio/aplanko/likuciai.pdf"), Exception);
}
