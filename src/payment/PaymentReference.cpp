#include "payment/PaymentReference.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "payment/CheckDigits.h"

namespace payment {

std::string MaakBetalingskenmerk(std::string_view volgnummer, std::string_view soort, std::string_view maand,
                                 std::string_view jaar) {
    const auto atMostZero = [](std::string_view tekst) { return base::NumericValue(tekst) <= 0; };
    if (atMostZero(volgnummer) || atMostZero(soort)) {
        soort = "0";
    }
    if (atMostZero(maand)) {
        maand = "00";
    }
    if (atMostZero(jaar)) {
        jaar = "00";
    }
    std::string kenmerk("1");
    kenmerk.append(NulVulling(base::Int32OfText(volgnummer), 8));
    kenmerk.append(NulVulling(base::Int32OfText(soort), 2));
    kenmerk.append(NulVulling(base::Int32OfText(maand), 2));
    kenmerk.append(base::text::Right(jaar, 2));
    return kenmerk;
}

} // namespace payment
