#pragma once

#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "machine/Platform.h"
#include "machine/Spooler.h"

namespace printmanager {

/// A spooler that answers whatever a test tells it to, sense or nonsense, and lists the calls.
class StubSpooler : public machine::Spooler {
  public:
    machine::PrinterHandle Handle = 1;
    std::int32_t DevModeSize = sizeof(machine::DEVMODE);
    std::int32_t FetchResult = 1;
    std::int32_t MergeResult = 1;
    machine::DEVMODE Mode = WithAllFields();
    machine::DEVMODE Merged{};
    std::uint32_t InfoSize = sizeof(machine::PRINTER_INFO_2);
    bool InfoResult = true;
    machine::PRINTER_INFO_2 Info{};
    /// Text of Info, put behind the record in the caller's buffer as name, port and comment.
    std::string InfoText;
    /// Text that is told as the port alone.
    std::string PortText;
    /// The driver fills its settings and this many bytes more.
    std::size_t BytesTooMany = 0;
    /// The merge had one buffer for what goes in and what comes out.
    bool MergedInPlace = false;
    machine::PRINTER_INFO_2 Written{};
    machine::DEVMODE WrittenMode{};
    /// By capability: the number answered without and with a buffer, and the bytes that go into it.
    struct Capability {
        std::int32_t Count = -1;
        std::int32_t Told = -1;
        std::string Bytes;
    };
    std::map<int, Capability> Capabilities;
    std::vector<std::string> Calls;

    bool OpenPrinterA(const std::string& /*printer*/, machine::PrinterHandle& handle,
                      const machine::PRINTER_DEFAULTS& /*defaults*/) override {
        Calls.emplace_back("open");
        handle = Handle;
        return true;
    }
    bool ClosePrinter(machine::PrinterHandle /*handle*/) override {
        Calls.emplace_back("close");
        return true;
    }
    std::int32_t DocumentPropertiesA(machine::PrinterHandle /*handle*/, const std::string& /*printer*/,
                                     void* output, const void* input, std::uint32_t mode) override {
        if (mode == 0) {
            Calls.emplace_back("size");
            return DevModeSize;
        }
        if (mode == machine::DM_OUT_BUFFER) {
            Calls.emplace_back("fetch");
            if (FetchResult >= 0) {
                std::memset(output, 0, sizeof Mode + BytesTooMany);
                std::memcpy(output, &Mode, sizeof Mode);
            }
            return FetchResult;
        }
        Calls.emplace_back("merge");
        std::memcpy(&Merged, input, sizeof Merged);
        MergedInPlace = input == output;
        return MergeResult;
    }
    bool GetPrinterA(machine::PrinterHandle /*handle*/, std::uint32_t /*level*/, void* buffer,
                     std::uint32_t size, std::uint32_t& needed) override {
        Calls.emplace_back(size == 0 ? "info size" : "info");
        needed = InfoSize;
        if (size == 0 || !InfoResult) {
            return false;
        }
        char* text = static_cast<char*>(buffer) + sizeof Info;
        if (!InfoText.empty()) {
            std::memcpy(text, InfoText.data(), InfoText.size());
            Info.pPrinterName = Info.pPortName = Info.pComment = text;
        }
        if (!PortText.empty()) {
            std::memcpy(text, PortText.c_str(), PortText.size() + 1);
            Info.pPortName = text;
        }
        std::memset(text, 0, InfoText.empty() && PortText.empty() ? BytesTooMany : 0);
        std::memcpy(buffer, &Info, sizeof Info);
        return true;
    }
    bool SetPrinterA(machine::PrinterHandle /*handle*/, std::uint32_t /*level*/, const void* buffer,
                     std::uint32_t /*command*/) override {
        Calls.emplace_back("set");
        std::memcpy(&Written, buffer, sizeof Written);
        std::memcpy(&WrittenMode, Written.pDevMode, sizeof WrittenMode);
        return true;
    }
    std::int32_t DeviceCapabilitiesA(const std::string& /*printer*/, const std::string& /*port*/,
                                     std::uint16_t capability, void* output) override {
        Calls.push_back("caps " + std::to_string(capability));
        const Capability& answer = Capabilities[capability];
        if (output == nullptr) {
            return answer.Count;
        }
        std::memcpy(output, answer.Bytes.data(), answer.Bytes.size());
        return answer.Told;
    }

  private:
    static machine::DEVMODE WithAllFields() {
        machine::DEVMODE mode{};
        mode.dmFields = 0xFFFFFFFFU;
        return mode;
    }
};

/// A platform with this spooler in the place of its own.
inline machine::Platform WithSpooler(const machine::Platform& base, machine::Spooler& spooler) {
    return {.Desktop = base.Desktop,
            .Registry = base.Registry,
            .Locale = base.Locale,
            .Clock = base.Clock,
            .Random = base.Random,
            .Spooler = spooler,
            .Printers = base.Printers,
            .Printer = base.Printer,
            .Bitmaps = base.Bitmaps,
            .WindowProcedures = base.WindowProcedures,
            .Fonts = base.Fonts};
}

} // namespace printmanager
