#pragma once

#include <atomic>
#include <chrono>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <QString>

/// What gets lost of a document that passes.
enum class Loss { Nothing, Document, Answer, Standstill };

/// Stands before the print server while it lives: what the server answers is passed on only after a while.
/// The connection of a document may break, before the document has come or before its answer has, or stand
/// still then.
class SlowServer {
  public:
    SlowServer(const QString& socket, std::chrono::milliseconds delay, Loss loss = Loss::Nothing);
    ~SlowServer();
    SlowServer(const SlowServer&) = delete;
    SlowServer& operator=(const SlowServer&) = delete;

    /// Has an answer been passed on, so that someone may have waited for it?
    bool HasAnswered() const { return answers_ > 0; }
    int Answers() const { return answers_; }
    /// When each connection has asked its first.
    std::vector<std::chrono::steady_clock::time_point> Asked() const;

  private:
    int Listen();
    int Connect() const;
    void Accept();
    void Serve(int client);
    void NoteQuestion();

    std::string socket_;
    std::string aside_; ///< where the server's own socket is meanwhile
    std::chrono::milliseconds delay_;
    Loss loss_;
    std::atomic<int> answers_ = 0;
    std::vector<std::chrono::steady_clock::time_point> asked_;
    mutable std::mutex noting_;
    int listener_ = -1;
    int ended_[2] = {-1, -1}; ///< a pipe that can be read once it is over
    std::vector<std::thread> connections_;
    std::thread thread_;
};
