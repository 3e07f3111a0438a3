// The least that any program with a window does: the measure of a start.

#include <QApplication>
#include <QMainWindow>

#include <cstdio>

namespace {

class TEmptyWindow : public QMainWindow {
protected:
    void paintEvent(QPaintEvent *event) override
    {
        QMainWindow::paintEvent(event);
        std::fputs("first-paint\n", stderr);
    }
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    TEmptyWindow window;
    window.resize(1024, 720);
    window.show();
    return QApplication::exec();
}
