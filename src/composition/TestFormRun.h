#pragma once

#include <cstdint>
#include <string>

#include "composition/FormPlace.h"
#include "payment/OcrLine.h"
#include "testdata/TestDocument.h"

namespace machine {
struct Platform;
}

namespace composition {

class RunHost;

/// The test forms of one batch: draws each test document, puts its copies on the next free places of the
/// sheet and reports the progress. A routine that fails in the middle of a form (payer, creditor, OCR line)
/// ends there; the next routine and the next form follow, and the form keeps its place. All that one form
/// needs is kept for the next, so a batch of any size takes the memory of one form.
class TestFormRun {
  public:
    /// `corner` is that of the sheet's first form: the corner of the paper.
    TestFormRun(state::AppState& state, machine::Platform& platform, RunHost& host, Twips corner);

    /// `aantal` forms; none for a number of 0 or less. Each one `copies` times; with 0 or less they are
    /// counted and not drawn.
    void Print(std::int32_t aantal, std::int16_t copies);

  private:
    /// One copy of the present test document on the next free place.
    void Formulier();
    void DrawPayerAndCreditor(bool smalleStub);
    void DrawOcrLine();
    void TakeNextPlace();
    /// Top of a form that stands this far from the top of the paper.
    std::int32_t TopAt(double cm) const;
    std::int16_t Positie() const { return static_cast<std::int16_t>(plaats_ + 1); }

    state::AppState& state_;
    machine::Platform& platform_;
    RunHost& host_;

    testdata::DrawState draw_;
    testdata::TestDocument document_;
    std::string kenmerk_;
    std::string adresPlaats_; ///< postcode and town
    payment::OcrLine line_;

    Twips corner_;
    std::int16_t plaats_ = 0;
    bool nieuwePagina_ = false; ///< due before the next form, so that no batch ends on an empty page
};

} // namespace composition
