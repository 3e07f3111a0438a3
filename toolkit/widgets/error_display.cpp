#include "toolkit/widgets/error_display.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {

QWidget *windowFor(QWidget *where)
{
    if (where && where->isVisible())
        return where->window();
    return QApplication::activeModalWidget() ? QApplication::activeModalWidget()
                                             : QApplication::activeWindow();
}

} // namespace

QString errorDetails(const Exception &error)
{
    const auto *database = dynamic_cast<const EDatabaseError *>(&error);
    if (!database)
        return {};
    QStringList parts;
    if (!database->serverText.isEmpty())
        parts += QStringLiteral(u"Duomenų bazės pranešimas:\n") + database->serverText;
    if (!database->statement.isEmpty())
        parts += QStringLiteral(u"Sakinys:\n") + database->statement;
    return parts.join(QStringLiteral("\n\n"));
}

void showErrorBox(QWidget *where, const Exception &error)
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance())) {
        qCritical("%s", error.what());
        return;
    }
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Klaida"), error.message(), QMessageBox::NoButton,
                    windowFor(where));
    // Messages quote what a user typed: nothing in them is markup.
    box.setTextFormat(Qt::PlainText);
    box.addButton(QMessageBox::Ok)->setText(QStringLiteral("&Gerai"));
    box.setEscapeButton(QMessageBox::Ok);
    const QString details = errorDetails(error);
    if (!details.isEmpty())
        box.setDetailedText(details);
    box.exec();
}
