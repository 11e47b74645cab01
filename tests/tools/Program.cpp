#include "tests/tools/Program.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "tests/support/TestSupport.h"

namespace {

std::filesystem::path pathOf(const std::string& name) { return std::u8string(name.begin(), name.end()); }

std::string withPlainNewlines(std::string text) {
  std::erase(text, '\r');
  return text;
}

int s_count = 0;

} // namespace

Program::Program(const std::string& path, const std::vector<std::string>& words, const std::string& folder) {
  const std::string name = outputDir() + "/program" + std::to_string(++s_count);
  m_outFile = name + ".out";
  m_errFile = name + ".err";
  start(path, words, folder);
}

Program::~Program() {
  end();
  std::filesystem::remove(m_outFile);
  std::filesystem::remove(m_errFile);
}

std::string Program::out() const { return withPlainNewlines(readFile(m_outFile)); }

std::string Program::err() const { return withPlainNewlines(readFile(m_errFile)); }

bool waitUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  return true;
}

Result runPanelix(const std::vector<std::string>& words) {
  Program program(PANELIX_PROGRAM, words);
  const int exitCode = program.wait();
  return {exitCode, program.out(), program.err()};
}

std::string readFile(const std::string& path) {
  std::ifstream file(pathOf(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeFile(const std::string& path, const std::string& bytes) {
  std::filesystem::create_directories(pathOf(path).parent_path());
  std::ofstream(pathOf(path), std::ios::binary) << bytes;
}

std::string writeScene(const std::string& name, const std::string& text) {
  const std::string path = outputDir() + "/tools/" + name;
  writeFile(path, "#Arbora V2.1 ascii\n" + text);
  return path;
}
