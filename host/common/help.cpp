#include "host/common/help.h"

#include <utility>

namespace {
std::function<void(int)> helpViewer;
}

void showHelp(int topic)
{
    if (helpViewer)
        helpViewer(topic);
}

void setHelpViewer(std::function<void(int topic)> viewer)
{
    helpViewer = std::move(viewer);
}
