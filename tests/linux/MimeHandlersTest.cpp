// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/MimeHandlers.h"

using namespace reelsmith;

using MimeHandlers = DesktopTest;

TEST_F(MimeHandlers, AMailProgramIsOneThatIsAssociatedInstalledAndNotTakenAway) {
    constexpr auto associated =
        "[Default Applications]\ntext/plain=no.desktop;\nx-scheme-handler/mailto=a.desktop;\n";
    constexpr auto removed = "[Removed Associations]\nx-scheme-handler/mailto=a.desktop;\n";
    constexpr auto cached = "[MIME Cache]\nx-scheme-handler/mailto=gone.desktop;a.desktop;\n";
    const QString list = "CONFIG_HOME/mimeapps.list", cache = "DATA_DIRS/applications/mimeinfo.cache",
                  program = "DATA_HOME/applications/a.desktop";
    qputenv("XDG_CURRENT_DESKTOP", "Phone:GNOME");
    const struct {
        const char* name;
        QList<std::pair<QString, QByteArray>> files;
        bool isThere;
    } cases[] = {
        {"nothing", {}, false},
        {"associated", {{list, associated}, {program, ""}}, true},
        {"not installed", {{list, associated}}, false},
        {"said by the program", {{cache, cached}, {program, ""}}, true},
        {"on this desktop", {{"CONFIG_DIRS/gnome-mimeapps.list", associated}, {program, ""}}, true},
        {"on another desktop", {{"CONFIG_DIRS/other-mimeapps.list", associated}, {program, ""}}, false},
        {"taken away", {{list, removed}, {cache, cached}, {program, ""}}, false},
    };
    for (const auto& each : cases) {
        for (const auto& [path, text] : each.files)
            writeFile(m_home.filePath(path), text);
        EXPECT_EQ(mimehandlers::hasMailProgram(), each.isThere) << each.name;
        for (const auto& [path, text] : each.files)
            QFile::remove(m_home.filePath(path));
    }
}
