// SPDX-License-Identifier: GPL-3.0-or-later
//
// The command line where the operators of the service have switched passthrough on.
#include "commandline/CommandLine.h"
#include "platform/services/StateFile.h"

#include <QTemporaryDir>

using namespace reelsmith;

int main(int argc, char** argv) {
    const QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    qputenv("OFREP_ENDPOINT", "http://127.0.0.1:1"); // which commands do not ask
    const StateFile values(StateFile::folder() + QStringLiteral("/remote-config-activated.json"));
    return values.replace(R"({"enable_passthrough_preset": "true"})") ? runCommandLine(argc, argv) : 1;
}
