// SPDX-License-Identifier: GPL-3.0-or-later
//
// The command line where the operators of the service have switched passthrough on.
#include "commandline/CommandLine.h"
#include "fakes/InMemoryServices.h"

int main(int argc, char** argv) {
    reelsmith::InMemoryServices::fresh().remoteConfig->setState(
        {.activated = {{QStringLiteral("enable_passthrough_preset"), QStringLiteral("true")}}});
    return reelsmith::runCommandLine(argc, argv);
}
