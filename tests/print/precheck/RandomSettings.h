#pragma once

#include <cstdint>
#include <string>
#include <vector>

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
    std::vector<desktop::cups::Paper> Papers; ///< of the printer; the first is chosen
    precheck::Intent Intent;
};

/// The same settings for the same number, on every machine.
RandomSettings DrawSettings(std::uint64_t number);

/// The paper that a run ends up with.
const desktop::cups::Paper& PrintedPaper(const RandomSettings& settings);

/// Puts what a run reads anew where it reads it.
void StoreSettings(memory::MemoryRegistry& registry, const RandomSettings& settings);

} // namespace random_print
