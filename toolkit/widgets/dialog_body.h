#pragma once

#include <QScrollArea>

class QVBoxLayout;

// The part of a dialog above its buttons. It is as large as its content wants to be, and scrolls only where
// the screen has less room than that; the focused control is always in view.
class TDialogBody : public QScrollArea {
    Q_OBJECT
public:
    explicit TDialogBody(QWidget *parent);

    QVBoxLayout *contentLayout() const { return content; }
    void setRoom(QSize most); // what the screen leaves to the body

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QSize fitting(QSize wanted) const;
    QVBoxLayout *content;
    QSize room;
};
