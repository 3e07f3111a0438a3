#include "host/controls/images.h"

const TImages &Images()
{
    static const TImages images;
    return images;
}
