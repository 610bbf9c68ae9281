#pragma once

#include <csignal>

#include <sys/resource.h>

namespace desktop::qt {

/// Lets no file grow beyond `bytes` for as long as it lives, as a full disk does.
class FileLimit {
  public:
    explicit FileLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

  private:
    rlimit before_ = {};
};

} // namespace desktop::qt
