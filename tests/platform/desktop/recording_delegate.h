#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/desktop/desktop_application.h"

namespace orvane::test {

/// Answers as it is told and remembers what it was asked and told.
class RecordingDelegate final : public WindowDelegate {
 public:
  explicit RecordingDelegate(const DesktopApplication& application) : application_(application) {}

  bool windowShouldClose(DesktopWindow& /*window*/) override {
    heard.emplace_back("should close");
    eventWhenAsked = application_.currentEvent();
    return closes;
  }
  void windowDidMiniaturize(DesktopWindow& /*window*/) override { heard.emplace_back("minimised"); }
  void windowDidDeminiaturize(DesktopWindow& /*window*/) override {
    heard.emplace_back("restored");
  }

  bool closes = false;
  std::vector<std::string> heard;
  std::optional<DesktopEvent> eventWhenAsked;

 private:
  const DesktopApplication& application_;
};

}  // namespace orvane::test
