#include "host/app/application.h"

#include "host/app/help_viewer.h"
#include "host/app/login.h"
#include "host/app/main_window.h"
#include "host/app/options.h"
#include "host/app/startup.h"
#include "host/app/tour.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/lithuanian.h"

#include <QApplication>
#include <QTimer>

namespace {

// The tour needs no display; the platform is chosen before there is an application to read options.
void chooseOffscreenForTour(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i)
        if (QByteArrayView(argv[i]).startsWith("--tour"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
}

int runBooks(const TOptions &options)
{
    if (!openBooks(options))
        return 0;
    TLoadedPackage package(TLoadedPackage::defaultFile());
    TMainWindow window(package, *MainDatas());
    installHelpViewer(&window);
    window.show();
    QTimer::singleShot(0, &window, guarded([&window, &options] {
                           if (!logInAt(window, options.user)) {
                               window.close();
                               return;
                           }
                           if (!options.open.isEmpty())
                               window.openEntry(options.open);
                       }));
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
    int code = 1;
    runGuarded(nullptr, [&] { code = options.tour.isEmpty() ? runBooks(options) : runTour(options.tour); });
    setMainDatas(nullptr);
    return code;
}
