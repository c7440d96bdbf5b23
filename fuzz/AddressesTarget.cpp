// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any text as an address, a file's name, or the words of a command.
#include "Target.h"
#include "commandline/Arguments.h"
#include "conversion/OutputName.h"
#include "library/FileSystem.h"
#include "platform/foundation/URLs.h"
#include "sources/VideoDownloader.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <sstream>

using namespace reelsmith;

namespace {

/// Asks where each download is to go, and downloads nothing.
class AskingClient : public HTTPClient {
public:
    void download(const QUrl&, Destination destination, Progress, Completion) override {
        const QUrl file = destination().fileURL;
        fuzz::require(file.isEmpty() || filePath(file).parent_path() == m_folder,
                      "a download goes into the downloads folder");
    }

private:
    const std::filesystem::path m_folder = filePath(FileSystem::shared().downloadsFolder());
};

/// A home without anything in it for as long as the process lives.
void settle() {
    static const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    static int count = 0;
    // Never destroyed: at the end of the process what it would tell is gone already.
    static const auto* const application = new QCoreApplication(count, nullptr);
    Q_UNUSED(application)
    HTTPClient::setShared(std::make_shared<AskingClient>());
}

void checkOutput(const std::optional<QString>& name, const QUrl& source) {
    static const std::filesystem::path folder = filePath(FileSystem::shared().outputsFolder());
    const QUrl output = outputUrl(outputBaseName(name, source));
    const std::filesystem::path path = filePath(output);
    if (!name)
        fuzz::require(path.empty() || path.parent_path() == folder,
                      "a source's name stays in the outputs folder");
}

void checkAddress(const QString& text) {
    const auto url = urlFromString(text);
    if (!url)
        return;
    fuzz::require(url->isValid() && !text.contains(QLatin1Char(' ')), "an address is a valid one");
    checkOutput(std::nullopt, *url);
    VideoDownloader::make(*url)->download([](const auto&) {});
}

void checkPath(const std::string& bytes) {
    const std::string path = std::string("/").append(bytes, 0, bytes.find('\0'));
    const QUrl url = fileUrlOfBytes(path);
    fuzz::require(filePathBytes(url) == filePath(url).native(), "a path is the same whoever hands it on");
    const auto normal = std::filesystem::path(path).lexically_normal();
    const bool hasName = normal.has_filename() || !normal.has_relative_path();
    fuzz::require(filePath(url) == (hasName ? normal : normal.parent_path()),
                  "any path survives as an address");
    checkOutput(std::nullopt, url);
}

void checkCommand(const std::string& text) {
    std::vector<std::string> words{"convert"};
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        words.push_back(line);
    const auto arguments = Arguments::parse(words);
    fuzz::require(!arguments || arguments->command != Arguments::Command::Convert ||
                      !arguments->sources.empty(),
                  "there is something to convert");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool isSettled = (settle(), true);
    Q_UNUSED(isSettled)
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const QString text = QString::fromStdString(bytes);
    checkAddress(text);
    checkPath(bytes);
    checkOutput(text, QUrl());
    checkCommand(bytes);
    return 0;
}
