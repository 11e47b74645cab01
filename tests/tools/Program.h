#pragma once

#include <functional>
#include <string>
#include <vector>

/// A program that runs beside the test. Its output is kept; lines end with a plain newline on every system.
class Program {
public:
  /// The words are UTF-8. It runs in `folder` if one is given.
  Program(const std::string& path, const std::vector<std::string>& words, const std::string& folder = {});
  /// Ends it if it still runs.
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Waits until it ends, and gives its exit code; -1 if it didn't end by itself.
  int wait();
  void end();
  bool isRunning();
  /// What it has written so far.
  std::string out() const;
  std::string err() const;

private:
  void start(const std::string& path, const std::vector<std::string>& words, const std::string& folder);

  std::string m_outFile;
  std::string m_errFile;
  void* m_process = nullptr; // Of the system; NULL once it has ended.
  int m_exitCode = -1;
};

/// Waits until the condition holds; false if it doesn't within twenty seconds.
bool waitUntil(const std::function<bool()>& condition);

struct Result {
  int exitCode;
  std::string out;
  std::string err;
};

/// Runs the program under test to its end.
Result runPanelix(const std::vector<std::string>& words);

/// Files of the tests, with UTF-8 names.
std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& bytes);
/// Writes a scene text, behind its header, into a folder of the tests; gives the file's path.
std::string writeScene(const std::string& name, const std::string& text);

/// Where the drawing of a window of another program begins, on the screen; -1 if there is no window of that title.
struct WindowPlace {
  int x = -1;
  int y = -1;
};
WindowPlace placeOfWindow(const std::string& title);
