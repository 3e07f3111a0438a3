#pragma once

#include <QWidget>

// A red frame over a control whose value is refused. It lies over the control without taking its place or
// events, so that the control looks the same in every style.
class TInvalidMark : public QWidget {
public:
    explicit TInvalidMark(QWidget *control);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
};
