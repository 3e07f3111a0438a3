#include "host/common/msgbox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {
// Ctrl+C copies what the box says.
class TCopyableBox : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->matches(QKeySequence::Copy))
            QGuiApplication::clipboard()->setText(text());
        else
            QMessageBox::keyPressEvent(event);
    }
};

struct Look {
    QMessageBox::Icon icon;
    QString title;
};

Look lookOf(unsigned short kind)
{
    switch (kind >> 4) {
    case 1:
    case 6:
        return {QMessageBox::Question, u"Klausimas"_s};
    case 2:
        return {QMessageBox::Information, u"Informacija"_s};
    case 3:
        return {QMessageBox::Warning, u"Įspėjimas"_s};
    case 5:
        return {QMessageBox::Critical, u"Klaida"_s};
    default:
        return {QMessageBox::NoIcon, u"Pranešimas"_s};
    }
}

QMessageBox::StandardButtons buttonsOf(unsigned short kind)
{
    switch (kind & 0xF) {
    case 2:
        return QMessageBox::Yes | QMessageBox::No;
    case 3:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    default:
        return QMessageBox::Ok;
    }
}

void nameButtons(QMessageBox &box)
{
    static const std::pair<QMessageBox::StandardButton, QString> names[] = {
        {QMessageBox::Yes, u"&Taip"_s},
        {QMessageBox::No, u"&Ne"_s},
        {QMessageBox::Cancel, u"&Atšaukti"_s},
        {QMessageBox::Ok, u"&Gerai"_s},
    };
    for (const auto &[which, name] : names) {
        if (QAbstractButton *button = box.button(which))
            button->setText(name);
    }
}

QMessageBox::StandardButton defaultOf(QMessageBox::StandardButtons buttons)
{
    if (buttons & QMessageBox::Cancel)
        return QMessageBox::Yes;
    return buttons & QMessageBox::No ? QMessageBox::No : QMessageBox::Ok;
}

QMessageBox::StandardButton escapeOf(QMessageBox::StandardButtons buttons)
{
    for (const auto each : {QMessageBox::Cancel, QMessageBox::No}) {
        if (buttons & each)
            return each;
    }
    return QMessageBox::Ok;
}

int resultOf(int pressed)
{
    switch (pressed) {
    case QMessageBox::Yes:
        return mrYes;
    case QMessageBox::No:
        return mrNo;
    case QMessageBox::Ok:
        return mrOk;
    default:
        return mrCancel;
    }
}

QWidget *windowInFront()
{
    QWidget *modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}
} // namespace

int StdMsgBox(unsigned short kind, const QString &text, int safe)
{
    const Look look = lookOf(kind);
    const QMessageBox::StandardButtons buttons = buttonsOf(kind);
    TCopyableBox box(windowInFront());
    box.setObjectName(u"StdMsgBox"_s);
    box.setProperty("kind", kind);
    box.setIcon(look.icon);
    box.setWindowTitle(look.title);
    // A name out of the books may hold "<" or "&": it is shown, never interpreted.
    box.setTextFormat(Qt::PlainText);
    box.setText(QString(text).replace(u"\r\n"_s, u"\n"_s));
    box.setStandardButtons(buttons);
    box.setDefaultButton(safe == mrYes ? QMessageBox::Yes : defaultOf(buttons));
    box.setEscapeButton(safe == mrYes ? QMessageBox::Yes : escapeOf(buttons));
    nameButtons(box);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    return resultOf(box.exec());
}
