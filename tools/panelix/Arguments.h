#pragma once

#include <string>
#include <vector>

namespace panelix {

/// The words of the command line behind the program's name, as UTF-8.
std::vector<std::string> commandLineArguments(int argc, char** argv);

} // namespace panelix
