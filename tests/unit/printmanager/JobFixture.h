#pragma once

#include "ManagerFixture.h"

namespace printmanager {

/// How the manager tells a failure that it does not know.
inline std::string UnknownError(const std::string& error) {
    return "Een onbekende fout is opgetreden !\r\nMocht u deze fout kunnen reproduceren neem dan contact op "
           "met "
           "Ondor BV.\r\n\r\nSluit dit onderdeel af en herstart het weer.\r\n\r\nError: " +
           error;
}

/// A manager with two printers, and a caller of its documents.
class JobTest : public ManagerTest {
  protected:
    JobTest() {
        InstallTwo();
        AddCaller("frmCaller");
    }
};

} // namespace printmanager
