#include "composition/TestFormRun.h"

#include "base/Numbers.h"
#include "base/Resume.h"
#include "composition/PrintFormulier.h"
#include "composition/PrintIncassant.h"
#include "composition/PrintOCRRegel.h"
#include "composition/PrintSurface.h"
#include "composition/RunHost.h"
#include "machine/Clock.h"
#include "machine/Platform.h"
#include "payment/CheckDigits.h"
#include "payment/Iban.h"
#include "payment/PaymentReference.h"
#include "state/AppState.h"
#include "state/ContractTexts.h"

namespace composition {

using base::Resume;

namespace {

constexpr std::string_view Soort = "1";

} // namespace

TestFormRun::TestFormRun(state::AppState& state, machine::Platform& platform, RunHost& host, Twips corner)
    : state_(state), platform_(platform), host_(host), corner_(corner) {}

void TestFormRun::Print(std::int32_t aantal, std::int16_t copies) {
    if (aantal <= 0) {
        return;
    }
    const testdata::DrawSources sources = {platform_.Random, platform_.Clock, *state_.PersonTable,
                                           *state_.AccountTable};
    while (draw_.Volgnummer < aantal) {
        Resume([&] { testdata::DrawTestDocument(draw_, sources, document_); });
        for (int copy = 1; copy <= copies; ++copy) {
            Formulier();
        }
        Resume([&] {
            host_.UpdatePercentage(base::ToInt16(static_cast<double>(draw_.Volgnummer) / aantal * 100));
        });
        draw_.Rij = draw_.Rij < testdata::LastRij ? draw_.Rij + 1 : 0;
    }
}

void TestFormRun::Formulier() {
    if (nieuwePagina_) {
        Resume([&] { SurfaceOf(state_).Newpage(); });
        nieuwePagina_ = false;
    }
    if (state_.AcceptgiroType == state::TypeUnderLetter) {
        Resume([&] { corner_.y = TopAt(UnderLetterTopCm); });
    }
    Resume([&] { SurfaceOf(state_).BeginForm(PlaceOf(state_, Positie())); });
    switch (state_.AcceptgiroType) {
    case state::TypeNarrowStub:
    case state::TypeUnderLetter:
        DrawPayerAndCreditor(true);
        break;
    case state::TypeWideStub:
        DrawPayerAndCreditor(false);
        break;
    default:
        break; // stationery that is not known gets what every form has, the OCR line
    }
    DrawOcrLine();
    TakeNextPlace();
}

void TestFormRun::DrawPayerAndCreditor(bool smalleStub) {
    adresPlaats_.assign(document_.postcode).append("  ").append(document_.woonplaats);
    const FormulierTekst tekst = {.omschrijving1 = "DRUKKEURING",
                                  .omschrijving2 = {},
                                  .euro = document_.euro,
                                  .cent = document_.cent,
                                  .rekening = document_.rekening,
                                  .regel0 = {},
                                  .naam = document_.naam,
                                  .partner = document_.partner,
                                  .regel3 = {},
                                  .adres = document_.adres,
                                  .plaats = adresPlaats_};
    Resume([&] { PrintFormulier(state_, platform_, smalleStub, corner_, tekst, Positie()); });

    const IncassantTekst incassant = {.rekening = state_.IncassantBankGiro,
                                      .naam = state_.IncassantBegunstigde,
                                      .adres = state_.IncassantAdres,
                                      .postcode = state_.IncassantPostCode,
                                      .plaats = state_.IncassantWoonplaats};
    Resume([&] { PrintIncassant(state_, platform_, smalleStub, corner_, incassant, Positie()); });
}

void TestFormRun::DrawOcrLine() {
    Resume([&] {
        const machine::DateTime now = platform_.Clock.Now();
        kenmerk_ =
            payment::MaakBetalingskenmerk(document_.volgnummertekst, Soort, payment::NulVulling(now.Month, 2),
                                          payment::NulVulling(now.Year, 4));
    });
    const payment::OcrValues values = {.kenmerk = kenmerk_,
                                       .euro = document_.euro,
                                       .cent = document_.cent,
                                       .rekening = state_.IncassantBankGiro,
                                       .bic = payment::IBAN2BIC(state_.IncassantBankGiro)};
    std::int16_t positie = Positie();
    Resume([&] { PrintOCRRegel(state_, platform_, corner_, values, positie, line_); });
}

void TestFormRun::TakeNextPlace() {
    if (state_.AcceptgiroType == state::TypeUnderLetter) {
        nieuwePagina_ = true;
        return;
    }
    ++plaats_;
    if (plaats_ == static_cast<std::int16_t>(SheetTopsCm.size())) {
        nieuwePagina_ = true;
        plaats_ = 0;
    }
    Resume([&] { corner_.y = TopAt(SheetTopsCm[static_cast<std::size_t>(plaats_)]); });
}

std::int32_t TestFormRun::TopAt(double cm) const {
    return base::ToInt32(cm * state_.TwipsPerCm - state_.PhysicalOffsetY);
}

} // namespace composition
