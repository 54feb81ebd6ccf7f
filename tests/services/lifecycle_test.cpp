#include <fstream>
#include <iterator>
#include <memory>
#include <system_error>
#include <thread>

#include <gtest/gtest.h>

#include "services/services_client.h"

namespace orvane::test {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(LifecycleTest, OnlyThoseWhoTrustTheAuthorityOfThisRunBelieveIt) {
  const LocalServices services;
  EXPECT_TRUE(clientOf(services, Service::explorer).Get(tipTarget));
  const LocalServices another;
  auto client = clientOf(services, Service::explorer);
  client.set_ca_cert_path(another.caFile());
  EXPECT_EQ(client.Get(tipTarget).error(), httplib::Error::SSLServerVerification);
  EXPECT_EQ(services.requests().size(), 1U);
  for (const auto& file : fs::directory_iterator(services.caFile().parent_path())) {
    EXPECT_EQ(contentOf(file).find("PRIVATE KEY"), std::string::npos) << file;
  }
}

TEST(LifecycleTest, EndIsQuickWithSilentIdleAndUnspokenConnectionsOpen) {
  auto services = std::make_unique<LocalServices>();
  auto idle = clientOf(*services, Service::explorer);
  idle.set_keep_alive(true);
  EXPECT_TRUE(idle.Get(tipTarget));
  httplib::Client unspoken("http://" + services->host(Service::explorer));
  std::jthread inClear([&] { EXPECT_FALSE(unspoken.Get("/")); });

  services->fault({.service = Service::pool, .kind = FaultKind::silence});
  auto silent = clientOf(*services, Service::pool);
  silent.set_read_timeout(std::chrono::seconds(20));
  std::jthread waiting([&] { EXPECT_FALSE(silent.Get(profileTarget)); });
  while (services->requests(Service::pool).empty()) {
    std::this_thread::yield();
  }

  const auto begin = std::chrono::steady_clock::now();
  services.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3));
}

TEST(LifecycleTest, GivenFolderKeepsItsFilesAndTheTemporaryOneGoes) {
  fs::path temporary;
  {
    const LocalServices services;
    temporary = services.caFile().parent_path();
  }
  EXPECT_FALSE(fs::exists(temporary));

  {
    const LocalServices first({.directory = temporary});
    const auto ports = nlohmann::json::parse(contentOf(temporary / "ports.json"));
    for (const char* const name : {"pool", "explorer", "price", "fallback", "other", "control"}) {
      EXPECT_GT(ports[name], 0) << name;
    }
    LocalServicesOptions samePort;
    samePort.ports[indexOf(Service::price)] = ports["pool"];
    EXPECT_THROW(const LocalServices second(samePort), std::system_error);
  }
  EXPECT_TRUE(fs::exists(temporary / "ca.pem"));
  fs::remove_all(temporary);
}

}  // namespace
}  // namespace orvane::test
