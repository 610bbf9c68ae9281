#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/Numbers.h"
#include "composition/OpenPrinter.h"
#include "composition/PrintSurface.h"
#include "composition/RunHost.h"
#include "machine/Platform.h"
#include "state/AppState.h"
#include "support/FakeCanvas.h"

namespace support {

/// A page of the preview that keeps what is drawn on it.
class FakePreviewSurface final : public composition::PrintSurface {
  public:
    FakePreviewSurface() : PrintSurface(drawing) {}

    machine::DrawingState drawing;
    FakeCanvas canvas;

  protected:
    machine::Canvas& Page() override { return canvas; }
};

/// The forms around a run, which tell what is asked of them.
class FakeRunHost final : public composition::RunHost {
  public:
    FakeRunHost(state::AppState& state, machine::Platform& platform)
        : printer(platform.Printer), state_(state), platform_(platform) {}

    std::string count = "1";
    std::vector<int> percentages;
    /// The printer as the run draws on it.
    composition::PrinterSurface printer;
    FakePreviewSurface preview;
    /// Called for each call but those for the count.
    std::function<void(const std::string& call)> OnCall;

    std::string CountText() override { return count; }
    void SetCountText(const std::string& text) override { count = text; }
    void UpdatePercentage(std::int16_t iNewPerc) override {
        percentages.push_back(iNewPerc);
        Note("UpdatePercentage " + std::to_string(iNewPerc));
    }
    void OpenPreview(std::int16_t fase) override {
        Note("OpenPreview " + std::to_string(fase));
        if (fase != 0) {
            state_.Surface = nullptr;
            return;
        }
        composition::OpenPrinter(state_, platform_, printer);
        state_.Surface = &preview;
        preview.SetFont(state_.ListFontName);
        preview.SetFontSize(8);
        state_.LineHeight = base::ToInt32(preview.TextHeight("X"));
    }
    void ShowPreview() override { Note("ShowPreview"); }

  private:
    void Note(const std::string& call) const {
        if (OnCall) {
            OnCall(call);
        }
    }

    state::AppState& state_;
    machine::Platform& platform_;
};

} // namespace support
