// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/Arguments.h"

#include "conversion/OutputName.h"
#include "platform/foundation/URLs.h"

#include <set>

namespace reelsmith {

namespace {

using Command = Arguments::Command;
using Check = tl::expected<void, QString>;

tl::unexpected<QString> wrong(const QString& text) {
    return tl::unexpected<QString>(text);
}

/// Goes through the words after the command.
class Parser {
public:
    Parser(Arguments& arguments, std::vector<std::string> words)
        : m_arguments(arguments), m_words(std::move(words)) {}

    Check parse() {
        while (m_next < m_words.size()) {
            const std::string word = m_words[m_next++];
            if (m_areOptionsOver || word == "-" || !word.starts_with('-')) {
                m_arguments.sources.push_back(word);
            } else if (word == "--") {
                m_areOptionsOver = true;
            } else if (auto good = parseOption(word); !good) {
                return good;
            }
        }
        return {};
    }

private:
    Check parseOption(const std::string& word) {
        const bool isConvert = m_arguments.command == Command::Convert;
        const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
        const std::string option = word.substr(0, equals);
        if (isConvert && (option == "-q" || option == "--quality"))
            return parseQuality(value(word, equals));
        if (isConvert && (option == "-n" || option == "--name"))
            return parseName(value(word, equals));
        if (word == "-h" || word == "--help")
            m_arguments.command = Command::Help;
        else if (word == "-v" || word == "--verbose")
            m_arguments.isVerbose = true;
        else if (word == "--json")
            m_arguments.isJson = true;
        else
            return wrong(QStringLiteral("there is no option ") + QString::fromStdString(option));
        return {};
    }

    std::optional<std::string> value(const std::string& word, std::size_t equals) {
        if (equals != std::string::npos)
            return word.substr(equals + 1);
        return m_next < m_words.size() ? std::optional(m_words[m_next++]) : std::nullopt;
    }

    Check parseQuality(const std::optional<std::string>& value) {
        if (value == "low")
            m_arguments.quality = ConversionQuality::low;
        else if (value == "medium")
            m_arguments.quality = ConversionQuality::medium;
        else if (value == "high")
            m_arguments.quality = ConversionQuality::high;
        else
            return wrong(QStringLiteral("the quality is low, medium or high"));
        return {};
    }

    Check parseName(const std::optional<std::string>& value) {
        if (!value || value->empty())
            return wrong(QStringLiteral("the name must not be empty"));
        m_arguments.name = QString::fromStdString(*value);
        return {};
    }

    Arguments& m_arguments;
    const std::vector<std::string> m_words;
    std::size_t m_next = 0;
    bool m_areOptionsOver = false;
};

Check checkSources(const Arguments& arguments) {
    if (arguments.sources.empty())
        return wrong(QStringLiteral("there is nothing to convert"));
    if (arguments.name && arguments.sources.size() > 1)
        return wrong(QStringLiteral("a name is for one SOURCE only"));
    std::set<std::filesystem::path> outputs;
    for (const std::string& source : arguments.sources) {
        if (source.empty())
            return wrong(QStringLiteral("a SOURCE must not be empty"));
        const QUrl url = Arguments::webAddress(source).value_or(fileUrl(source));
        const QUrl output = outputUrl(outputBaseName(arguments.name, url));
        if (!outputs.insert(filePath(output)).second)
            return wrong(QString::fromStdString(source) +
                         QStringLiteral(" would give the same output as a SOURCE before it"));
    }
    return {};
}

tl::expected<Arguments, QString> openArguments(const std::vector<std::string>& words) {
    Arguments arguments;
    for (const std::string& word : words) {
        std::error_code ignored;
        const QString text = QString::fromStdString(word);
        if (!text.startsWith(QStringLiteral("file://")) && !std::filesystem::exists(word, ignored))
            return wrong(QStringLiteral("there is neither a command nor a file ") + text);
        arguments.sources.push_back(word);
    }
    return arguments;
}

} // namespace

tl::expected<Arguments, QString> Arguments::parse(const std::vector<std::string>& words) {
    Arguments arguments;
    if (words.empty())
        return arguments;
    const std::string& command = words.front();
    if (command == "--help" || command == "-h")
        arguments.command = Command::Help;
    else if (command == "--version")
        arguments.command = Command::Version;
    else if (command == "convert")
        arguments.command = Command::Convert;
    else if (command == "list")
        arguments.command = Command::List;
    else if (command.starts_with('-'))
        return wrong(QStringLiteral("there is no option ") + QString::fromStdString(command));
    else
        return openArguments(words);
    if (arguments.command != Command::Convert && arguments.command != Command::List)
        return arguments;

    Check good = Parser(arguments, {words.begin() + 1, words.end()}).parse();
    if (good && arguments.command == Command::Convert)
        good = checkSources(arguments);
    if (good && arguments.command == Command::List && !arguments.sources.empty())
        good = wrong(QStringLiteral("list takes no names"));
    if (!good)
        return wrong(good.error());
    return arguments;
}

std::optional<QUrl> Arguments::webAddress(const std::string& source) {
    const QString text = QString::fromStdString(source);
    if (!text.startsWith(QStringLiteral("http://"), Qt::CaseInsensitive) &&
        !text.startsWith(QStringLiteral("https://"), Qt::CaseInsensitive))
        return std::nullopt;
    return QUrl(text);
}

QString Arguments::help() {
    return QStringLiteral(R"(Reelsmith turns video files into MP4 files.

reelsmith                         open the window
reelsmith FILE                    open it, and take FILE as from another application
reelsmith convert SOURCE...       convert files, one after another; a SOURCE that is an
                                  http or https address is downloaded first
    -q, --quality QUALITY         low, medium (the default) or high
    -n, --name NAME               name of the result, without ending; for one SOURCE only
    --json                        tell what happens on standard output, one JSON object a line
    -v, --verbose                 show the log, not the progress, on standard error
reelsmith list [--json]           name, duration and resolution of each converted file
reelsmith --help | --version

The results go to the folder Reelsmith/outputs in your documents folder; one of the same
name is replaced. The path of each result is printed on standard output.

Exit status: 0 all done, 1 a conversion or download failed, 2 wrong usage, 130 interrupted.
)");
}

} // namespace reelsmith
