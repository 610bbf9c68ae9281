#pragma once

#include <string>

#include "base/RuntimeError.h"

/// Prints one line for an expectation, and counts it if it does not hold.
void Check(bool holds, const std::string& what);

/// The same for two values, which are shown if they differ.
void CheckEqual(const std::string& value, const std::string& expected, const std::string& what);
void CheckEqual(long long value, long long expected, const std::string& what);
void CheckNear(double value, double expected, double allowed, const std::string& what);

/// Runs a step that has to raise a RuntimeError of this number.
template <class Step>
void CheckRaises(int number, Step step, const std::string& what) {
    try {
        step();
    } catch (const base::RuntimeError& error) {
        CheckEqual(error.Number(), number, what);
        return;
    }
    Check(false, what);
}

/// How many expectations have not held so far.
int Failures();

void CheckTexts();
void CheckPolish();
void CheckRegistry();
void CheckLocale();
void CheckSpooler();
void CheckPrinter();
void CheckBitmaps();
void CheckFonts();
void CheckQueues();
void CheckGuard();

/// Prints a document of known texts on the default printer and one line for each of them: what the paper has
/// to show is held against these by whoever reads it.
void PrintSamples();
/// The same with a sheet on its side.
void PrintOnItsSide();
