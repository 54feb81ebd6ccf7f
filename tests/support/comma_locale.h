#pragma once

#include <clocale>
#include <cstdlib>
#include <fstream>
#include "support/temporary_folder.h"

namespace orvane::test {
/// While it lives the C library writes and reads "1,5", as it does for most users: a toolkit sets
/// the user's locale at its start. Makes the locale itself, so that no machine needs to have one.
class CommaLocale {
 public:
  CommaLocale() {
    std::ofstream(folder_.path() / "ascii")
        << "<code_set_name> ASCII\n<mb_cur_min> 1\n<mb_cur_max> 1\n"
           "CHARMAP\n<U0000>..<U007F> /x00 all\nEND CHARMAP\n";
    std::ofstream(folder_.path() / "numbers")
        << "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\ngrouping 3;3\nEND LC_NUMERIC\n";
    const std::string folder = folder_.path();
    const std::string compile = " && localedef --no-archive -c -f ./ascii -i ./numbers ./comma";
    // Its status says that other categories are missing.
    (void)std::system(("cd " + folder + compile + " >/dev/null 2>&1").c_str());
    ::setenv("LOCPATH", folder.c_str(), 1);
    isSet_ = std::setlocale(LC_NUMERIC, "comma") != nullptr;
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale() {
    std::setlocale(LC_NUMERIC, "C");
    ::unsetenv("LOCPATH");
  }

  /// False on a machine without localedef, which is a part of the GNU C library.
  [[nodiscard]] bool isSet() const { return isSet_; }

 private:
  TemporaryFolder folder_;
  bool isSet_ = false;
};
}  // namespace orvane::test
