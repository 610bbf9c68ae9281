#include "forms/Contrast.h"

#include <gtest/gtest.h>

#include "forms/Label.h"
#include "forms/PictureBox.h"
#include "forms/PictureInks.h"
#include "unit/forms/TestForm.h"

namespace {

using forms::colour::Rgb;

constexpr forms::Colour White = Rgb(255, 255, 255);
constexpr forms::Colour Black = Rgb(0, 0, 0);
constexpr forms::Colour Dark = Rgb(0x35, 0x35, 0x35);
constexpr forms::Colour Light = Rgb(0xEF, 0xEF, 0xEF);

TEST(ContrastTest, IsTheRatioOfTheGuidelines) {
    EXPECT_DOUBLE_EQ(forms::Contrast(White, Black), 21);
    EXPECT_DOUBLE_EQ(forms::Contrast(Black, White), 21);
    EXPECT_DOUBLE_EQ(forms::Contrast(Dark, Dark), 1);
    EXPECT_NEAR(forms::Contrast(Rgb(0x76, 0x76, 0x76), White), 4.54, 0.005);
    EXPECT_NEAR(forms::Contrast(Rgb(255, 0, 0), White), 4.00, 0.005);
}

TEST(ContrastTest, AMixtureLiesBetween) {
    EXPECT_EQ(forms::Mixed(Black, White, 0), Black);
    EXPECT_EQ(forms::Mixed(Black, White, 1), White);
    EXPECT_EQ(forms::Mixed(Rgb(10, 20, 30), Rgb(20, 40, 60), 0.5), Rgb(15, 30, 45));
}

TEST(ContrastTest, AColourThatCanBeReadStays) {
    const forms::Colour red = Rgb(0xB0, 0x30, 0x10);
    EXPECT_EQ(forms::Readable(red, Light, forms::ContrastOfText), red);
}

TEST(ContrastTest, AColourThatCannotBeReadGivesWay) {
    const forms::Colour red = Rgb(0xB0, 0x30, 0x10);
    for (const forms::Colour background : {Dark, Black, red, Rgb(0x80, 0x80, 0x80), White}) {
        for (const forms::Colour ink : {red, Dark, Light, background}) {
            const forms::Colour shown = forms::Readable(ink, background, forms::ContrastOfText);
            EXPECT_GE(forms::Contrast(shown, background), forms::ContrastOfText) << std::hex << background;
        }
    }
}

TEST(ContrastTest, TheHueOfAColourThatGivesWayIsKept) {
    const forms::Colour shown = forms::Readable(Rgb(0xB0, 0x30, 0x10), Dark, forms::ContrastOfText);
    EXPECT_GT(shown & 0xFF, (shown >> 16) & 0xFF);
}

TEST(ContrastTest, ASignStandsOutOfEachBackgroundAndOneThatIsOffKeepsToIt) {
    for (const forms::Colour background :
         {White, Light, Rgb(0xAB, 0xAB, 0xAB), Dark, Black, Rgb(0, 0, 0x80)}) {
        const auto contrast = [&](forms::Colour drawn) {
            return forms::Contrast(forms::InkOn(drawn, background), background);
        };
        EXPECT_GE(contrast(forms::ink::Sign), 3) << std::hex << background;
        EXPECT_GE(contrast(forms::ink::SignLit), 3) << std::hex << background;
        EXPECT_LE(contrast(forms::ink::SignOff), 2.2) << std::hex << background;
        EXPECT_LT(contrast(forms::ink::Field), contrast(forms::ink::SignLit)) << std::hex << background;
        EXPECT_GE(forms::Contrast(forms::InkOn(forms::ink::SignLit, background),
                                  forms::InkOn(forms::ink::Field, background)),
                  2.4)
            << std::hex << background;
    }
}

TEST(ContrastTest, AnUsualBackgroundHasThePicturesAsTheyAreDrawn) {
    for (const forms::Colour drawn : forms::ink::All) {
        EXPECT_EQ(forms::InkOn(drawn, Light), drawn);
    }
}

TEST(ContrastTest, OtherColoursOfAPictureStay) {
    EXPECT_EQ(forms::InkOn(Rgb(1, 2, 3), Black), Rgb(1, 2, 3));
}

TEST(ContrastTest, WhatIsOffHasOneColourForAllSignsAndTheOthersNearTheBackground) {
    for (const forms::Colour background : {White, Light, Dark, Black}) {
        const forms::Colour off = forms::InkOn(forms::ink::SignOff, background);
        EXPECT_EQ(forms::InkOff(forms::ink::Sign, background), off);
        EXPECT_EQ(forms::InkOff(forms::ink::SignLit, background), off);
        EXPECT_EQ(forms::InkOff(forms::ink::SignOff, background), off);
    }
    EXPECT_EQ(forms::InkOff(Rgb(100, 100, 100), Black), Rgb(40, 40, 40));
}

TEST(ContrastTest, ABackgroundShowsThroughWhatHasNone) {
    memory::MemoryPlatform memory;
    forms::Session session(memory.desktop);
    TestForm form(session);
    forms::PictureBox panel(form, "panel");
    forms::Label inside(form, "inside", forms::Control::NoIndex, &panel);
    EXPECT_EQ(inside.ShownBackColor(), forms::colour::ButtonFace);
    panel.SetBackColor(forms::colour::WindowBackground);
    EXPECT_EQ(inside.ShownBackColor(), forms::colour::WindowBackground);
    inside.SetBackColor(White);
    EXPECT_EQ(inside.ShownBackColor(), White);
}

} // namespace
