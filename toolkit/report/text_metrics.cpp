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

int wrapFlags(const QString &text, qreal width, int fontSize, bool bold)
{
    const QFontMetricsF metrics(reportFont(fontSize, bold));
    for (const QStringView word : QStringView(text).tokenize(u' '))
        if (metrics.horizontalAdvance(word.toString()) > width)
            return Qt::TextWrapAnywhere;
    return Qt::TextWordWrap;
}

qreal wrappedHeight(const QString &text, qreal width, int fontSize, bool bold)
{
    const QFontMetricsF metrics(reportFont(fontSize, bold));
    if (!text.contains(u'\n') && metrics.horizontalAdvance(text) <= width)
        return metrics.height();
    return metrics.boundingRect(QRectF(0, 0, width, 1e6), wrapFlags(text, width, fontSize, bold), text)
        .height();
}
