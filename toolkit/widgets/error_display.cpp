#include "toolkit/widgets/error_display.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

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
        parts += u"Duomenų bazės pranešimas:\n"_s + database->serverText;
    if (!database->statement.isEmpty())
        parts += u"Sakinys:\n"_s + database->statement;
    return parts.join(u"\n\n"_s);
}

void showErrorBox(QWidget *where, const Exception &error)
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance())) {
        qCritical("%s", error.what());
        return;
    }
    QMessageBox box(QMessageBox::Critical, u"Klaida"_s, error.message(), QMessageBox::NoButton,
                    windowFor(where));
    // Messages quote what a user typed: nothing in them is markup.
    box.setTextFormat(Qt::PlainText);
    box.addButton(QMessageBox::Ok)->setText(u"&Gerai"_s);
    box.setEscapeButton(QMessageBox::Ok);
    const QString details = errorDetails(error);
    if (!details.isEmpty())
        box.setDetailedText(details);
    box.exec();
}
