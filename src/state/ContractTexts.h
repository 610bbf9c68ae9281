#pragma once

#include <cstdint>
#include <string_view>

/// The contract forms under which an organisation sends acceptgiros, and the kinds of stationery, with the
/// texts by which screen and report name them.
namespace state {

/// A code of the settings under which neither creditor nor payment reference is printed.
inline constexpr std::int16_t ContractNone = -1;
inline constexpr std::int16_t ContractA = 1;
inline constexpr std::int16_t ContractB = 2;
/// Blank stationery: the creditor is printed.
inline constexpr std::int16_t ContractCBlank = 31;
/// Blank stationery, with the number of the service bureau.
inline constexpr std::int16_t ContractSBlank = 32;
/// The creditor is on the stationery.
inline constexpr std::int16_t ContractCPreprinted = 33;
/// The creditor but for the account is on the stationery.
inline constexpr std::int16_t ContractCAccount = 34;

/// The contract form as the wizard shows it; any number that is no contract form says that none is set.
std::string_view ContractScreenText(std::int16_t contractVorm);
/// The same as the report prints it; the wording differs for some forms.
std::string_view ContractReportText(std::int16_t contractVorm);

inline constexpr std::int16_t TypeNarrowStub = 1;
inline constexpr std::int16_t TypeWideStub = 2;
inline constexpr std::int16_t TypeUnderLetter = 3;

/// The stationery as the report names it; empty for a number that is no type.
std::string_view AcceptgiroTypeText(std::int16_t acceptgiroType);

} // namespace state
