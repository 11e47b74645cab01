#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "arbora/base/NbString.h"
#include "arbora/scene/export.h"

class NkBase;
class NkWriteAction;

/// Where a scene is written to: memory at first, or a file, as text or in the binary form.
class ARBORA_API NkOutput {
public:
  /// A scene is written in two stages: the first finds out which objects are used more than once.
  enum Stage { COUNT_REFS = 0, WRITE = 1 };

  NkOutput();
  /// Closes the file.
  virtual ~NkOutput();
  NkOutput(const NkOutput&) = delete;
  NkOutput& operator=(const NkOutput&) = delete;

  /// False, with a message, if the file can't be made.
  virtual bool openFile(const NbString& name);
  /// False if not all could be written, which is posted. Later output goes to memory.
  virtual bool closeFile();
  /// Goes back to memory, emptied.
  virtual void setBuffer();
  /// What was written to memory; it stays until the next write.
  virtual bool getBuffer(const void*& data, std::size_t& size) const;
  const std::string& getString() const { return m_buffer; }

  /// Counts only ahead of the first writing.
  virtual void setBinary(bool flag);
  virtual bool isBinary() const;

  Stage getStage() const { return m_stage; }
  void setStage(Stage stage) { m_stage = stage; }

  // For the writers of values. In the binary form each is a value of its own; in text only what is said here is
  // written.

  void write(int value);
  /// The shortest text that reads back as the same value.
  void write(float value);
  /// In text alone.
  void write(double value);
  void write(bool value);
  void write(const char* text) = delete; // It would count as a truth value.
  /// Text in UTF-8, in quotes.
  void writeText(std::string_view text);
  void writeBytes(const void* bytes, std::size_t size);
  /// Text as it stands, in the text form alone.
  void writeRaw(std::string_view text);
  void writeHexadecimal(std::uint32_t value);
  /// The name of an object, in quotes where it couldn't be read otherwise.
  void writeObjectName(std::string_view name);

  /// A line of its own, indented, unless a value was announced.
  void startLine();
  /// The object that follows is a value: it goes on in the line.
  void announceValue() { m_isValue = true; }
  /// What lies between them is indented.
  void openBrace(char brace);
  void closeBrace(char brace);
  /// A blank or, when the line is long, a new line.
  void separate();

  /// The header of the file; once.
  void writeFileHeader();

  /// The action that is writing; NULL between writings.
  NkWriteAction* getAction() const { return m_action; }
  void setAction(NkWriteAction* action) { m_action = action; }

  // The objects of one writing.

  /// Gives the object a name in the file, whether it is used once or more often.
  void requireName(const NkBase* object) { m_required.insert(object); }
  bool needsName(const NkBase* object) const { return !m_required.empty() && m_required.contains(object); }
  /// Name that no other object in this file has: the object's own, or one with a number behind it.
  const std::string& getFileName(const NkBase* object);
  /// True if the object was written before; it is from now on.
  bool markWritten(const NkBase* object);
  void forgetObjects();

private:
  struct Reference {
    std::string name;
    bool isWritten = false;
  };
  void flush();
  std::string makeFileName(const std::string& own);

  NbString m_fileName;
  std::string m_buffer;
  std::FILE* m_file = nullptr;
  std::size_t m_lineStart = 0;
  int m_indent = 0;
  int m_errorNumber = 0; // Of the system, once writing failed.
  bool m_isBinary = false;
  bool m_isValue = false;
  bool m_hasHeader = false;
  Stage m_stage = COUNT_REFS;
  NkWriteAction* m_action = nullptr;
  std::unordered_map<const NkBase*, Reference> m_references;
  std::unordered_set<const NkBase*> m_required;
  std::unordered_map<std::string, int> m_usedNames; // With the last number that was put behind each.
};

namespace arbora {

/// While it lives, objects count how often the output uses them. Counts of different writings don't mix.
class WritePass {
public:
  explicit WritePass(NkOutput* out, NkWriteAction* action = nullptr);
  ~WritePass();
  WritePass(const WritePass&) = delete;
  WritePass& operator=(const WritePass&) = delete;

  /// Tells the innermost writing of this thread from others; 0 if there is none.
  static unsigned current();

private:
  NkOutput* m_out;
  NkWriteAction* m_outerAction;
  unsigned m_outer;
};

} // namespace arbora
