#include "toolkit/report/text_metrics.h"

#include <QFontMetricsF>

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

qreal wrappedHeight(const QString &text, qreal width, int fontSize, bool bold)
{
    return QFontMetricsF(reportFont(fontSize, bold))
        .boundingRect(QRectF(0, 0, width, 1e6), Qt::TextWordWrap, text)
        .height();
}
