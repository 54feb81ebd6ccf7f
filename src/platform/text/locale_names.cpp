#include <cstdlib>
#include <initializer_list>

#include "platform/text/locale_format.h"

namespace orvane {
namespace {

/// The first of the variables that is set and not empty.
std::string firstSet(std::initializer_list<const char*> variables) {
  for (const char* const variable : variables) {
    const char* const value = std::getenv(variable);
    if (value != nullptr && *value != '\0') { return value; }
  }
  return {};
}

}  // namespace

LocaleNames LocaleNames::fromEnvironment() {
  return {.numbers = firstSet({"LC_ALL", "LC_NUMERIC", "LANG"}),
          .dates = firstSet({"LC_ALL", "LC_TIME", "LANG"})};
}

}  // namespace orvane
