// The job: the commands, the call back to the form that prints, and the closing.

#include "printmanager/frmPrintManager.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/Resume.h"
#include "base/RuntimeError.h"
#include "composition/PrinterMeasures.h"
#include "forms/Desktop.h"
#include "printmanager/ClearAtEnd.h"
#include "printmanager/DrawingUnlock.h"
#include "printmanager/PrintCaller.h"
#include "printmanager/frmPrintManagerLayout.h"
#include "state/Settings.h"

namespace printmanager {

namespace {

constexpr int NoIndex = forms::Control::NoIndex;
/// In the title of a document that is landscape.
constexpr const char* LandscapeTitle = "Landscape";

/// A last step on every way out of a block.
template <class Step>
class AtEnd {
  public:
    explicit AtEnd(Step step) : step_(step) {}
    ~AtEnd() { step_(); }
    AtEnd(const AtEnd&) = delete;
    AtEnd& operator=(const AtEnd&) = delete;

  private:
    Step step_;
};

void ShowProgress(forms::ProgressBar& bar, std::int16_t percent) {
    bar.SetValue(std::min<int>(percent, bar.Max()));
}

PrintCaller& CallerOf(forms::Form& form) {
    if (auto* const caller = dynamic_cast<PrintCaller*>(&form)) {
        return *caller;
    }
    throw base::RuntimeError(base::ErrorNoSuchMember, "Object doesn't support this property or method");
}

std::string UnknownErrorText(const base::RuntimeError& error) {
    return "Een onbekende fout is opgetreden !\r\n"
           "Mocht u deze fout kunnen reproduceren neem dan contact op met Ondor BV.\r\n"
           "\r\n"
           "Sluit dit onderdeel af en herstart het weer.\r\n"
           "\r\n"
           "Error: " +
           std::to_string(error.Number()) + " - " + error.Description();
}

} // namespace

frmPrintManager::frmPrintManager(forms::Session& session, machine::Platform& platform, state::AppState& state)
    : Form(session, "frmPrintManager"), Header1(*this, "Header1"), lstAfdrukken(*this, "lstAfdrukken"),
      cmdPrint(*this, "cmdPrint"), cmdPrintVoorbeeld(*this, "cmdPrintVoorbeeld"), cmdSetup(*this, "cmdSetup"),
      cmdAnnuleren(*this, "cmdAnnuleren"), Label4(*this, "Label4"), UserText(*this, "UserText", {0}),
      UpDown(*this, "UpDown", UserText(0), 1, 99), pictMyOrientation(*this, "pictMyOrientation"),
      pictOrientation(*this, "pictOrientation", {0, 1}), Label3(*this, "Label3"),
      cboPrinterSelect(*this, "cboPrinterSelect", {0}), pictError(*this, "pictError"),
      chkMatrixPrinter(*this, "chkMatrixPrinter"), Label6(*this, "Label6"), ProgressBar(*this, "ProgressBar"),
      cmdDetails(*this, "cmdDetails"), Line1(*this, "Line1"), Line2(*this, "Line2"),
      pictPrinter(*this, "pictPrinter"), lblPaperSize(*this, "lblPaperSize"),
      lblPaperBin(*this, "lblPaperBin"), tmrSetPaperSize(*this, "tmrSetPaperSize", 100),
      pictDetails(*this, "pictDetails"), Label2(*this, "Label2", NoIndex, &pictDetails),
      lblPrinterSelect(*this, "lblPrinterSelect", {1, 2, 3, 4, 5, 6, 7, 8}, &pictDetails),
      Label8(*this, "Label8", NoIndex, &pictDetails), Label7(*this, "Label7", NoIndex, &pictDetails),
      Label5(*this, "Label5", NoIndex, &pictDetails), pictFakeForm(*this, "pictFakeForm"),
      Picture3(*this, "Picture3", NoIndex, &pictFakeForm), Label10(*this, "Label10", NoIndex, &pictFakeForm),
      ProgressBarSort(*this, "ProgressBarSort", NoIndex, &pictFakeForm),
      lFormX1(*this, "lFormX1", NoIndex, &pictFakeForm), lFormX2(*this, "lFormX2", NoIndex, &pictFakeForm),
      lFormX3(*this, "lFormX3", NoIndex, &pictFakeForm), lFormX4(*this, "lFormX4", NoIndex, &pictFakeForm),
      lFormY1(*this, "lFormY1", NoIndex, &pictFakeForm), lFormY2(*this, "lFormY2", NoIndex, &pictFakeForm),
      lFormY3(*this, "lFormY3", NoIndex, &pictFakeForm), lFormY4(*this, "lFormY4", NoIndex, &pictFakeForm),
      pictMelding(*this, "pictMelding", {}), platform_(platform), state_(state) {
    for (const int index : {1, 2, 3}) {
        cboPrinterSelect.Add(*this, "cboPrinterSelect", index, &pictDetails);
    }
    MakeMarks();
    LayOut(*this);
    ConnectHandlers();
}

void frmPrintManager::ConnectHandlers() {
    lstAfdrukken.OnClick = [this] { lstAfdrukken_Click(); };
    cmdPrint.OnClick = [this] { cmdPrint_Click(); };
    cmdPrintVoorbeeld.OnClick = [this] { cmdPrintVoorbeeld_Click(); };
    cmdSetup.OnClick = [this] { Desktop().HourglassOff(); };
    cmdAnnuleren.OnClick = [this] { cmdAnnuleren_Click(); };
    cmdDetails.OnClick = [this] { cmdDetails_Click(); };
    UserText(0).OnGotFocus = [this] { UserText_GotFocus(); };
    UserText(0).OnChange = [this] { ControleerKeuze(); };
    tmrVoorcontrole->OnTimer = [this] { tmrVoorcontrole_Timer(); };
    tmrSetPaperSize.OnTimer = [this] { tmrSetPaperSize_Timer(); };
    for (const auto& [index, combo] : cboPrinterSelect) {
        combo->OnClick = [this, number = index] { cboPrinterSelect_Click(number); };
    }
}

void frmPrintManager::UpdatePercentage(std::int16_t iNewPerc) {
    ShowProgress(ProgressBar, iNewPerc);
    Desktop().Yield();
}

void frmPrintManager::UpdatePercentageSort(std::int16_t iNewPerc) {
    ShowProgress(ProgressBarSort, iNewPerc);
    Desktop().Yield();
}

void frmPrintManager::FakeFormVisible(bool blnVisible) {
    pictFakeForm.SetVisible(blnVisible);
}

void frmPrintManager::lstAfdrukken_Click() {
    if (platform_.Printers.Count() > 0) {
        cmdPrint.SetEnabled(true);
        cmdPrintVoorbeeld.SetEnabled(true);
    }
    cmdSetup.SetEnabled(false);
    Desktop().HourglassOff();
    ControleerKeuze();
}

void frmPrintManager::UserText_GotFocus() {
    forms::TextBox& copies = UserText(0);
    if (Desktop().GetKeyState(forms::key::Tab) < 0) {
        copies.SelectAll();
    } else {
        copies.SetSelLength(0);
    }
}

bool frmPrintManager::MayStart() const {
    return !blnBusy && !blnClosing && lstAfdrukken.ListIndex() != -1;
}

/// What a print and a preview have in common before the call back. `job` is the one to run; `orientation`
/// takes the value that the user's choice gives, to be put back after the run. False if there is nothing to
/// print.
bool frmPrintManager::PrepareRun(bool preview, Job& job, std::int16_t& orientation) {
    PreparePrinter(cboPrinterSelect(0).Text());
    blnRestorePending = true;
    blnUserChanged = false;
    Desktop().Yield();
    blnIsPreview = preview;
    blnBusy = true;

    orientation = static_cast<std::int16_t>(cboPrinterSelect(3).ListIndex() + 1);
    state_.PrinterOrientation = orientation;
    if (LiesDown(job.Title)) {
        state_.PrinterOrientation = machine::Landscape;
    }
    if (state_.PrinterOrientation == machine::Portrait) {
        state_.LeftMargin = composition::LeftMarginPortrait;
    } else if (state_.PrinterOrientation == machine::Landscape) {
        state_.LeftMargin = composition::LeftMarginLandscape;
    }
    composition::LeesPrinterMaten(state_, platform_);
    UpdatePercentage(0);

    iCopies = base::Int16OfText(UserText(0).Text());
    if (iCopies == 0) {
        Desktop().MsgBox("U kunt geen 0 afdrukken maken.", forms::MessageIcon::Exclamation,
                         state_.MessageTitle);
        blnBusy = false;
        return false;
    }
    job.Copies = iCopies;
    return true;
}

bool frmPrintManager::LiesDown(const std::string& title) {
    return title.find(LandscapeTitle) != std::string::npos;
}

void frmPrintManager::ForEachCaller(const std::function<void(forms::Form&)>& call) {
    const std::vector<forms::Form*>& open = GetSession().OpenForms();
    const std::size_t count = open.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (i >= open.size()) {
            throw base::SubscriptOutOfRange();
        }
        if (open[i]->Name() == state_.CallerFormName) {
            call(*open[i]);
        }
    }
}

/// The list may be clicked while a run yields; what was asked for is printed all the same.
frmPrintManager::Job frmPrintManager::ChosenJob() const {
    const std::int32_t document = lstAfdrukken.ItemData(lstAfdrukken.ListIndex());
    return {base::ToInt16(document), lstAfdrukken.Text(), iCopies};
}

void frmPrintManager::CallBack(forms::Form& form, const Job& job, bool preview) {
    if (!preview) {
        platform_.Printer.SetDocumentTitle(job.Title);
    }
    CallerOf(form).Afdrukken(job.Document, job.Copies, preview);
}

void frmPrintManager::cmdPrint_Click() {
    if (!MayStart()) {
        return;
    }
    Desktop().HourglassOn();
    std::int16_t orientation = state_.PrinterOrientation;
    const AtEnd check([this] { ControleerKeuze(); });
    const ClearAtEnd notBusy(blnBusy);
    const auto giveBack = [&] {
        state_.PrinterOrientation = orientation;
        blnBusy = false;
        Desktop().HourglassOff();
    };
    try {
        Job job = ChosenJob();
        if (!PrepareRun(false, job, orientation)) {
            return;
        }
        ForEachCaller([&](forms::Form& caller) { CallBack(caller, job, false); });
        giveBack();
        Desktop().Yield();
        Unload();
    } catch (const base::RuntimeError& error) {
        giveBack();
        Desktop().MsgBox(UnknownErrorText(error), forms::MessageIcon::Critical, state_.MessageTitle);
    } catch (...) {
        giveBack();
        throw;
    }
}

void frmPrintManager::cmdPrintVoorbeeld_Click() {
    if (!MayStart()) {
        return;
    }
    Desktop().HourglassOn();
    std::int16_t orientation = 0;
    const AtEnd check([this] { ControleerKeuze(); });
    const ClearAtEnd notBusy(blnBusy);
    Job job = ChosenJob();
    if (!PrepareRun(true, job, orientation)) {
        return;
    }
    ForEachCaller([&](forms::Form& caller) {
        CallBack(caller, job, true);
        if (state_.PrintAfterPreview) {
            blnIsPreview = false;
            CallBack(caller, job, false);
            // Still busy, so the form refuses: after a preview the user goes on here.
            Unload();
        }
    });
    state_.PrinterOrientation = orientation;
    Desktop().HourglassOff();
}

void frmPrintManager::cmdAnnuleren_Click() {
    if (!blnClosing && !blnBusy) {
        Unload();
    }
}

bool frmPrintManager::OnQueryUnload() {
    if (!MayClose()) {
        return false;
    }
    base::Resume([this] { CloseCheck(); });
    return true;
}

// Also in the middle of a print or a preview: the defaults of the printer are the user's own.
void frmPrintManager::OnSessionEnd() {
    base::Resume([this] { CloseCheck(); });
}

/// The steps of a closing. A failure ends them, and the form closes all the same.
void frmPrintManager::CloseCheck() {
    blnClosing = true;
    const ClearAtEnd notClosing(blnClosing); // a form that stays after all is to be closed another time
    tmrSetPaperSize.SetEnabled(false);
    const DrawingUnlock unlock(Desktop());
    if (blnRestorePending) {
        Desktop().LockWindowUpdate(pictDetails.hWnd());
        RestorePrinterState();
    }
    strCurrentPrinter = RestoreState.Printer.empty() ? cboPrinterSelect(0).Text() : RestoreState.Printer;
    if (!strCurrentPrinter.empty()) {
        state::SchrijfInstelling(state_, platform_.Registry, "CurrentPrinter", strCurrentPrinter);
    }
    state_.CallerFormName.clear();
    state_.PrintManagerOpen = false;
}

} // namespace printmanager
