// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/CommandLine.h"

int main(int argc, char** argv) {
    return reelsmith::runCommandLine(argc, argv);
}
