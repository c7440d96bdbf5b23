// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/AVPlayerLayer.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/Slider.h"
#include "platform/uikit/UIViewController.h"

#include <QTimer>
#include <memory>

namespace reelsmith {

/// The platform's player: a video on the whole window, and controls that leave it alone while it plays. It
/// begins paused. While it is up the desktop's media keys are its own. Main thread.
class AVPlayerViewController : public reelsmith::UIViewController {
    Q_OBJECT
    Q_PROPERTY(reelsmith::AVPlayerLayer* playerLayer READ playerLayer CONSTANT)
    Q_PROPERTY(reelsmith::View* controlsView READ controlsView CONSTANT)
    Q_PROPERTY(reelsmith::View* soundButton READ soundButton CONSTANT)
    Q_PROPERTY(reelsmith::Slider* positionSlider READ positionSlider CONSTANT)
    Q_PROPERTY(reelsmith::Label* nameLabel READ nameLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* positionLabel READ positionLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* durationLabel READ durationLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* errorLabel READ errorLabel CONSTANT)
    Q_PROPERTY(bool isPlaying READ isPlaying NOTIFY playbackChanged)
    Q_PROPERTY(bool isMuted READ isMuted NOTIFY playbackChanged)
    Q_PROPERTY(bool canPlay READ canPlay NOTIFY playbackChanged)

public:
    AVPlayerViewController();
    ~AVPlayerViewController() override;

    /// What is to be played; before the screen is presented.
    void setPlayer(std::unique_ptr<AVPlayer> player);
    AVPlayer* player() const { return m_player.get(); }

    /// How long the controls stay while the video plays and nobody touches them.
    void setControlsTime(std::chrono::milliseconds time) { m_hiding.setInterval(time); }

    AVPlayerLayer* playerLayer() const { return m_playerLayer.get(); } ///< null without a player
    View* controlsView() { return &m_controlsView; }
    View* soundButton() { return &m_soundButton; }
    Slider* positionSlider() { return &m_positionSlider; } ///< in seconds
    Label* nameLabel() { return &m_nameLabel; }
    Label* positionLabel() { return &m_positionLabel; }
    Label* durationLabel() { return &m_durationLabel; }
    Label* errorLabel() { return &m_errorLabel; }

    bool isPlaying() const;
    bool isMuted() const;
    bool canPlay() const;

    Q_INVOKABLE void playPauseTapped();
    Q_INVOKABLE void closeTapped();
    Q_INVOKABLE void soundTapped();
    Q_INVOKABLE void turnTapped();
    /// Shows the controls, or hides them from a video that plays.
    Q_INVOKABLE void pictureTapped();
    /// The knob of the slider has been taken, or let go: between them the video waits.
    Q_INVOKABLE void scrubbingChanged(bool isScrubbing);
    /// The slider has this value, which may be what it was given here.
    Q_INVOKABLE void positionMoved(qreal seconds);
    /// Answers whether the key, one of Qt::Key, was for the player; any key shows the controls.
    Q_INVOKABLE bool keyPressed(int key);

    /// Classes derived from this one look like it.
    QString interfaceName() const override { return QStringLiteral("AVPlayerViewController"); }

signals:
    void playbackChanged();

protected:
    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidAppear() override;
    void viewDidDisappear() override;

private:
    const PlaybackState& state() const { return m_player->state(); }
    void refresh();
    void skip(std::chrono::milliseconds distance);
    void seek(std::chrono::milliseconds position);
    void showControls();
    void leave();

    std::unique_ptr<AVPlayer> m_player;
    std::unique_ptr<AVPlayerLayer> m_playerLayer;
    View m_controlsView;
    View m_soundButton;
    Slider m_positionSlider;
    Label m_nameLabel;
    Label m_positionLabel;
    Label m_durationLabel;
    Label m_errorLabel;
    QTimer m_hiding;
    bool m_isUp = false;
    bool m_wasPlaying = false;
    bool m_playsAfterScrubbing = false;
};

} // namespace reelsmith
