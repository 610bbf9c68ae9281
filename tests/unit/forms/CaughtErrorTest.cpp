#include "forms/CaughtError.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <new>
#include <stdexcept>
#include <string>

#include "base/RuntimeError.h"
#include "memory/MemoryPlatform.h"

namespace {

/// The error that the user is told of, for an exception that no handler knows.
template <class Exception>
std::string Told(const Exception& exception) {
    platform::MemoryPlatform memory;
    std::string told = "nothing";
    memory.recorder.Sink = [&told](const platform::Event& event) {
        if (event.Kind == "error") {
            told = event.Kind + " " + std::to_string(std::get<std::int64_t>(event.Fields[0].Value)) + " " +
                   std::get<std::string>(event.Fields[1].Value);
        }
    };
    try {
        throw exception;
    } catch (...) {
        platform::TellCaught(memory.desktop);
    }
    return told;
}

TEST(CaughtErrorTest, IsToldAsAnErrorOfTheMachine) {
    EXPECT_EQ(Told(platform::RuntimeError(482, "Printer error")), "error 482 Printer error");
    EXPECT_EQ(Told(std::bad_alloc()), "error 7 Out of memory");
    EXPECT_EQ(Told(std::logic_error("onmogelijk")), "error 51 onmogelijk");
}

TEST(CaughtErrorTest, EndsTheHourglassOfWhatBrokeOff) {
    platform::MemoryPlatform memory;
    memory.desktop.SetMousePointer(platform::PointerHourglass);
    try {
        throw std::bad_alloc();
    } catch (...) {
        platform::TellCaught(memory.desktop);
    }
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
}

TEST(CaughtErrorTest, WhatIsNoErrorPassesOn) {
    EXPECT_THROW(Told(42), int);
}

TEST(CaughtErrorTest, TextNamesNumberAndDescription) {
    EXPECT_EQ(platform::UnhandledErrorText(platform::SubscriptOutOfRange()),
              "Fout 9:\n\nSubscript out of range");
}

} // namespace
