#include "host/controls/list_printer.h"

#include "toolkit/text/errors.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/guard.h"

#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QSaveFile>
#include <QTemporaryDir>

#include <numeric>

using namespace Qt::StringLiterals;

namespace {
constexpr int resolution = 150;    // dots to an inch: the same lines on every printer
constexpr double cellMargin = 4;   // dots
constexpr int widestUpright = 760; // pixels of the grid that still fit a sheet upright
const QString fontFamily = u"DejaVu Sans"_s;

QFont fontOf(double points, bool bold = false)
{
    QFont font(fontFamily);
    font.setPointSizeF(points);
    font.setBold(bold);
    return font;
}

int flagsOf(TAlignment alignment)
{
    switch (alignment) {
    case TAlignment::taRightJustify:
        return Qt::AlignRight | Qt::AlignVCenter | Qt::TextWrapAnywhere;
    case TAlignment::taCenter:
        return Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWrapAnywhere;
    default:
        return Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWrapAnywhere;
    }
}

// Words go to the next line whole where they can; a word wider than the cell is broken.
int wrapped(int flags, const QFontMetricsF &metrics, const QString &text, double width)
{
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    const bool fits = std::ranges::all_of(
        words, [&](const QString &word) { return metrics.horizontalAdvance(word) <= width; });
    return fits ? (flags & ~Qt::TextWrapAnywhere) | Qt::TextWordWrap : flags;
}
} // namespace

// Where everything stands on the pages of one printer. All lengths are dots.
struct TListPrinter::Layout {
    QPrinter &printer;
    const TListContent &list;
    QStringList titles;
    QRectF page;
    std::vector<double> widths;
    QFont heading = fontOf(13, true), plain = fontOf(9), bold = fontOf(9, true), small = fontOf(8);
    double titleHeight = 0;      // of the row of column titles
    std::vector<int> pageStarts; // the first row of each page

    QFontMetricsF metrics(const QFont &font) const { return QFontMetricsF(font, &printer); }
    double footHeight() const { return metrics(small).height() * 1.8; }
    double bottom() const { return page.height() - footHeight(); }

    double headingHeight() const
    {
        const double lines =
            metrics(small).height() + metrics(plain).height() * (1.4 * double(titles.size()) + 1.2);
        return lines + metrics(heading).height() * 1.8;
    }

    double cellHeight(const QFont &font, const QString &text, size_t column) const
    {
        const QFontMetricsF measured = metrics(font);
        const double width = widths[column] - 2 * cellMargin;
        if (!text.contains(u'\n') && measured.horizontalAdvance(text) <= width)
            return measured.height() + cellMargin; // the usual case, and the quick one
        const int flags = wrapped(flagsOf(list.columns[column].alignment), measured, text, width);
        return measured.boundingRect(QRectF(0, 0, width, 1e6), flags, text).height() + cellMargin;
    }

    template<class Text> double rowHeight(const QFont &font, Text text) const
    {
        double height = metrics(font).height() + cellMargin;
        for (size_t i = 0; i < widths.size(); ++i)
            height = std::max(height, cellHeight(font, text(int(i)), i));
        return std::min(height, bottom() - titleHeight); // one row never outgrows a page
    }

    double heightOf(int row) const
    {
        return rowHeight(plain, [&](int column) { return list.text(row, column); });
    }

    void shareWidth()
    {
        const int all = std::accumulate(list.columns.begin(), list.columns.end(), 0,
                                        [](int sum, const auto &column) { return sum + column.width; });
        for (const TListContent::Column &column : list.columns)
            widths.push_back(page.width() * column.width / std::max(all, 1));
    }

    void paginate()
    {
        titleHeight = rowHeight(bold, [&](int column) { return list.columns[size_t(column)].title; });
        pageStarts.push_back(0);
        double y = headingHeight() + titleHeight;
        for (int row = 0; row < list.rows; ++row) {
            const double height = heightOf(row);
            if (y + height > bottom() && row > pageStarts.back()) {
                pageStarts.push_back(row);
                y = titleHeight;
            }
            y += height;
        }
    }

    template<class Text> void drawRow(QPainter &painter, double y, double height, Text text) const
    {
        double x = 0;
        const QFontMetricsF measured = metrics(painter.font());
        for (size_t i = 0; i < widths.size(); ++i) {
            const QRectF cell(x, y, widths[i], height);
            const QRectF inside = cell.adjusted(cellMargin, 0, -cellMargin, 0);
            const QString value = text(int(i));
            painter.drawRect(cell);
            painter.drawText(
                inside, wrapped(flagsOf(list.columns[i].alignment), measured, value, inside.width()), value);
            x += widths[i];
        }
    }

    double drawHeading(QPainter &painter) const
    {
        double y = 0;
        const auto line = [&](const QFont &font, double spacing, int flags, const QString &text) {
            painter.setFont(font);
            const double height = metrics(font).height() * spacing;
            painter.drawText(QRectF(0, y, page.width(), height), flags | Qt::AlignVCenter, text);
            y += height;
        };
        painter.setFont(small);
        painter.drawText(QRectF(0, 0, page.width(), metrics(small).height()), Qt::AlignRight,
                         FormatDateTime(u"yyyy.mm.dd"_s, TDateTime(list.date)));
        line(small, 1, Qt::AlignLeft, list.institution);
        line(heading, 1.8, Qt::AlignHCenter, list.title);
        for (const QString &title : titles)
            line(plain, 1.4, Qt::AlignHCenter, title);
        return headingHeight();
    }

    void drawFoot(QPainter &painter, size_t number) const
    {
        painter.setFont(small);
        painter.drawText(QRectF(0, bottom(), page.width(), footHeight()), Qt::AlignRight | Qt::AlignBottom,
                         u"%1 puslapis iš %2"_s.arg(number + 1).arg(pageStarts.size()));
    }

    void drawPage(QPainter &painter, size_t number) const
    {
        double y = number == 0 ? drawHeading(painter) : 0;
        const int end = number + 1 < pageStarts.size() ? pageStarts[number + 1] : list.rows;
        painter.setFont(bold);
        drawRow(painter, y, titleHeight, [&](int column) { return list.columns[size_t(column)].title; });
        y += titleHeight;
        painter.setFont(plain);
        for (int row = pageStarts[number]; row < end; ++row) {
            const double height = heightOf(row);
            drawRow(painter, y, height, [&](int column) { return list.text(row, column); });
            y += height;
        }
        drawFoot(painter, number);
    }
};

TListPrinter::TListPrinter(TListContent content) : list(std::move(content)) {}

void TListPrinter::setUp(QPrinter &printer) const
{
    const int width = std::accumulate(list.columns.begin(), list.columns.end(), 0,
                                      [](int sum, const auto &column) { return sum + column.width; });
    printer.setDocName(list.title);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(width > widestUpright ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setPageMargins(QMarginsF(15, 12, 10, 12), QPageLayout::Millimeter);
}

TListPrinter::Layout TListPrinter::layoutFor(QPrinter &printer) const
{
    Layout layout{printer, list, titles};
    layout.page = QRectF(QPointF(), printer.pageRect(QPrinter::DevicePixel).size());
    layout.shareWidth();
    layout.paginate();
    return layout;
}

int TListPrinter::pageCount(QPrinter &printer)
{
    return int(layoutFor(printer).pageStarts.size());
}

void TListPrinter::print(QPrinter &printer)
{
    const Layout layout = layoutFor(printer);
    QPainter painter;
    if (!painter.begin(&printer))
        throw Exception(u"Neįmanoma spausdinti: spausdintuvas arba failas neprieinamas"_s);
    painter.setPen(QPen(Qt::black, 1));
    for (size_t page = 0; page < layout.pageStarts.size(); ++page) {
        if (page > 0)
            printer.newPage();
        layout.drawPage(painter, page);
    }
    if (!painter.end())
        throw Exception(u"Neįmanoma baigti spausdinimo"_s);
}

void TListPrinter::toPdf(const QString &file)
{
    // The painter does not tell when the disk is full: it paints into a folder of its own, and what it made
    // is then written where a failure is seen.
    const QTemporaryDir folder;
    const QString made = folder.filePath(u"sarasas.pdf"_s);
    {
        QPrinter printer(QPrinter::ScreenResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(made);
        printer.setResolution(resolution);
        setUp(printer);
        print(printer);
    }
    QFile source(made);
    QSaveFile target(file);
    const bool copied = source.open(QIODevice::ReadOnly) && source.size() > 0 &&
                        target.open(QIODevice::WriteOnly) &&
                        target.write(source.readAll()) == source.size() && target.commit();
    if (!copied)
        throw Exception(u"Neįmanoma įrašyti failo „%1“"_s.arg(file));
}

void TListPrinter::preview(QWidget *owner)
{
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setResolution(resolution);
    setUp(printer);
    QPrintPreviewDialog dialog(&printer, owner, Qt::Window);
    dialog.setWindowTitle(list.title);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     guarded(&dialog, [this](QPrinter *on) { print(*on); }));
    dialog.exec();
}
