#include "platform/secret/secret.h"
#include <cstdlib>
#include <cstring>
#include <new>
#include <optional>
#include <string>
#include <gtest/gtest.h>

namespace {
constexpr std::string_view text = "a-token-of-the-user";

/// The memory that is looked at when it is given back, and what stood in it then.
const void* watched = nullptr;
std::string leftBehind;
}  // namespace

void* operator new[](std::size_t size) {
  if (void* const memory = std::malloc(size)) { return memory; }
  throw std::bad_alloc();
}
void operator delete[](void* memory) noexcept {
  if (memory && memory == watched) { std::memcpy(leftBehind.data(), memory, leftBehind.size()); }
  std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept { operator delete[](memory); }

namespace orvane::test { namespace {

/// What a secret leaves in its memory after what `end` does to it.
std::string leftAfter(void (*end)(std::optional<Secret>& secret)) {
  std::optional<Secret> secret(text);
  watched = secret->view().data();
  leftBehind = "never given back   ";
  end(secret);
  return leftBehind;
}

TEST(SecretTest, IsWipedBeforeItsMemoryIsGivenBack) {
  const std::string nothing(text.size(), '\0');
  EXPECT_EQ(leftAfter([](auto& secret) { secret.reset(); }), nothing);
  EXPECT_EQ(leftAfter([](auto& secret) { *secret = Secret("another"); }), nothing);
  EXPECT_EQ(leftAfter([](auto& secret) { const Secret moved = *std::move(secret); }), nothing);
}

}}  // namespace orvane::test
