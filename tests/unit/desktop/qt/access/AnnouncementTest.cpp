// What happens without the focus moving is told to whoever cannot see it.
#include <algorithm>

#include <QApplication>

#include "unit/desktop/qt/access/AccessTest.h"

namespace {

using spoken::Event;
using testing::Contains;
using testing::Field;

using AnnouncementTest = AccessTest;

TEST_F(AnnouncementTest, ARefusedAccountIsAnAlertWithItsReason) {
    Start();
    const spoken::Listener listener;
    std::vector<Event> alerts;
    std::vector<std::string> names;
    boxes.OnShow = [&] {
        alerts = listener.Of(QAccessible::Alert);
        for (const spoken::Object& object : spoken::Tree(QApplication::activeModalWidget())) {
            names.push_back(object.Name);
        }
    };
    window::Click(window::Find(Main, "UserText(74)"));
    window::Type("123456780");
    window::Key(Qt::Key_Tab);
    ASSERT_EQ(boxes.All().size(), 1U);
    EXPECT_THAT(alerts, Contains(Field(&Event::Text, "Drukkeuring acceptgiro's")));
    EXPECT_THAT(names, Contains("Het ingegeven banknummer is niet correct."));
    const std::vector<Event> focus = listener.Of(QAccessible::Focus);
    ASSERT_FALSE(focus.empty());
    EXPECT_EQ(focus.back().Object, "UserText(74)");
}

TEST_F(AnnouncementTest, TheProgressOfABatchIsTold) {
    Start();
    GoTo(3);
    std::vector<int> values;
    OpenManager([&] {
        const spoken::Listener listener;
        OpenPreview([&] {
            for (const Event& event : listener.Of(QAccessible::ValueChanged)) {
                if (event.Object == "ProgressBar") {
                    values.push_back(std::stoi(event.Text));
                }
            }
        });
    });
    EXPECT_GE(values.size(), 10U);
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
    EXPECT_THAT(values, Contains(100));
}

TEST_F(AnnouncementTest, ThePageOfThePreviewIsTold) {
    Start();
    GoTo(3);
    OpenManager([&] {
        OpenPreview([&] {
            const spoken::Listener listener;
            window::Click(window::Find(Preview, "cmdDown"));
            EXPECT_THAT(listener.Of(QAccessible::NameChanged),
                        Contains(Event{QAccessible::NameChanged, "StatusBar(1)", "Pagina: 2"}));
        });
    });
}

} // namespace
