#include "precheck/TextGroups.h"

namespace precheck {

void TextGroup::Add(const WrongText& wrong) {
    const auto known = std::find_if(Wrong.begin(), Wrong.end(), [&](const WrongText& one) {
        return one.One == wrong.One && one.Other == wrong.Other;
    });
    if (known == Wrong.end()) {
        Wrong.push_back(wrong);
    } else if (wrong.Twips > known->Twips) {
        *known = wrong;
    }
    Texts.insert({wrong.Text, wrong.OtherText});
}

const WrongText& TextGroup::Worst() const {
    return *std::max_element(Wrong.begin(), Wrong.end(), [](const WrongText& one, const WrongText& other) {
        return one.Twips < other.Twips;
    });
}

std::size_t TextGroup::Fields() const {
    std::set<FieldOfForm> fields;
    for (const WrongText& wrong : Wrong) {
        fields.insert({wrong.One, wrong.Other});
    }
    return fields.size();
}

} // namespace precheck
