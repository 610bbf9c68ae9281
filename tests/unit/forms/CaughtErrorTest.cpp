#include "forms/CaughtError.h"

#include <cstdint>
#include <new>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "memory/MemoryPlatform.h"

namespace {

/// The error that the user is told of, for an exception that no handler knows.
template <class Exception>
std::string Told(const Exception& exception) {
    memory::MemoryPlatform memory;
    std::string told = "nothing";
    memory.recorder.Sink = [&told](const memory::Event& event) {
        if (event.Kind == "error") {
            told = event.Kind + " " + std::to_string(std::get<std::int64_t>(event.Fields[0].Value)) + " " +
                   std::get<std::string>(event.Fields[1].Value);
        }
    };
    try {
        throw exception;
    } catch (...) {
        forms::TellCaught(memory.desktop);
    }
    return told;
}

TEST(CaughtErrorTest, IsToldAsAnErrorOfTheMachine) {
    EXPECT_EQ(Told(base::RuntimeError(482, "Printer error")), "error 482 Printer error");
    EXPECT_EQ(Told(std::bad_alloc()), "error 7 Out of memory");
    EXPECT_EQ(Told(std::logic_error("onmogelijk")), "error 51 onmogelijk");
}

TEST(CaughtErrorTest, EndsTheHourglassOfWhatBrokeOff) {
    memory::MemoryPlatform memory;
    memory.desktop.SetMousePointer(forms::PointerHourglass);
    try {
        throw std::bad_alloc();
    } catch (...) {
        forms::TellCaught(memory.desktop);
    }
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
}

TEST(CaughtErrorTest, WhatIsNoErrorPassesOn) {
    EXPECT_THROW(Told(42), int);
}

TEST(CaughtErrorTest, TextNamesNumberAndDescription) {
    EXPECT_EQ(forms::UnhandledErrorText(base::SubscriptOutOfRange()), "Fout 9:\n\nSubscript out of range");
}

} // namespace
