#include <fstream>
#include <iterator>
#include <memory>
#include <system_error>
#include <thread>

#include <gtest/gtest.h>

#include "services/services_client.h"

namespace orvane::test {
namespace {

using std::chrono::milliseconds;

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(LifecycleTest, CertificateIsBelievedByThoseWhoTrustTheAuthorityAndByNobodyElse) {
  const LocalServices services;
  EXPECT_EQ(clientOf(services, Service::explorer).Get(tipTarget)->status, 200);
  httplib::Client stranger("https://" + services.host(Service::explorer));
  stranger.enable_server_certificate_verification(true);
  EXPECT_EQ(stranger.Get(tipTarget).error(), httplib::Error::SSLServerVerification);
  EXPECT_TRUE(services.requests(Service::explorer).size() == 1);
}

TEST(LifecycleTest, AuthorityOfOneRunIsNotBelievedInAnother) {
  const LocalServices first;
  const LocalServices second;
  httplib::Client client("https://" + second.host(Service::explorer));
  client.set_ca_cert_path(first.caFile());
  client.enable_server_certificate_verification(true);
  EXPECT_EQ(client.Get(tipTarget).error(), httplib::Error::SSLServerVerification);
}

TEST(LifecycleTest, NoPrivateKeyIsWritten) {
  const LocalServices services;
  for (const auto& file : std::filesystem::directory_iterator(services.caFile().parent_path())) {
    EXPECT_EQ(contentOf(file).find("PRIVATE KEY"), std::string::npos) << file;
  }
}

TEST(LifecycleTest, EndIsQuickWithSilentIdleAndUnspokenConnectionsOpen) {
  auto services = std::make_unique<LocalServices>();
  auto idle = clientOf(*services, Service::explorer);
  idle.set_keep_alive(true);
  EXPECT_EQ(idle.Get(tipTarget)->status, 200);
  httplib::Client unspoken("http://" + services->host(Service::explorer));
  std::jthread inClear([&] { EXPECT_FALSE(unspoken.Get("/")); });

  services->fault({.service = Service::pool, .kind = FaultKind::silence});
  auto silent = clientOf(*services, Service::pool);
  silent.set_read_timeout(std::chrono::seconds(20));
  std::jthread waiting([&] { EXPECT_FALSE(silent.Get(profileTarget)); });
  while (services->requests(Service::pool).empty())
    std::this_thread::yield();

  const auto begin = std::chrono::steady_clock::now();
  services.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, milliseconds(300));
}

TEST(LifecycleTest, TakenPortIsAnErrorAndNotShared) {
  const LocalServices services;
  const std::string host = services.host(Service::pool);
  LocalServicesOptions same;
  same.ports[indexOf(Service::price)] =
      static_cast<std::uint16_t>(std::stoi(host.substr(host.find(':') + 1)));
  EXPECT_THROW(const LocalServices second(same), std::system_error);
}

TEST(LifecycleTest, GivenFolderKeepsItsFilesAndTheTemporaryOneGoes) {
  std::filesystem::path temporary;
  {
    const LocalServices services;
    temporary = services.caFile().parent_path();
    EXPECT_TRUE(std::filesystem::exists(temporary / "requests.log"));
  }
  EXPECT_FALSE(std::filesystem::exists(temporary));

  const std::filesystem::path given = temporary / "given";
  {
    const LocalServices services({.directory = given});
  }
  const auto ports = nlohmann::json::parse(contentOf(given / "ports.json"));
  for (const char* const name : {"pool", "explorer", "price", "fallback", "other", "control"}) {
    EXPECT_GT(ports[name], 0) << name;
  }
  EXPECT_TRUE(std::filesystem::exists(given / "ca.pem"));
  std::filesystem::remove_all(temporary);
}

}  // namespace
}  // namespace orvane::test
