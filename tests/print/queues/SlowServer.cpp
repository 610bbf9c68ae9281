#include "print/queues/SlowServer.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <utility>

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

sockaddr_un AddressOf(const std::string& path) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    return address;
}

/// What can be read; nothing at the end of the connection.
std::string Receive(int from) {
    std::string bytes(65536, '\0');
    const ssize_t count = read(from, bytes.data(), bytes.size());
    bytes.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
    return bytes;
}

/// False at the end of the connection.
bool Pass(const std::string& bytes, int to) {
    return !bytes.empty() &&
           send(to, bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size());
}

} // namespace

SlowServer::SlowServer(const QString& socket, std::chrono::milliseconds delay, Loss loss)
    : socket_(socket.toStdString()), aside_(socket_ + ".own"), delay_(delay), loss_(loss) {
    EXPECT_EQ(pipe(ended_), 0);
    EXPECT_EQ(std::rename(socket_.c_str(), aside_.c_str()), 0);
    listener_ = Listen();
    thread_ = std::thread([this] { Accept(); });
}

SlowServer::~SlowServer() {
    close(ended_[1]);
    thread_.join();
    for (std::thread& each : connections_) {
        each.join();
    }
    close(listener_);
    close(ended_[0]);
    EXPECT_EQ(std::rename(aside_.c_str(), socket_.c_str()), 0);
}

std::vector<std::chrono::steady_clock::time_point> SlowServer::Asked() const {
    const std::lock_guard lock(noting_);
    return asked_;
}

void SlowServer::NoteQuestion() {
    const std::lock_guard lock(noting_);
    asked_.push_back(std::chrono::steady_clock::now());
}

int SlowServer::Listen() {
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_un address = AddressOf(socket_);
    EXPECT_EQ(bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(listen(listener, 16), 0);
    return listener;
}

int SlowServer::Connect() const {
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_un address = AddressOf(aside_);
    EXPECT_EQ(connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    return server;
}

void SlowServer::Accept() {
    while (true) {
        std::array<pollfd, 2> waiting = {{{listener_, POLLIN, 0}, {ended_[0], POLLIN, 0}}};
        poll(waiting.data(), waiting.size(), -1);
        if (waiting[1].revents != 0) {
            return;
        }
        const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        connections_.emplace_back([this, client] { Serve(client); });
    }
}

void SlowServer::Serve(int client) {
    const int server = Connect();
    bool isAnswering = false; // the parts of one answer come together
    bool isDocument = false;
    bool hasAsked = false;
    while (true) {
        std::array<pollfd, 3> waiting = {{{client, POLLIN, 0}, {server, POLLIN, 0}, {ended_[0], POLLIN, 0}}};
        poll(waiting.data(), waiting.size(), -1);
        if (waiting[2].revents != 0) {
            break;
        }
        if (waiting[0].revents != 0) {
            isAnswering = false;
            const std::string bytes = Receive(client);
            if (!bytes.empty() && !std::exchange(hasAsked, true)) {
                NoteQuestion();
            }
            isDocument = isDocument || bytes.find("%PDF-") != std::string::npos;
            if ((isDocument && loss_ == Loss::Document) || !Pass(bytes, server)) {
                break;
            }
            continue;
        }
        if (!isAnswering) {
            pollfd ended = {ended_[0], POLLIN, 0};
            if (poll(&ended, 1, static_cast<int>(delay_.count())) != 0) {
                break;
            }
            isAnswering = true;
            ++answers_;
        }
        if (isDocument && loss_ == Loss::Standstill) {
            pollfd ended = {ended_[0], POLLIN, 0};
            poll(&ended, 1, -1);
            break;
        }
        if ((isDocument && loss_ == Loss::Answer) || !Pass(Receive(server), client)) {
            break;
        }
    }
    close(client);
    close(server);
}
