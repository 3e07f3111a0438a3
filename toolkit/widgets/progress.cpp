#include "toolkit/widgets/progress.h"

#include "toolkit/text/errors.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {
constexpr int shownAfterMs = 500;
}

TProgressWindow::TProgressWindow(const QString &title, const QString &text, int total, QWidget *owner)
    : window(text, u"&Nutraukti"_s, 0, total, owner),
      patience(shownAfterMs)
{
    window.setWindowModality(Qt::ApplicationModal);
    window.setWindowTitle(title);
    window.setMinimumDuration(std::numeric_limits<int>::max());
    window.setAutoReset(false);
}

// Events are let in only behind the shown window, which keeps them off everything else.
void TProgressWindow::step(int done)
{
    if (!patience.hasExpired())
        return;
    window.show();
    window.setValue(done);
    QCoreApplication::processEvents();
    if (window.wasCanceled())
        throw EAbort();
}
