#pragma once

namespace printmanager {

class frmPrintManager;

/// What changes on the form with its details panel; twips.
struct DetailsMeasures {
    const char* Caption;
    double FormHeight;
    double RuleEnd;
    double PrinterTop;
};

inline constexpr DetailsMeasures DetailsClosed{"De&tails >>", 4650, 4035, 3120};
inline constexpr DetailsMeasures DetailsOpened{"De&tails <<", 7980, 7440, 6600};

/// Gives the form and its controls their places, texts, pictures and tab order.
void LayOut(frmPrintManager& form);

/// Puts the panel that looks like a window of its own over the form, hidden, with its border.
void LayOutFakeForm(frmPrintManager& form);

/// Gives the pictures beside the boxes their places; they stay without a window.
void LayOutMarks(frmPrintManager& form);

} // namespace printmanager
