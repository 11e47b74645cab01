#include <cstdio>

#include "Panelix/NkPanelix.h"

int main() {
  NkPanelix::init();
  std::printf("%s\n", NkPanelix::getVersion());
  NkPanelix::finish();
}
