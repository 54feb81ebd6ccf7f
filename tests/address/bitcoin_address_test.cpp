#include "address/bitcoin_address.h"

#include <string>

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

std::string segregatedWitness(std::size_t length) { return "bc1" + std::string(length - 3, 'q'); }
std::string legacy(char first, std::size_t length) { return first + std::string(length - 1, 'z'); }

const std::string bech32 = "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq";

TEST(BitcoinAddressTest, AcceptsTheShapesOfMainnetWhateverTheirChecksum) {
  for (const std::string& text :
       {bech32, std::string("BC1QAR0SRRR7XFKVY5L643LYDNW9RE59GTZZWF5MDQ"),
        std::string("bc1p5d7rjq7g6rdk2yhzks9smlaqtedr4dekq08ge8ztwac72sfr9rusxg3297"),  // Bech32m
        std::string("1BvBMSEYstWetqTFn5Au4m4GFg7xJaNVN2"),
        std::string("3J98t1WpEZ73CNmQviecrnyiWrnqRhWNLy"), segregatedWitness(14),
        segregatedWitness(90), legacy('1', 26), legacy('3', 35)}) {
    EXPECT_TRUE(isValidMainnetAddress(text)) << text;
  }
}

TEST(BitcoinAddressTest, RefusesEverythingElse) {
  for (const std::string& text :
       {std::string(), std::string("bc1"), std::string("1"), segregatedWitness(13),
        segregatedWitness(91), legacy('1', 25), legacy('3', 36),
        legacy('1', 90),  // the other family's length
        legacy('m', 34), legacy('2', 35), "bc1Q" + bech32.substr(4), "Bc1" + bech32.substr(3),
        "BC1" + bech32.substr(3), "tb1" + bech32.substr(3), " " + bech32, bech32 + "\n",
        // Look-alikes: a Cyrillic small es, the Kelvin sign, whose lower case is k, a wide one.
        "b\u0441" + bech32.substr(2),
        std::string("BC1QAR0SRRR7XF\u212aVY5L643LYDNW9RE59GTZZWF5MDQ"),
        "\uff11" + legacy('1', 33)}) {
    EXPECT_FALSE(isValidMainnetAddress(text)) << text;
  }
}

// Every byte in turn stands inside an address of each family.
TEST(BitcoinAddressTest, KnowsItsAlphabets) {
  std::string inBech32;
  std::string inBech32Upper;
  std::string inBase58;
  for (int value = 0; value < 256; ++value) {
    const char byte = static_cast<char>(value);
    if (isValidMainnetAddress("bc1" + std::string(20, byte))) { inBech32 += byte; }
    if (isValidMainnetAddress("BC1" + std::string(20, byte))) { inBech32Upper += byte; }
    if (isValidMainnetAddress("3" + std::string(30, byte))) { inBase58 += byte; }
  }
  EXPECT_EQ(inBech32, "023456789acdefghjklmnpqrstuvwxyz");
  EXPECT_EQ(inBech32Upper, "023456789ACDEFGHJKLMNPQRSTUVWXYZ");
  EXPECT_EQ(inBase58, "123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz");
}

}  // namespace
}  // namespace orvane::test
