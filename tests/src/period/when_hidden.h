#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <functional>

// Does something at the moment when the widget of that name goes from the screen: what shows the work goes as
// soon as the work is done.
class WhenHidden : public QObject {
public:
    WhenHidden(const QString &widget, std::function<void()> then) : name(widget), act(std::move(then))
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (act && event->type() == QEvent::Hide && watched->objectName() == name)
            std::exchange(act, nullptr)();
        return false;
    }

private:
    QString name;
    std::function<void()> act;
};
