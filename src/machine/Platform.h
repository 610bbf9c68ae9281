#pragma once

namespace platform {

class Bitmaps;
class Clock;
class Desktop;
class Locale;
class Printer;
class Printers;
class RandomSource;
class Registry;
class Spooler;
class WindowProcedures;

/// Everything outside the program that it works with, as one desktop or a test gives it.
struct Platform {
    platform::Desktop& Desktop;
    platform::Registry& Registry;
    platform::Locale& Locale;
    platform::Clock& Clock;
    platform::RandomSource& Random;
    platform::Spooler& Spooler;
    platform::Printers& Printers;
    platform::Printer& Printer;
    platform::Bitmaps& Bitmaps;
    platform::WindowProcedures& WindowProcedures;
};

} // namespace platform
