// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/UserFile.h"

#include "platform/linux/MimeHandlers.h"

#include <gtest/gtest.h>
#include <memory>
#include <vector>

using namespace reelsmith;

TEST(MimeHandlers, AMailProgramIsOneThatIsAssociatedInstalledAndNotTakenAway) {
    constexpr auto associated =
        "[Default Applications]\ntext/plain=no.desktop;\nx-scheme-handler/mailto=a.desktop;\n";
    constexpr auto removed =
        "[Added Associations]\n[Removed Associations]\nx-scheme-handler/mailto=a.desktop;\n";
    constexpr auto cached = "[MIME Cache]\nx-scheme-handler/mailto=gone.desktop;a.desktop;\n";
    const struct {
        const char* name;
        QList<std::pair<const char*, const char*>> files;
        bool isThere;
    } cases[] = {
        {"nothing", {}, false},
        {"associated", {{"config/mimeapps.list", associated}, {"data/applications/a.desktop", ""}}, true},
        {"not installed", {{"config/mimeapps.list", associated}}, false},
        {"said by the program",
         {{"data/applications/mimeinfo.cache", cached}, {"data/applications/a.desktop", ""}},
         true},
        {"for one desktop",
         {{"config/gnome-mimeapps.list", associated}, {"data/applications/a.desktop", ""}},
         true},
        {"for another desktop",
         {{"config/kde-mimeapps.list", associated}, {"data/applications/a.desktop", ""}},
         false},
        {"taken away",
         {{"config/mimeapps.list", removed},
          {"data/applications/mimeinfo.cache", cached},
          {"data/applications/a.desktop", ""}},
         false},
    };
    for (const auto& each : cases) {
        std::vector<std::unique_ptr<UserFile>> files;
        for (const auto& [path, text] : each.files)
            files.push_back(std::make_unique<UserFile>(QString::fromLatin1(path), text));
        EXPECT_EQ(mimehandlers::hasMailProgram(), each.isThere) << each.name;
    }
}
