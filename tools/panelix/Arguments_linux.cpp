#include "tools/panelix/Arguments.h"

std::vector<std::string> panelix::commandLineArguments(int argc, char** argv) {
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}
