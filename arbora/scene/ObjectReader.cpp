#include "arbora/scene/ObjectReader.h"

#include "arbora/scene/NkField.h"
#include "arbora/scene/NkFieldData.h"
#include "arbora/scene/NkPath.h"

namespace arbora {

namespace {

constexpr std::string_view kDefine = "DEF";
constexpr std::string_view kUse = "USE";
constexpr std::string_view kNull = "NULL";

// What the writer added to tell objects of one name apart.
std::string_view withoutSuffix(std::string_view name) {
  const std::size_t plus = name.rfind('+');
  if (plus == std::string_view::npos || plus + 1 == name.size() ||
      name.find_first_not_of("0123456789", plus + 1) != std::string_view::npos)
    return name;
  return name.substr(0, plus);
}

bool isVowel(char c) { return std::string_view("AEIOUaeiou").find(c) != std::string_view::npos; }

std::string withArticle(std::string_view noun) {
  return (!noun.empty() && isVowel(noun.front()) ? "an " : "a ") + std::string(noun);
}

std::string typeName(NkType type) { return type.getName().getString(); }

// Hands the object on without the reference; nobody needs to have one.
NkBase* release(Ref<NkBase>& reference) {
  NkBase* object = reference.get();
  if (!object) return nullptr;
  object->ref();
  reference = Ref<NkBase>();
  object->unrefNoDelete();
  return object;
}

const NkFieldData* fieldsOf(const NkFieldContainer* container) {
  return container ? container->getFieldData() : nullptr;
}

bool isField(const NkFieldData* fields, std::string_view name) {
  for (int i = 0; fields && i < fields->getNumFields(); ++i) {
    if (fields->getFieldName(i).getView() == name) return true;
  }
  return false;
}

} // namespace

// Outermost and inner readings

bool ObjectReader::read(NkBase*& object, NkType expected, bool pathsToo) {
  object = nullptr;
  Ref<NkBase> result;
  ++m_depth;
  const Place place = m_open.empty() && m_depth == 1 ? TOP : CHILD;
  // Where any object may stand, a path is left out only if the caller can't use one.
  const NkType type = expected == NkBase::getClassTypeId() && !pathsToo ? NkFieldContainer::getClassTypeId() : expected;
  bool ok = readObject(result, type, place);
  --m_depth;
  if (m_depth == 0 && m_open.empty()) ok = finish() && ok;
  if (!ok) return false;
  object = release(result);
  return true;
}

bool ObjectReader::readValue(Ref<NkBase>& object, NkType expected) {
  if (!m_in.isBinary() && m_in.peekName() == kNull) {
    m_in.take(m_in.peekName());
    return true;
  }
  ++m_depth;
  bool ok = readObject(object, expected, VALUE);
  --m_depth;
  if (m_depth == 0 && m_open.empty()) ok = finish() && ok;
  return ok;
}

bool ObjectReader::readAll(NkType expected, const std::function<void(NkBase*)>& take) {
  ++m_depth;
  while (!m_in.atEnd() && !m_in.hasGivenUp()) {
    Ref<NkBase> object;
    if (!readObject(object, expected, CHILD)) break;
    if (object)
      take(object.get());
    else if (m_in.take('}'))
      m_in.error("this '}' closes nothing");
  }
  --m_depth;
  return finish();
}

bool ObjectReader::finish() {
  for (const Connection& connection : m_connections) {
    const auto source = m_names.find(connection.sourceName);
    const NkFieldContainer* container =
        source == m_names.end() ? nullptr : as<NkFieldContainer>(source->second.object.get());
    const std::string described = quoted(connection.sourceName);
    if (!container) {
      if (!m_skippedNodes) m_in.errorAt(connection.position, "nothing is named %s", described.c_str());
      continue;
    }
    NkField* field = container->getField(NbName(std::string_view(connection.sourceField)));
    if (!field) {
      m_in.errorAt(connection.position, "%s has no field %s", described.c_str(),
                   quoted(connection.sourceField).c_str());
    } else if (field == connection.field || field->getTypeId() != connection.field->getTypeId()) {
      m_in.errorAt(connection.position, "a field of type %s can't follow %s.%s, which is of type %s",
                   typeName(connection.field->getTypeId()).c_str(), described.c_str(), connection.sourceField.c_str(),
                   typeName(field->getTypeId()).c_str());
    } else {
      connection.field->connectFrom(field);
    }
  }
  m_connections.clear();
  m_names.clear();
  return !m_in.hasErrors() && !m_in.hasGivenUp();
}

bool ObjectReader::readObject(Ref<NkBase>& object, NkType expected, Place place) {
  if (m_in.hasGivenUp()) return false;
  return m_in.isBinary() ? readBinary(object, expected, place) : readText(object, expected, place);
}

// Making objects

NkType ObjectReader::findType(std::string_view name) {
  if (name.empty()) return NkType::badType();
  const auto code = [](char c) { return static_cast<unsigned char>(c); };
  const std::size_t hash = name.size() * 31 + code(name.front()) * 7U + code(name.back());
  CachedType& cached = m_types[hash % m_types.size()];
  if (cached.name != name || cached.name.empty()) {
    const NkType type = NkType::fromName(NbName(name));
    // Classes of field values and the like are no objects.
    cached = {name, type.isDerivedFrom(NkBase::getClassTypeId()) ? type : NkType::badType()};
  }
  return cached.type;
}

ObjectReader::Names::value_type* ObjectReader::define(std::string_view name) {
  auto entry = m_names.find(name);
  if (entry == m_names.end()) entry = m_names.emplace(std::string(name), Named()).first;
  entry->second = Named();
  return &*entry;
}

void ObjectReader::reportUnknownType(std::string_view name, std::size_t position, NkType expected) {
  std::string suggestion;
  for (const NkType family : {expected, NkBase::getClassTypeId()}) {
    std::vector<NkType> types;
    NkType::getAllDerivedFrom(family, types);
    Suggestion likely(name);
    for (const NkType type : types) {
      if (type.canCreateInstance()) likely.consider(type.getName().getView());
    }
    if (suggestion.empty()) suggestion = likely.text();
  }
  m_in.errorAt(position, "there is no node type %s%s", quoted(name).c_str(), suggestion.c_str());
}

bool ObjectReader::accepts(NkType type, std::string_view name, std::size_t position, NkType expected) {
  if (type.isBad()) {
    reportUnknownType(name, position, expected);
  } else if (!type.isDerivedFrom(expected)) {
    m_in.errorAt(position, "%s can't stand here: %s expected", withArticle(typeName(type)).c_str(),
                 typeName(expected).c_str());
  } else if (!type.canCreateInstance()) {
    m_in.errorAt(position, "%s stands for a family of node types: one of them expected", quoted(name).c_str());
  } else {
    return true;
  }
  return false;
}

bool ObjectReader::open(Ref<NkBase>& object, NkType type, Names::value_type* named) {
  if (m_open.size() >= static_cast<std::size_t>(NkInput::kMaxDepth)) {
    m_in.fatal("more than %d nodes stand within one another", NkInput::kMaxDepth);
    return false;
  }
  object = Ref<NkBase>(type.createInstance());
  if (named) {
    const std::string_view name = withoutSuffix(named->first);
    if (!name.empty()) object->setName(NbName(name));
    named->second.object = object;
  }
  m_open.push_back({object.get(), named ? &named->second : nullptr, m_in.getTokenPosition(), false});
  return true;
}

void ObjectReader::close() {
  const OpenObject& closed = m_open.back();
  // Another object may have taken the name over inside.
  if (closed.named && closed.named->object.get() == closed.object) closed.named->complete = true;
  m_open.pop_back();
}

bool ObjectReader::readContents(NkBase* object, unsigned short flags) {
  const int errors = m_in.getErrorCount();
  if (object->readInstance(&m_in, flags)) return true;
  if (m_in.getErrorCount() == errors && !m_in.hasGivenUp())
    m_in.error("this %s can't be read", object->getFileFormatName());
  return false;
}

ObjectReader::Outcome ObjectReader::readUse(Ref<NkBase>& object, NkType expected) {
  std::string_view name;
  if (!m_in.readObjectName(name)) return FAILED;
  const auto entry = m_names.find(name);
  if (entry == m_names.end() || !entry->second.object) {
    if (m_skippedNodes) return SKIPPED;
    Suggestion suggestion(name);
    for (const auto& [candidate, named] : m_names) suggestion.consider(candidate);
    m_in.error("nothing ahead of this is named %s%s", quoted(name).c_str(), suggestion.text().c_str());
    return SKIPPED;
  }
  const Named& named = entry->second;
  if (!named.complete) {
    m_in.error("%s can't contain itself", quoted(name).c_str());
  } else if (!named.object->isOfType(expected)) {
    m_in.error("%s can't stand here: it is %s, %s expected", quoted(name).c_str(),
               withArticle(typeName(named.object->getTypeId())).c_str(), typeName(expected).c_str());
  } else {
    object = named.object;
    return READ;
  }
  return SKIPPED;
}

NkFieldContainer* ObjectReader::enclosing() const {
  return m_open.empty() ? nullptr : as<NkFieldContainer>(m_open.back().object);
}

// Text

bool ObjectReader::readText(Ref<NkBase>& object, NkType expected, Place place) {
  for (;;) {
    const int next = m_in.peek();
    if (place != VALUE && (next < 0 || next == '}')) return true;
    const Outcome outcome = readTextNode(object, expected, place);
    if (outcome == READ) return true;
    if (m_in.hasGivenUp()) return false;
    if (place == VALUE) return outcome == SKIPPED;
    if (place == TOP) return false;
    if (outcome == FAILED) resume(fieldsOf(enclosing()));
  }
}

ObjectReader::Outcome ObjectReader::rejectName(std::string_view name, std::size_t position, NkType expected,
                                               bool mayBeField) {
  if (mayBeField) {
    skipUnknownField(name, position);
    return SKIPPED;
  }
  if (!expected.isBad())
    reportUnknownType(name, position, expected);
  else
    m_in.error("'{' expected behind %s, found %s", quoted(name).c_str(), m_in.describeNext().c_str());
  return FAILED;
}

ObjectReader::Outcome ObjectReader::rejectToken(const char* expected) {
  m_in.error("%s expected, found %s", expected, m_in.describeNext().c_str());
  return FAILED;
}

ObjectReader::Outcome ObjectReader::readTextNode(Ref<NkBase>& object, NkType expected, Place place) {
  std::string_view name = m_in.peekName();
  std::size_t position = m_in.getTokenPosition();
  if (name.empty()) return rejectToken("a node");
  if (name == kUse) {
    m_in.take(name);
    return readUse(object, expected);
  }
  Names::value_type* named = nullptr;
  if (name == kDefine) {
    m_in.take(name);
    if (!m_in.readObjectName(name)) return FAILED;
    named = define(name);
    name = m_in.peekName();
    position = m_in.getTokenPosition();
    if (name.empty()) return rejectToken("a node type");
  }
  const NkType type = findType(name);
  m_in.take(name);
  if (m_in.peek() != '{') {
    const bool mayBeField = place == CHILD && !named && type.isBad() && enclosing();
    return rejectName(name, position, type.isBad() ? expected : NkType::badType(), mayBeField);
  }
  if (place == CHILD && !m_open.empty()) m_open.back().hasChildren = true;
  if (!accepts(type, name, position, expected)) {
    m_skippedNodes = true;
    m_in.skipToken();
    return SKIPPED;
  }
  m_in.take('{');
  if (!open(object, type, named)) return FAILED;
  readContents(object.get(), 0);
  const bool closed = closeText();
  close();
  if (closed) return READ;
  object = Ref<NkBase>();
  return FAILED;
}

bool ObjectReader::closeText() {
  for (;;) {
    if (m_in.hasGivenUp()) return false;
    if (m_in.take('}')) return true;
    const OpenObject& open = m_open.back();
    if (m_in.peek() < 0) {
      m_in.fatal("'}' expected for the '{' at %s", m_in.describePosition(open.brace).c_str());
      return false;
    }
    const std::string_view name = m_in.peekName();
    const std::size_t position = m_in.getTokenPosition();
    if (isNodeAhead(name)) {
      m_in.error("%s takes no child nodes", withArticle(open.object->getFileFormatName()).c_str());
      skipNode();
    } else if (!name.empty()) {
      m_in.take(name);
      skipUnknownField(name, position);
    } else {
      m_in.error("the name of a field expected, found %s", m_in.describeNext().c_str());
      m_in.skipToken();
      resume(fieldsOf(enclosing()));
    }
  }
}

bool ObjectReader::isNodeAhead(std::string_view name) {
  if (name == kDefine || name == kUse) return true;
  if (name.empty()) return false;
  m_in.take(name);
  const bool isNode = m_in.peek() == '{';
  m_in.putBack(name);
  return isNode;
}

void ObjectReader::skipNode() {
  std::string_view name = m_in.peekName();
  m_in.take(name);
  m_skippedNodes = true;
  if (name == kDefine || name == kUse) {
    const bool isUse = name == kUse;
    if (!m_in.readObjectName(name) || isUse) return;
    m_in.take(m_in.peekName());
  }
  if (m_in.peek() == '{') m_in.skipToken();
}

void ObjectReader::resume(const NkFieldData* fields) {
  while (m_in.peek() >= 0 && m_in.peek() != '}' && !m_in.hasGivenUp()) {
    const std::string_view name = m_in.peekName();
    if (isNodeAhead(name) || (!name.empty() && isField(fields, name))) return;
    m_in.skipToken();
  }
}

void ObjectReader::skipValue(const NkFieldData* fields) {
  const int first = m_in.peek();
  if (first == '[' || first == '(') {
    const char last = first == '[' ? ']' : ')';
    while (m_in.peek() >= 0 && m_in.peek() != '}' && !m_in.hasGivenUp()) {
      if (m_in.take(last)) return;
      m_in.skipToken();
    }
    return;
  }
  std::string_view name = m_in.peekName();
  if (!name.empty() && !isNodeAhead(name) && !isField(fields, name)) {
    m_in.take(name);
    return;
  }
  // Numbers and strings.
  while (m_in.peekName().empty() && (m_in.peek() == '"' || !m_in.peekWord().empty()) && !m_in.hasGivenUp())
    m_in.skipToken();
}

void ObjectReader::reportUnknownField(const NkFieldContainer* container, std::string_view name, std::size_t position) {
  Suggestion suggestion(name);
  const NkFieldData* fields = container->getFieldData();
  for (int i = 0; fields && i < fields->getNumFields(); ++i) suggestion.consider(fields->getFieldName(i).getView());
  m_in.errorAt(position, "%s has no field %s%s", withArticle(container->getFileFormatName()).c_str(),
               quoted(name).c_str(), suggestion.text().c_str());
}

void ObjectReader::skipUnknownField(std::string_view name, std::size_t position) {
  NkFieldContainer* container = enclosing();
  const NkFieldData* fields = fieldsOf(container);
  const bool hasChildren = m_open.back().hasChildren;
  if (!hasChildren && isField(fields, name)) {
    // The fields go on behind an error.
    m_in.putBack(name);
    fields->read(&m_in, container);
    return;
  }
  if (hasChildren && isField(fields, name))
    m_in.errorAt(position, "the field %s must stand ahead of the first child node", quoted(name).c_str());
  else if (container)
    reportUnknownField(container, name, position);
  else
    m_in.errorAt(position, "%s is unexpected here", quoted(name).c_str());
  skipValue(fields);
  if (m_in.peekName().empty()) resume(fields);
  if (fields && !hasChildren) fields->read(&m_in, container);
}

// Fields

bool ObjectReader::readField(NkFieldContainer* container, NkField* field) {
  if (m_in.peek() != '=' && !field->readValue(&m_in)) return false;
  return !m_in.take('=') || readConnection(container, field);
}

bool ObjectReader::readConnection(NkFieldContainer* container, NkField* field) {
  std::string_view text;
  if (!m_in.readObjectName(text)) return false;
  const std::size_t position = m_in.getTokenPosition();
  const std::string source(text);
  text = m_in.take('.') ? m_in.peekName() : std::string_view();
  if (text.empty()) {
    m_in.error("a connection has the form NAME.FIELD, found %s", m_in.describeNext().c_str());
    return false;
  }
  m_in.take(text);
  addConnection(container, field, source, text, position);
  return true;
}

void ObjectReader::addConnection(NkFieldContainer* container, NkField* field, std::string_view source,
                                 std::string_view sourceField, std::size_t position) {
  m_connections.push_back(
      {Ref<NkFieldContainer>(container), field, std::string(source), std::string(sourceField), position});
}

bool ObjectReader::readFields(const NkFieldData* fields, NkFieldContainer* container) {
  container->ref();
  ++m_depth;
  fields->read(&m_in, container, true);
  if (!m_in.atEnd()) m_in.error("the name of a field expected, found %s", m_in.describeNext().c_str());
  --m_depth;
  const bool ok = finish();
  container->unrefNoDelete();
  return ok;
}

// Binary

bool ObjectReader::readBinary(Ref<NkBase>& object, NkType expected, Place place) {
  if (place != VALUE && m_open.empty() && m_in.atEnd()) return true;
  std::string_view name;
  if (!m_in.read(name)) return false;
  if (name.empty()) return true;
  Names::value_type* named = nullptr;
  bool ok = true;
  if (name == kUse) {
    ok = readUse(object, expected) == READ;
  } else {
    if (name == kDefine) {
      if (!m_in.readObjectName(name)) return false;
      named = define(name);
      if (!m_in.read(name)) return false;
    }
    const NkType type = findType(name);
    int flags = 0;
    ok = accepts(type, name, m_in.getTokenPosition(), expected) && m_in.read(flags) && open(object, type, named);
    if (ok) {
      ok = readContents(object.get(), static_cast<unsigned short>(flags));
      close();
    }
  }
  if (ok) return true;
  // The place where an object ends is known to the object alone, so nothing behind it can be read.
  m_in.giveUp();
  object = Ref<NkBase>();
  return false;
}

} // namespace arbora
