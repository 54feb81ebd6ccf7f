// write_documents FOLDER: the documents of the benchmarks as files, for other programs to read.

#include <fstream>
#include "documents.h"

int main(int argc, char** argv) {
  if (argc != 2) { return 2; }
  const auto write = [folder = std::string(argv[1])](const char* name, const std::string& text) {
    std::ofstream(folder + "/" + name + ".json") << text;
  };
  using namespace orvane::bench;
  write("profile", profileDocument());
  write("workers", workersDocument(workerTotal));
  write("rewards", rewardsDocument(daysOfTwentyYears));
  write("hash_rates", dailyHashrateDocument(daysOfTwentyYears));
  write("transactions",
        transactionsDocument(transactionTotal, outputsOfTransaction, watchedAddress));
  return 0;
}
