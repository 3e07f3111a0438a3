#include "src/frame/SysInit.h"

namespace SysInit {
TUnit unit("SysInit");
}
