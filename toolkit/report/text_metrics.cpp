#include "toolkit/report/text_metrics.h"

#include <QFontMetricsF>
#include <QHash>

#include <memory>

namespace {

// Long reports measure every text: looking a font up each time would take most of the time.
const QFontMetricsF &metricsOf(int size, bool bold)
{
    static QHash<std::pair<int, bool>, std::shared_ptr<const QFontMetricsF>> known;
    auto &metrics = known[{size, bold}];
    if (!metrics)
        metrics = std::make_shared<const QFontMetricsF>(reportFont(size, bold));
    return *metrics;
}

} // namespace

// A pixel size on a canvas of one pixel per point makes layout the same on screen, printer and PDF.
QFont reportFont(int size, bool bold)
{
    QFont font("DejaVu Sans");
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(size);
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

qreal lineHeight(int fontSize)
{
    return fontSize * 1.4;
}

int wrapFlags(const QString &text, qreal width, int fontSize, bool bold)
{
    const QFontMetricsF &metrics = metricsOf(fontSize, bold);
    for (const QStringView word : QStringView(text).tokenize(u' '))
        if (metrics.horizontalAdvance(word.toString()) > width)
            return Qt::TextWrapAnywhere;
    return Qt::TextWordWrap;
}

qreal wrappedHeight(const QString &text, qreal width, int fontSize, bool bold)
{
    const QFontMetricsF &metrics = metricsOf(fontSize, bold);
    if (!text.contains(u'\n') && metrics.horizontalAdvance(text) <= width)
        return metrics.height();
    return metrics.boundingRect(QRectF(0, 0, width, 1e6), wrapFlags(text, width, fontSize, bold), text)
        .height();
}
