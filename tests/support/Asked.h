#pragma once

#include <cstdlib>

namespace sparlow::test {

/// A number that whoever runs the tests may set in the environment, for a thorough run.
inline unsigned Asked(const char* name, unsigned usual) {
  const char* const asked = std::getenv(name);
  return asked ? static_cast<unsigned>(std::strtoul(asked, nullptr, 10)) : usual;
}

}  // namespace sparlow::test
