#pragma once

#include <optional>
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

// Of pictures and windows, in pixels
inline const NbVec2i32 kSceneSize(640, 480); ///< Of a scene, if none is given.
inline constexpr int kLargestSize = 16384;   ///< On each axis.

enum class Form { IN_2D, IN_3D, BOTH };

/// Which dialog of a file is meant, and how. A file is taken as a scene, and shown whole, unless one of these is given
/// or it holds nothing but components.
struct DialogOptions {
  std::string id; ///< Its `auditorID`; empty for the first one.
  std::optional<Form> form;
};

struct RenderOptions {
  std::string file;
  std::string output;
  DialogOptions dialog;
  std::string skin; ///< Name or path; empty for the one that is set.
  std::optional<NbVec2i32> size;
  NbColor background;
};

/// Draws a scene or a form of a dialog into a PNG file.
int render(const RenderOptions& options);

struct ShowOptions {
  std::string file;
  DialogOptions dialog;
  std::string skin;
  std::optional<NbVec2i32> size;
};

/// Opens a scene or forms of a dialog until the user closes a window, and prints what the user does.
int show(const ShowOptions& options);

struct InspectOptions {
  std::string file;
  DialogOptions dialog;
  std::optional<NbVec2i32> size;
};

/// Builds a form of a dialog and prints what came of it.
int inspect(const InspectOptions& options);

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
