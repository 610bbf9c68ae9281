#pragma once

#include "machine/Locale.h"
#include "memory/Recorder.h"

namespace memory {

/// The regional settings of a Dutch user, with a decimal mark that can be changed.
class MemoryLocale final : public machine::Locale {
  public:
    explicit MemoryLocale(Recorder& recorder) : recorder_(recorder) {}

    std::int32_t GetUserDefaultLCID() override { return 1043; }
    std::int32_t GetLocaleInfoA(std::int32_t locale, std::int32_t item, char* buffer,
                                std::int32_t size) override;
    char DecimalMark() override { return decimalMark_; }
    std::string ShortMonthName(int month) override;

    /// "," or "."; the other of the two groups the thousands.
    void SetDecimalMark(char mark) { decimalMark_ = mark; }

  private:
    Recorder& recorder_;
    char decimalMark_ = ',';
};

} // namespace memory
