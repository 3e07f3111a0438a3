#pragma once

#include "toolkit/widgets/icons.h"

#include <QSize>

// The shared image list for buttons: the picture of every action at the place of its TIcon.
class TImages {
public:
    int Count() const { return iconCount; }
    QSize size() const { return {20, 20}; } // of a picture on a button
    QIcon operator[](TIcon which) const { return icon(which); }
};

const TImages &Images();
