#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "machine/Printer.h"
#include "machine/PrinterCondition.h"

namespace desktop::cups {

/// A paper that a queue offers. Lengths are twips; the margins are the strips of an upright sheet that the
/// printer cannot reach.
struct Paper {
    std::int16_t Id = 0;  ///< DMPAPER code, or from 256 on
    std::string Name;     ///< as the user reads it
    std::string PpdSize;  ///< choice of PageSize; empty if the queue has none
    std::string PwgMedia; ///< keyword of `media`
    double Width = 0;
    double Height = 0;
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
    bool StandIn = false; ///< the queue tells no papers: offered so that there is one to choose
};

/// A bin that a queue offers.
struct Bin {
    std::int16_t Id = 0;   ///< DMBIN code, or from 256 on
    std::string Name;      ///< as the user reads it
    std::string PpdOption; ///< option of the PPD that has the bins; empty if the queue has none
    std::string PpdSlot;   ///< choice of that option
    std::string PwgSource; ///< keyword of `media-source`; empty if the queue has none
    bool StandIn = false;  ///< what the printer takes by itself: no option names it
};

using machine::Landscape;
using machine::Portrait;

/// What is set for a queue once and for all documents.
struct QueueSettings {
    std::int16_t Orientation = Portrait;
    std::int16_t PaperId = 0;
    std::int16_t BinId = 0;
    std::int16_t Copies = 1;

    bool operator==(const QueueSettings&) const = default;
};

/// A document on its way to a queue, as a PDF. Destroyed before Finish, it leaves nothing behind.
class PrintJob {
  public:
    virtual ~PrintJob() = default;

    /// False if the user has called the document off: then nothing is to be written.
    virtual bool IsWanted() const { return true; }
    /// Takes the next bytes of the PDF. 0 or errno; the first failure holds for all that follow, and the
    /// document is broken off at its next page.
    virtual int Write(std::string_view bytes) = 0;
    /// What the user is told where bytes were lost for the reason `error`, an errno: as Finish tells it, with
    /// the place. Empty if the job knows of none.
    virtual std::string Loss(int /*error*/) const { return {}; }
    /// Hands the complete document over. RuntimeError(ErrorPrinter) if that fails, or if bytes were lost.
    virtual void Finish() = 0;
};

/// One printer of this machine, real or not, with all that the program and the spooler's calls ask of it.
class PrintQueue {
  public:
    virtual ~PrintQueue() = default;

    virtual std::string Name() = 0;
    virtual std::string Port() = 0;
    virtual std::string Comment() = 0;
    virtual std::string Driver() = 0;

    /// False if the printer cannot be asked now; all else then answers from what was known before. An answer
    /// of a moment ago will do: an action of the user asks many times, and a slow printer once is enough.
    virtual bool Reachable() = 0;
    /// The same, asked anew.
    virtual bool ReachableNow() { return Reachable(); }
    /// PRINTER_STATUS bits, as last told.
    virtual std::uint32_t Status() = 0;

    /// The same as last told, without asking anybody, for who must not wait.
    virtual machine::PrinterCondition Condition() { return {.Name = Name()}; }
    /// The papers as last told, in the same way; none where nobody has asked for them yet.
    virtual const std::vector<Paper>& KnownPapers() { return Papers(); }

    virtual const std::vector<Paper>& Papers() = 0;
    virtual const std::vector<Bin>& Bins() = 0;

    /// The user's own, with what the program has written over them.
    virtual QueueSettings ReadSettings() = 0;
    /// They hold until the program ends, and what the user's files say stays as it is.
    virtual void WriteSettings(const QueueSettings& settings) = 0;

    /// What is wrong with the files that have the user's own settings, in a few words for the user; empty if
    /// nothing is.
    virtual std::string Trouble() { return {}; }

    /// RuntimeError(ErrorPrinter) if the document cannot be begun.
    virtual std::unique_ptr<PrintJob> BeginJob(const std::string& title, const Paper& paper,
                                               const Bin* bin) = 0;

    /// Set while the last attempt to open the queue for its settings has failed: what the user chooses is
    /// then written with the printer's own settings, or it would be lost when the printer is assigned anew.
    bool CouldNotBeOpened = false;
};

/// The queues of a print server, and which of them is the user's default (-1: none).
struct FoundQueues {
    std::vector<std::unique_ptr<PrintQueue>> Queues;
    int Default = -1;
    bool Answered = false; ///< false if the server could not be asked
};

} // namespace desktop::cups
