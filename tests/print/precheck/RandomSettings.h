#pragma once

#include <cstdint>
#include <string>

#include "desktop/cups/PrintQueue.h"
#include "memory/MemoryRegistry.h"
#include "precheck/Precheck.h"
#include "state/AppState.h"

namespace random_print {

/// What a user might print a batch with, drawn at random: the settings, the count and the sheet.
struct RandomSettings {
    state::AppState State;
    std::string SizeOfNames; ///< AcceptFontSizeNAW2, which no record has
    char DecimalMark = ',';
    desktop::cups::Paper Sheet;
    precheck::Intent Intent;
};

/// The same settings for the same number, on every machine.
RandomSettings DrawSettings(std::uint64_t number);

/// Puts what a run reads anew where it reads it.
void StoreSettings(memory::MemoryRegistry& registry, const RandomSettings& settings);

} // namespace random_print
