#pragma once

#include "toolkit/data/database.h"

#include <QDir>
#include <QList>

// The pages of the tour: a picture of the screen at each step, what was done, and what the database holds
// then.
class TTourReport {
public:
    // Creates the folder. Raises Exception when it cannot be written.
    explicit TTourReport(const QString &folder);

    // Adds a step: takes the picture, keeps the rows of the select, prints a line. An empty select keeps
    // none.
    void step(const QString &caption, const QString &done, TDatabase *books = nullptr,
              const QString &select = {});

    // Writes index.html over all steps.
    void write() const;

private:
    struct Page {
        QString caption;
        QString done;
        QString picture;
        QString table;
    };
    QString html() const;

    QDir folder;
    QList<Page> pages;
};

// A picture of all windows as they stand on the screen.
QPixmap pictureOfScreen();
