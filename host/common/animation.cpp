#include "host/common/forms.h"

#include "toolkit/data/database.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>

#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int usualInterval = 40; // milliseconds: 25 frames a second
constexpr int framesPerRound = 40;

std::vector<TAnimate *> &running()
{
    static std::vector<TAnimate *> all;
    return all;
}

// Asks the sessions to paint while they are busy, unless the program already has a hook of its own.
void hookSessions()
{
    TDatabase::BusyHook previous = TDatabase::setBusyHook(paintWhileBusy);
    if (previous)
        TDatabase::setBusyHook(std::move(previous));
}

void drawFolder(QPainter &painter, QRectF at)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(QRectF(at.left(), at.top(), at.width() * 0.45, at.height() * 0.4), 3, 3);
    path.addRoundedRect(at.adjusted(0, at.height() * 0.18, 0, 0), 3, 3);
    painter.setPen(QPen(QColor(0x9a, 0x70, 0x14), 1));
    painter.setBrush(QColor(0xf2, 0xc4, 0x4f));
    painter.drawPath(path.simplified());
}

void drawSheet(QPainter &painter, QPointF centre, double opacity)
{
    const QRectF sheet(centre.x() - 9, centre.y() - 12, 18, 24);
    painter.setOpacity(opacity);
    painter.setPen(QPen(QColor(0x50, 0x60, 0x78), 1));
    painter.setBrush(Qt::white);
    painter.drawRect(sheet);
    for (int line = 1; line <= 4; ++line)
        painter.drawLine(sheet.topLeft() + QPointF(3, line * 4.5), sheet.topLeft() + QPointF(15, line * 4.5));
    painter.setOpacity(1);
}

void drawLens(QPainter &painter, QPointF centre)
{
    painter.setPen(QPen(QColor(0x30, 0x50, 0x90), 3));
    painter.setBrush(QColor(0xd8, 0xe8, 0xff, 0x90));
    painter.drawLine(centre + QPointF(7, 7), centre + QPointF(15, 15));
    painter.drawEllipse(centre, 9, 9);
}

// The sheet flies in an arc from one place to the other and fades out at the end.
void drawFlight(QPainter &painter, QPointF from, QPointF to, double round)
{
    const QPointF at = from + (to - from) * round - QPointF(0, 20 * std::sin(M_PI * round));
    drawSheet(painter, at, round < 0.85 ? 1.0 : (1.0 - round) / 0.15);
}
} // namespace

struct TAnimate::Private {
    TCommonAVI kind;
    QTimer timer;
    QElapsedTimer sinceFrame;
    int frame = 0;
    bool active = false;
};

TAnimate::TAnimate(TCommonAVI kind, QWidget *parent) : QWidget(parent), d(std::make_unique<Private>())
{
    d->kind = kind;
    d->timer.setInterval(usualInterval);
    connect(&d->timer, &QTimer::timeout, this, &TAnimate::advance);
    setAccessibleName(u"Vyksta darbas"_s);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    hide();
}

TAnimate::~TAnimate()
{
    std::erase(running(), this);
}

void TAnimate::Start()
{
    show();
    if (d->active)
        return;
    hookSessions();
    d->active = true;
    d->frame = 0;
    d->sinceFrame.start();
    d->timer.start();
    running().push_back(this);
}

void TAnimate::Stop()
{
    d->active = false;
    d->timer.stop();
    std::erase(running(), this);
}

bool TAnimate::Active() const
{
    return d->active;
}

int TAnimate::frame() const
{
    return d->frame;
}

void TAnimate::setInterval(int milliseconds)
{
    d->timer.setInterval(milliseconds > 0 ? milliseconds : usualInterval);
}

// The timer and the busy hook both come here; the clock keeps the pace the same. A timer may come a little
// early.
void TAnimate::advance()
{
    if (!d->active || d->sinceFrame.elapsed() + 5 < d->timer.interval())
        return;
    d->sinceFrame.start();
    ++d->frame;
    repaint();
}

QSize TAnimate::sizeHint() const
{
    return {272, 60};
}

void TAnimate::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double round = d->frame % framesPerRound / double(framesPerRound);
    const QRectF left(12, height() / 2.0 - 13, 40, 32);
    const QRectF right(width() - 52, height() / 2.0 - 13, 40, 32);
    switch (d->kind) {
    case TCommonAVI::aviNone:
        return;
    case TCommonAVI::aviCopyFiles:
        drawFolder(painter, left);
        drawFolder(painter, right);
        drawFlight(painter, left.center(), right.center(), round);
        return;
    case TCommonAVI::aviDeleteFile:
        drawFolder(painter, left);
        drawFlight(painter, left.center(), right.center(), round);
        return;
    case TCommonAVI::aviFindFolder:
    case TCommonAVI::aviFindFile:
        const QPointF middle(width() / 2.0, height() / 2.0);
        if (d->kind == TCommonAVI::aviFindFolder)
            drawFolder(painter, QRectF(middle.x() - 20, middle.y() - 16, 40, 32));
        else
            drawSheet(painter, middle, 1);
        drawLens(painter, middle + QPointF(22 * std::cos(2 * M_PI * round), 8 * std::sin(2 * M_PI * round)));
        return;
    }
}

namespace {
// The shared progress window. It cannot be closed by the user: the work it stands for decides.
class ProgressWindow : public QDialog {
public:
    ProgressWindow(TCommonAVI kind, const QString &text, bool modal, int interval, QWidget *parent)
        : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
          message(text),
          animation(new TAnimate(kind, this))
    {
        setObjectName(u"Animation"_s);
        setWindowTitle(u"Palaukite"_s);
        // A modal window that shows work in progress must not start an event loop of its own: it is only
        // shown.
        setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
        auto *label = new QLabel(text, this);
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(animation);
        layout->addWidget(label);
        animation->setInterval(interval);
        animation->Start();
    }

    void reject() override {}

    const QString message;

private:
    TAnimate *animation;
};

// The window in front of the user may go with its parent, so the pointers are weak.
std::vector<QPointer<ProgressWindow>> &progressWindows()
{
    static std::vector<QPointer<ProgressWindow>> all;
    std::erase(all, nullptr);
    return all;
}

bool painting = false;

void pumpPaints()
{
    painting = true;
    for (TAnimate *animation : std::vector(running()))
        animation->advance();
    // Timers would let lists fetch and searches go on: on the connection that is busy this very moment.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers |
                                    QEventLoop::X11ExcludeTimers);
    painting = false;
}
} // namespace

void EnableAnimation(TCommonAVI kind, const QString &text, bool modal, int interval)
{
    auto &windows = progressWindows();
    if (!windows.empty())
        windows.back()->hide();
    windows.emplace_back(new ProgressWindow(kind, text, modal, interval, QApplication::activeWindow()));
    windows.back()->show();
    pumpPaints();
}

void DisableAnimation(const QString &text)
{
    auto &windows = progressWindows();
    const auto last = std::find_if(windows.rbegin(), windows.rend(), [&](const auto &window) {
        return text.isEmpty() || window->message == text;
    });
    if (last == windows.rend())
        return;
    delete last->data();
    if (!progressWindows().empty())
        progressWindows().back()->show();
}

void paintWhileBusy()
{
    static QElapsedTimer sinceLast;
    if (painting || (sinceLast.isValid() && sinceLast.elapsed() < usualInterval))
        return;
    sinceLast.start();
    pumpPaints();
}
