#include "platform/secret/secret.h"
#include <algorithm>
#include <cstring>
#include <fstream>
#include <malloc.h>
#include <sys/resource.h>

namespace orvane {
Secret::~Secret() {
  if (bytes_) { ::explicit_bzero(bytes_.get(), size_); }
}

void Secret::copy(std::string_view text) {
  if (text.empty()) { return; }
  bytes_ = std::make_unique_for_overwrite<char[]>(text.size());
  size_ = text.size();
  std::ranges::copy(text, bytes_.get());
}

// Not by PR_SET_DUMPABLE, which would also hide the process from the desktop's portals. A limit of
// 0 is no limit where dumps go to a program (core(5)); one byte is too little for a file, and the
// kernel starts no program for it. Should somebody dump all the same, no memory is written.
void refuseCoreDumps() {
  rlimit limit{};
  if (::getrlimit(RLIMIT_CORE, &limit) == 0) {
    limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, 1);
    ::setrlimit(RLIMIT_CORE, &limit);
  }
  std::ofstream("/proc/self/coredump_filter") << "0\n";
}

// The GNU C library does it for all but its smallest blocks; fresh memory is then zero, as it is
// when the kernel has just given it.
void wipeFreedMemory() {
#ifdef M_PERTURB
  constexpr int freed = 0xFF;  // and its complement where memory is given out
  ::mallopt(M_PERTURB, freed);
#endif
}
}  // namespace orvane
