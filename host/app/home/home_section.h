#pragma once

#include "host/app/place.h"
#include "host/controls/row_history.h"

#include <QFrame>

#include <optional>

class QLabel;
class QVBoxLayout;

// A line of the home page: a text, or a link to a place or to the changes of a row.
struct THomeLine {
    QString text;
    TPlace place;
    QString check; // the check to stand on in the window of checks
    std::optional<TRowOfHistory> row;

    bool isLink() const { return place.isSomewhere() || row; }
    bool operator==(const THomeLine &) const = default;
};

// A heading with lines below it.
class THomeSection : public QFrame {
    Q_OBJECT
public:
    THomeSection(const QString &name, const QString &heading, QWidget *parent);

    // Shows these lines; what has not changed keeps the keyboard.
    void show(const QList<THomeLine> &lines);
    using QFrame::show;

signals:
    void chosen(const THomeLine &line);

private:
    void add(const THomeLine &line);

    QVBoxLayout *layout;
    QList<THomeLine> shown;
    QList<QWidget *> widgets;
};
