// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Handles.h"

#include <map>
#include <string>
#include <vector>

namespace reelsmith::media {

/// A file as a player sees it: edit lists applied, times in seconds.
struct Movie {
    struct Sample {
        double start = 0;
        std::string data;
    };

    struct Track {
        AVMediaType kind = AVMEDIA_TYPE_UNKNOWN;
        CodecParametersHandle codec;
        std::string language;
        bool isDefault = false;
        std::vector<Sample> samples; ///< in the file's order, without those that an edit hides
        double end = 0;              ///< of the last sample

        /// In order.
        std::vector<double> starts() const;
        std::vector<std::string> data() const;
    };

    struct Chapter {
        double start = 0;
        double end = 0;
        std::string title;
    };

    /// Throws, which ends the test, where the file cannot be read.
    static Movie read(const std::string& path);

    /// The first of its kind. Throws, which ends the test, where there is none.
    const Track& track(AVMediaType kind) const;
    const Track& video() const { return track(AVMEDIA_TYPE_VIDEO); }
    const Track& sound() const { return track(AVMEDIA_TYPE_AUDIO); }
    int count(AVMediaType kind) const;

    std::string path;
    double duration = 0;
    std::vector<Track> tracks;
    std::vector<Chapter> chapters;
    std::map<std::string, std::string> metadata;
};

/// A decoded picture and when it is shown.
struct Picture {
    double start = 0;
    FrameHandle frame;

    /// The mean of a plane within a rectangle given in shares of the picture's sides.
    double mean(int plane, double left = 0, double top = 0, double right = 1, double bottom = 1) const;
};

/// All pictures of the first video track. Eight bits a sample.
std::vector<Picture> picturesOf(const std::string& path);

/// The sound of the first track of sound: a run of samples from time 0 on for each channel.
struct Sound {
    int sampleRate = 0;
    std::vector<std::vector<float>> channels;

    /// Root mean square of a channel between two times.
    double level(std::size_t channel, double from, double to) const;
};

Sound soundOf(const std::string& path);

} // namespace reelsmith::media
