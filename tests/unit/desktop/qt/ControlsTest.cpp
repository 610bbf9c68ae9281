#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtForm.h"
#include "forms/MenuItem.h"
#include "unit/desktop/qt/SampleTest.h"

namespace {

using ControlsTest = SampleTest;

TEST_F(ControlsTest, AKindThatTheUserNeverSeesHasNoWidget) {
    SampleForm other(session, "Other");
    forms::MenuItem item(other, "mnuItem");
    desktop::qt::QtForm peer(other, desktop);
    const auto control = desktop::qt::MakeQtControl(item, peer, nullptr);
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->Widget(), nullptr);
    peer.ControlChanged(item, forms::Aspect::Caption);
    EXPECT_EQ(peer.WidgetOf(item), nullptr);
}

} // namespace
