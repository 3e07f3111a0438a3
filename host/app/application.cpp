#include "host/app/application.h"

#include "host/app/help_viewer.h"
#include "host/app/login.h"
#include "host/app/main_window.h"
#include "host/app/options.h"
#include "host/app/startup.h"
#include "host/app/tour.h"
#include "host/data/main_datas.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/lithuanian.h"

#include <QApplication>

namespace {

// The tour needs no display; the platform is chosen before there is an application to read options.
void chooseOffscreenForTour(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i)
        if (QByteArrayView(argv[i]).startsWith("--tour"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
}

// Opens the books over the window and lets the user in; false when the user gave up.
bool enter(TMainWindow &window, const TOptions &options)
{
    window.setWindowIcon(QIcon::fromTheme("accessories-calculator"));
    return openBooks(options, &window) && logInAt(window, options.user);
}

int runBooks(const TOptions &options)
{
    TLoadedPackage package(TLoadedPackage::defaultFile());
    TMainWindow window(package);
    installHelpViewer(&window);
    window.show();
    QApplication::processEvents(
        QEventLoop::ExcludeUserInputEvents); // the window is painted before the books open
    bool entered = false;
    if (!runGuarded(&window, [&] { entered = enter(window, options); }))
        return 1;
    if (!entered)
        return 0;
    if (!options.open.isEmpty())
        runGuarded(&window, [&] { window.openEntry(options.open); });
    return QApplication::exec();
}

} // namespace

int runHost(int &argc, char **argv)
{
    chooseOffscreenForTour(argc, argv);
    QApplication app(argc, argv);
    QApplication::setOrganizationName("velmora");
    QApplication::setApplicationName("velmora");
    QApplication::setApplicationVersion(VELMORA_VERSION);
    speakLithuanian(&app);
    const TOptions options = readOptions(QApplication::arguments());
    const auto closeBooks = qScopeGuard([] { setMainDatas(nullptr); });
    int code = 1;
    runGuarded(nullptr, [&] { code = options.tour.isEmpty() ? runBooks(options) : runTour(options.tour); });
    return code;
}
