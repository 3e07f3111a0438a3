#include "host/app/login_patience.h"

#include "toolkit/widgets/guard.h"

#include <algorithm>

namespace {

constexpr int longestWait = 30;

// Seconds before the next try after so many refusals: 1, 2, 4, 8 and so on.
int waitAfter(int refusals)
{
    return std::min(longestWait, 1 << std::min(refusals - 1, 5));
}

} // namespace

TLoginPatience::TLoginPatience()
{
    eachSecond.setInterval(1000);
    connectGuarded(&eachSecond, &QTimer::timeout, this, [this] {
        if (--left <= 0)
            eachSecond.stop();
        emit counted();
    });
}

void TLoginPatience::refused()
{
    left = waitAfter(++refusals);
    eachSecond.start();
}
