#include <array>
#include <cerrno>
#include <ranges>
#include <net/if.h>
#include <netinet/in.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include "platform/eventloop/real_time.h"
#include "platform/http/qt_http_transport.h"
#include "services/local_services.h"

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using services::LocalServices;
using services::Service;

using UnreachableTest = RealTimeTest;

/// A program of its own, because it cuts itself off: nothing that it sends can leave the process.
bool cutOff() {
  constexpr int own = CLONE_NEWNET | CLONE_NEWNS;
  return ::unshare(own) == 0 || ::unshare(CLONE_NEWUSER | own) == 0;
}
const bool isCutOff = cutOff();

TEST_F(UnreachableTest, WithoutANetworkNoAddressIsReachedAndNoHostFound) {
  if (!isCutOff) { GTEST_SKIP() << "no network namespace of its own"; }
  QtHttpTransport transport;
  for (const auto& [url, failure] :
       {std::pair("https://192.0.2.1/", HttpFailure::notConnectedToInternet),
        std::pair("https://[2001:db8::1]/", HttpFailure::notConnectedToInternet),
        std::pair("https://orvane.invalid/", HttpFailure::cannotFindHost)}) {
    const HttpResult result = run(transport.get({.url = url, .idleTimeout = 10s}));
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(), failure) << url;
  }
}

/// A network of this machine alone, where "localhost" has an address of each protocol.
bool makeLoopback(const services::WorkingDirectory& folder) {
  ifreq interface{.ifr_ifrn = {.ifrn_name = "lo"}, .ifr_ifru = {.ifru_flags = IFF_UP}};
  const services::FileDescriptor socket(::socket(AF_INET, SOCK_DGRAM, 0));
  const std::string hosts = folder.path() / "hosts";
  std::ofstream(hosts) << "::1 localhost\n127.0.0.1 localhost\n";
  return ::ioctl(socket.get(), SIOCSIFFLAGS, &interface) == 0 &&
         ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         ::mount(hosts.c_str(), "/etc/hosts", nullptr, MS_BIND, nullptr) == 0;
}

TEST_F(UnreachableTest, AnAddressThatIsSilentIsNotWaitedFor) {
  const services::WorkingDirectory folder{{}};
  if (!isCutOff || !makeLoopback(folder)) { GTEST_SKIP() << "no namespace of its own"; }
  const LocalServices local;
  const std::string host = local.host(Service::explorer);
  const auto port = static_cast<std::uint16_t>(std::stoi(host.substr(host.find(':') + 1)));
  sockaddr_in6 address{};
  address.sin6_family = AF_INET6;
  address.sin6_port = htons(port);
  address.sin6_addr = in6addr_loopback;
  const auto* const plain = reinterpret_cast<const sockaddr*>(&address);
  std::array<services::FileDescriptor, 8> sockets;
  for (auto& socket : sockets) {
    socket = services::FileDescriptor(::socket(AF_INET6, SOCK_STREAM | SOCK_NONBLOCK, 0));
  }
  ASSERT_EQ(::bind(sockets[0].get(), plain, sizeof address), 0);
  ASSERT_EQ(::listen(sockets[0].get(), 0), 0);
  for (const auto& socket :
       sockets | std::views::drop(1)) {  // until its queue is full, and it answers nobody
    const int begun = ::connect(socket.get(), plain, sizeof address);
    ASSERT_TRUE(begun == 0 || errno == EINPROGRESS);
  }
  QtHttpTransport transport({.extraCaFile = local.caFile()});
  const HttpRequest request{.url = "https://" + host + "/api/blocks/tip/height"};
  EXPECT_LT(timeOf([&] { EXPECT_TRUE(run(transport.get(request))); }), 10s);
  EXPECT_EQ(local.requests().size(), 1U);
}

}}  // namespace orvane::test
