#pragma once

namespace forms {
class Desktop;
}

namespace machine {

class Bitmaps;
class Clock;
class Fonts;
class Locale;
class Printer;
class Printers;
class RandomSource;
class Registry;
class Spooler;
class WindowProcedures;

/// Everything outside the program that it works with, as one desktop or a test gives it.
struct Platform {
    forms::Desktop& Desktop;
    machine::Registry& Registry;
    machine::Locale& Locale;
    machine::Clock& Clock;
    machine::RandomSource& Random;
    machine::Spooler& Spooler;
    machine::Printers& Printers;
    machine::Printer& Printer;
    machine::Bitmaps& Bitmaps;
    machine::WindowProcedures& WindowProcedures;
    machine::Fonts& Fonts;
};

} // namespace machine
