#include "host/app/about.h"

#include <QCoreApplication>
#include <QMessageBox>

void showAbout(const TPackageInfo &package, QWidget *owner)
{
    QMessageBox box(QMessageBox::Information, "Apie programą",
                    QString("<b>Velmora %1</b><br>Biudžetinių įstaigų apskaitos administravimas")
                        .arg(QCoreApplication::applicationVersion()),
                    QMessageBox::NoButton, owner);
    box.setInformativeText(QString("Paketas %1, jo dalys: %2.\nRemiasi paketais: %3.")
                               .arg(package.name, package.units.join(", "), package.required.join(", ")));
    box.addButton("&Gerai", QMessageBox::AcceptRole);
    box.exec();
}
