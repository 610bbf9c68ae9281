#include <optional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "forms/Form.h"
#include "forms/MenuBar.h"
#include "forms/PictureBox.h"
#include "forms/ScrollBar.h"
#include "forms/StatusBar.h"
#include "forms/Toolbar.h"
#include "memory/MemoryPlatform.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BarsForm : public forms::Form {
  public:
    explicit BarsForm(forms::Session& session)
        : Form(session, "BarsForm"), panel(*this, "panel"),
          bar(*this, "bar", forms::ScrollBar::Direction::Vertical, 0, 100, &panel),
          toolbar(*this, "toolbar", &panel), status(*this, "status", 2), menu(*this, "menu") {
        toolbar.AddButton({"one", "one-hot", "Een", "", false, true});
        toolbar.AddButton({"", "", "", "", true, true});
        toolbar.AddButton({"three", "three-hot", "Drie", "", false, true});
        menu.AddMenu(
            {"ID_Menu", "&Menu", {{"ID_Een", "Een", false}, {"", "", true}, {"ID_Twee", "Twee", false}}});
    }

    forms::PictureBox panel;
    forms::ScrollBar bar;
    forms::Toolbar toolbar;
    forms::StatusBar status;
    forms::MenuBar menu;
};

class BarsTest : public testing::Test {
  protected:
    BarsTest() {
        form.bar.OnChange = [this] { values.push_back(form.bar.Value()); };
        form.toolbar.OnButtonClick = [this](int number) { pressed.push_back(number); };
        form.menu.OnToolClick = [this](const std::string& id) { chosen.push_back(id); };
        form.Show();
    }

    memory::MemoryPlatform memory;
    forms::Session session{memory.desktop};
    BarsForm form{session};
    std::vector<int> values;
    std::vector<int> pressed;
    std::vector<std::string> chosen;
};

TEST_F(BarsTest, AStatusBarThatBeginsWhereTheFormEndsMayBecomeALittleLower) {
    form.status.SetHeight(300);
    EXPECT_EQ(form.status.FormEnd(), std::nullopt);
    EXPECT_EQ(form.status.LeastHeight(), 300);
    form.status.SetFormEnd(5000);
    EXPECT_EQ(form.status.FormEnd(), 5000);
    EXPECT_EQ(form.status.LeastHeight(), 240);
}

TEST_F(BarsTest, AScrollBarReportsOnlyAChangeOfItsValue) {
    form.bar.SetValue(0);
    form.bar.SetValue(40);
    form.bar.SetValue(40);
    EXPECT_TRUE(form.bar.UserScroll(40));
    EXPECT_TRUE(form.bar.UserScroll(41));
    EXPECT_THAT(values, ElementsAre(40, 41));
}

TEST_F(BarsTest, AScrollBarStaysWithinItsEnds) {
    EXPECT_THROW(form.bar.SetValue(101), base::RuntimeError);
    EXPECT_THROW(form.bar.SetValue(-1), base::RuntimeError);
    EXPECT_TRUE(form.bar.UserScroll(1000));
    EXPECT_EQ(form.bar.Value(), 100);
    EXPECT_TRUE(form.bar.UserScroll(-1000));
    EXPECT_EQ(form.bar.Value(), 0);
}

TEST_F(BarsTest, AUserCannotScrollWhatIsHiddenOrDisabled) {
    form.panel.SetVisible(false);
    EXPECT_FALSE(form.bar.UserScroll(5));
    form.panel.SetVisible(true);
    form.bar.SetEnabled(false);
    EXPECT_FALSE(form.bar.UserScroll(5));
    EXPECT_THAT(values, IsEmpty());
    EXPECT_FALSE(form.bar.TakesFocus());
}

TEST_F(BarsTest, ToolbarButtonsCountFromOne) {
    EXPECT_TRUE(form.toolbar.UserClickButton(1));
    EXPECT_TRUE(form.toolbar.UserClickButton(3));
    EXPECT_THAT(pressed, ElementsAre(1, 3));
    EXPECT_THROW(form.toolbar.Button(0), base::RuntimeError);
    EXPECT_THROW(form.toolbar.SetButtonEnabled(4, true), base::RuntimeError);
}

TEST_F(BarsTest, AUserCannotPressASeparatorOrADisabledButtonOrOneThatIsNotThere) {
    form.toolbar.SetButtonEnabled(3, false);
    for (const int number : {0, 2, 3, 4, -1}) {
        EXPECT_FALSE(form.toolbar.UserClickButton(number));
    }
    form.panel.SetVisible(false);
    EXPECT_FALSE(form.toolbar.UserClickButton(1));
    EXPECT_THAT(pressed, IsEmpty());
}

TEST_F(BarsTest, PanelsCountFromOne) {
    form.status.SetPanelText(1, "Pagina: 1");
    form.status.SetPanelWidth(2, 3000);
    EXPECT_EQ(form.status.Panel(1).Text, "Pagina: 1");
    EXPECT_EQ(form.status.Panel(2).Width, 3000);
    EXPECT_THROW(form.status.SetPanelText(3, ""), base::RuntimeError);
    EXPECT_THROW(form.status.Panel(0), base::RuntimeError);
}

TEST_F(BarsTest, MenuToolsGoByTheirId) {
    EXPECT_TRUE(form.menu.UserChoose("ID_Twee"));
    EXPECT_FALSE(form.menu.UserChoose("ID_Drie"));
    EXPECT_FALSE(form.menu.UserChoose("ID_Menu"));
    EXPECT_FALSE(form.menu.UserChoose(""));
    form.menu.SetVisible(false);
    EXPECT_FALSE(form.menu.UserChoose("ID_Een"));
    EXPECT_THAT(chosen, ElementsAre("ID_Twee"));
}

TEST_F(BarsTest, APictureBoxSharesABitmap) {
    const auto page = memory.bitmaps.CreatePage(1000, 2000);
    const auto image = page->Image();
    form.panel.SetPage(image);
    EXPECT_EQ(form.panel.Page(), image);
    EXPECT_EQ(form.panel.Page()->Height(), 2000);
}

} // namespace
