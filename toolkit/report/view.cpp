#include "toolkit/report/view.h"

#include "toolkit/report/painting.h"
#include "toolkit/widgets/guard.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal pointsPerInch = 72;
constexpr int gap = 16; // pixels between pages
constexpr qreal smallestZoom = 0.25;
constexpr qreal largestZoom = 4;
constexpr qreal zoomStep = 1.2;

} // namespace

TReportView::TReportView(const TReport &shownReport, const TReportLayout &shownLayout, QWidget *parent)
    : QAbstractScrollArea(parent),
      report(shownReport),
      layout(shownLayout)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(u"Ataskaitos lapai"_s);
    viewport()->setBackgroundRole(QPalette::Mid);
    viewport()->setAutoFillBackground(true);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { emit currentPageChanged(currentPage()); });
    updateBars();
}

qreal TReportView::pixelsPerPoint() const
{
    return factor * logicalDpiX() / pointsPerInch;
}

QSizeF TReportView::paperSize() const
{
    return report.page.fullRect(QPageLayout::Point).size() * pixelsPerPoint();
}

qreal TReportView::pageTop(int page) const
{
    return gap + page * (paperSize().height() + gap);
}

int TReportView::currentPage() const
{
    const qreal middle = verticalScrollBar()->value() + viewport()->height() / 2.0;
    return std::clamp(int((middle - gap) / (paperSize().height() + gap)), 0, layout.pageCount() - 1);
}

void TReportView::goToPage(int page)
{
    verticalScrollBar()->setValue(int(pageTop(std::clamp(page, 0, layout.pageCount() - 1))) - gap);
}

void TReportView::setZoom(qreal zoom)
{
    const int page = currentPage();
    factor = std::clamp(zoom, smallestZoom, largestZoom);
    updateBars();
    goToPage(page);
    viewport()->update();
}

void TReportView::zoomBy(int steps)
{
    setZoom(factor * std::pow(zoomStep, steps));
}

void TReportView::fitWidth()
{
    const qreal paper = report.page.fullRect(QPageLayout::Point).width() * logicalDpiX() / pointsPerInch;
    setZoom((viewport()->width() - 2 * gap) / paper);
}

void TReportView::fitPage()
{
    const qreal paper = report.page.fullRect(QPageLayout::Point).height() * logicalDpiY() / pointsPerInch;
    setZoom((viewport()->height() - 2 * gap) / paper);
}

bool TReportView::hasWords(int page, const QString &words) const
{
    return std::ranges::any_of(layout.page(page), [&words](const TReportPrimitive &primitive) {
        return primitive.text.contains(words, Qt::CaseInsensitive);
    });
}

bool TReportView::findNext(const QString &words)
{
    const bool sameWords = words == marked;
    marked = words;
    viewport()->update();
    if (words.isEmpty())
        return false;
    const int start = currentPage() + (sameWords ? 1 : 0);
    for (int step = 0; step < layout.pageCount(); ++step) {
        const int page = (start + step) % layout.pageCount();
        if (hasWords(page, words)) {
            goToPage(page);
            return true;
        }
    }
    return false;
}

void TReportView::updateBars()
{
    const QSizeF paper = paperSize();
    const int height = int(pageTop(layout.pageCount()));
    verticalScrollBar()->setRange(0, std::max(0, height - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(40);
    const int width = int(paper.width()) + 2 * gap;
    horizontalScrollBar()->setRange(0, std::max(0, width - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
}

void TReportView::paintPage(QPainter &painter, int page) const
{
    const QSizeF paper = paperSize();
    const qreal left =
        std::max(qreal(gap), (viewport()->width() - paper.width()) / 2) - horizontalScrollBar()->value();
    painter.save();
    painter.translate(left, pageTop(page) - verticalScrollBar()->value());
    painter.fillRect(QRectF(QPointF(), paper), Qt::white);
    painter.scale(pixelsPerPoint(), pixelsPerPoint());
    painter.translate(report.page.paintRect(QPageLayout::Point).topLeft());
    paintReportPage(painter, layout.page(page), marked);
    painter.restore();
}

void TReportView::paintEvent(QPaintEvent *)
{
    runGuarded(this, [this] {
        QPainter painter(viewport());
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        const qreal top = verticalScrollBar()->value();
        const qreal bottom = top + viewport()->height();
        for (int page = 0; page < layout.pageCount() && pageTop(page) < bottom; ++page)
            if (pageTop(page + 1) > top)
                paintPage(painter, page);
    });
}

void TReportView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateBars();
}

void TReportView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Home:
        goToPage(0);
        break;
    case Qt::Key_End:
        goToPage(layout.pageCount() - 1);
        break;
    case Qt::Key_PageUp:
        goToPage(currentPage() - 1);
        break;
    case Qt::Key_PageDown:
        goToPage(currentPage() + 1);
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void TReportView::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers() != Qt::ControlModifier) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    zoomBy(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}
