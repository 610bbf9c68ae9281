#include <string>

#include "desktop/windows/Win32.h"

#include "base/Text.h"
#include "desktop/windows/WideText.h"
#include "desktop/windows/WinClock.h"
#include "desktop/windows/WinLocale.h"
#include "windows/check/Check.h"

using namespace desktop::windows;

void CheckTexts() {
    Check(ToWide("Zoë €") == L"Zo\u00EB \u20AC", "UTF-8 becomes UTF-16");
    CheckEqual(FromWide(L"Zo\u00EB \u20AC"), "Zoë €", "UTF-16 becomes UTF-8");
    Check(ToWide("\U0001F600") == L"\xD83D\xDE00", "a character beyond the first plane becomes a pair");
    CheckEqual(FromWide(L"\xD83D\xDE00"), "\U0001F600", "a pair becomes one character");
    CheckEqual(FromWide(L"a\xD83D"), "a\uFFFD", "half a pair at the end is replaced");
    CheckEqual(FromWide(L"\xDE00z"), "\uFFFDz", "the wrong half of a pair is replaced");
    Check(ToWide("a\xFFz") == L"a\uFFFDz", "a byte that is no UTF-8 is replaced");
    Check(ToWide("").empty() && FromWide(L"").empty(), "the empty text stays empty");

    const std::string accented = base::text::ToCodePage("Fröhlich");
    CheckEqual(FromMachine(ToMachine(accented)), accented,
               "a letter that this machine has survives its code page");
    const std::string dutch = base::text::ToCodePage("Zoë");
    CheckEqual(FromMachine(ToMachine(dutch)), dutch, "a Dutch name survives this machine's code page");
    CheckEqual(FromMachine(ToMachine("plain")), "plain", "plain letters are the same everywhere");

    const machine::DateTime now = WinClock().Now();
    Check(now.Year >= 2020 && now.Month >= 1 && now.Month <= 12 && now.Day >= 1 && now.Day <= 31 &&
              now.Hour >= 0 && now.Hour <= 23,
          "the clock tells a date and a time");
}

void CheckPolish() {
    CheckEqual(::GetACP(), 1250, "the machine's code page is the Polish one");
    Check(!MachineSpeaks1252(), "which is not the program's");
    CheckEqual(FromMachine("\xB3"), "?", "a letter that the program's code page lacks");
    CheckEqual(ToMachine("\xF8"), "?", "a letter that the machine's code page lacks");

    WinLocale locale;
    constexpr std::int32_t dutch = 0x0413;
    char text[8] = {};
    CheckEqual(locale.GetLocaleInfoA(dutch, machine::LocaleCurrencySymbol, nullptr, 0), 2,
               "an item's length counts the bytes of the program's code page");
    CheckEqual(locale.GetLocaleInfoA(dutch, machine::LocaleCurrencySymbol, text, 2), 2,
               "it fits a buffer of its length");
    CheckEqual(text, "\x80", "in the program's code page");
    CheckEqual(locale.GetLocaleInfoA(dutch, machine::LocaleCurrencySymbol, text, 1), 0,
               "a smaller one fails");
    CheckEqual(locale.GetLocaleInfoA(dutch, 0x0FFF, text, 8), 0, "an item that does not exist fails");
    CheckEqual(locale.GetLocaleInfoA(locale.GetUserDefaultLCID(), machine::LocaleCurrencySymbol, text, 8), 3,
               "the Polish currency is two letters");
    CheckEqual(text, "z?", "of which the program's code page has one");
}

void CheckLocale() {
    WinLocale locale;
    const std::int32_t dutch = locale.GetUserDefaultLCID();
    CheckEqual(dutch, 0x0413, "the user's locale is Dutch");
    CheckEqual(std::string(1, locale.DecimalMark()), ",", "the decimal mark is a comma");

    const char* const months[] = {"jan", "feb", "mrt", "apr", "mei", "jun",
                                  "jul", "aug", "sep", "okt", "nov", "dec"};
    for (int month = 1; month <= 12; ++month) {
        CheckEqual(locale.ShortMonthName(month), months[month - 1], "the short name of a month");
    }
    CheckEqual(locale.ShortMonthName(0) + locale.ShortMonthName(13), "", "there is no month 0 or 13");

    char text[8] = "-------";
    CheckEqual(locale.GetLocaleInfoA(dutch, machine::LocaleDecimal, nullptr, 0), 2,
               "the length of an item counts its closing NUL");
    CheckEqual(locale.GetLocaleInfoA(dutch, machine::LocaleDecimal, text, 2), 2, "an item is written");
    CheckEqual(text, ",", "the item is the decimal comma");
    CheckEqual(locale.GetLocaleInfoA(dutch, machine::LocaleCurrencySymbol, text, 8), 2,
               "the currency symbol is one byte");
    CheckEqual(text, "\x80", "the euro is the one of Windows-1252");
    CheckEqual(locale.GetLocaleInfoA(dutch, machine::LocaleDecimal, text, 1), 0,
               "a buffer that is too small fails");
    CheckEqual(locale.GetLocaleInfoA(dutch, 0x0FFF, nullptr, 0), 0, "an item that does not exist fails");
}
