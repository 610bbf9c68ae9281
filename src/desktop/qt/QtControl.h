#pragma once

#include <QObject>
#include <QWidget>

#include "forms/Control.h"

class QKeyEvent;
class QMouseEvent;

namespace desktop::qt {

class QtForm;

/// The real control behind one control of a form. Mirror() brings the widget in line with the form's control
/// and is silent (the widget's signals are blocked meanwhile); what the user does reaches the form's control
/// through its User... calls alone, after which the widget is brought in line again. There is thus one truth,
/// and no loop. Each kind is one small class; the toolkit moves no focus by itself, the form does.
class QtControl : public QObject {
  public:
    QtControl(forms::Control& control, QtForm& form, QWidget* widget);

    forms::Control& Model() const { return model_; }
    /// nullptr for a kind without a picture on the screen.
    QWidget* Widget() const { return widget_; }
    /// True for a kind that keeps to the edges of the window, whatever its size.
    virtual bool FollowsWindow() const { return false; }
    /// Dots that a menu bar takes at the top of the window; the form's own area begins below.
    virtual int StripHeight() const { return 0; }
    /// A label tells what another widget is for.
    virtual void NameWidget(QWidget* /*named*/) {}

    virtual void Mirror(forms::Aspect aspect);
    void MirrorAll();

    /// The form has moved the focus here.
    virtual void TakeFocus();

    /// A key that is none of Tab, Enter and Escape. True keeps it from the widget.
    virtual bool KeyPressed(const QKeyEvent& event, int virtualKey);

    bool eventFilter(QObject* watched, QEvent* event) final;

  protected:
    /// An event of the widget or of a watched part of it. True keeps it from there.
    virtual bool Filter(QObject* watched, QEvent* event);
    QtForm& Form() const { return form_; }

    /// What is particular to the kind.
    virtual void MirrorContent(forms::Aspect /*aspect*/) {}
    virtual void Place();
    virtual void Colour();
    /// True for a kind that the toolkit draws with an outline and a filling of its own: boxes, buttons, bars.
    virtual bool DrawsItself() const { return false; }

    /// A click of the user; the widget shows afterwards what the form made of it.
    void Click();
    /// A press of a mouse button, before the widget sees it. True keeps it from the widget.
    virtual bool MousePressed(const QMouseEvent& event);

    /// Watches a part of the widget that takes input on its own.
    void Watch(QWidget* part) { part->installEventFilter(this); }

  private:
    void MirrorFont();
    QColor TextColour(const QPalette& theme) const;

    forms::Control& model_;
    QtForm& form_;
    QWidget* widget_;
};

} // namespace desktop::qt
