#pragma once

#include "host/common/package.h"

#include <QStringList>

// Opens what the entry names, calls look with its window and leaves it again without changing anything. Of a
// function the first window is looked at.
void lookAtEntry(const TPackageEntry &entry, const std::function<void(QWidget &)> &look);

// Controls that take input but have neither a caption, nor a label of their own, nor an accessible name.
QStringList controlsWithoutName(QWidget &window);
// Enabled controls that neither Tab nor a key of their own reaches.
QStringList controlsOutOfReach(QWidget &window);
// Letters that two visible controls of the window share as their accelerator.
QStringList repeatedAccelerators(QWidget &window);
