#include "printmanager/FindingMark.h"

#include <algorithm>
#include <string>
#include <vector>

namespace printmanager {

namespace {

/// " (en nog 2 punten)"; empty for none.
std::string More(std::size_t count) {
    if (count == 0) {
        return {};
    }
    return " (en nog " + std::to_string(count) + (count == 1 ? " punt)" : " punten)");
}

} // namespace

const char* PictureOf(precheck::Gravity gravity) {
    return gravity == precheck::Gravity::Spoils ? "message-critical" : "message-exclamation";
}

void TellAt(forms::PictureBox& picture, const precheck::Findings& findings,
            std::initializer_list<precheck::Spot> spots) {
    std::vector<const precheck::Finding*> here;
    for (const precheck::Finding& finding : findings) {
        if (std::find(spots.begin(), spots.end(), finding.Spot) != spots.end()) {
            here.push_back(&finding);
        }
    }
    if (!here.empty()) {
        picture.SetPicture(PictureOf(here.front()->Gravity));
        picture.SetToolTipText(here.front()->Wrong + More(here.size() - 1));
    }
    picture.SetVisible(!here.empty());
}

} // namespace printmanager
