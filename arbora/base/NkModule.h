#pragma once

#include "arbora/base/export.h"

#include <string>
#include <vector>

/// A library of the family announces itself by a static object of this class: it's in the process-wide list from its
/// construction to its destruction.
class ARBORABASE_API NkModule {
public:
  NkModule(const char* name, const char* version, const char* buildData);
  ~NkModule();
  NkModule(const NkModule&) = delete;
  NkModule& operator=(const NkModule&) = delete;

  const char* getName() const { return m_name.c_str(); }
  const char* getVersion() const { return m_version.c_str(); }
  const char* getBuildData() const { return m_buildData.c_str(); }

  /// All modules in the order of their construction.
  static std::vector<const NkModule*> getModules();
  /// The first of this name, or NULL.
  static const NkModule* find(const char* name);

private:
  std::string m_name;
  std::string m_version;
  std::string m_buildData;
};
