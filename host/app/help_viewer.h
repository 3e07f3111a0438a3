#pragma once

#include <QTextBrowser>

// The help window: one topic of docs/help at a time, with links between topics. Esc closes it.
class THelpViewer : public QTextBrowser {
    Q_OBJECT
public:
    explicit THelpViewer(QWidget *owner);

    // Shows a topic; a topic that is not written yet shows the table of contents.
    void showTopic(int topic);

protected:
    QVariant loadResource(int type, const QUrl &name) override;
    void keyPressEvent(QKeyEvent *event) override;
};

// Makes showHelp() open this viewer.
void installHelpViewer(QWidget *owner);
