#pragma once

#include <functional>

// Shows a help topic. The host's program supplies the viewer; without one nothing happens.
void showHelp(int topic);
void setHelpViewer(std::function<void(int topic)> viewer);
