#pragma once

#include <array>
#include <functional>
#include <string>

#include "arbora/win/NkRenderArea.h"

/// The screen that the tests show windows on, and a user in front of it, who acts from outside of the program.
namespace desktop {

/// Sees to it that there is a screen; it stays to the end of the program.
void start();

/// Serves the windows until the condition holds. False if it doesn't within ten seconds.
bool serveUntil(const std::function<bool()>& condition);
/// Serves the windows for a moment in which nothing is expected to happen.
void serveAWhile();

/// Runs a command of the shell while the windows are served; true if it succeeds.
bool run(const std::string& command);
/// Moves the pointer, presses buttons and keys: the words are xdotool's.
bool act(const std::string& words);
/// Words that move the pointer to a pixel of an area, counted from its upper left corner.
std::string moveTo(const NkRenderArea& area, int x, int y);

/// Where a picture of the whole screen was left; the name is without its ending.
std::string takePicture(const std::string& name);
/// Red, green and blue of a picture's pixel.
std::array<int, 3> pixelOf(const std::string& picture, int x, int y);
/// The same within an area, on the screen as it is now.
std::array<int, 3> pixelOf(const NkRenderArea& area, int x, int y);

// What differs between the systems.

/// Begins a command of the shell and doesn't wait for it.
void launch(const std::string& command);
/// The name that the shell has for a file of the program.
std::string shellPath(const std::string& path);
/// The screen position of an area's upper left corner.
std::array<int, 2> placeOf(const NkRenderArea& area);
/// Closes the window as its user does. It has to be the one in front.
bool closeByUser(const NkRenderArea& area);

} // namespace desktop
