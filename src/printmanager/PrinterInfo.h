#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "machine/Spooler.h"

namespace printmanager {

/// What the spooler tells of a printer.
struct PrinterInfo {
    std::string Name;
    std::string Status; ///< or what is wrong with the printer's stored defaults
    std::string Port;
    std::string Comment;
};

/// False if the printer could not be opened. The texts are empty where the spooler told nothing. The
/// printer's handle stays open until the process ends.
bool GetPrinterInfo(machine::Spooler& spooler, const std::string& printer, PrinterInfo& info);

/// The text in the spooler's encoding at `pointer`, up to its first NUL and no longer than `limit` bytes.
/// Empty if the pointer is null or points outside `readable`, the data that the spooler gave.
std::string PointerToString(const char* pointer, std::size_t limit, std::span<const std::byte> readable);

} // namespace printmanager
