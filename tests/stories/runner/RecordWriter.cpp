#include "RecordWriter.h"

namespace scenario {

namespace {

struct ValueOf {
    Json operator()(const std::string& text) const { return text; }
    Json operator()(std::int64_t number) const { return number; }
    Json operator()(double number) const { return Number(number); }
    Json operator()(bool flag) const { return flag; }
};

} // namespace

void RecordWriter::Write(const memory::Event& event) {
    Json record{{"event", event.Kind}};
    for (const memory::EventField& field : event.Fields) {
        record[field.Name] = std::visit(ValueOf(), field.Value);
    }
    Write(record);
}

} // namespace scenario
