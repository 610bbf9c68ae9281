#include <string>

#include "precheck/Checks.h"
#include "precheck/FindingKinds.h"
#include "testdata/Tables.h"

namespace precheck {

void CheckCount(const Intent& intent, Findings& findings) {
    const std::string forms = std::to_string(intent.Forms);
    const std::string copies = std::to_string(intent.Copies);
    if (intent.Copies < 1) {
        findings.push_back(MakeFinding(FindingKind::CountNone, {copies}));
    }
    if (intent.Forms < intent.FormsAskedFor) {
        findings.push_back(
            MakeFinding(FindingKind::CountTooFew, {forms, std::to_string(intent.FormsAskedFor)}));
    }
    if (intent.Forms > testdata::PersonTable().FilledRows()) {
        findings.push_back(MakeFinding(FindingKind::CountNoNames, {forms}));
    }
    if (intent.Copies > 1) {
        findings.push_back(MakeFinding(FindingKind::CountCopies, {copies}));
    }
}

} // namespace precheck
