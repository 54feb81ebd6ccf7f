#include "address/bitcoin_address.h"
#include <string>
#include <gtest/gtest.h>

namespace orvane::test { namespace {

using namespace std::string_literals;

std::string segregatedWitness(std::size_t length) { return "bc1" + std::string(length - 3, 'q'); }
std::string legacy(char first, std::size_t length) { return first + std::string(length - 1, 'z'); }

const std::string bech32 = "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq";

TEST(BitcoinAddressTest, AcceptsTheShapesOfMainnetWhateverTheirChecksum) {
  for (const std::string& text :
       {bech32, "BC1QAR0SRRR7XFKVY5L643LYDNW9RE59GTZZWF5MDQ"s,
        "bc1p5d7rjq7g6rdk2yhzks9smlaqtedr4dekq08ge8ztwac72sfr9rusxg3297"s,  // Bech32m
        segregatedWitness(14), segregatedWitness(90), legacy('1', 26), legacy('3', 35)}) {
    EXPECT_TRUE(isValidMainnetAddress(text)) << text;
  }
}

TEST(BitcoinAddressTest, RefusesEverythingElse) {
  for (const std::string& text :
       {""s, "bc1"s, segregatedWitness(13), segregatedWitness(91), legacy('1', 25), legacy('3', 36),
        legacy('2', 35), "bc1Q" + bech32.substr(4), "Bc1" + bech32.substr(3),
        "BC1" + bech32.substr(3), "tb1" + bech32.substr(3), " " + bech32, bech32 + "\n",
        // Look-alikes: a Cyrillic small es, the Kelvin sign, whose lower case is k, a wide one.
        "b\u0441" + bech32.substr(2), "BC1QAR0SRRR7XF\u212aVY5L643LYDNW9RE59GTZZWF5MDQ"s,
        "\uff11" + legacy('1', 33)}) {
    EXPECT_FALSE(isValidMainnetAddress(text)) << text;
  }
}

// Every byte in turn stands inside an address of each family.
TEST(BitcoinAddressTest, KnowsItsAlphabets) {
  for (const auto& [prefix, expected] :
       {std::pair("bc1"s, "023456789acdefghjklmnpqrstuvwxyz"s),
        std::pair("BC1"s, "023456789ACDEFGHJKLMNPQRSTUVWXYZ"s),
        std::pair("3"s, "123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz"s)}) {
    std::string alphabet;
    for (int value = 0; value < 256; ++value) {
      const char byte = static_cast<char>(value);
      if (isValidMainnetAddress(prefix + std::string(30, byte))) { alphabet += byte; }
    }
    EXPECT_EQ(alphabet, expected) << prefix;
  }
}

}}  // namespace orvane::test
