#pragma once

#include <cerrno>

#include <QIODevice>

#include "desktop/cups/PrintQueue.h"
#include "desktop/qt/Guarded.h"

namespace desktop::qt {

/// A document on its way to a printer, as the toolkit writes it.
class JobDevice final : public QIODevice {
  public:
    /// `job` must live as long as the object.
    explicit JobDevice(cups::PrintJob& job) : job_(job) { open(WriteOnly); }

    /// Why the job has not taken what it was given, an errno; 0 if it has taken all.
    int Error() const { return error_; }

    bool isSequential() const override { return true; }

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 length) override {
        return GuardedQuietly(qint64{-1}, [&] {
            if (error_ == 0) {
                error_ = ENOMEM; // unless the job answers
                error_ = job_.Write({data, static_cast<std::size_t>(length)});
            }
            return error_ == 0 ? length : -1;
        });
    }

  private:
    cups::PrintJob& job_;
    int error_ = 0;
};

} // namespace desktop::qt
