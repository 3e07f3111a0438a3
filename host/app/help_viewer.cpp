#include "host/app/help_viewer.h"

#include "host/common/help.h"
#include "toolkit/widgets/dialog.h"
#include "toolkit/widgets/screen_room.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QPointer>

namespace {

constexpr int contentsTopic = 1;

QString topicFile(int topic)
{
    return QString(":/help/%1.md").arg(topic, 2, 10, QChar(u'0'));
}

} // namespace

THelpViewer::THelpViewer(QWidget *owner) : QTextBrowser(owner)
{
    setWindowFlag(Qt::Window);
    setAccessibleName("Pagalba");
    resizeInScreen(this, {640, 560});
    document()->setDocumentMargin(14);
}

void THelpViewer::showTopic(int topic)
{
    const QString file = QFile::exists(topicFile(topic)) ? topicFile(topic) : topicFile(contentsTopic);
    setSource(QUrl("qrc" + file), QTextDocument::MarkdownResource);
    setWindowTitle("Pagalba");
    show();
    raise();
    activateWindow();
}

// Links between topics name the file alone: "18.md".
QVariant THelpViewer::loadResource(int type, const QUrl &name)
{
    if (name.path().endsWith(".md")) {
        QFile file(":/help/" + name.fileName());
        if (file.open(QIODevice::ReadOnly))
            return QString::fromUtf8(file.readAll());
    }
    return QTextBrowser::loadResource(type, name);
}

void THelpViewer::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QTextBrowser::keyPressEvent(event);
}

// A modal dialog shuts out every window but its own, so the viewer belongs to the dialog that asks for help.
void installHelpViewer(QWidget *owner)
{
    setHelpViewer([owner, viewer = QPointer<THelpViewer>()](int topic) mutable {
        QWidget *asking = QApplication::activeModalWidget() ? QApplication::activeModalWidget() : owner;
        if (viewer && viewer->parentWidget() != asking) {
            viewer->deleteLater();
            viewer.clear();
        }
        if (!viewer)
            viewer = new THelpViewer(asking);
        viewer->showTopic(topic);
    });
    TDialog::setHelpDisplay(showHelp);
}
