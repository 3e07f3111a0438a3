#include "host/controls/list_printer.h"
#include "tests/host/controls/bankai_fixture.h"
#include "tests/support/files.h"

#include <QPrintPreviewDialog>
#include <QPrinter>

namespace {
TListContent content(int rows, const QString &cell = u"Šiaulių bankas"_s)
{
    TListContent list;
    list.title = u"Bankai"_s;
    list.institution = u"Vilniaus lopšelis-darželis „Žiogelis“"_s;
    list.date = QDate(2005, 3, 31);
    list.columns = {{u"Kodas"_s, 80, TAlignment::taRightJustify}, {u"Pavadinimas"_s, 300}};
    list.rows = rows;
    list.text = [cell](int row, int column) { return column == 0 ? QString::number(row) : cell; };
    return list;
}

int pages(const TListContent &list)
{
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setResolution(150);
    return TListPrinter(list).pageCount(printer);
}

class BrowsePrint : public Bankai {};
ON_BOTH_ENGINES(BrowsePrint);
} // namespace

TEST(ListPrinter, BreaksPagesAndLosesNoRow)
{
    EXPECT_EQ(pages(content(1)), 1);
    EXPECT_EQ(pages(content(30)), 1);
    const int thousand = pages(content(1000));
    EXPECT_GT(thousand, 10);
    EXPECT_LT(thousand, 40);
}

TEST(ListPrinter, ALongTextTakesMoreLinesInsteadOfBeingCutOff)
{
    EXPECT_GT(pages(content(40, u"Ilgas pavadinimas, kuris netelpa į vieną eilutę, "_s.repeated(6))),
              pages(content(40)));
    EXPECT_GT(pages(content(40, QString(600, u'W'))), pages(content(40)));
}

TEST(ListPrinter, WritesAPdf)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"sąrašas.pdf"_s);
    TListPrinter(content(200)).toPdf(file);
    EXPECT_TRUE(contentOf(file).startsWith("%PDF"));
    EXPECT_GT(contentOf(file).size(), 5000);
}

TEST(ListPrinter, AFileThatCannotBeWrittenIsToldAndLeavesNothing)
{
    const QTemporaryDir folder;
    EXPECT_THROW(TListPrinter(content(2)).toPdf(folder.filePath(u"nera/sarasas.pdf"_s)), Exception);
}

TEST_P(BrowsePrint, AnEmptyListIsRefused)
{
    fin->ExecSQL(u"delete from bd_bankai"_s);
    open();
    NextBoxes boxes{QMessageBox::Ok};
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(boxes.at(0).text, u"Nėra duomenu!"_s);
}

TEST_P(BrowsePrint, TheListIsPreviewedAsItIsShown)
{
    struct Opened : TBankaiFrm {
        using TBankaiFrm::TBankaiFrm;
        void BeforePrint(TListPrinter &printer) override
        {
            TBankaiFrm::BeforePrint(printer);
            printer.addTitle(u"2003.12.31"_s);
            printed = printer.content().rows;
            first = printer.content().text(0, 2);
            titles = printer.content().columns.size();
        }
        int printed = 0;
        size_t titles = 0;
        QString first;
    };
    auto *screen = createForm<Opened>(nullptr);
    frm = screen;
    frm->show();
    OnNextDialog<QPrintPreviewDialog> preview([](QPrintPreviewDialog &dialog) {
        QTest::qWait(50);
        dialog.close();
    });
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(screen->printed, 3);
    EXPECT_EQ(screen->titles, 4u);
    EXPECT_EQ(screen->first, u"Ąžuolo kreditas"_s);
}

TEST_P(BrowsePrint, AListThatIsNotPrintableHidesTheAction)
{
    open();
    frm->SetPrintable(false);
    EXPECT_FALSE(frm->acPrint->isVisible());
}
