#include "precheck/Quietly.h"

#include <new>
#include <stdexcept>

#include <gtest/gtest.h>

namespace precheck {

TEST(QuietlyTest, AFailureAndALackOfMemoryAreNotTold) {
    EXPECT_NO_THROW(Quietly([] { throw base::RuntimeError(base::ErrorPrinter, "Printer error"); }));
    EXPECT_NO_THROW(Quietly([] { throw std::bad_alloc(); }));
}

TEST(QuietlyTest, ADefectPasses) {
    EXPECT_THROW(Quietly([] { throw std::logic_error("defect"); }), std::logic_error);
}

} // namespace precheck
