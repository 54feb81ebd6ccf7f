#include "services/command_line.h"
#include <QCommandLineParser>
#include <array>
#include "services/number_text.h"

namespace orvane::services {
namespace {
constexpr ScenarioSeconds demoPaymentAfter{20};
constexpr ScenarioSeconds demoRewardAfter{40};

template <typename T>
bool take(const std::string& text, T& target) {
  const std::optional<T> number = numberFrom<T>(text);
  if (number) { target = *number; }
  return number.has_value();
}

bool take(const std::string& text, std::optional<ScenarioSeconds>& target) {
  const auto seconds = numberFrom<double>(text);
  if (!seconds || !(*seconds >= 0)) { return false; }
  target = ScenarioSeconds(*seconds);
  return true;
}

bool take(const std::string& text, std::string& target) {
  target = text;
  return !text.empty();
}

bool take(const std::string& text, std::filesystem::path& target) {
  target = text;
  return !text.empty();
}

bool takeSpeed(const std::string& text, LocalServicesOptions& options) {
  return take(text, options.speed) && options.speed > 0 && options.speed <= 1e6;
}

template <auto member>
bool takeMember(const std::string& text, LocalServicesOptions& options) {
  return take(text, options.*member);
}

template <Service service>
bool takePort(const std::string& text, LocalServicesOptions& options) {
  return take(text, options.ports[indexOf(service)]);
}

/// An option with a value. `take` puts the value where it belongs; false when it does not fit.
struct Option {
  const char* name;
  const char* value;
  const char* meaning;
  bool (*take)(const std::string&, LocalServicesOptions&);
};

using Options = LocalServicesOptions;
constexpr std::array optionsWithValue{
    Option{"directory", "DIR", "where ca.pem, ports.json and requests.log go",
           takeMember<&Options::directory>},
    Option{"pool-port", "N", "port of the pool; 0 (default): any", takePort<Service::pool>},
    Option{"explorer-port", "N", "port of the block explorer", takePort<Service::explorer>},
    Option{"price-port", "N", "port of the primary price source", takePort<Service::price>},
    Option{"fallback-price-port", "N", "port of the second one", takePort<Service::fallback>},
    Option{"other-port", "N", "port of the origin redirects lead to", takePort<Service::other>},
    Option{"control-port", "N", "port of the control requests (HTTP)",
           takeMember<&Options::controlPort>},
    Option{"token", "TEXT", "the token that the pool accepts", takeMember<&Options::token>},
    Option{"address", "TEXT", "the address that has a history", takeMember<&Options::address>},
    Option{"speed", "N", "seconds of the story in a second", takeSpeed},
    Option{"payment-after", "S", "a payment S seconds after the start",
           takeMember<&Options::paymentAfter>},
    Option{"reward-after", "S", "a block reward S seconds after the start",
           takeMember<&Options::rewardAfter>},
};

void describe(QCommandLineParser& parser) {
  parser.setApplicationDescription(
      "The pool, the block explorer and the price sources, on loopback. Runs until SIGTERM or\n"
      "SIGINT. Prints one JSON line with the ports when ready.");
  for (const Option& option : optionsWithValue) {
    parser.addOption({option.name, option.meaning, option.value});
  }
  parser.addOption({"demo", "a payment after 20 and a block reward after 40 seconds"});
  parser.addOption({"help", "this text"});
}
}  // namespace

std::expected<CommandLine, QString> parseCommandLine(const QStringList& arguments) {
  QCommandLineParser parser;
  describe(parser);
  if (!parser.parse(arguments)) { return std::unexpected(parser.errorText()); }
  if (!parser.positionalArguments().isEmpty()) {
    return std::unexpected("Unknown argument '" + parser.positionalArguments().first() + "'.");
  }
  CommandLine commandLine{.options = {}, .wantsHelp = parser.isSet("help")};
  for (const Option& option : optionsWithValue) {
    for (const QString& value : parser.values(option.name)) {
      if (!option.take(value.toStdString(), commandLine.options)) {
        return std::unexpected(QString("'--%1' does not take '%2'.").arg(option.name, value));
      }
    }
  }
  if (parser.isSet("demo")) {
    LocalServicesOptions& options = commandLine.options;
    options.paymentAfter = options.paymentAfter.value_or(demoPaymentAfter);
    options.rewardAfter = options.rewardAfter.value_or(demoRewardAfter);
  }
  return commandLine;
}

QString helpText() {
  QCommandLineParser parser;
  describe(parser);
  return parser.helpText();
}
}  // namespace orvane::services
