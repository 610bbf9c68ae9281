#pragma once

#include <QIODevice>

#include "desktop/cups/PrintQueue.h"

namespace desktop::qt {

/// A document on its way to a printer, as the toolkit writes it.
class JobDevice final : public QIODevice {
  public:
    /// `job` must live as long as the object.
    explicit JobDevice(cups::PrintJob& job) : job_(job) { open(WriteOnly); }

    bool isSequential() const override { return true; }

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 length) override {
        return job_.Write({data, static_cast<std::size_t>(length)}) == 0 ? length : -1;
    }

  private:
    cups::PrintJob& job_;
};

} // namespace desktop::qt
