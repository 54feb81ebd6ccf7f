#pragma once

#include <gtest/gtest.h>
#include "shell/menu_bar/background_runtime.h"
#include "support/fake_desktop.h"
#include "support/memory_defaults.h"
#include "support/virtual_executor.h"

namespace orvane::test {
/// A runtime on a desktop without a screen, attached to the main window beside a help window.
class RuntimeFixture : public testing::Test {
 protected:
  RuntimeFixture() { attach(); }
  /// The runtime as it is once the application has started.
  void attach() {
    runtime->attachMainWindow("Orvane");
    executor.runUntilIdle();
    log.clear();
  }

  CallLog log;
  VirtualExecutor executor;
  FakeApplication application{log};
  FakeStatusBar statusBar;
  BroadcastCenter broadcasts;
  MemoryDefaults defaults;
  FakeWindow& help = application.addWindow("Orvane Help");
  FakeWindow& window = application.addWindow("Orvane");
  std::shared_ptr<BackgroundRuntime> runtime =
      BackgroundRuntime::create({}, {executor, application, statusBar, broadcasts, defaults});
};
}  // namespace orvane::test
