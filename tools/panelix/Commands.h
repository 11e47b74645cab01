#pragma once

#include <string>
#include <vector>

#include "arbora/base/NbColor.h"
#include "arbora/base/NbVec2i32.h"

/// The commands of the program. Each gives the program's exit code; what went wrong has been posted.
namespace panelix {

enum ExitCode {
  GOOD = 0,
  FAILED = 1,  ///< Findings, or a file that can't be read or written.
  UNUSABLE = 2 ///< Wrong usage, or there is no display or no OpenGL.
};

struct RenderOptions {
  std::string file;
  std::string output;
  NbVec2i32 size{640, 480};
  NbColor background;
};

/// Draws a scene into a PNG file.
int render(const RenderOptions& options);

struct ShowOptions {
  std::string file;
  NbVec2i32 size{640, 480};
};

/// Opens a scene in a window until the user closes it, and prints what the user drags.
int show(const ShowOptions& options);

struct CheckOptions {
  std::vector<std::string> files;
  bool strict = false; ///< Warnings count as errors do.
  bool json = false;
};

/// Reads files and reports what is wrong in them.
int check(const CheckOptions& options);

struct DescribeOptions {
  std::string type; ///< Keyword or class name; empty for all classes.
  bool json = false;
};

/// Prints what classes dialog files have.
int describe(const DescribeOptions& options);

} // namespace panelix
