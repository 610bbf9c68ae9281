#include "desktop/cups/PpdFile.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "desktop/cups/CupsServer.h"
#include "support/TemporaryFolder.h"

namespace desktop::cups {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr int Patience = 60000; // milliseconds

/// A print server that gives each connection the next of its answers, byte for byte.
class AnsweringServer {
  public:
    /// Writes an answer into a connection.
    using Answer = std::function<void(int client)>;

    explicit AnsweringServer(std::vector<Answer> answers) : answers_(std::move(answers)) {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        path_.copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(listener_, 4), 0);
        thread_ = std::thread([this] { Serve(); });
    }
    ~AnsweringServer() {
        shutdown(listener_, SHUT_RDWR);
        thread_.join();
        close(listener_);
    }
    AnsweringServer(const AnsweringServer&) = delete;
    AnsweringServer& operator=(const AnsweringServer&) = delete;

    /// The description as the program fetches it, and whether the server is said to have answered.
    bool Fetch(PpdFile& file) {
        const std::unique_ptr<http_t, void (*)(http_t*)> http(
            httpConnect2(path_.c_str(), 0, nullptr, AF_UNSPEC, HTTP_ENCRYPTION_IF_REQUESTED, 1, Patience,
                         nullptr),
            httpClose);
        return file.Fetch(http.get(), "/printers/Laser.ppd");
    }

    std::vector<std::string> Requests; ///< to be read once all is fetched

  private:
    void Serve() {
        for (const Answer& answer : answers_) {
            const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
            if (client < 0) {
                return;
            }
            std::string request;
            std::array<char, 4096> piece;
            while (request.find("\r\n\r\n") == std::string::npos) {
                const ssize_t count = read(client, piece.data(), piece.size());
                if (count <= 0) {
                    break;
                }
                request.append(piece.data(), static_cast<std::size_t>(count));
            }
            Requests.push_back(request);
            answer(client);
            close(client);
        }
    }

    TemporaryFolder folder_;
    std::string path_ = folder_.PathOf("sock");
    std::vector<Answer> answers_;
    int listener_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    std::thread thread_;
};

bool Send(int client, const std::string& text) {
    return send(client, text.data(), text.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(text.size());
}

/// An answer with this body, of which the last bytes may never come.
AnsweringServer::Answer Complete(const std::string& body, std::size_t missing = 0) {
    return [=](int client) {
        Send(client, "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size() + missing) +
                         "\r\n\r\n" + body);
    };
}

AnsweringServer::Answer Short(const std::string& statusAndFields) {
    return [=](int client) { Send(client, "HTTP/1.1 " + statusAndFields + "\r\nContent-Length: 0\r\n\r\n"); };
}

/// Goes on until the other side leaves.
void Endless(int client) {
    Send(client, "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
    while (Send(client, "1000\r\n" + std::string(0x1000, '*') + "\r\n")) {
    }
}

std::string ContentOf(const PpdFile& file) {
    return ReadFile(file.Name());
}

TEST(PpdFileTest, HasWhatTheServerSends) {
    AnsweringServer server({Complete("*PPD-Adobe: \"4.3\"\n")});
    PpdFile file;
    EXPECT_TRUE(server.Fetch(file));
    EXPECT_EQ(ContentOf(file), "*PPD-Adobe: \"4.3\"\n");
    EXPECT_THAT(server.Requests, ElementsAre(HasSubstr("GET /printers/Laser.ppd HTTP")));
}

TEST(PpdFileTest, MayBeAsLongAsTheBound) {
    AnsweringServer server({Complete(std::string(PpdFile::Longest, '*'))});
    PpdFile file;
    EXPECT_TRUE(server.Fetch(file));
    EXPECT_EQ(ContentOf(file).size(), PpdFile::Longest);
}

TEST(PpdFileTest, IsNoneBeyondTheBound) {
    AnsweringServer server({Complete(std::string(PpdFile::Longest + 1, '*'))});
    PpdFile file;
    EXPECT_TRUE(server.Fetch(file));
    EXPECT_EQ(file.Name(), "");
}

TEST(PpdFileTest, IsNoneWhereTheServerNeverEnds) {
    AnsweringServer server({Endless});
    PpdFile file;
    EXPECT_TRUE(server.Fetch(file));
    EXPECT_EQ(file.Name(), "");
}

TEST(PpdFileTest, IsNoneWherePacked) {
    AnsweringServer server({Complete("\x1f\x8b\x08 and so on")});
    PpdFile file;
    EXPECT_TRUE(server.Fetch(file));
    EXPECT_EQ(file.Name(), "");
}

TEST(PpdFileTest, IsNoneWhereTheServerHasNone) {
    AnsweringServer server({Short("404 Not Found")});
    PpdFile file;
    EXPECT_TRUE(server.Fetch(file));
    EXPECT_EQ(file.Name(), "");
}

TEST(PpdFileTest, IsForWhoTheServerKnowsByTheSocket) {
    AnsweringServer server({Short("401 Unauthorized\r\nWWW-Authenticate: PeerCred"), Complete("*PPD")});
    PpdFile file;
    EXPECT_TRUE(server.Fetch(file));
    EXPECT_EQ(ContentOf(file), "*PPD");
    EXPECT_THAT(server.Requests, ElementsAre(testing::Not(HasSubstr("Authorization:")),
                                             HasSubstr("Authorization: PeerCred ")));
}

TEST(PpdFileTest, IsNoneForWhoMayNotHaveIt) {
    const CupsServer asksForNoPassword;
    AnsweringServer server({Short("401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"CUPS\"")});
    PpdFile file;
    EXPECT_TRUE(server.Fetch(file));
    EXPECT_EQ(file.Name(), "");
}

TEST(PpdFileTest, TellsOfAServerThatHangsUp) {
    AnsweringServer server({[](int) {}, [](int) {}});
    PpdFile file;
    EXPECT_FALSE(server.Fetch(file));
}

} // namespace
} // namespace desktop::cups
