#pragma once

#include "arbora/base/NbString.h"
#include "arbora/win/export.h"
#include "src/platform/Win32.h"

/// The application's connection to the window system: its main window, its window classes, its message loop and its
/// accelerator keys. All of it belongs to the thread that called `init`. Where no window can be made, handles are NULL
/// and what needs a window does nothing; the loop still serves render areas and delayed sensors.
class ARBORAWIN_API NkWin {
public:
  NkWin() = delete;

  /// Makes the application's main window, hidden; `show` shows it. Its close box ends the main loop with 0. A second
  /// call gives the same window. The scene library is the application's to start.
  static HWND init(const char* appName);
  /// Destroys the main window and forgets window classes, accelerators and the error dialog's hook. Windows that the
  /// application made must be gone.
  static void finish();

  /// The module of the running program.
  static HINSTANCE getInstance();
  /// What `init` made.
  static HWND getTopLevelWidget();
  /// The top-level window that was activated last, of those whose messages pass `isArboraMessage`.
  static HWND getActiveTopLevelWidget();

  /// Finds a window class that was registered here, or one of the system's own; gives nonzero if there is one, with the
  /// name to pass to `CreateWindowExA`. A class that somebody else registered in the program under that name isn't
  /// found: its windows would answer to somebody else.
  static int getClassInfo(HINSTANCE instance, const char* name, NbString& actualName, WNDCLASSA& record);
  /// Registers a window class; gives 0 on failure. Where somebody else's class has the name, `actualName` becomes
  /// another one.
  static int registerClass(const WNDCLASSA& record, NbString& actualName);

  /// Shows a window, restored if it was minimised, in front of the others and painted.
  static void show(HWND window);
  static void hide(HWND window);

  /// Serves messages and delayed sensors until `exitMainLoop`, and gives its code. Where no window can be made it ends,
  /// with 0, also when there is no open render area: nothing could ever wake it.
  static int mainLoop();
  static void exitMainLoop(int code = 0);
  /// Serves what waits, for applications with a loop of their own. False once `exitMainLoop` was called; the main loop
  /// that comes next, if any, then ends at once.
  static bool processPendingMessages();

  /// Each message of a top-level window passes here first. It tells the layer which window is active; gives nonzero if
  /// it learned something. The message is the window's all the same.
  static int isArboraMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  /// From now on the key sends WM_COMMAND, with 1 in the high word of wParam, to the top-level window that has the
  /// focus, provided that `mainLoop` or `processPendingMessages` serves the messages. A second record for the same key
  /// replaces the first.
  static void addAccelerator(const ACCEL& record);
  /// Removes all keys of a command.
  static void removeAccelerator(WORD command);

  /// Tells the user about an error and waits for the answer. Where there are no windows the message is posted.
  static void createSimpleErrorDialog(HWND parent, const char* title, const char* line1, const char* line2 = nullptr);
  /// Gets the errors in place of the dialog; NULL brings the dialog back. Missing texts come as empty ones.
  using ErrorDialogHook = void(void* data, HWND parent, const char* title, const char* line1, const char* line2);
  static void setErrorDialogHook(ErrorDialogHook* hook, void* data);
};
