#include "src/dialog/support/Windows.h"

bool panelix::canMakeWindows() { return false; }
