// SPDX-License-Identifier: GPL-3.0-or-later
//
// Shows a target the seeds in a folder, each of which was a fault once or shows the way to where one may be.
// What a fault does to the process is how it is found out.
#include "Target.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

int main(int argumentCount, char** arguments) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(arguments[argumentCount - 1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        std::cout << entry.path().filename().string() << std::endl;
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++count;
    }
    std::cout << count << " seeds" << std::endl;
    return count > 0 ? 0 : 1;
}
