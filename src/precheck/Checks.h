#pragma once

#include "precheck/Finding.h"
#include "precheck/Precheck.h"

namespace precheck {

struct CurrentSettings;

// What the settings are looked at for, each adding what it finds. `current` is Readable().

/// Contract, form type, payment traffic.
void CheckContract(const CurrentSettings& current, machine::Platform& platform, const Intent& intent,
                   Findings& findings);
/// The 56 values as texts.
void CheckCalibration(const CurrentSettings& current, machine::Platform& platform, Findings& findings);
void CheckCreditor(const CurrentSettings& current, machine::Platform& platform, Findings& findings);
void CheckFont(const CurrentSettings& current, machine::Platform& platform, const Intent& intent,
               Findings& findings);
void CheckCount(const Intent& intent, Findings& findings);

/// Brings the worst to the front.
void SortFindings(Findings& findings);

} // namespace precheck
