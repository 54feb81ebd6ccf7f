#pragma once

#include <clocale>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <string>

#include "support/temporary_folder.h"

namespace orvane::test {

/// While it lives the C library writes and reads "1,5", as it does for most users: a toolkit sets
/// the user's locale at its start. Makes the locale itself, so that no machine needs to have one.
class CommaLocale {
 public:
  CommaLocale() {
    std::ofstream(folder_.path() / "ascii") << charmap();
    std::ofstream(folder_.path() / "numbers")
        << "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\ngrouping 3;3\nEND LC_NUMERIC\n";
    const std::string folder = folder_.path().string();
    const std::string compile = "cd " + folder + " && localedef --no-archive -c -f ./ascii" +
                                " -i ./numbers ./comma >/dev/null 2>&1";
    (void)std::system(compile.c_str());  // its status says that other categories are missing
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
  static std::string charmap() {
    std::ostringstream text;
    text << "<code_set_name> ASCII\n<mb_cur_min> 1\n<mb_cur_max> 1\nCHARMAP\n";
    text << std::hex << std::uppercase << std::setfill('0');
    for (int code = 0; code < 128; ++code) {
      text << "<U" << std::setw(4) << code << "> /x" << std::setw(2) << code << " x\n";
    }
    text << "END CHARMAP\n";
    return text.str();
  }

  TemporaryFolder folder_;
  bool isSet_ = false;
};

}  // namespace orvane::test
