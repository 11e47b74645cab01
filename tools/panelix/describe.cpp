#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "Panelix/NkPanelix.h"
#include "Panelix/Vocabulary.h"
#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkFieldData.h"
#include "arbora/scene/Suggest.h"
#include "tools/panelix/Commands.h"
#include "tools/panelix/Json.h"
#include "tools/panelix/Meanings.h"
#include "tools/panelix/Messages.h"

namespace panelix {
namespace {

struct Field {
  std::string name;
  std::string type;
  std::string value; ///< By default, as files have it.
  const char* meaning;
  const arbora::EnumData* values; ///< NULL if it isn't an enum.
};

/// What a class adds to its base, with the defaults that an object of another class derived from it has.
struct Level {
  const VocabularyRow* row;
  std::vector<Field> fields;
};

struct Part {
  std::string name;
  std::string type;
  std::string parent;
  bool isPublic;
};

const VocabularyRow* rowOf(std::string_view className) {
  for (const VocabularyRow& row : vocabulary()) {
    if (row.className == className) return &row;
  }
  return nullptr;
}

/// One class, looked at through a new object.
class Class {
public:
  explicit Class(const VocabularyRow& row) : m_row(row), m_node(static_cast<NkPanelix*>(row.type().createInstance())) {}

  const VocabularyRow& row() const { return m_row; }
  const char* meaning() const { return meaningOf(m_row.keyword); }
  std::string base() const { return m_row.type().getParent().getName().getString(); }

  /// The class itself and its bases, nearest first.
  std::vector<Level> levels() const {
    std::vector<Level> levels;
    int end = m_node->getFieldData()->getNumFields();
    for (const VocabularyRow* row = &m_row; row;) {
      const VocabularyRow* base = rowOf(row->parentName);
      const int begin =
          base ? Class(*base).m_node->getFieldData()->getNumFields() : (*NkDragger::getFieldDataPtr())->getNumFields();
      levels.push_back({row, fields(begin, end, row->keyword)});
      end = begin;
      row = base;
    }
    return levels;
  }

  /// The parts that the class adds to its base.
  std::vector<Part> parts() const {
    const NkNodekitCatalog& catalog = *m_node->getNodekitCatalog();
    const VocabularyRow* base = rowOf(m_row.parentName);
    int part = base ? Class(*base).m_node->getNodekitCatalog()->getNumEntries()
                    : NkDragger::getClassNodekitCatalog()->getNumEntries();
    std::vector<Part> parts;
    for (; part < catalog.getNumEntries(); ++part) {
      parts.push_back({catalog.getName(part).getString(), catalog.getType(part).getName().getString(),
                       catalog.getParentName(part).getString(), catalog.isPublic(part)});
    }
    return parts;
  }

private:
  std::vector<Field> fields(int begin, int end, const char* keyword) const {
    std::vector<Field> fields;
    for (int i = begin; i < end; ++i) {
      const NkFieldData& table = *m_node->getFieldData();
      const NkField* field = table.getField(m_node.get(), i);
      const auto* holder = dynamic_cast<const NkSFNode*>(field);
      if (holder && holder->isPartHolder()) continue;
      const auto* choice = dynamic_cast<const NkSFEnum*>(field);
      const char* const name = table.getFieldName(i).getString();
      fields.push_back({name, field->getTypeId().getName().getString(), field->get().toUtf8(), meaningOf(keyword, name),
                        choice ? choice->getEnums() : nullptr});
    }
    return fields;
  }

  const VocabularyRow& m_row;
  arbora::Ref<NkPanelix> m_node;
};

// Text

std::string code(std::string_view text) { return "`" + std::string(text) + "`"; }

/// The items with what stands between two of them.
template <class Item, class Text>
std::string joined(const std::vector<Item>& items, std::string_view separator, Text&& text) {
  std::string result;
  for (const Item& item : items) {
    if (!result.empty()) result += separator;
    result += text(item);
  }
  return result;
}

std::string valueList(const arbora::EnumData& values) {
  std::string list;
  for (std::size_t i = 0; i < values.names.size(); ++i) {
    list += (i > 0 ? ", " : " ") + code(values.names[i].getString()) + " " + std::to_string(values.values[i]);
  }
  return list + ".";
}

std::string table(const std::vector<Field>& fields) {
  std::string text = "| Field | Type | Default | Meaning |\n|---|---|---|---|\n";
  for (const Field& field : fields) {
    text += "| " + code(field.name) + " | " + field.type + " | " + code(field.value) + " | " + field.meaning +
            (field.values ? valueList(*field.values) : "") + " |\n";
  }
  return text;
}

/// A keyword as a link to its section, where that stands in the same text.
std::string link(const std::string& keyword, bool isLink) {
  if (!isLink) return keyword;
  std::string anchor = keyword;
  std::transform(anchor.begin(), anchor.end(), anchor.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
  return "[" + keyword + "](#" + anchor + ")";
}

/// Fields whose default isn't that of the base.
std::string otherDefaults(const Class& type) {
  const VocabularyRow* base = rowOf(type.row().parentName);
  if (!base) return {};
  std::string text;
  const std::vector<Level> here = type.levels();
  const std::vector<Level> there = Class(*base).levels();
  for (std::size_t level = 0; level < there.size(); ++level) {
    for (std::size_t i = 0; i < there[level].fields.size(); ++i) {
      const Field& field = here[level + 1].fields[i];
      if (field.value == there[level].fields[i].value) continue;
      text += (text.empty() ? "" : ", ") + code(field.name) + " " + code(field.value);
    }
  }
  return text.empty() ? text : "Other than in its base, the default is: " + text + ".\n\n";
}

std::string head(const Class& type, bool isOneOfMany) {
  const VocabularyRow& row = type.row();
  const bool hasBase = rowOf(row.parentName) != nullptr;
  std::string text = std::string(isOneOfMany ? "## " : "# ") + row.keyword + "\n\n" + type.meaning() + "\n\nClass " +
                     code(row.className) + ", based on " + link(type.base(), isOneOfMany && hasBase) + ". ";
  text += row.childKeyword ? "Its children: " + link(row.childKeyword, isOneOfMany) + ".\n\n" : "No children.\n\n";
  const std::vector<Part> parts = type.parts();
  std::vector<Part> publicParts;
  std::copy_if(parts.begin(), parts.end(), std::back_inserter(publicParts),
               [](const Part& part) { return part.isPublic; });
  if (!publicParts.empty()) {
    text += "Parts of its 3D form that a skin fills: " +
            joined(publicParts, ", ", [](const Part& part) { return code(part.name); }) + ".\n\n";
  }
  return text;
}

/// With all fields of its own and the names of the others.
std::string section(const Class& type) {
  std::string text = head(type, true);
  const std::vector<Level> levels = type.levels();
  if (!levels.front().fields.empty()) text += table(levels.front().fields) + "\n";
  text += otherDefaults(type);
  for (std::size_t i = 1; i < levels.size(); ++i) {
    if (levels[i].fields.empty()) continue;
    text += "From " + link(levels[i].row->keyword, true) + ": " +
            joined(levels[i].fields, ", ", [](const Field& field) { return code(field.name); }) + ".\n\n";
  }
  return text;
}

/// With all fields.
std::string page(const Class& type) {
  std::string text = head(type, false);
  const std::vector<Level> levels = type.levels();
  for (std::size_t i = 0; i < levels.size(); ++i) {
    if (levels[i].fields.empty()) continue;
    if (i > 0) text += std::string("From ") + levels[i].row->keyword + ":\n\n";
    text += table(levels[i].fields) + "\n";
  }
  text.pop_back();
  return text;
}

constexpr const char* kIntroduction = "# The classes of dialog files\n"
                                      "\n"
                                      "Each class by its keyword in files, with its fields and their defaults, as "
                                      "`panelix describe` prints them. A class has\n"
                                      "the fields of its base, too; `panelix describe KEYWORD` shows all fields of one "
                                      "class, `--json` gives them to other\n"
                                      "programs. The number behind a value of an enum is the one that programs see. A "
                                      "container takes children of the class\n"
                                      "that is named and of those based on it.\n"
                                      "\n"
                                      "| Keyword | Base | Meaning |\n"
                                      "|---|---|---|\n";

std::string allSections() {
  std::string text = kIntroduction;
  std::string sections;
  for (const VocabularyRow& row : vocabulary()) {
    const Class type(row);
    text += "| " + link(row.keyword, true) + " | " + type.base() + " | " + type.meaning() + " |\n";
    sections += section(type);
  }
  sections.pop_back();
  return text + "\n" + sections;
}

// JSON

std::string fieldJson(const Field& field, const VocabularyRow& from) {
  std::string json = R"({"name": )" + toJson(field.name) + R"(, "from": )" + toJson(from.keyword) + R"(, "type": )" +
                     toJson(field.type) + R"(, "default": )" + toJson(field.value) + R"(, "values": )";
  if (field.values) {
    json += "{";
    for (std::size_t i = 0; i < field.values->names.size(); ++i) {
      json += (i > 0 ? ", " : "") + toJson(field.values->names[i].getString()) + ": " +
              std::to_string(field.values->values[i]);
    }
    json += "}";
  } else {
    json += "null";
  }
  return json + R"(, "meaning": )" + toJson(field.meaning) + "}";
}

std::string partJson(const Part& part) {
  return R"({"name": )" + toJson(part.name) + R"(, "type": )" + toJson(part.type) + R"(, "parent": )" +
         toJson(part.parent) + R"(, "public": )" + (part.isPublic ? "true" : "false") + "}";
}

std::string classJson(const Class& type) {
  std::vector<std::string> fields;
  for (const Level& level : type.levels()) {
    for (const Field& field : level.fields) fields.push_back(fieldJson(field, *level.row));
  }
  const auto lines = [](const auto& items, auto&& text) {
    return items.empty() ? "[]" : "[\n    " + joined(items, ",\n    ", text) + "\n  ]";
  };
  const VocabularyRow& row = type.row();
  return R"({"type": )" + toJson(row.keyword) + R"(, "class": )" + toJson(row.className) + R"(, "base": )" +
         toJson(type.base()) + R"(, "children": )" + (row.childKeyword ? toJson(row.childKeyword) : "null") +
         R"(, "meaning": )" + toJson(type.meaning()) +
         ",\n  \"fields\": " + lines(fields, [](const std::string& field) { return field; }) +
         ",\n  \"parts\": " + lines(type.parts(), partJson) + "}";
}

std::string json(const std::vector<const VocabularyRow*>& rows) {
  return "[\n " + joined(rows, ",\n ", [](const VocabularyRow* row) { return classJson(Class(*row)); }) + "\n]\n";
}

} // namespace

int describe(const DescribeOptions& options) {
  std::vector<const VocabularyRow*> rows;
  std::vector<std::string_view> names;
  for (const VocabularyRow& row : vocabulary()) {
    names.push_back(row.keyword);
    if (options.type.empty() || options.type == row.keyword || options.type == row.className) rows.push_back(&row);
  }
  if (rows.empty()) {
    Messages().add(NkDebugError::ERROR_,
                   "the toolkit has no class '" + options.type + "'" + arbora::suggest(options.type, names));
    return UNUSABLE;
  }
  const std::string text = options.json           ? json(rows)
                           : options.type.empty() ? allSections()
                                                  : page(Class(*rows.front()));
  std::fputs(text.c_str(), stdout);
  return GOOD;
}

} // namespace panelix
