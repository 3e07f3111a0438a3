#include "toolkit/report/painting.h"

#include "toolkit/report/text_metrics.h"

#include <QFile>
#include <QFileInfo>
#include <QPdfWriter>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int pdfResolution = 1200;
constexpr qreal pointsPerInch = 72;

void paintText(QPainter &painter, const TReportPrimitive &text, const QString &highlight)
{
    if (!highlight.isEmpty() && text.text.contains(highlight, Qt::CaseInsensitive))
        painter.fillRect(text.rect, QColor(0xff, 0xf1, 0x76));
    painter.setFont(reportFont(text.fontSize, text.bold));
    painter.save();
    painter.setClipRect(text.rect, Qt::IntersectClip);
    const int breaks = text.wrap ? wrapFlags(text.text, text.rect.width(), text.fontSize, text.bold)
                                 : int(Qt::TextSingleLine);
    const int flags = int(text.alignment) | breaks;
    painter.drawText(text.rect, flags, text.text);
    painter.restore();
}

void countPage(int done, const std::function<bool(int)> &progress)
{
    if (progress && !progress(done))
        throw EAbort();
}

// Pages first to last, numbered from 0, onto a device that starts new pages itself.
void paintPages(const TReportLayout &layout, QPagedPaintDevice &device, int first, int last,
                const std::function<bool(int)> &progress)
{
    QPainter painter;
    if (!painter.begin(&device))
        throw Exception(u"Nepavyko pradėti spausdinimo"_s);
    const qreal dots = device.logicalDpiX() / pointsPerInch;
    for (int number = first; number <= last; ++number) {
        if (number > first && !device.newPage())
            throw Exception(u"Nepavyko pradėti naujo lapo"_s);
        painter.resetTransform();
        painter.scale(dots, dots);
        paintReportPage(painter, layout.page(number));
        countPage(number - first + 1, progress);
    }
    if (!painter.end())
        throw Exception(u"Nepavyko baigti spausdinimo"_s);
}

} // namespace

void paintReportPage(QPainter &painter, const TReportPage &page, const QString &highlight)
{
    painter.setPen(QPen(Qt::black, 0.6));
    for (const TReportPrimitive &primitive : page) {
        if (primitive.kind == TReportPrimitive::Kind::Line)
            painter.drawLine(primitive.rect.topLeft(), primitive.rect.bottomRight());
        else
            paintText(painter, primitive, highlight);
    }
}

void printReport(const TReport &report, const TReportLayout &layout, QPrinter &printer,
                 const std::function<bool(int)> &progress)
{
    printer.setPageLayout(report.page);
    printer.setDocName(report.caption);
    const int first = printer.fromPage() > 0 ? printer.fromPage() - 1 : 0;
    const int last = printer.toPage() > 0 ? printer.toPage() - 1 : layout.pageCount() - 1;
    paintPages(layout, printer, first, std::min(last, layout.pageCount() - 1), progress);
}

void writeReportPdf(const TReport &report, const TReportLayout &layout, const QString &file,
                    const std::function<bool(int)> &progress)
{
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly))
        throw Exception(u"Nepavyko įrašyti failo %1: %2"_s.arg(file, target.errorString()));
    {
        QPdfWriter writer(&target);
        writer.setPageLayout(report.page);
        writer.setResolution(pdfResolution);
        writer.setTitle(report.caption);
        paintPages(layout, writer, 0, layout.pageCount() - 1, progress);
    }
    if (!target.commit())
        throw Exception(u"Nepavyko įrašyti failo %1: %2"_s.arg(file, target.errorString()));
}
