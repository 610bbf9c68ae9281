#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

namespace precheck {

/// A form of a batch, by its page and its place there.
using FormOnPage = std::pair<int, std::int16_t>;

/// A field by its number in DrawnDocument::Fields, on the forms of one place; 0 where the place is all one.
struct FieldOfForm {
    std::size_t Field = 0;
    std::int16_t Place = 0;

    bool operator==(const FieldOfForm&) const = default;
    bool operator<(const FieldOfForm& other) const {
        return std::pair(Field, Place) < std::pair(other.Field, other.Place);
    }
};

/// A text that is wrong somewhere in a document, or two that are wrong together.
struct WrongText {
    FieldOfForm One;
    FieldOfForm Other; ///< One again where there is no other
    // Where it is worst; numbers in DrawnDocument::Texts.
    double Twips = 0;
    std::size_t Text = 0;
    std::size_t OtherText = 0;
};

/// All that is wrong for one reason, which is told as one thing.
struct TextGroup {
    std::vector<WrongText> Wrong; ///< each once, in the order in which they came up
    std::set<std::size_t> Texts;  ///< all of them, by their numbers in DrawnDocument::Texts
    std::set<FormOnPage> Forms;   ///< on which they stand

    /// One more that is wrong, by so much.
    void Add(const WrongText& wrong);

    const WrongText& Worst() const;

    /// How many different texts are wrong.
    std::size_t Fields() const;
};

/// The groups of a document by what they have in common, in the order in which they came up.
template <class Key>
class TextGroups {
  public:
    TextGroup& operator[](const Key& key) {
        const auto known =
            std::find_if(groups_.begin(), groups_.end(), [&](const auto& one) { return one.first == key; });
        return known != groups_.end() ? known->second : groups_.emplace_back(key, TextGroup{}).second;
    }
    auto begin() const { return groups_.begin(); }
    auto end() const { return groups_.end(); }

  private:
    std::vector<std::pair<Key, TextGroup>> groups_;
};

} // namespace precheck
