// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

// The names of all events that the application sends.
namespace reelsmith::AnalyticsEvents {

inline constexpr QLatin1StringView downloadSuccess{"download_success"};
inline constexpr QLatin1StringView downloadFailure{"download_failure"};
inline constexpr QLatin1StringView convertedSuccess{"converted_success"};
inline constexpr QLatin1StringView convertedFailure{"converted_failure"}; ///< "reason": text
inline constexpr QLatin1StringView playedVideo{"played_video"};           ///< from the options sheet only
inline constexpr QLatin1StringView deletedVideo{"deleted_video"};         ///< from the options sheet only
inline constexpr QLatin1StringView sharedVideo{"shared_video"};
inline constexpr QLatin1StringView evaluatedApp{"evaluated_app"}; ///< "rating": integer, the stars
inline constexpr QLatin1StringView developerTapped{"developer_tapped"};
inline constexpr QLatin1StringView startedTutorial{"started_tutorial"};

} // namespace reelsmith::AnalyticsEvents
