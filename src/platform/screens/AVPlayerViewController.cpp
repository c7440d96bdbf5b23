// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/AVPlayerViewController.h"

#include "platform/foundation/ClockText.h"
#include "platform/screens/PlatformServices.h"
#include "platform/uikit/UIAccessibility.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIDevice.h"

#include <algorithm>
#include <utility>

namespace reelsmith {

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr seconds controlsTime{3};
constexpr seconds skipDistance{5};

QString timeText(milliseconds time) {
    return clockText(std::chrono::duration_cast<seconds>(time).count(), 2);
}

qreal inSeconds(milliseconds time) {
    return static_cast<qreal>(time.count()) / 1000;
}

} // namespace

AVPlayerViewController::AVPlayerViewController() {
    m_hiding.setSingleShot(true);
    m_hiding.setInterval(controlsTime);
    connect(&m_hiding, &QTimer::timeout, this, [this] { m_controlsView.setHidden(true); });
}

AVPlayerViewController::~AVPlayerViewController() {
    leave();
}

void AVPlayerViewController::setPlayer(std::unique_ptr<AVPlayer> player) {
    m_player = std::move(player);
    m_playerLayer = std::make_unique<AVPlayerLayer>(*m_player);
    connect(m_player.get(), &AVPlayer::changed, this, &AVPlayerViewController::refresh);
}

void AVPlayerViewController::viewDidLoad() {
    m_nameLabel.setText(m_player->currentItem().url.fileName());
    // Has the first picture shown.
    m_player->pause();
    refresh();
}

void AVPlayerViewController::viewWillAppear() {
    showControls();
}

void AVPlayerViewController::viewDidAppear() {
    m_isUp = true;
    PlatformServices::shared().nowPlaying->begin(*m_player);
}

void AVPlayerViewController::viewDidDisappear() {
    leave();
}

// However it goes; a screen may be released without being told that it disappears.
void AVPlayerViewController::leave() {
    m_playsAfterScrubbing = false;
    if (m_player && state().isPlaying)
        m_player->pause();
    if (std::exchange(m_isUp, false))
        PlatformServices::shared().nowPlaying->end();
}

bool AVPlayerViewController::isPlaying() const {
    return state().isPlaying || m_playsAfterScrubbing;
}

bool AVPlayerViewController::isMuted() const {
    return state().isMuted;
}

bool AVPlayerViewController::canPlay() const {
    return state().error.isEmpty();
}

void AVPlayerViewController::refresh() {
    m_positionLabel.setText(timeText(state().position));
    m_durationLabel.setText(timeText(state().duration));
    m_positionSlider.setEnabled(state().duration.count() > 0);
    m_positionSlider.setMaximumValue(inSeconds(state().duration));
    m_positionSlider.setValue(inSeconds(state().position));
    m_soundButton.setHidden(!state().hasSound);
    m_errorLabel.setText(state().error);
    if (std::exchange(m_wasPlaying, isPlaying()) != isPlaying())
        showControls();
    UIApplication::shared().setVideoPlaying(isPlaying());
    emit playbackChanged();
}

void AVPlayerViewController::showControls() {
    m_controlsView.setHidden(false);
    if (isPlaying() && !m_playsAfterScrubbing && !UIAccessibility::isVoiceOverRunning())
        m_hiding.start();
    else
        m_hiding.stop();
}

void AVPlayerViewController::playPauseTapped() {
    if (!canPlay())
        return;
    if (isPlaying())
        m_player->pause();
    else
        m_player->play();
}

void AVPlayerViewController::closeTapped() {
    if (!isBeingDismissed())
        dismiss(Animated::Yes);
}

void AVPlayerViewController::soundTapped() {
    m_player->setMuted(!isMuted());
    showControls();
}

void AVPlayerViewController::turnTapped() {
    const auto next = UIDevice::current().isLandscape() ? UIDeviceOrientation::Portrait
                                                        : UIDeviceOrientation::LandscapeRight;
    UIDevice::current().setValue(static_cast<int>(next), QStringLiteral("orientation"));
    showControls();
}

void AVPlayerViewController::pictureTapped() {
    if (m_controlsView.isHidden() || !isPlaying())
        showControls();
    else
        m_controlsView.setHidden(true);
}

void AVPlayerViewController::scrubbingChanged(bool isScrubbing) {
    if (isScrubbing == m_playsAfterScrubbing || !isPlaying())
        return;
    m_playsAfterScrubbing = isScrubbing;
    if (isScrubbing)
        m_player->pause();
    else
        m_player->play();
    showControls();
}

void AVPlayerViewController::positionMoved(qreal position) {
    if (position != m_positionSlider.value() && m_positionSlider.isEnabled())
        seek(milliseconds(qRound64(position * 1000)));
}

void AVPlayerViewController::skip(milliseconds distance) {
    seek(state().position + distance);
}

void AVPlayerViewController::seek(milliseconds position) {
    m_player->seek({std::clamp(position, milliseconds(0), state().duration).count(), 1000});
    showControls();
}

bool AVPlayerViewController::keyPressed(int key) {
    showControls();
    switch (key) {
    case Qt::Key_Space:
        playPauseTapped();
        return true;
    case Qt::Key_Left:
        skip(-skipDistance);
        return true;
    case Qt::Key_Right:
        skip(skipDistance);
        return true;
    case Qt::Key_M:
        soundTapped();
        return true;
    default:
        return false;
    }
}

} // namespace reelsmith
