#pragma once

#include "arbora/scene/export.h"

class NkInput;
class NkNode;
class NkSeparator;

/// The scene library as a whole.
class ARBORA_API NkDB {
public:
  /// Registers the classes at the first call; each call needs a `finish`, the last of which takes them out again.
  static void init();
  static void finish();
  static bool isInitialized();

  /// Name and version of the library.
  static const char* getVersion();

  /// All nodes of the input under one separator with reference count 0; NULL after an error, which is reported. An
  /// empty input gives an empty separator.
  static NkSeparator* readAll(NkInput* in);
  /// The next node of the input, with reference count 0; NULL at the end. False after an error. Names that `DEF` gives
  /// hold within this node.
  static bool read(NkInput* in, NkNode*& node);
};
