#pragma once

#include "fanout/export.h"

#include <set>
#include <string>

/// Tells a cluster which modules are in use, so that its other machines load them too.
class FANOUT_API FanoutInitModuleCmd {
public:
  static FanoutInitModuleCmd& Instance();

  /// Announces a module; once per name, however often it's called. Thread-safe, as is the query.
  void serialize(const char* module);
  bool announced(const char* module) const;

private:
  FanoutInitModuleCmd() = default;
  FanoutInitModuleCmd(const FanoutInitModuleCmd&) = delete;
  FanoutInitModuleCmd& operator=(const FanoutInitModuleCmd&) = delete;

  std::set<std::string> m_modules;
};
