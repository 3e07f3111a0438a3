#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>

#include <vector>

// The status bar of a list: panels from left to right, then a message, then a bar that moves while rows come.
class TStatusPanels : public QStatusBar {
    Q_OBJECT
public:
    explicit TStatusPanels(QWidget *parent);

    void addPanel(int width);
    void setPanel(int index, const QString &text);
    QString panel(int index) const;
    void setMessage(const QString &text);
    QString message() const;
    void setLoading(bool on);

private:
    std::vector<QLabel *> panels;
    QLabel *messageLabel;
    QProgressBar *progress;
};
