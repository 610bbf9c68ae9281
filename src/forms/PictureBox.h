#pragma once

#include <memory>
#include <string>
#include <utility>

#include "forms/Control.h"
#include "forms/ControlVisitor.h"
#include "machine/Bitmaps.h"

namespace forms {

/// A picture, a plain area of colour, or the container of other controls.
class PictureBox : public Control {
  public:
    using Control::Control;

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    /// Name of the picture among the program's own ("printer", "sheet-portrait"); empty for none.
    const std::string& Picture() const { return picture_; }
    void SetPicture(const std::string& name) {
        if (name != picture_) {
            picture_ = name;
            Changed(Aspect::Picture);
        }
    }

    /// The bitmap of a page, shared with whoever made it; it takes the place of the named picture.
    const std::shared_ptr<const machine::PageBitmap>& Page() const { return page_; }
    void SetPage(std::shared_ptr<const machine::PageBitmap> page) {
        if (page != page_) {
            page_ = std::move(page);
            Changed(Aspect::Picture);
        }
    }

    /// Draws the picture again at once.
    void Refresh() { Changed(Aspect::Picture); }

  private:
    std::string picture_;
    std::shared_ptr<const machine::PageBitmap> page_;
};

} // namespace forms
