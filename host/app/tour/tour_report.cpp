#include "host/app/tour/tour_report.h"

#include "toolkit/data/statement.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QSaveFile>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <limits>

namespace {

constexpr int titleHeight = 24;

// Windows in the order in which they cover each other: a window stands above its owner, the window that is to
// be answered above all.
QList<QWidget *> windowsFromBelow()
{
    QList<QWidget *> windows;
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->isVisible() && !window->windowTitle().isEmpty())
            windows << window;
    const auto height = [](const QWidget *window) {
        if (window == QApplication::activeModalWidget())
            return std::numeric_limits<int>::max();
        int owners = window->isModal() ? 1 : 0;
        for (const QWidget *owner = window->parentWidget(); owner; owner = owner->parentWidget())
            ++owners;
        return owners;
    };
    std::ranges::stable_sort(windows, {}, height);
    return windows;
}

// The screen has no window manager, so the title bars are drawn here.
void paintWindow(QPainter &painter, QWidget *window, QPoint at)
{
    const QRect title(at, QSize(window->width(), titleHeight));
    painter.fillRect(title, QColor(0x37, 0x47, 0x4f));
    painter.setPen(Qt::white);
    painter.drawText(title.adjusted(8, 0, -8, 0), Qt::AlignVCenter, window->windowTitle());
    painter.drawPixmap(at + QPoint(0, titleHeight), window->grab());
    painter.setPen(QColor(0x37, 0x47, 0x4f));
    painter.drawRect(title.adjusted(0, 0, -1, window->height() - 1));
}

QString tableOf(TDatabase &books, const QString &select)
{
    const auto statement = books.prepare(select);
    statement->exec();
    QString table = "<table><tr>";
    for (const TResultColumn &column : statement->columns())
        table += "<th>" + column.name.toHtmlEscaped() + "</th>";
    while (statement->next()) {
        table += "</tr><tr>";
        for (int column = 0; column < statement->columns().size(); ++column)
            table += "<td>" + statement->value(column).toString().toHtmlEscaped() + "</td>";
    }
    return "<pre>" + select.toHtmlEscaped() + "</pre>" + table + "</tr></table>";
}

} // namespace

QPixmap pictureOfScreen()
{
    const QList<QWidget *> windows = windowsFromBelow();
    QRect all;
    for (const QWidget *window : windows)
        all |= QRect(window->pos(), window->size() + QSize(0, titleHeight));
    QPixmap picture(all.size().expandedTo(QSize(1, 1)));
    picture.fill(QColor(0xcf, 0xd8, 0xdc));
    QPainter painter(&picture);
    for (QWidget *window : windows)
        paintWindow(painter, window, window->pos() - all.topLeft());
    return picture;
}

TTourReport::TTourReport(const QString &path) : folder(path)
{
    if (!folder.mkpath("."))
        throw Exception(QString("Nepavyko sukurti aplanko %1").arg(path));
}

void TTourReport::step(const QString &caption, const QString &done, TDatabase *books, const QString &select)
{
    Page page{caption, done, QString("%1.png").arg(pages.size() + 1, 2, 10, QChar(u'0')), {}};
    QApplication::processEvents();
    if (!pictureOfScreen().save(folder.filePath(page.picture)))
        throw Exception(QString("Nepavyko įrašyti %1").arg(folder.filePath(page.picture)));
    if (!select.isEmpty())
        page.table = tableOf(*books, select);
    pages << page;
    std::printf("%2d. %s: %s\n", int(pages.size()), qUtf8Printable(caption), qUtf8Printable(done));
    std::fflush(stdout);
}

QString TTourReport::html() const
{
    QString text = "<!doctype html><html lang=\"lt\"><meta charset=\"utf-8\"><title>Velmora</title><style>"
                   "body{font-family:sans-serif;max-width:1150px;margin:2em auto}img{max-width:100%}"
                   "table{border-collapse:collapse}td,th{border:1px solid #999;padding:2px 8px}</style>";
    int number = 0;
    for (const Page &page : pages)
        text += QString("<h2>%1. %2</h2><p>%3</p><img src=\"%4\" alt=\"%2\">%5")
                    .arg(++number)
                    .arg(page.caption.toHtmlEscaped(), page.done.toHtmlEscaped(), page.picture, page.table);
    return text;
}

void TTourReport::write() const
{
    QSaveFile file(folder.filePath("index.html"));
    if (!file.open(QIODevice::WriteOnly) || file.write(html().toUtf8()) < 0 || !file.commit())
        throw Exception(QString("Nepavyko įrašyti %1").arg(file.fileName()));
}
