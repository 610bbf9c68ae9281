#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class QIODevice;

namespace platform::qt {

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
    std::string PpdSlot;   ///< choice of InputSlot; empty if the queue has none
    std::string PwgSource; ///< keyword of `media-source`; empty if the queue has none
    bool StandIn = false;  ///< the queue tells no bins: offered so that there is one to choose
};

inline constexpr std::int16_t Portrait = 1;
inline constexpr std::int16_t Landscape = 2;

/// What a user has set for a queue once and for all documents.
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

    /// Where the PDF is written, open; nothing if the user has called the document off.
    virtual QIODevice* Output() = 0;
    /// Hands the complete document over. RuntimeError(ErrorPrinter) if that fails.
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

    virtual const std::vector<Paper>& Papers() = 0;
    virtual const std::vector<Bin>& Bins() = 0;

    virtual QueueSettings ReadSettings() = 0;
    /// False if they could not be stored.
    virtual bool WriteSettings(const QueueSettings& settings) = 0;

    /// RuntimeError(ErrorPrinter) if the document cannot be begun.
    virtual std::unique_ptr<PrintJob> BeginJob(const std::string& title, const Paper& paper,
                                               const Bin* bin) = 0;

    /// Undoes what was written and not put back, as far as that can be done now.
    virtual void PutSettingsBack() {}

    /// Set when the printer did not answer while its lists were read or its settings written, until its lists
    /// have been read again: what the user sees may not be what the printer has, and a document would go to a
    /// tray that nobody chose.
    bool NeedsReload = false;
};

/// The queues of a print server, and which of them is the user's default (-1: none).
struct FoundQueues {
    std::vector<std::unique_ptr<PrintQueue>> Queues;
    int Default = -1;
    bool Answered = false; ///< false if the server could not be asked
};

} // namespace platform::qt
