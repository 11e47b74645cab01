#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "arbora/scene/NkFieldContainer.h"
#include "arbora/scene/NkInput.h"

class NkFieldData;

namespace arbora {

/// Reads objects: the part of reading that goes beyond single values. One per input.
///
/// A name that `DEF` gives can be used until the outermost reading ends; that is when connections between fields are
/// made, too, so that a field may follow one that comes later in the file. After an error in the text the reading goes
/// on for the sake of further messages; the outermost reading then fails.
class ObjectReader {
public:
  explicit ObjectReader(NkInput* in) : m_in(*in) {}
  ObjectReader(const ObjectReader&) = delete;
  ObjectReader& operator=(const ObjectReader&) = delete;

  /// Reads an object that may follow, as a child or by itself.
  bool read(NkBase*& object, NkType expected, bool pathsToo);
  /// Reads the object that must follow as the value of a field; NULL after an error behind which reading goes on.
  bool readValue(Ref<NkBase>& object, NkType expected);
  /// Reads to the end of the input.
  bool readAll(NkType expected, const std::function<void(NkBase*)>& take);

  /// Reads the value of one field, or what it is connected from, or both.
  bool readField(NkFieldContainer* container, NkField* field);
  /// Makes the field follow another one when the reading ends.
  void addConnection(NkFieldContainer* container, NkField* field, std::string_view source, std::string_view sourceField,
                     std::size_t position);
  /// Reads fields by themselves, as text that an application gives.
  bool readFields(const NkFieldData* fields, NkFieldContainer* container);
  /// Skips to what the object's reading can go on with: a field of the table, a node, or the closing brace.
  void resume(const NkFieldData* fields);
  /// Posts that the name is no field of the container.
  void reportUnknownField(const NkFieldContainer* container, std::string_view name, std::size_t position);

private:
  enum Place {
    TOP,   // By itself.
    CHILD, // Behind the fields of another object, or in a row of objects.
    VALUE, // As the value of a field.
  };
  enum Outcome {
    READ,
    SKIPPED, // What stands there can't be used and was skipped.
    FAILED,  // What stands there can't be understood.
  };
  struct Named {
    Ref<NkBase> object;
    bool complete = false;
  };
  struct OpenObject {
    NkBase* object;
    Named* named;      // NULL for an object without a name.
    std::size_t brace; // Position of the opening brace.
    bool hasChildren;
  };
  struct Connection {
    Ref<NkFieldContainer> container;
    NkField* field;
    std::string sourceName;
    std::string sourceField;
    std::size_t position;
  };
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  using Names = std::unordered_map<std::string, Named, TextHash, std::equal_to<>>;
  struct CachedType {
    std::string_view name;
    NkType type;
  };

  bool readObject(Ref<NkBase>& object, NkType expected, Place place);
  bool readText(Ref<NkBase>& object, NkType expected, Place place);
  Outcome readTextNode(Ref<NkBase>& object, NkType expected, Place place);
  bool readBinary(Ref<NkBase>& object, NkType expected, Place place);
  // Apart, to keep the frames small of what calls itself for each level of nodes.
  [[gnu::noinline]] Outcome rejectToken(const char* expected);
  /// Posts a name that opens no node: that of a type if `expected` is bad, else of none that is known.
  [[gnu::noinline]] Outcome rejectName(std::string_view name, std::size_t position, NkType expected, bool mayBeField);
  [[gnu::noinline]] Outcome readUse(Ref<NkBase>& object, NkType expected);
  [[gnu::noinline]] bool readConnection(NkFieldContainer* container, NkField* field);
  bool readContents(NkBase* object, unsigned short flags);
  /// Reads the closing brace, and posts what stands ahead of it.
  [[gnu::noinline]] bool closeText();
  void skipNode();

  /// Makes the object whose contents come next. The last token is its opening brace.
  [[gnu::noinline]] bool open(Ref<NkBase>& object, NkType type, Names::value_type* named);
  void close();
  /// The entry of a name that `DEF` gives.
  Names::value_type* define(std::string_view name);
  /// Whether an object of the type can stand here; posts why it can't.
  [[gnu::noinline]] bool accepts(NkType type, std::string_view name, std::size_t position, NkType expected);
  void reportUnknownType(std::string_view name, std::size_t position, NkType expected);
  /// Posts a name that is neither a field nor a node, and reads the fields on behind it.
  void skipUnknownField(std::string_view name, std::size_t position);
  /// Skips what may be the value of an unknown field.
  void skipValue(const NkFieldData* fields);
  bool isNodeAhead(std::string_view name);
  NkFieldContainer* enclosing() const;

  /// Ends the outermost reading: makes the connections and forgets the names.
  bool finish();
  NkType findType(std::string_view name);

  NkInput& m_in;
  int m_depth = 0; // Readings within one another.
  std::vector<OpenObject> m_open;
  Names m_names;
  std::vector<Connection> m_connections;
  std::array<CachedType, 64> m_types;
  bool m_skippedNodes = false; // So names may be missing that the file gives.
};

} // namespace arbora
