#include "wizard/StartState.h"

#include <gtest/gtest.h>

#include "WizardFixture.h"

namespace wizard {

class StartStateTest : public WizardTest {};

// Whoever looks at the settings without the wizard has to see what the wizard would print.
TEST_F(StartStateTest, TheCreditorIsThatOfAFirstPageWhichNobodyEdits) {
    state::AppState taken;
    taken.IncassantBegunstigde = std::string(70, 'W');
    taken.IncassantAdres = std::string(60, 'a') + "b";
    taken.IncassantPostCode = "1234 ab 56789";
    taken.IncassantWoonplaats = std::string(61, 'z');
    taken.IncassantBankGiro = "NL91 ABNA 0417 1643 00";
    Set("IncassantBegunstigde", taken.IncassantBegunstigde);
    Set("IncassantAdres", taken.IncassantAdres);
    Set("IncassantPostCode", taken.IncassantPostCode);
    Set("IncassantWoonplaats", taken.IncassantWoonplaats);
    Set("IncassantBankGiro", taken.IncassantBankGiro);
    Start().Verder.OnClick();
    TakeAsShown(taken);
    EXPECT_EQ(taken.IncassantBegunstigde, state.IncassantBegunstigde);
    EXPECT_EQ(taken.IncassantAdres, state.IncassantAdres);
    EXPECT_EQ(taken.IncassantPostCode, state.IncassantPostCode);
    EXPECT_EQ(taken.IncassantWoonplaats, state.IncassantWoonplaats);
    EXPECT_EQ(taken.IncassantBankGiro, state.IncassantBankGiro);
    EXPECT_EQ(taken.IncassantBankGiro, "NL91ABNA0417164300");
}

} // namespace wizard
