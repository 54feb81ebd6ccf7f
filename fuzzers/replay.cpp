// Tries every input of a folder again, in place of the fuzzer's own main function.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <span>
#include <string>
#include "fuzzer.h"

int main(int argc, char** argv) {
  namespace fs = std::filesystem;
  int count = 0;
  for (const char* const folder : std::span(argv, static_cast<std::size_t>(argc)).subspan(1)) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      std::cout << entry.path().filename().string() << std::endl;  // the last one told is at fault
      std::ifstream stream(entry.path(), std::ios::binary);
      orvane::tryInput(std::string(std::istreambuf_iterator<char>(stream), {}));
      ++count;
    }
  }
  return count > 0 ? 0 : 1;
}
