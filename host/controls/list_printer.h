#pragma once

#include "toolkit/data/field.h"

#include <QDate>
#include <QStringList>

#include <functional>
#include <vector>

class QPainter;
class QPrinter;
class QWidget;

// What is printed of a list: heading, column titles and rows as they are shown.
struct TListContent {
    struct Column {
        QString title;
        int width = 100; // in proportion to the other columns
        TAlignment alignment = TAlignment::taLeftJustify;
    };

    QString title;
    QString institution;
    QDate date;
    std::vector<Column> columns;
    int rows = 0;
    std::function<QString(int row, int column)> text;
};

// Prints a list: the heading on the first page, titles and page number on every page. Columns share the width
// of the page; a text that does not fit goes on in the next line, nothing is cut off. A list that is too wide
// for a sheet upright lies across.
class TListPrinter {
public:
    explicit TListPrinter(TListContent content);

    // A further line under the heading.
    void addTitle(const QString &line) { titles << line; }

    int pageCount(QPrinter &printer);
    void print(QPrinter &printer);
    // Raises Exception when the file cannot be written.
    void toPdf(const QString &file);
    // Shows the pages; from there they can be printed. Returns when the window is closed.
    void preview(QWidget *owner);

    const TListContent &content() const { return list; }

private:
    struct Layout;
    Layout layoutFor(QPrinter &printer) const;
    void setUp(QPrinter &printer) const;

    TListContent list;
    QStringList titles;
};
