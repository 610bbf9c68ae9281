#pragma once

#include "ManagerFixture.h"

namespace printmanager {

/// A manager with two printers, and a caller of its documents.
class JobTest : public ManagerTest {
  protected:
    JobTest() {
        InstallTwo();
        AddCaller("frmCaller");
    }
};

} // namespace printmanager
