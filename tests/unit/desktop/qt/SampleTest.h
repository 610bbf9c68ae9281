#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/qt/QtDesktop.h"
#include "forms/Session.h"
#include "unit/desktop/qt/SampleForm.h"
#include "unit/desktop/qt/Window.h"

/// A form with one of each control, shown.
class SampleTest : public testing::Test {
  protected:
    SampleTest() {
        form.Show();
        window::Settle();
    }

    QWidget* Widget(const char* control) { return window::Find("Sample", control); }
    template <class WidgetType>
    WidgetType* Widget(const char* control) {
        return window::Find<WidgetType>("Sample", control);
    }

    /// The form and the toolkit agree on what has the focus.
    void ExpectFocus(const forms::Control& control) {
        window::Settle();
        EXPECT_EQ(form.ActiveControl(), &control);
        EXPECT_EQ(QApplication::focusWidget(), Widget(control.Name().c_str()));
    }

    desktop::qt::QtDesktop desktop;
    forms::Session session{desktop};
    SampleForm form{session};
    window::MessageBoxes boxes;
};
