#include "address/bitcoin_address.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

std::string segregatedWitness(std::size_t length) { return "bc1" + std::string(length - 3, 'q'); }
std::string legacy(char first, std::size_t length) { return first + std::string(length - 1, 'z'); }

const std::string bech32 = "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq";

TEST(BitcoinAddressTest, AcceptsTheShapesOfMainnet) {
  const std::vector<std::string> accepted{
      bech32,
      "bc1qrp33g0q5c5txsp9arysrx4k6zdkfs4nce4xj0gdcccefvpysxf3qccfmv3",
      "bc1p5d7rjq7g6rdk2yhzks9smlaqtedr4dekq08ge8ztwac72sfr9rusxg3297",  // Bech32m
      "BC1QAR0SRRR7XFKVY5L643LYDNW9RE59GTZZWF5MDQ",
      "1BvBMSEYstWetqTFn5Au4m4GFg7xJaNVN2",
      "3J98t1WpEZ73CNmQviecrnyiWrnqRhWNLy",
      segregatedWitness(14),
      segregatedWitness(90),
      legacy('1', 26),
      legacy('3', 35),
  };
  for (const std::string& text : accepted) {
    EXPECT_TRUE(isValidMainnetAddress(text)) << text;
  }
}

TEST(BitcoinAddressTest, AcceptsAWrongChecksum) {
  EXPECT_TRUE(isValidMainnetAddress(bech32.substr(0, bech32.size() - 1) + "p"));
  EXPECT_TRUE(isValidMainnetAddress("1BvBMSEYstWetqTFn5Au4m4GFg7xJaNVN3"));
}

TEST(BitcoinAddressTest, RefusesEverythingElse) {
  const std::vector<std::string> refused{
      "",
      "bc1",
      "1",
      segregatedWitness(13),
      segregatedWitness(91),
      legacy('1', 25),
      legacy('3', 36),
      legacy('1', 90),  // the other family's length
      "bc1Qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq",
      "Bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq",
      "BC1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq",
      "tb1qw508d6qejxtdg4y5r3zarvary0c5xw7kxpjzsx",
      "bcrt1qw508d6qejxtdg4y5r3zarvary0c5xw7kygt080",
      "mipcBbFg9gMiCh81Kj8tqqdgoZub1ZJRfn",
      "2MzQwSSnBHWHqSAqtTVQ6v47XtaisrJa1Vc",
      " " + bech32,
      bech32 + " ",
      bech32 + "\n",
      bech32 + std::string(1, '\0'),
      // Look-alikes: a Cyrillic small es, the Kelvin sign whose lower case is k, a full-width one.
      "b\u04411qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq",
      "BC1QAR0SRRR7XF\u212aVY5L643LYDNW9RE59GTZZWF5MDQ",
      "\uff11BvBMSEYstWetqTFn5Au4m4GFg7xJaNVN2",
  };
  for (const std::string& text : refused) {
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
