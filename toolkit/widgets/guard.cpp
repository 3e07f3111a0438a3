#include "toolkit/widgets/guard.h"

#include "toolkit/widgets/error_display.h"

#include <QPointer>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

ErrorDisplay &currentDisplay()
{
    static ErrorDisplay display;
    return display;
}

// An error that this system did not raise itself. Its own words are for the log, not for the user.
Exception foreign(const char *words)
{
    qWarning("unexpected exception: %s", words);
    return Exception(u"Netikėta programos klaida. Veiksmas neatliktas."_s);
}

} // namespace

ErrorDisplay setErrorDisplay(ErrorDisplay display)
{
    return std::exchange(currentDisplay(), std::move(display));
}

void showError(QWidget *where, const Exception &error) noexcept
{
    if (dynamic_cast<const EAbort *>(&error))
        return;
    try {
        // A copy: the display may be replaced while it shows.
        const ErrorDisplay display = currentDisplay();
        if (display)
            display(where, error);
        else
            showErrorBox(where, error);
    } catch (const std::exception &failure) {
        qCritical("the error display failed: %s; while showing: %s", failure.what(), error.what());
    } catch (...) {
        qCritical("the error display failed while showing: %s", error.what());
    }
}

void showCurrentException(QWidget *where) noexcept
{
    try {
        throw;
    } catch (const Exception &error) {
        showError(where, error);
    } catch (const std::bad_alloc &) {
        showError(where, Exception(u"Neužtenka atminties. Veiksmas neatliktas."_s));
    } catch (const std::exception &error) {
        showError(where, foreign(error.what()));
    } catch (...) {
        showError(where, foreign("not a std::exception"));
    }
}

QWidget *widgetOf(QObject *object)
{
    for (; object; object = object->parent()) {
        if (auto *widget = qobject_cast<QWidget *>(object))
            return widget;
    }
    return nullptr;
}
