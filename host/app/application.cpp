#include "host/app/application.h"

#include "database/private_place.h"
#include "host/app/help_viewer.h"
#include "host/app/login.h"
#include "host/app/main_window.h"
#include "host/data/main_datas.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/lithuanian.h"

#include <QApplication>
#include <QLibrary>

#include <cstdio>

namespace {

constexpr int wrongUsage = 2;

// The tour, the help and the version need no display; the platform is chosen before there is an application
// to read options.
void chooseOffscreenWhereNothingIsShown(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i)
        for (const char *option : {"--tour", "--help", "-h", "--version", "-v"})
            if (QByteArrayView(argv[i]).startsWith(option))
                qputenv("QT_QPA_PLATFORM", "offscreen");
}

int runBooks(const TOptions &options)
{
    TLoadedPackage package(installedLibrary("libvelmora.so"));
    TMainWindow window(package);
    installHelpViewer(&window);
    window.show();
    QApplication::processEvents(
        QEventLoop::ExcludeUserInputEvents); // the window is painted before the books open
    window.setWindowIcon(QIcon::fromTheme("accessories-calculator"));
    bool entered = false;
    if (!runGuarded(&window, [&] { entered = enterBooks(window, options); }))
        return 1;
    if (!entered)
        return 0;
    if (!options.open.isEmpty())
        runGuarded(&window, [&] { window.openEntry(options.open); });
    return QApplication::exec();
}

int runTour(const QString &folder)
{
    QLibrary module(installedLibrary("libvelmora_tour.so"));
    auto *tour = reinterpret_cast<int (*)(const QString &)>(module.resolve("runTour"));
    if (!tour)
        throw Exception(module.errorString());
    return tour(folder);
}

int run(const TOptions &options)
{
    const auto closeBooks = qScopeGuard([] { setMainDatas(nullptr); });
    int code = 1;
    runGuarded(nullptr, [&] { code = options.tour.isEmpty() ? runBooks(options) : runTour(options.tour); });
    return code;
}

} // namespace

int runHost(int &argc, char **argv)
{
    keepNewFilesPrivate();
    chooseOffscreenWhereNothingIsShown(argc, argv);
    QApplication app(argc, argv);
    QApplication::setOrganizationName("velmora");
    QApplication::setApplicationName("velmora");
    QApplication::setApplicationVersion(VELMORA_VERSION);
    speakLithuanian(&app);
    try {
        const TOptions options = readOptions(QApplication::arguments());
        std::fputs(qUtf8Printable(options.told), stdout);
        return options.told.isEmpty() ? run(options) : 0;
    } catch (const EUsage &error) {
        std::fprintf(stderr, "%s\nPagalba: velmora-host --help\n", qUtf8Printable(error.message()));
        return wrongUsage;
    }
}
