#pragma once

#include <functional>

class TBookFrm;

// Leads a classification-book screen to a node where this holds, the first in the order of the tree; false,
// and the screen stays where it was, when there is none.
bool goToNode(TBookFrm &book, const std::function<bool()> &holds);
