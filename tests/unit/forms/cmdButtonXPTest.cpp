#include "forms/cmdButtonXP.h"

#include <new>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "forms/Form.h"
#include "forms/PictureBox.h"
#include "memory/MemoryPlatform.h"

namespace {

using forms::cmdButtonXP;
using testing::ElementsAre;

constexpr std::int16_t Disabled = cmdButtonXP::LookDisabled;
constexpr std::int16_t Normal = cmdButtonXP::LookNormal;
constexpr std::int16_t Hot = cmdButtonXP::LookHot;
constexpr std::int16_t Down = cmdButtonXP::LookDown;

class ButtonForm : public forms::Form {
  public:
    explicit ButtonForm(forms::Session& session)
        : Form(session, "ButtonForm"), panel(*this, "panel"), button(*this, "button", &panel) {}

    forms::PictureBox panel;
    cmdButtonXP button;
};

class FlatButtonTest : public testing::Test {
  protected:
    FlatButtonTest() {
        form.Show();
        button.SetButtonStyle(1);
        button.Click = [this] { events.push_back("click"); };
        button.DblClick = [this] { events.push_back("double click"); };
    }

    void Over() {
        memory.desktop.PointAt(&button);
        button.UserMouseMove();
    }
    void Away() { memory.desktop.PointAt(nullptr); }
    void Tick() { button.Timer.Tick(); }
    std::string Picture(int index) const { return "imgResourceSmall-" + std::to_string(index); }

    memory::MemoryPlatform memory;
    forms::Session session{memory.desktop};
    ButtonForm form{session};
    cmdButtonXP& button = form.button;
    std::vector<std::string> events;
};

TEST_F(FlatButtonTest, StartsNormalWithoutATimer) {
    ButtonForm fresh(session);
    EXPECT_EQ(fresh.button.iState(), Normal);
    EXPECT_EQ(fresh.button.ButtonStyle(), 0);
    EXPECT_FALSE(fresh.button.ButtonDown());
    EXPECT_TRUE(fresh.button.Enabled());
    EXPECT_EQ(fresh.button.Width(), 240);
    EXPECT_EQ(fresh.button.Height(), 240);
    EXPECT_EQ(fresh.button.pictNormal(), "");
    EXPECT_EQ(fresh.button.Timer.Interval(), 5);
    EXPECT_FALSE(fresh.button.Timer.Enabled());
}

TEST_F(FlatButtonTest, LightsUpUnderTheMouseWithTheFirstTick) {
    Over();
    EXPECT_EQ(button.iState(), Normal);
    EXPECT_TRUE(button.Timer.Enabled());
    Tick();
    EXPECT_EQ(button.iState(), Hot);
    EXPECT_EQ(button.pictNormal(), Picture(3));
    EXPECT_TRUE(button.Timer.Enabled());
}

TEST_F(FlatButtonTest, GoesBackWithinOneTickWhenTheMouseIsGone) {
    Over();
    Tick();
    Away();
    Tick();
    EXPECT_EQ(button.iState(), Normal);
    EXPECT_FALSE(button.Timer.Enabled());
    EXPECT_FALSE(button.blnOver());
}

TEST_F(FlatButtonTest, AFleetingMouseLeavesNoTrace) {
    Over();
    Away();
    Tick();
    EXPECT_EQ(button.iState(), Normal);
    EXPECT_FALSE(button.Timer.Enabled());
}

TEST_F(FlatButtonTest, PressAndReleaseShowWithTheNextTick) {
    Over();
    Tick();
    button.UserMouseDown();
    EXPECT_EQ(button.iState(), Hot);
    Tick();
    EXPECT_EQ(button.iState(), Down);
    EXPECT_EQ(button.pictNormal(), Picture(4));
    button.UserMouseUp();
    EXPECT_EQ(button.iState(), Down);
    Tick();
    EXPECT_EQ(button.iState(), Hot);
}

TEST_F(FlatButtonTest, LeavingWithTheButtonHeldStaysHotAndKeepsTheTimerUntilTheRelease) {
    Over();
    button.UserMouseDown();
    Tick();
    Away();
    Tick();
    EXPECT_EQ(button.iState(), Hot);
    EXPECT_TRUE(button.Timer.Enabled());
    Tick();
    EXPECT_TRUE(button.Timer.Enabled());
    button.UserMouseUp();
    Tick();
    EXPECT_EQ(button.iState(), Normal);
    EXPECT_FALSE(button.Timer.Enabled());
}

TEST_F(FlatButtonTest, APictureChangesOnlyWithTheLook) {
    int pictures = 0;
    memory.desktop.OnControlChanged = [&](const forms::Control& control, forms::Aspect aspect) {
        pictures += &control == &button && aspect == forms::Aspect::Picture ? 1 : 0;
    };
    Over();
    EXPECT_EQ(pictures, 0);
    for (int i = 0; i < 100; ++i) {
        Tick();
    }
    EXPECT_EQ(button.iState(), Hot);
    EXPECT_EQ(pictures, 1);
    Away();
    for (int i = 0; i < 100; ++i) {
        Tick();
    }
    EXPECT_EQ(button.iState(), Normal);
    EXPECT_EQ(pictures, 2);
}

TEST_F(FlatButtonTest, AClickEndsNormalWithTheTimerOffWhileTheMouseIsStillThere) {
    Over();
    Tick();
    button.UserMouseDown();
    Tick();
    button.UserMouseUp();
    EXPECT_TRUE(button.UserClick());
    EXPECT_THAT(events, ElementsAre("click"));
    EXPECT_EQ(button.iState(), Normal);
    EXPECT_FALSE(button.Timer.Enabled());
    Tick();
    EXPECT_EQ(button.iState(), Normal) << "the timer is off";
    Over();
    Tick();
    EXPECT_EQ(button.iState(), Hot);
}

TEST_F(FlatButtonTest, NothingComesInWhileAClickIsHandled) {
    button.Click = [this] {
        events.push_back("click");
        EXPECT_FALSE(button.WindowEnabled());
        EXPECT_FALSE(button.UserClick());
        EXPECT_FALSE(button.UserDblClick());
        Over();
        button.UserMouseDown();
        EXPECT_FALSE(button.Timer.Enabled());
        EXPECT_FALSE(button.blnOver());
        EXPECT_FALSE(button.blnMouseDown());
        EXPECT_EQ(button.iState(), Normal);
    };
    EXPECT_TRUE(button.UserClick());
    EXPECT_THAT(events, ElementsAre("click"));
    EXPECT_TRUE(button.WindowEnabled());
    EXPECT_TRUE(button.UserClick());
}

TEST_F(FlatButtonTest, ATickWhileAClickIsHandledChangesNothing) {
    Over();
    button.Click = [this] {
        EXPECT_TRUE(button.Timer.Enabled());
        Tick();
        EXPECT_EQ(button.iState(), Normal);
    };
    EXPECT_TRUE(button.UserClick());
    EXPECT_FALSE(button.Timer.Enabled());
}

TEST_F(FlatButtonTest, ADoubleClickIsAnEventOfItsOwn) {
    EXPECT_TRUE(button.UserDblClick());
    EXPECT_THAT(events, ElementsAre("double click"));
}

TEST_F(FlatButtonTest, AFailingHandlerLeavesTheButtonUsable) {
    button.Click = [] { throw base::RuntimeError(5, "no"); };
    EXPECT_TRUE(button.UserClick());
    EXPECT_TRUE(button.WindowEnabled());
    EXPECT_TRUE(button.UserClick());
}

TEST_F(FlatButtonTest, AHandlerThatFailsInAnyOtherWayDoesToo) {
    button.Click = [] { throw std::bad_alloc(); };
    Over();
    EXPECT_THROW(button.UserClick(), std::bad_alloc);
    EXPECT_TRUE(button.WindowEnabled());
    EXPECT_FALSE(button.Timer.Enabled());
    button.Click = [this] { events.push_back("click"); };
    EXPECT_TRUE(button.UserClick());
    EXPECT_THAT(events, ElementsAre("click"));
    Over();
    Tick();
    EXPECT_EQ(button.iState(), Hot) << "it is not busy";
}

TEST_F(FlatButtonTest, AStickyStyleThatIsNoLookLeavesTheWindowEnabled) {
    button.SetStickyButton(true);
    button.SetStickyStyle(9);
    EXPECT_THROW(button.UserClick(), base::RuntimeError);
    EXPECT_TRUE(button.WindowEnabled());
    button.SetStickyStyle(Down);
    EXPECT_TRUE(button.UserClick());
}

TEST_F(FlatButtonTest, AHandlerMayDisableTheButton) {
    button.Click = [this] { button.SetEnabled(false); };
    EXPECT_TRUE(button.UserClick());
    EXPECT_EQ(button.iState(), Disabled);
    EXPECT_FALSE(button.Enabled());
    EXPECT_TRUE(button.WindowEnabled());
}

TEST_F(FlatButtonTest, ADisabledButtonTakesNoMouse) {
    button.SetEnabled(false);
    EXPECT_EQ(button.iState(), Disabled);
    EXPECT_EQ(button.pictNormal(), Picture(1));
    Over();
    EXPECT_FALSE(button.Timer.Enabled());
    EXPECT_FALSE(button.UserClick());
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(button.iState(), Disabled);
    EXPECT_TRUE(button.WindowEnabled()) << "the window is another matter";
}

TEST_F(FlatButtonTest, APressOnADisabledOneCountsOnceItWorks) {
    button.SetEnabled(false);
    memory.desktop.PointAt(&button);
    button.UserMouseDown();
    EXPECT_TRUE(button.blnMouseDown());
    button.SetEnabled(true);
    button.UserMouseMove();
    Tick();
    EXPECT_EQ(button.iState(), Down);
}

TEST_F(FlatButtonTest, DisablingUnderTheMouseLetsTheTimerTickWithoutEffect) {
    Over();
    Tick();
    button.SetEnabled(false);
    EXPECT_TRUE(button.Timer.Enabled());
    Tick();
    EXPECT_EQ(button.iState(), Disabled);
    EXPECT_TRUE(button.Timer.Enabled());
    button.SetEnabled(true);
    EXPECT_EQ(button.iState(), Normal) << "normal until the next tick or move";
    Tick();
    EXPECT_EQ(button.iState(), Hot);
}

TEST_F(FlatButtonTest, AHiddenContainerKeepsTheMouseAway) {
    form.panel.SetVisible(false);
    EXPECT_FALSE(button.UserClick());
    form.panel.SetVisible(true);
    form.panel.SetEnabled(false);
    EXPECT_FALSE(button.UserDblClick());
    EXPECT_TRUE(events.empty());
}

TEST_F(FlatButtonTest, AStickyButtonStaysDownUntilItIsClickedAgain) {
    button.SetStickyButton(true);
    button.SetStickyStyle(Down);
    EXPECT_TRUE(button.UserClick());
    EXPECT_TRUE(button.ButtonDown());
    EXPECT_EQ(button.iState(), Down);
    EXPECT_EQ(button.pictNormal(), Picture(4));
    EXPECT_TRUE(button.UserClick());
    EXPECT_FALSE(button.ButtonDown());
    EXPECT_EQ(button.iState(), Normal);
    EXPECT_THAT(events, ElementsAre("click", "click"));
}

TEST_F(FlatButtonTest, AStuckButtonIsDownUnderTheMouseAndItsStickyStyleElsewhere) {
    button.SetStickyButton(true);
    button.SetStickyStyle(Hot);
    button.UserClick();
    EXPECT_EQ(button.iState(), Hot);
    Over();
    Tick();
    EXPECT_EQ(button.iState(), Down);
    button.UserMouseDown();
    Tick();
    EXPECT_EQ(button.iState(), Down);
    Away();
    Tick();
    EXPECT_EQ(button.iState(), Hot) << "also while the button of the mouse is held";
    button.UserMouseUp();
    Tick();
    EXPECT_EQ(button.iState(), Hot);
    EXPECT_FALSE(button.Timer.Enabled());
}

TEST_F(FlatButtonTest, StickButtonPressesAStickyButtonWithoutAClick) {
    button.SetStickyButton(true);
    button.SetStickyStyle(Down);
    button.StickButton();
    EXPECT_TRUE(button.ButtonDown());
    EXPECT_EQ(button.iState(), Down);
    EXPECT_TRUE(events.empty());
}

TEST_F(FlatButtonTest, StickButtonOnAPlainButtonKeepsItsLook) {
    button.StickButton();
    EXPECT_TRUE(button.ButtonDown());
    EXPECT_EQ(button.iState(), Normal);
}

TEST_F(FlatButtonTest, ReleaseButtonUnsticksWithoutAClick) {
    button.SetStickyButton(true);
    button.SetStickyStyle(Down);
    button.UserClick();
    events.clear();
    button.ReleaseButton();
    EXPECT_FALSE(button.ButtonDown());
    EXPECT_EQ(button.iState(), Normal);
    EXPECT_TRUE(button.WindowEnabled());
    EXPECT_TRUE(events.empty());
    Over();
    Tick();
    EXPECT_EQ(button.iState(), Hot) << "it is not busy";
}

TEST_F(FlatButtonTest, ReleaseButtonOnAPlainButtonEndsNormal) {
    Over();
    Tick();
    button.ReleaseButton();
    EXPECT_EQ(button.iState(), Normal);
    EXPECT_FALSE(button.ButtonDown());
    EXPECT_FALSE(button.Timer.Enabled());
}

TEST_F(FlatButtonTest, AStickyStyleThatIsNoLookIsAnError) {
    button.SetStickyButton(true);
    button.SetStickyStyle(9);
    EXPECT_THROW(button.UserClick(), base::RuntimeError);
}

TEST_F(FlatButtonTest, AToolTipIsTheControlsOwn) {
    button.SetToolTip(" Vorige pagina... ");
    EXPECT_EQ(button.ToolTipText(), " Vorige pagina... ");
    button.SetBackColor(forms::colour::ButtonFace);
    EXPECT_EQ(button.BackColor(), forms::colour::ButtonFace);
}

// The pictures of the styles.

struct StyleRow {
    std::int16_t style;
    const char* list;
    int first;
    double size;
};

class StyleTest : public FlatButtonTest, public testing::WithParamInterface<StyleRow> {};

TEST_P(StyleTest, FillsTheLooksFromItsFirstImage) {
    const StyleRow row = GetParam();
    const bool hasDisabled = row.style <= 2;
    const auto picture = [&row](int n) {
        return std::string(row.list) + "-" + std::to_string(row.first + n);
    };
    button.SetButtonStyle(row.style);
    EXPECT_EQ(button.ButtonStyle(), row.style);
    EXPECT_EQ(button.pictNormal(), picture(hasDisabled ? 1 : 0));
    EXPECT_EQ(button.Width(), row.size);
    EXPECT_EQ(button.Height(), row.size);
    Over();
    Tick();
    EXPECT_EQ(button.pictNormal(), picture(hasDisabled ? 2 : 1));
    button.UserMouseDown();
    Tick();
    EXPECT_EQ(button.pictNormal(), picture(hasDisabled ? 3 : 2));
    button.SetEnabled(false);
    EXPECT_EQ(button.pictNormal(), hasDisabled ? picture(0) : "imgResourceSmall-1")
        << "a style without a disabled picture keeps the one from before";
}

INSTANTIATE_TEST_SUITE_P(
    AllStyles, StyleTest,
    testing::Values(StyleRow{1, "imgResourceSmall", 1, 240}, StyleRow{2, "imgResourceSmall", 5, 240},
                    StyleRow{3, "imgResourceSmall", 9, 240}, StyleRow{4, "imgResourceSmall", 12, 240},
                    StyleRow{5, "imgResourceSmall", 15, 240}, StyleRow{10, "imgResourceLarge", 1, 360},
                    StyleRow{11, "imgResourceLarge", 4, 360}, StyleRow{12, "imgResourceLarge", 7, 360},
                    StyleRow{13, "imgResourceLarge", 10, 360}, StyleRow{14, "imgResourceLarge", 13, 360},
                    StyleRow{15, "imgResourceLarge", 16, 360}, StyleRow{16, "imgResourceLarge", 19, 360}),
    [](const auto& row) { return "Style" + std::to_string(row.param.style); });

TEST_F(FlatButtonTest, AStyleOutsideTheTableKeepsThePictures) {
    button.SetButtonStyle(2);
    for (const std::int16_t style : std::initializer_list<std::int16_t>{0, 6, 9, 17, -1}) {
        button.SetButtonStyle(style);
        EXPECT_EQ(button.ButtonStyle(), style);
        EXPECT_EQ(button.pictNormal(), Picture(6));
        EXPECT_EQ(button.Width(), 240);
    }
}

TEST_F(FlatButtonTest, AThousandFormsLeaveNoWindowBehind) {
    const std::size_t windows = memory.desktop.Windows().Count();
    for (int i = 0; i < 1000; ++i) {
        ButtonForm passing(session);
        passing.Show();
        passing.button.UserMouseMove();
        passing.button.Timer.Tick();
        passing.Unload();
    }
    EXPECT_EQ(memory.desktop.Windows().Count(), windows);
    EXPECT_THAT(session.OpenForms(), ElementsAre(&form));
}

TEST_F(FlatButtonTest, ADisabledOneKeepsItsLookWhereItIsToStick) {
    button.SetEnabled(false);
    button.StickButton();
    EXPECT_EQ(button.iState(), Disabled);
}

TEST_F(FlatButtonTest, AClickThatNobodyAwaitsLeavesItUsable) {
    button.Click = nullptr;
    EXPECT_TRUE(button.UserClick());
    EXPECT_EQ(button.iState(), Normal);
    Over();
    Tick();
    EXPECT_NE(button.iState(), Disabled);
    EXPECT_TRUE(button.UserDblClick());
    EXPECT_THAT(events, ElementsAre("double click"));
}

} // namespace
