#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace memory {

/// A paper that a printer offers: its code, its size in tenths of a millimetre and the driver's name for it.
struct QueuePaper {
    std::int16_t Id = 0;
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    std::string Name{};
};

/// A bin that a printer offers.
struct QueueBin {
    std::int16_t Id = 0;
    std::string Name{};
};

/// A measure in device dots, as it stands in portrait.
struct Dots {
    int X = 0;
    int Y = 0;
};

/// The settings that the spooler keeps for a printer, in the terms of its DEVMODE.
struct QueueDefaults {
    std::int16_t Orientation = 1;
    std::int16_t PaperSize = 9;
    std::int16_t DefaultSource = 15;
    std::int16_t Copies = 1;
};

/// A printer that is installed on the memory platform. Texts are UTF-8.
struct PrintQueue {
    std::string Name{};
    std::string Port = "LPT1:";
    std::string Comment{};
    /// PRINTER_STATUS_... bits of the spooler.
    std::uint32_t Status = 0;
    QueueDefaults Defaults{};
    /// The settings that the driver offers, as bits of dmFields.
    std::uint32_t Fields = 0x303;
    std::vector<QueuePaper> Papers = {{9, 2100, 2970, "A4"}, {5, 2159, 3556, "Legal"}};
    std::vector<QueueBin> Bins = {{15, "Automatisch"}, {1, "Lade 1"}};
    /// Dots per inch, both ways.
    int Dpi = 600;
    Dots Sheet = {4960, 7016};
    Dots Printable = {4760, 6816};
    /// From the sheet's corner to the printable area's.
    Dots Offset = {100, 100};
    /// False: the machine does not answer.
    bool Reachable = true;
    /// Defaults that no job can override.
    std::vector<std::string> Imposed{};
    /// The printer's own font.
    std::string Font = "Printer";
};

} // namespace memory
