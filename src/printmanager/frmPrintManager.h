#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Boolean.h"
#include "forms/CheckBox.h"
#include "forms/ChoiceControl.h"
#include "forms/CommandButton.h"
#include "forms/ControlArray.h"
#include "forms/Form.h"
#include "forms/Label.h"
#include "forms/LineControl.h"
#include "forms/PictureBox.h"
#include "forms/ProgressBar.h"
#include "forms/TextBox.h"
#include "forms/Timer.h"
#include "forms/UpDown.h"
#include "machine/Platform.h"
#include "machine/Printer.h"
#include "precheck/Finding.h"
#include "printmanager/PaperAndBins.h"
#include "printmanager/PrinterInfo.h"
#include "printmanager/PrinterState.h"
#include "state/AppState.h"
#include "state/HandbookSections.h"

namespace printmanager {

/// The print dialog and job engine. It knows nothing of the documents: any form fills
/// AppState::DocumentTitle, puts its own name in AppState::CallerFormName and shows a fresh instance modally.
/// The manager prepares the printer and calls PrintCaller::Afdrukken on every open form of that name with the
/// number of the picked title.
///
/// Re-entry comes only from yields to the message loop; `blnBusy` and `blnClosing` are the defence.
class frmPrintManager : public forms::Form {
  public:
    frmPrintManager(forms::Session& session, machine::Platform& platform, state::AppState& state);

    // What the form that prints may call.

    /// Progress of the run in percent, at most 100; yields to the message loop once.
    /// ErrorInvalidPropertyValue below 0.
    void UpdatePercentage(std::int16_t iNewPerc);
    /// The same for the sorting that may precede a run.
    void UpdatePercentageSort(std::int16_t iNewPerc);
    /// True while the run in progress is a preview.
    bool IsPrintPreview() const { return blnIsPreview; }
    /// Shows or hides the panel with the progress of a sort.
    void FakeFormVisible(bool blnVisible);
    /// Selects printer, orientation, paper and bin that the user has stored for this kind of document. The
    /// kind is told by how the title begins, in small letters.
    void ApplyDocumentSettings(const std::string& title);

    // Printer list and details.

    /// Shows that the printer cannot be reached, and empties the lists of papers and bins.
    void ShowNoConnection();
    /// Loads the printer's lists if they are empty, and shows what the spooler tells of it.
    void RefreshPrinterDetails();
    void OpenDetails();
    void CloseDetails();
    void ShowOrientationPicture();

    // Paper and bin.

    /// Fills the combos for this printer, or for `objPrinter` if the name is empty. `failed` is set if the
    /// driver does not answer; the combos then stay as they were.
    void LoadPrinterLists(const std::string& name, bool& failed);
    /// Writes the chosen paper and bin into the printer's stored defaults and makes it the current printer,
    /// with time for the driver in between. A failure ends the preparation without a word.
    void PreparePrinter(const std::string& name);
    /// Keeps the first printer and its selections as the state to go back to; `restore` says that it is to be
    /// gone back to.
    void RememberPrinterState(bool restore);
    /// Puts paper and bin of the remembered printer back into its stored defaults.
    void RestorePrinterState();

    // The controls, in reading order.
    forms::Label Header1;
    forms::ListBox lstAfdrukken;
    forms::CommandButton cmdPrint;
    forms::CommandButton cmdPrintVoorbeeld;
    forms::CommandButton cmdSetup;
    forms::CommandButton cmdAnnuleren;
    forms::Label Label4;
    forms::ControlArray<forms::TextBox> UserText;
    forms::UpDown UpDown;
    forms::PictureBox pictMyOrientation;
    forms::ControlArray<forms::PictureBox> pictOrientation;
    forms::Label Label3;
    /// 0 printer, 1 paper, 2 bin, 3 orientation.
    forms::ControlArray<forms::ComboBox> cboPrinterSelect;
    forms::PictureBox pictError;
    forms::CheckBox chkMatrixPrinter;
    forms::Label Label6;
    forms::ProgressBar ProgressBar;
    forms::CommandButton cmdDetails;
    forms::LineControl Line1;
    forms::LineControl Line2;
    forms::PictureBox pictPrinter;
    forms::Label lblPaperSize;
    forms::Label lblPaperBin;
    forms::Timer tmrSetPaperSize;

    forms::PictureBox pictDetails;
    forms::Label Label2;
    /// 6 name, 5 status, 7 port, 8 comment; 2, 1, 3 and 4 are their captions.
    forms::ControlArray<forms::Label> lblPrinterSelect;
    forms::Label Label8;
    forms::Label Label7;
    forms::Label Label5;

    /// A panel that looks like a small window of its own, with the progress of a sort.
    forms::PictureBox pictFakeForm;
    forms::PictureBox Picture3;
    forms::Label Label10;
    forms::ProgressBar ProgressBarSort;
    forms::LineControl lFormX1;
    forms::LineControl lFormX2;
    forms::LineControl lFormX3;
    forms::LineControl lFormX4;
    forms::LineControl lFormY1;
    forms::LineControl lFormY2;
    forms::LineControl lFormY3;
    forms::LineControl lFormY4;

    /// 0 printer, 1 paper, 2 bin, 3 copies: beside the box whose choice would spoil the document. They have a
    /// window only once there is something to tell.
    forms::ControlArray<forms::PictureBox> pictMelding;
    /// The choice is looked at when the messages that wait have been handled.
    std::unique_ptr<forms::Timer> tmrVoorcontrole;

    /// A run, a preparation or a reload is under way: no command, no other printer, no closing.
    base::Boolean blnBusy;
    /// The form is closing: no command.
    base::Boolean blnClosing;
    base::Boolean blnLoading;
    base::Boolean blnFillingPrinters;
    /// The printer has no list of papers.
    base::Boolean blnNoConnection;
    /// A combo has changed since the load or the last run.
    base::Boolean blnUserChanged;
    /// The stored defaults of a printer have been changed and are to be put back.
    base::Boolean blnRestorePending;
    /// `objPrinter` is a printer.
    base::Boolean blnPrinterFound;
    /// The details have not been opened yet.
    base::Boolean blnCenterPending;
    base::Boolean blnDetailsOpen;
    /// The user has settings per kind of document.
    base::Boolean blnUseSpecific;
    base::Boolean blnIsPreview;
    std::int16_t iCopies = 1;
    std::string strCurrentPrinter;
    /// The printer that was loaded last.
    machine::PrinterEntry objPrinter;
    // Element i belongs to position i of the paper or bin combo.
    std::vector<std::int16_t> iPaperIds;
    std::vector<PaperDimensions> ptPaperSizes;
    std::vector<std::int16_t> iBinIds;
    PrinterState FirstPrinterState;
    PrinterState RestoreState;

    /// Not while it prints, nor while a preview is open.
    bool MayClose() const override { return !blnBusy; }

  protected:
    void OnLoad() override;
    bool OnQueryUnload() override;
    void OnSessionEnd() override;
    std::string HandbookSection() const override { return state::HandbookAnchor(Name()); }

  private:
    // The job: frmPrintManager.cpp and frmPrintManagerLoad.cpp.
    void MakeMarks();
    void ConnectHandlers();
    void FillForm();
    void FillDocuments();
    void FillWithPrinters();
    void FillWithoutPrinters();
    void FillPrinterCombo();
    void CloseCheck();
    void lstAfdrukken_Click();
    void cmdPrint_Click();
    void cmdPrintVoorbeeld_Click();
    void cmdAnnuleren_Click();
    void UserText_GotFocus();
    bool MayStart() const;
    /// What one command prints, as the user had chosen it when he gave the command.
    struct Job {
        std::int16_t Document = 0;
        std::string Title;
        std::int16_t Copies = 0;
    };
    Job ChosenJob() const;
    /// A document of this title is landscape whatever the user has chosen.
    static bool LiesDown(const std::string& title);
    bool PrepareRun(bool preview, Job& job, std::int16_t& orientation);
    void CallBack(forms::Form& form, const Job& job, bool preview);
    void ForEachCaller(const std::function<void(forms::Form&)>& call);

    // The printer list: frmPrintManagerPrinters.cpp.
    void cboPrinterSelect_Click(int index);
    void ChangePrinter();
    void cmdDetails_Click();
    bool ShowPrinterInfo();
    void SetDetails(bool open);

    // Paper and bin: frmPrintManagerPaper.cpp.
    void tmrSetPaperSize_Timer();
    bool AssignPrinter(const std::string& name);
    void SetPaper(const std::string& name, int position, bool yield);
    void SetBin(const std::string& name, int position, bool yield);
    bool PreparePass(const std::string& name, bool logging);
    void RunPreparation(const std::string& name, bool logging);
    void Wait();
    void LogPreparation(const std::string& name);
    void LogPaperAndBin(const std::string& heading);

    // What would spoil the chosen document: frmPrintManagerPrecheck.cpp.
    void ControleerKeuze();
    void tmrVoorcontrole_Timer();
    precheck::Findings NagekekenKeuze();
    void TellFindings(const precheck::Findings& found);

    machine::Platform& platform_;
    state::AppState& state_;
};

} // namespace printmanager
