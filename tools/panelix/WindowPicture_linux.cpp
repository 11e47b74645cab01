#include "tools/panelix/WindowPicture.h"

panelix::WindowPicture::WindowPicture(HWND) {}
