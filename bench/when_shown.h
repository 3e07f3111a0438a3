#pragma once

#include <QApplication>
#include <QTimer>

#include <functional>

// When the next modal window of class T comes, act is called with it.
template<typename T> void whenShown(std::function<void(T &)> act)
{
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
        if (auto *window = dynamic_cast<T *>(QApplication::activeModalWidget())) {
            timer->deleteLater();
            timer->stop();
            act(*window);
        }
    });
    timer->start(0);
}
