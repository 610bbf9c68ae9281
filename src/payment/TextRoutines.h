#pragma once

#include <string>
#include <string_view>

/// Small text routines that the account boxes, the form layout and the number tests share.
namespace payment {

/// The text without any character equal to `teken`. `teken` is one character: an empty or a longer one equals
/// none, and the text comes back as it is.
std::string VerwijderTeken(std::string_view tekst, std::string_view teken);

/// Whether the text is a number written as the program itself would write it: "0", "7", "-5" and "1.5" are,
/// "", "007", "12a" and "1." are not.
bool IsGetal(std::string_view tekst);

/// A Dutch postcode as it is printed, "1234 AB". A text that is none (four figures without a leading zero,
/// two characters) comes back without its blanks. The blanks are taken out of the caller's text as well.
std::string PostcodeFormaat(std::string& tekst);

} // namespace payment
