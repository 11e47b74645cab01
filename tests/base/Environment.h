#pragma once

#include <cstdlib>

/// Sets an environment variable for one scope; NULL takes it away. Afterwards it's not set.
class EnvironmentVariable {
public:
  EnvironmentVariable(const char* name, const char* value) : m_name(name) { set(value); }
  ~EnvironmentVariable() { set(nullptr); }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

  void set(const char* value) {
#ifdef _WIN32
    _putenv_s(m_name, value ? value : "");
#else
    if (value) {
      setenv(m_name, value, 1);
    } else {
      unsetenv(m_name);
    }
#endif
  }

private:
  const char* m_name;
};
