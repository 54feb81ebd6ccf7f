#include "services/command_line.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string_view>

#include <fmt/format.h>

#include "services/number_text.h"

namespace orvane::services {
namespace {

constexpr ScenarioSeconds demoPaymentAfter{20};
constexpr ScenarioSeconds demoRewardAfter{40};

template <typename T>
bool readNumber(std::string_view text, T& target) {
  const std::optional<T> number = numberFrom<T>(text);
  if (number) { target = *number; }
  return number.has_value();
}

template <Service service>
bool takePort(LocalServicesOptions& options, std::string_view value) {
  return readNumber(value, options.ports[indexOf(service)]);
}

bool takeControlPort(LocalServicesOptions& options, std::string_view value) {
  return readNumber(value, options.controlPort);
}

bool takeDirectory(LocalServicesOptions& options, std::string_view value) {
  options.directory = value;
  return !value.empty();
}

bool takeToken(LocalServicesOptions& options, std::string_view value) {
  options.token = value;
  return !value.empty();
}

bool takeAddress(LocalServicesOptions& options, std::string_view value) {
  options.address = value;
  return !value.empty();
}

bool takeSpeed(LocalServicesOptions& options, std::string_view value) {
  return readNumber(value, options.speed) && options.speed > 0 && options.speed <= 1e6;
}

bool takeSeconds(std::optional<ScenarioSeconds>& target, std::string_view value) {
  double seconds = 0;
  if (!readNumber(value, seconds) || !(seconds >= 0)) { return false; }
  target = ScenarioSeconds(seconds);
  return true;
}

bool takePaymentAfter(LocalServicesOptions& options, std::string_view value) {
  return takeSeconds(options.paymentAfter, value);
}

bool takeRewardAfter(LocalServicesOptions& options, std::string_view value) {
  return takeSeconds(options.rewardAfter, value);
}

struct Option {
  std::string_view name;
  std::string_view value;
  std::string_view meaning;
  bool (*take)(LocalServicesOptions&, std::string_view);
};

constexpr std::array knownOptions{
    Option{"--directory", "DIR", "where ca.pem, ports.json and requests.log go", takeDirectory},
    Option{"--pool-port", "N", "port of the pool; 0 (default): any", takePort<Service::pool>},
    Option{"--explorer-port", "N", "port of the block explorer", takePort<Service::explorer>},
    Option{"--price-port", "N", "port of the primary price source", takePort<Service::price>},
    Option{"--fallback-price-port", "N", "port of the second one", takePort<Service::fallback>},
    Option{"--other-port", "N", "port of the origin redirects lead to", takePort<Service::other>},
    Option{"--control-port", "N", "port of the control requests (HTTP)", takeControlPort},
    Option{"--token", "TEXT", "the token that the pool accepts", takeToken},
    Option{"--address", "TEXT", "the address that has a history", takeAddress},
    Option{"--speed", "N", "seconds of the story in a second", takeSpeed},
    Option{"--payment-after", "S", "a payment S seconds after the start", takePaymentAfter},
    Option{"--reward-after", "S", "a block reward S seconds after the start", takeRewardAfter},
};

void applyDemo(LocalServicesOptions& options) {
  if (!options.paymentAfter) { options.paymentAfter = demoPaymentAfter; }
  if (!options.rewardAfter) { options.rewardAfter = demoRewardAfter; }
}

}  // namespace

std::expected<CommandLine, std::string> parseCommandLine(std::span<const char* const> arguments) {
  CommandLine commandLine;
  bool isDemo = false;
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    const std::string_view name = arguments[index];
    if (name == "--help") {
      commandLine.wantsHelp = true;
      continue;
    }
    if (name == "--demo") {
      isDemo = true;
      continue;
    }
    const auto option = std::ranges::find(knownOptions, name, &Option::name);
    if (option == knownOptions.end()) {
      return std::unexpected(fmt::format("unknown option {}", name));
    }
    if (++index == arguments.size()) {
      return std::unexpected(fmt::format("{} needs a value", name));
    }
    if (!option->take(commandLine.options, arguments[index])) {
      return std::unexpected(fmt::format("{} does not take \"{}\"", name, arguments[index]));
    }
  }
  if (isDemo) { applyDemo(commandLine.options); }
  return commandLine;
}

std::string helpText() {
  std::string text =
      "orvane-services: the pool, the block explorer and the price sources, on loopback\n\n"
      "Runs until SIGTERM or SIGINT. Prints one JSON line with the ports when ready.\n\n";
  const auto addLine = [&text](std::string_view left, std::string_view meaning) {
    fmt::format_to(std::back_inserter(text), "  {:<27}{}\n", left, meaning);
  };
  for (const Option& option : knownOptions) {
    addLine(fmt::format("{} {}", option.name, option.value), option.meaning);
  }
  addLine("--demo", "a payment after 20 and a block reward after 40 seconds");
  addLine("--help", "this text");
  return text;
}

}  // namespace orvane::services
