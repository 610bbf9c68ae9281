#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "Rows.h"

namespace {

// One string literal to a row, which the compiler joins.
void Write(const std::string& path, const std::vector<std::string>& rows) {
    std::ofstream file(path, std::ios::binary);
    for (const std::string& row : rows) {
        file << '"' << row << "\"\n";
    }
    file.close();
    if (!file) {
        throw std::runtime_error("cannot write " + path);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: generate_tables FOLDER\n"
                     "Writes AccountRows.inc and PersonRows.inc, the rows of the test tables, into FOLDER.\n";
        return 2;
    }
    try {
        const std::string folder = argv[1];
        Write(folder + "/AccountRows.inc", generate::AccountRows());
        Write(folder + "/PersonRows.inc", generate::PersonRows());
    } catch (const std::exception& error) {
        std::cerr << "generate_tables: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
