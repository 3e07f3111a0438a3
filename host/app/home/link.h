#pragma once

#include <QAbstractButton>

// A text that leads somewhere: in the colour of links, underlined while the mouse or the keyboard is on it.
// Space and Enter follow it, the arrow keys go on to the next one. A text that is too long is cut, and whole
// in the tool tip.
class TLink : public QAbstractButton {
    Q_OBJECT
public:
    explicit TLink(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // What stands around the text, so that texts above and below stand in line with it.
    static int padding(const QWidget &in);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
};
