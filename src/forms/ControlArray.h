#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <string>

#include "base/RuntimeError.h"
#include "forms/Control.h"

namespace forms {

/// Controls of one kind under one name, told apart by a number; the numbering may have gaps.
template <class ControlType>
class ControlArray {
  public:
    ControlArray(Form& form, const std::string& name, std::initializer_list<int> numbers,
                 Control* container = nullptr) {
        for (const int number : numbers) {
            Add(form, name, number, container);
        }
    }

    /// Makes one more element.
    ControlType& Add(Form& form, const std::string& name, int number, Control* container = nullptr) {
        return *(elements_[number] = std::make_unique<ControlType>(form, name, number, container));
    }

    ControlType& operator()(int number) const {
        const auto found = elements_.find(number);
        if (found == elements_.end()) {
            throw base::SubscriptOutOfRange();
        }
        return *found->second;
    }

    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

  private:
    std::map<int, std::unique_ptr<ControlType>> elements_;
};

} // namespace forms
