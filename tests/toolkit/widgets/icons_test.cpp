#include "toolkit/widgets/icons.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

QImage imageOf(TIcon which, QIcon::Mode mode = QIcon::Normal)
{
    return icon(which).pixmap(QSize(32, 32), mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

// How many points of a picture can be seen.
int inked(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 64 ? 1 : 0;
    }
    return count;
}

// The strongest colour in a picture, from grey (0) to pure (255).
int strongestColour(const QImage &image)
{
    int strongest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            strongest = std::max(strongest, colour.alpha() > 128 ? colour.hsvSaturation() : 0);
        }
    }
    return strongest;
}

// Other themes than the installed ones, for the time of a test.
class WithTheme {
public:
    explicit WithTheme(const QString &name)
        : former(QIcon::themeName()),
          formerFallback(QIcon::fallbackThemeName())
    {
        QIcon::setThemeName(name);
        QIcon::setFallbackThemeName(name);
    }
    ~WithTheme()
    {
        QIcon::setThemeName(former);
        QIcon::setFallbackThemeName(formerFallback);
    }

private:
    QString former;
    QString formerFallback;
};

} // namespace

TEST(Icons, EveryOneStandsInTheThemeThatTheSystemIsInstalledWith)
{
    icon(TIcon::New); // finds the themes
    const WithTheme breeze(u"breeze"_s);
    for (int which = 0; which < iconCount; ++which) {
        const QString name = iconName(TIcon(which));
        EXPECT_TRUE(QIcon::hasThemeIcon(name)) << qPrintable(name);
        EXPECT_GT(inked(imageOf(TIcon(which))), 20) << qPrintable(name);
    }
    EXPECT_FALSE(QIcon::hasThemeIcon(u"tokios-nera"_s)) << "a control";
}

TEST(Icons, EveryOneIsSeenWithoutAnyTheme)
{
    icon(TIcon::New);
    const WithTheme none(u"nera"_s);
    for (int which = 0; which < iconCount; ++which) {
        EXPECT_FALSE(QIcon::hasThemeIcon(iconName(TIcon(which)))) << "a control";
        EXPECT_GT(inked(imageOf(TIcon(which))), 20) << which;
    }
}

TEST(Icons, NoTwoAreCalledAlike)
{
    QSet<QString> names;
    for (int which = 0; which < iconCount; ++which)
        names += iconName(TIcon(which));
    EXPECT_EQ(names.size(), iconCount);
}

TEST(Icons, DeletingLooksEnabledWhenItIs)
{
    for (const QString &theme : {u"breeze"_s, u"nera"_s}) {
        const WithTheme used(theme);
        EXPECT_GT(strongestColour(imageOf(TIcon::Delete)), 100) << qPrintable(theme);
        EXPECT_LT(strongestColour(imageOf(TIcon::Delete, QIcon::Disabled)), 60) << qPrintable(theme);
    }
}
