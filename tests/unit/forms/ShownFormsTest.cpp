#include "forms/ShownForms.h"

#include <gmock/gmock.h>

#include "unit/forms/TestForm.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Peer {};

class ShownFormsTest : public testing::Test, protected FormsFixture {
  protected:
    ShownFormsTest() {
        main.SetCaption("Drukkeuring");
        manager.SetCaption("Afdrukken");
        shown.Opened(main, mainPeer);
        shown.Opened(manager, managerPeer);
    }

    TestForm main{session, "main"};
    TestForm manager{session, "manager"};
    Peer mainPeer;
    Peer managerPeer;
    forms::ShownForms<Peer> shown;
};

TEST_F(ShownFormsTest, AFormThatIsOpenedIsNotYetShown) {
    EXPECT_TRUE(shown.Empty());
    EXPECT_FALSE(shown.IsShown(main));
    EXPECT_EQ(shown.Top(), nullptr);
    EXPECT_EQ(shown.TopPeer(), nullptr);
    EXPECT_THAT(shown.Peers(), IsEmpty());
    EXPECT_EQ(shown.Title(), "");
    EXPECT_EQ(shown.PeerOf(main), &mainPeer);
}

TEST_F(ShownFormsTest, TheLastOneShownIsOnTop) {
    shown.Shown(main);
    shown.Shown(manager);
    EXPECT_EQ(shown.Top(), &manager);
    EXPECT_EQ(shown.TopPeer(), &managerPeer);
    EXPECT_THAT(shown.Peers(), ElementsAre(&mainPeer, &managerPeer));
    EXPECT_EQ(shown.Title(), "Afdrukken");
}

TEST_F(ShownFormsTest, WhereItIsHiddenTheOneBelowIs) {
    shown.Shown(main);
    shown.Shown(manager);
    shown.Hidden(manager);
    EXPECT_EQ(shown.TopPeer(), &mainPeer);
    EXPECT_EQ(shown.Title(), "Drukkeuring");
    EXPECT_FALSE(shown.IsShown(manager));
    EXPECT_EQ(shown.PeerOf(manager), &managerPeer) << "it may be shown again";
    shown.Shown(manager);
    shown.Hidden(main);
    EXPECT_THAT(shown.Peers(), ElementsAre(&managerPeer)) << "whatever the order";
}

TEST_F(ShownFormsTest, OneWithoutAPeerIsNotAmongThePeers) {
    TestForm other{session, "other"};
    shown.Shown(main);
    shown.Shown(other);
    EXPECT_EQ(shown.Top(), &other);
    EXPECT_EQ(shown.TopPeer(), nullptr);
    EXPECT_THAT(shown.Peers(), ElementsAre(&mainPeer));
}

TEST_F(ShownFormsTest, OneThatIsGoneIsForgotten) {
    shown.Shown(main);
    shown.Gone(main);
    EXPECT_TRUE(shown.Empty());
    EXPECT_EQ(shown.PeerOf(main), nullptr);
}

} // namespace
