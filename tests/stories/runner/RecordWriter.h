#pragma once

#include <ostream>

#include "Json.h"
#include "memory/Event.h"

namespace scenario {

/// The record of a run: one JSON object to a line, in the order in which things happen.
class RecordWriter {
  public:
    explicit RecordWriter(std::ostream& out) : out_(out) {}

    void Write(const Json& record) { out_ << LineOf(record) << '\n'; }
    void Write(const memory::Event& event);
    /// Hands all that is written to whoever reads it.
    void Flush() { out_.flush(); }

  private:
    std::ostream& out_;
};

} // namespace scenario
