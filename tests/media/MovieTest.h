// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Movie.h"

#include "media/Exporter.h"

#include <array>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace reelsmith::media {

/// An open file, closed at the end.
class OpenFile {
public:
    OpenFile(const std::string& path, int flags) : m_descriptor(::open(path.c_str(), flags, 0600)) {
        EXPECT_GE(m_descriptor, 0) << path;
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { ::close(m_descriptor); }
    int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

/// A test with a folder of its own, where sources are made with the ffmpeg program and results written.
class MovieTest : public testing::Test {
protected:
    MovieTest();
    ~MovieTest() override;

    std::string path(const std::string& name) const { return m_folder + "/" + name; }

    /// Runs ffmpeg with the arguments, in the test's folder, and yields the path of the file it makes.
    /// Throws, which ends the test, where ffmpeg fails.
    std::string make(const std::string& name, const std::string& arguments) const;

    std::string write(const std::string& name, const std::string& contents) const;
    static std::string contents(const std::string& path);

    /// A copy of an MP4 file whose first track asks to be turned so: a, b, c, d as in Orientation.h.
    std::string turned(const std::string& source, const std::array<double, 4>& transform) const;

    struct Exported {
        Result<std::string> result; ///< the warnings
        std::vector<double> progress;
        std::string path;
    };
    Exported tryExport(const std::string& source, Preset preset = Preset::Medium,
                       const std::vector<std::string>& languages = {}) const;

    /// The result of an export that has to succeed, else it throws.
    Movie convert(const std::string& source, Preset preset = Preset::Medium,
                  const std::vector<std::string>& languages = {}) const;

private:
    std::string m_folder;
};

/// ffmpeg's input arguments for pictures each of whose luma is 20 + 100 t at the time t in seconds, so that
/// a picture tells when it was taken. `timing`: a filter that sets times, or empty.
std::string clockPictures(double rate, double seconds, const std::string& timing = {});

/// A sine of 440 Hz; its amplitude is an expression in t.
std::string tone(const std::string& amplitude, double seconds, const std::string& options = {});

} // namespace reelsmith::media
