#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>

#include "../sql/dialects.h"
#include "database.h"

namespace catalogador {
namespace {

using test::errorOf;

class RdoServer : public test::RdoTest {};
INSTANTIATE_TEST_SUITE_P(, RdoServer, testing::ValuesIn(test::databaseKinds()), test::kindName);

/// A port where nobody answers.
class SilentServer {
  public:
    SilentServer() : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* generic = reinterpret_cast<sockaddr*>(&address);
        if (bind(socket_, generic, size) != 0 || listen(socket_, 5) != 0 ||
            getsockname(socket_, generic, &size) != 0)
            throw std::runtime_error("no socket");
        port_ = ntohs(address.sin_port);
    }
    ~SilentServer() { close(socket_); }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    [[nodiscard]] std::string port() const { return std::to_string(port_); }

  private:
    int socket_;
    std::uint16_t port_ = 0;
};

TEST_P(RdoServer, StopsWaitingForAServerThatDoesNotAnswer) {
    if (dialect() == dialects::sqlite) GTEST_SKIP() << "a file answers at once";
    const SilentServer server;
    const std::string driver =
        dialect() == dialects::postgresql ? "{PostgreSQL Unicode}" : "{MariaDB Unicode}";
    sql::Timeouts timeouts;
    timeouts.login = std::chrono::seconds(2);
    const auto start = std::chrono::steady_clock::now();
    const std::string text = errorOf([&] {
        odbc::OdbcConnection::open("Driver=" + driver + ";Server=127.0.0.1;Port=" + server.port() +
                                       ";Database=none;UID=ana;PWD=secret",
                                   timeouts);
    });
    EXPECT_FALSE(text.empty());
    EXPECT_EQ(text.find("secret"), std::string::npos) << text;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(12));
}

}  // namespace
}  // namespace catalogador
