#pragma once

#include <string>

#include "memory/MemoryRegistry.h"
#include "state/AppState.h"

namespace support {

/// Stores what each document reads anew (calibration, form type, contract form) as `state` has it, for a test
/// that gives a run its state.
inline void StoreRunSettings(memory::MemoryRegistry& registry, const state::AppState& state) {
    const auto store = [&](const std::string& name, const std::string& text) {
        registry.SetText(state.SettingsKey, name, text);
    };
    const auto storePair = [&](const std::string& stem, const auto& links, const auto& top) {
        for (std::size_t place = 0; place < state.OCRLinks.size(); ++place) {
            store(stem + "Links" + std::to_string(place), links[place]);
            store(stem + "Top" + std::to_string(place), top[place]);
        }
    };
    storePair("OCR", state.OCRLinks, state.OCRTop);
    storePair("AcceptGiro", state.AcceptGiroLinks, state.AcceptGiroTop);
    storePair("AcceptGiroNAW", state.AcceptGiroNAWLinks, state.AcceptGiroNAWTop);
    storePair("AcceptGiroBKSouche", state.AcceptGiroBKSoucheLinks, state.AcceptGiroBKSoucheTop);
    storePair("AcceptGiroBKAccept", state.AcceptGiroBKAcceptLinks, state.AcceptGiroBKAcceptTop);
    storePair("AcceptGiroBGSouche", state.AcceptGiroBGSoucheLinks, state.AcceptGiroBGSoucheTop);
    storePair("AcceptGiroBGAccept", state.AcceptGiroBGAcceptLinks, state.AcceptGiroBGAcceptTop);
    store("AcceptgiroType", std::to_string(state.AcceptgiroType));
    store("GMUContractVorm", std::to_string(state.GMUContractVorm));
}

} // namespace support
