#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desktop/cups/PaperTable.h"
#include "desktop/cups/PrintQueue.h"

namespace desktop::cups {

/// A queue that is all memory.
class FakeQueue : public PrintQueue {
  public:
    std::string Name() override { return QueueName; }
    std::string Port() override { return "ipp://printer.example/ipp/print"; }
    std::string Comment() override { return "Kamer 1, \xE2\x82\xAC 5 \xE6\xBC\xA2"; }
    std::string Driver() override { return "Driver"; }
    bool Reachable() override { return IsReachable; }
    std::uint32_t Status() override { return 16; }
    const std::vector<Paper>& Papers() override { return PaperList; }
    const std::vector<Bin>& Bins() override { return BinList; }
    QueueSettings ReadSettings() override { return Settings; }
    void WriteSettings(const QueueSettings& settings) override { Settings = settings; }
    std::string Trouble() override { return TroubleText; }
    std::unique_ptr<PrintJob> BeginJob(const std::string&, const Paper&, const Bin*) override {
        return nullptr;
    }

    std::string QueueName = "Kantoor";
    bool IsReachable = true;
    std::string TroubleText;
    std::vector<Paper> PaperList;
    std::vector<Bin> BinList;
    QueueSettings Settings{Portrait, PaperA4, 1, 3};
};

inline Paper NewPaper(std::int16_t id, const std::string& name, double width, double height) {
    Paper paper;
    paper.Id = id;
    paper.Name = name;
    paper.Width = width;
    paper.Height = height;
    return paper;
}

inline Bin NewBin(std::int16_t id, const std::string& name) {
    Bin bin;
    bin.Id = id;
    bin.Name = name;
    return bin;
}

/// Two papers and two bins, one of each with a long name and a number of its own.
inline void OfferTwoOfEach(FakeQueue& queue) {
    queue.PaperList = {NewPaper(9, "A4", 11906, 16838), NewPaper(300, std::string(70, 'n'), 567, 1134)};
    queue.BinList = {NewBin(1, "Bovenste lade"), NewBin(256, std::string(30, 'b'))};
}

} // namespace desktop::cups
