#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace machine {

/// How a printer stands, as far as the machine knows it.
struct PrinterCondition {
    std::string Name{};
    /// The print server answers for it.
    bool Reachable = true;
    /// Bits of PRINTER_INFO_2::Status (PRINTER_STATUS_...).
    std::uint32_t Status = 0;
    /// Dots per inch, the fewer of the two directions; 0 where nobody tells.
    int DotsPerInch = 0;
    /// Defaults of the maker, the server or the user that no job of the program can override and that change
    /// what stands on the paper, each as the driver words it ("Booklet: On").
    std::vector<std::string> Imposed{};
};

/// A sheet as it lies for the drawing, with the part of it that the printer reaches. Twips from the top left
/// corner of the sheet.
struct SheetArea {
    double Width = 0;
    double Height = 0;
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
};

} // namespace machine
