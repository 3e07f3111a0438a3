#include "toolkit/widgets/icons.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QStandardPaths>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

struct Entry {
    TIcon which;
    const char *name;                // in an icon theme
    QStyle::StandardPixmap standard; // where the theme lacks it; SP_CustomBase: none
    char16_t sign;                   // drawn where the style lacks it, too
    bool isRed = false;              // the drawn sign warns
};

constexpr auto none = QStyle::SP_CustomBase;

constexpr Entry table[] = {
    {TIcon::New, "document-new", QStyle::SP_FileIcon, u'+'},
    {TIcon::Edit, "document-edit", none, u'✎'},
    {TIcon::View, "view-visible", QStyle::SP_FileDialogContentsView, u'o'},
    {TIcon::Delete, "edit-delete", none, u'×', true},
    {TIcon::Refresh, "view-refresh", QStyle::SP_BrowserReload, u'↻'},
    {TIcon::Find, "edit-find", QStyle::SP_FileDialogContentsView, u'?'},
    {TIcon::Print, "document-print", none, u'P'},
    {TIcon::First, "go-first", QStyle::SP_MediaSkipBackward, u'«'},
    {TIcon::Previous, "go-previous", QStyle::SP_MediaSeekBackward, u'‹'},
    {TIcon::Next, "go-next", QStyle::SP_MediaSeekForward, u'›'},
    {TIcon::Last, "go-last", QStyle::SP_MediaSkipForward, u'»'},
    {TIcon::Close, "window-close", QStyle::SP_DialogCloseButton, u'×'},
    {TIcon::Help, "help-contents", QStyle::SP_DialogHelpButton, u'?'},
    {TIcon::Order, "view-sort-ascending", QStyle::SP_ArrowDown, u'↓'},
    {TIcon::Copy, "edit-copy", none, u'C'},
    {TIcon::Save, "document-save", QStyle::SP_DialogSaveButton, u'✓'},
    {TIcon::Cancel, "dialog-cancel", QStyle::SP_DialogCancelButton, u'×'},
    {TIcon::Lock, "object-locked", none, u'■'},
    {TIcon::Unlock, "object-unlocked", none, u'□'},
    {TIcon::Calendar, "view-calendar", none, u'▾'},
    {TIcon::Browse, "view-list-details", QStyle::SP_FileDialogDetailedView, u'…'},
    {TIcon::Open, "document-open", QStyle::SP_DialogOpenButton, u'O'},
    {TIcon::Add, "list-add", none, u'+'},
    {TIcon::Remove, "list-remove", none, u'−'},
    {TIcon::Calculate, "accessories-calculator", none, u'='},
    {TIcon::Folder, "folder", QStyle::SP_DirIcon, u'F'},
    {TIcon::Document, "text-x-generic", QStyle::SP_FileIcon, u'D'},
    {TIcon::User, "user-identity", none, u'U'},
    {TIcon::Information, "dialog-information", QStyle::SP_MessageBoxInformation, u'i'},
    {TIcon::Settings, "configure", none, u'*'},
    {TIcon::Quit, "application-exit", QStyle::SP_DialogCloseButton, u'×'},
    {TIcon::ZoomIn, "zoom-in", none, u'+'},
    {TIcon::ZoomOut, "zoom-out", none, u'−'},
    {TIcon::FitWidth, "zoom-fit-width", none, u'↔'},
    {TIcon::FitPage, "zoom-fit-page", none, u'↕'},
    {TIcon::Up, "go-up", QStyle::SP_ArrowUp, u'↑'},
    {TIcon::OpenPicture, "insert-image", none, u'▣'},
    {TIcon::Merge, "merge", none, u'Y'},
    {TIcon::StoragePlace, "package", none, u'▤'},
    {TIcon::DeleteAll, "edit-clear-all", none, u'⨯', true},
    {TIcon::History, "view-history", none, u'↶'},
};
static_assert(std::size(table) == iconCount);

const Entry &entryOf(TIcon which)
{
    for (const Entry &entry : table) {
        if (entry.which == which)
            return entry;
    }
    Q_UNREACHABLE();
}

// The system's own theme stands behind the desktop's; where there is no desktop, its folder is not even
// looked at.
void prepareThemes()
{
    static const bool once = [] {
        QStringList paths = QIcon::themeSearchPaths();
        for (const QString &data : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
            const QString folder = data + u"/icons"_s;
            if (!paths.contains(folder) && QDir(folder).exists())
                paths += folder;
        }
        QIcon::setThemeSearchPaths(paths);
        const QString own = u"breeze"_s;
        QIcon::setFallbackThemeName(own);
        // Without any desktop no theme is set, and then the fallback is not asked either.
        if (QIcon::themeName().isEmpty())
            QIcon::setThemeName(own);
        return true;
    }();
    Q_UNUSED(once);
}

QIcon drawn(const Entry &entry)
{
    QIcon result;
    for (const int size : {16, 24, 32}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        QFont font = QApplication::font();
        font.setPixelSize(size * 3 / 4);
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(entry.isRed ? QColor(0xda, 0x44, 0x53)
                                   : QApplication::palette().color(QPalette::ButtonText));
        painter.drawRoundedRect(pixmap.rect().adjusted(1, 1, -2, -2), 3, 3);
        painter.drawText(pixmap.rect(), Qt::AlignCenter, QChar(entry.sign));
        painter.end();
        result.addPixmap(pixmap);
    }
    return result;
}

} // namespace

QString iconName(TIcon which)
{
    return QLatin1String(entryOf(which).name);
}

QIcon icon(TIcon which)
{
    prepareThemes();
    const Entry &entry = entryOf(which);
    QIcon themed = QIcon::fromTheme(QLatin1String(entry.name));
    if (!themed.isNull() && !themed.pixmap(16).isNull())
        return themed;
    const QIcon standard =
        entry.standard == none ? QIcon() : QApplication::style()->standardIcon(entry.standard);
    return standard.isNull() ? drawn(entry) : standard;
}
