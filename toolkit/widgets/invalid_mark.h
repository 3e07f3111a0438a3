#pragma once

#include <QWidget>

// A red frame over a control whose value is refused. It lies over the control without taking its place or
// events, so that the control looks the same in every style. While it is there, the reason is the control's
// tool tip and accessible description.
class TInvalidMark : public QWidget {
public:
    explicit TInvalidMark(QWidget *control);

    // Marks a control, or takes its mark away when there is no reason.
    static void put(QWidget *control, const QString &reason);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString ownToolTip; // the control's, for afterwards
};
