#include "host/common/settings_store.h"

#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/screen_room.h"

#include <QCoreApplication>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {
constexpr int widestWindow = 32767;

QString pathOf(const QString &path, const QString &name)
{
    QString full = path + u'/' + name;
    full.replace(u'\\', u'/');
    return full;
}

// A group of the store for as long as the object lives.
class InGroup {
public:
    explicit InGroup(const QString &path) { settingsStore().beginGroup(path); }
    ~InGroup() { settingsStore().endGroup(); }
    InGroup(const InGroup &) = delete;
    InGroup &operator=(const InGroup &) = delete;
};

std::optional<int> keptNumber(const QString &key)
{
    bool ok = false;
    const int number = settingsStore().value(key).toString().toInt(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

// The kept frame of a window inside another, if all of it is there and a window can have it.
std::optional<QRect> keptPlacement()
{
    const auto left = keptNumber(u"Left"_s), top = keptNumber(u"Top"_s);
    const auto width = keptNumber(u"Width"_s), height = keptNumber(u"Height"_s);
    if (!left || !top || !width || !height)
        return std::nullopt;
    const bool possible = *width > 0 && *width <= widestWindow && *height > 0 && *height <= widestWindow &&
                          qAbs(*left) <= widestWindow && qAbs(*top) <= widestWindow;
    return possible ? std::optional(QRect(*left, *top, *width, *height)) : std::nullopt;
}

template<class Act> void forEachGrid(QWidget *control, Act act)
{
    const auto grids = control->findChildren<TDBGrid *>();
    for (TDBGrid *grid : grids) {
        if (!grid->objectName().isEmpty())
            act(grid, u"Columns_"_s + grid->objectName());
    }
}

// A window on the screen: the toolkit knows screens, and a placement outside them.
bool restoreWindow(QWidget *window)
{
    return window->restoreGeometry(settingsStore().value(u"Geometry"_s).toByteArray());
}

// A window inside another one: the toolkit's own way would measure it against the screen.
bool restoreInner(QWidget *window)
{
    const std::optional<QRect> placement = keptPlacement();
    if (!placement)
        return false;
    const QWidget *around = window->parentWidget();
    window->setGeometry(around ? movedInto(*placement, around->rect()) : *placement);
    if (settingsStore().value(u"Maximized"_s).toBool())
        window->setWindowState(window->windowState() | Qt::WindowMaximized);
    return true;
}

// What a maximised window returns to is kept from before, or is what its own wish would be.
void saveInner(const QWidget *window)
{
    settingsStore().setValue(u"Maximized"_s, window->isMaximized());
    if (window->isMaximized() && keptPlacement())
        return;
    const QRect placement = window->isMaximized() ? QRect(QPoint(), window->sizeHint()) : window->geometry();
    settingsStore().setValue(u"Left"_s, placement.left());
    settingsStore().setValue(u"Top"_s, placement.top());
    settingsStore().setValue(u"Width"_s, placement.width());
    settingsStore().setValue(u"Height"_s, placement.height());
}
} // namespace

QString GetRegPath()
{
    return u'\\' + QCoreApplication::applicationName();
}

QString FormsPath()
{
    return GetRegPath() + u"\\Forms"_s;
}

QSettings &settingsStore()
{
    static std::unique_ptr<QSettings> store;
    const QString organization = QCoreApplication::organizationName().isEmpty()
                                     ? QCoreApplication::applicationName()
                                     : QCoreApplication::organizationName();
    const QString application = QCoreApplication::applicationName();
    if (!store || store->organizationName() != organization || store->applicationName() != application)
        store = std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, organization,
                                            application);
    return *store;
}

// A damaged store is left for repair: writing would complete the loss.
bool CanSave()
{
    return settingsStore().isWritable() && settingsStore().status() == QSettings::NoError;
}

bool ReadFromReg(QWidget *control, const QString &path, const QString &name)
{
    const InGroup group(pathOf(path, name));
    forEachGrid(control, [](TDBGrid *grid, const QString &key) {
        grid->setArrangement(settingsStore().value(key).toByteArray());
    });
    return control->isWindow() ? restoreWindow(control) : restoreInner(control);
}

void SaveToReg(QWidget *control, const QString &path, const QString &name, bool columns)
{
    if (!CanSave())
        return;
    const InGroup group(pathOf(path, name));
    if (control->isWindow())
        settingsStore().setValue(u"Geometry"_s, control->saveGeometry());
    else
        saveInner(control);
    if (columns) {
        forEachGrid(control, [](const TDBGrid *grid, const QString &key) {
            settingsStore().setValue(key, grid->arrangement());
        });
    }
}
