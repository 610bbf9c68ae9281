#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace payment {

/// An account text without its blanks and dots. Accounts are tested by the ten thousand, so a text of usual
/// length is held without the heap; any other length is held as well.
class BareText {
  public:
    explicit BareText(std::string_view tekst) {
        char* begin = room_.data();
        if (tekst.size() > room_.size()) {
            long_.resize(tekst.size());
            begin = long_.data();
        }
        const char* end =
            std::copy_if(tekst.begin(), tekst.end(), begin, [](char c) { return c != ' ' && c != '.'; });
        view_ = {begin, static_cast<std::size_t>(end - begin)};
    }
    BareText(const BareText&) = delete;
    BareText& operator=(const BareText&) = delete;

    std::string_view View() const { return view_; }

  private:
    std::array<char, 64> room_; // not cleared: only what view_ shows counts
    std::string long_;
    std::string_view view_;
};

} // namespace payment
