// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "commandline/Arguments.h"
#include "commandline/LogFile.h"
#include "commandline/ProgressLine.h"
#include "commandline/StandardStreams.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/URLs.h"

using namespace reelsmith;
using namespace Qt::StringLiterals;

using Words = std::vector<std::string>;
using CommandLine = ApplicationTest;

TEST_F(CommandLine, CommandsOptionsAndSourcesAreTakenInAnyOrder) {
    const auto arguments = Arguments::parse({"convert", "a.mov", "-q", "high", "--name=x=y", "--json", "-v"});
    ASSERT_TRUE(arguments);
    EXPECT_EQ(arguments->command, Arguments::Command::Convert);
    EXPECT_EQ(arguments->quality, ConversionQuality::high);
    EXPECT_EQ(arguments->name, u"x=y"_s);
    EXPECT_EQ(arguments->sources, Words{"a.mov"});
    EXPECT_TRUE(arguments->isJson && arguments->isVerbose);

    const auto plain = Arguments::parse({"convert", "--", "-q", "\xff.mov"});
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->quality, ConversionQuality::medium);
    EXPECT_EQ(plain->sources, (Words{"-q", "\xff.mov"}));

    EXPECT_EQ(Arguments::parse({})->command, Arguments::Command::Window);
    EXPECT_EQ(Arguments::parse({"/dev/null"})->command, Arguments::Command::Window);
    EXPECT_EQ(Arguments::parse({"convert", "-h"})->command, Arguments::Command::Help);
}

TEST(ProgressLine, ShowsWhatIsLeftAtThePaceSoFar) {
    using std::chrono::milliseconds;
    using std::chrono::seconds;
    EXPECT_EQ(ProgressLine::text(u"a.mp4"_s, 0, seconds(0)), u"  0 %  a.mp4"_s);
    EXPECT_EQ(ProgressLine::text(u"a.mp4"_s, 0.4, milliseconds(900)), u" 40 %  a.mp4"_s);
    EXPECT_EQ(ProgressLine::text(u"a.mp4"_s, 0.1, milliseconds(1900)), u" 10 %  0:17 left  a.mp4"_s);
    EXPECT_EQ(ProgressLine::text(u"a.mp4"_s, 0.5, seconds(65)), u" 50 %  1:05 left  a.mp4"_s);
    EXPECT_EQ(ProgressLine::text(u"a.mp4"_s, 0.999, seconds(10)), u" 99 %  0:00 left  a.mp4"_s);
    EXPECT_EQ(ProgressLine::text(u"a.mp4"_s, 0.1, seconds(420)), u" 10 %  1:03:00 left  a.mp4"_s);
}

TEST_F(CommandLine, TheLogTakesTheConsoleAndStartsAnewWhenLong) {
    qputenv("XDG_STATE_HOME", m_folder.path().toUtf8());
    const QUrl log = fileUrl(m_folder.filePath(u"reelsmith/reelsmith.log"_s).toStdString());
    for (const QString& line : {u"first"_s, u"second"_s, QString(300 * 1024, u'x'), u"last"_s}) {
        const LogFile file(LogFile::Copy::None);
        console(line);
    }
    EXPECT_TRUE(contents(log).endsWith("last\n"));
    EXPECT_FALSE(contents(log).contains("second"));
    EXPECT_TRUE(contents(QUrl(log.toString() + u".1"_s)).contains("first\n"));
}

TEST_F(CommandLine, WhatFilesAndWorkersSayReachesTerminalAndLogAsOnePrintableLine) {
    qputenv("XDG_STATE_HOME", m_folder.path().toUtf8());
    const QString hostile = u"\x1b]0;title\a1\r\n2 \u202e\u009bJ é😀"_s;
    testing::internal::CaptureStderr();
    {
        const LogFile file(LogFile::Copy::StandardError);
        console(hostile);
    }
    printErrorLine(hostile);
    ProgressLine line;
    line.begin(hostile);
    line.show(0);
    const std::string plain = "?]0;title?1??2 ??J é😀";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), plain + "\n" + plain + "\n\r\x1b[K  0 %  " + plain);
    const QUrl log = fileUrl(m_folder.filePath(u"reelsmith/reelsmith.log"_s).toStdString());
    EXPECT_TRUE(contents(log).endsWith(QByteArray::fromStdString(plain + "\n")));
}
