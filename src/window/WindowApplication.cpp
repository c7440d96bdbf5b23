// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/WindowApplication.h"

#include "platform/foundation/OngoingWork.h"
#include "platform/uikit/UIAccessibility.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIDevice.h"
#include "platform/uikit/UIImpactFeedbackGenerator.h"
#include "platform/uikit/UIScreen.h"
#include "window/Appearance.h"
#include "window/IconProvider.h"
#include "window/ShadowProvider.h"

#include <QAccessible>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QQmlComponent>
#include <QScreen>
#include <QTimer>

namespace reelsmith {

namespace {

constexpr QSize designedSize{390, 844};
constexpr std::chrono::milliseconds questionCheck{200};
constexpr int widestPhone = 540; // points, at the shorter side of its screen

// There every window fills the screen, and the shell leaves title bars to the windows, which need none.
bool isInPhoneShell() {
    const QSize screen = QGuiApplication::primaryScreen()->size();
    return QGuiApplication::platformName().startsWith(QStringLiteral("wayland")) &&
           qMin(screen.width(), screen.height()) <= widestPhone;
}

bool isBackKey(int key) {
    return key == Qt::Key_Escape || key == Qt::Key_Back;
}

} // namespace

WindowApplication::WindowApplication(LinuxPlatform platform, std::shared_ptr<HTTPClient> webClient,
                                     Services::Backends backends)
    : m_platform(std::move(platform)), m_appearance(&Appearance::of(m_engine)), m_factory(m_engine) {
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    m_engine.addImageProvider(QStringLiteral("icon"), new IconProvider);
    m_engine.addImageProvider(QStringLiteral("shadow"), new ShadowProvider);
    setUpPlatform(std::move(webClient));
    auto window = std::make_unique<UIWindow>();
    m_host = std::make_unique<QuickHost>(m_quickWindow, *window, m_factory);
    UIApplication::shared().setKeyWindow(window.get());
    m_delegate = std::make_unique<AppDelegate>(std::move(window), std::move(backends));
    UIApplication::shared().setDelegate(m_delegate.get());
    followDesktop();
    followWindow();
}

WindowApplication::~WindowApplication() {
    // The screens go before what shows them.
    m_delegate.reset();
    UIApplication::shared().setNotifications(std::make_unique<Notifications>());
    PlatformServices::install({});
    HTTPClient::setShared(nullptr);
}

void WindowApplication::setUpPlatform(std::shared_ptr<HTTPClient> webClient) {
    UIApplication& application = UIApplication::shared();
    application.setSleepInhibitor(std::move(m_platform.sleepInhibitor));
    application.setIdleInhibitor(std::move(m_platform.idleInhibitor));
    application.setLinkOpener(m_platform.linkOpener);
    m_platform.notifications->setOnTapped([this] { activate(); });
    application.setNotifications(std::move(m_platform.notifications));
    PlatformServices::install(std::move(m_platform.services));
    UIAccessibility::setAnswer([] { return QAccessible::isActive(); });
    UIImpactFeedbackGenerator::setHaptics(std::move(m_platform.haptics));
    HTTPClient::setShared(std::move(webClient));
}

void WindowApplication::followDesktop() {
    DesktopAppearance& desktop = *m_platform.appearance;
    desktop.setObserver([this, &desktop] {
        const DesktopAppearance::Settings& wishes = desktop.settings();
        m_appearance->setDark(wishes.isDark);
        m_appearance->setTextScale(wishes.textScale);
        m_appearance->setHighContrast(wishes.hasHighContrast);
        m_appearance->setStill(wishes.isStill);
    });
}

void WindowApplication::followWindow() {
    // The default draws each letter as a distance field first, for which the first frame would have to wait.
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    m_quickWindow.setTitle(QStringLiteral("Reelsmith"));
    m_quickWindow.resize(designedSize);
    m_quickWindow.setFlag(Qt::FramelessWindowHint, isInPhoneShell());
    m_quickWindow.installEventFilter(this);
    connect(&m_quickWindow, &QWindow::widthChanged, this, &WindowApplication::tellSize);
    connect(&m_quickWindow, &QWindow::heightChanged, this, &WindowApplication::tellSize);
    tellSize();
    connect(&m_quickWindow, &QWindow::activeChanged, this,
            [this] { UIApplication::shared().setActive(m_quickWindow.isActive()); });
    connect(&UIDevice::current(), &UIDevice::orientationChanged, this, [this] {
        m_appearance->setTurned(UIDevice::current().isLandscape() &&
                                m_delegate->supportedInterfaceOrientations() ==
                                    UIInterfaceOrientationMask::All);
    });
}

void WindowApplication::tellSize() {
    const QSizeF size = m_quickWindow.size();
    const bool wasLandscape = m_appearance->windowWidth() > m_appearance->windowHeight();
    m_appearance->setWindowSize(size);
    UIScreen::main().setWindowSize(size);
    // What the user turned by hand in the old window would lie on its side in the new one.
    if (wasLandscape != (size.width() > size.height()) && UIDevice::current().isLandscape())
        UIDevice::current().setValue(static_cast<int>(UIDeviceOrientation::Portrait),
                                     QStringLiteral("orientation"));
}

void WindowApplication::launch(const QList<QUrl>& files) {
    m_quickWindow.show();
    m_delegate->didFinishLaunchingWithOptions();
    open(files);
}

void WindowApplication::activate() {
    m_quickWindow.show();
    m_quickWindow.raise();
    m_quickWindow.requestActivate();
}

void WindowApplication::open(const QList<QUrl>& files) {
    for (const QUrl& file : files) {
        if (file.isLocalFile())
            m_delegate->open(file);
    }
}

bool WindowApplication::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::Expose:
        UIApplication::shared().setInSight(m_quickWindow.isExposed());
        return false;
    case QEvent::Close:
        event->setAccepted(mayClose());
        return !event->isAccepted();
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        m_appearance->setByKey(false);
        return false;
    case QEvent::KeyPress:
        m_appearance->setByKey(true);
        return isBackKey(static_cast<QKeyEvent*>(event)->key()) && m_delegate->window()->goBack();
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return takeDrag(*static_cast<QDropEvent*>(event));
    default:
        return false;
    }
}

bool WindowApplication::takeDrag(QDropEvent& event) {
    QList<QUrl> files = event.mimeData()->urls();
    files.removeIf([](const QUrl& url) { return !url.isLocalFile(); });
    if (files.isEmpty())
        return false;
    event.setDropAction(Qt::CopyAction);
    event.accept();
    if (event.type() == QEvent::Drop)
        open(files);
    return true;
}

bool WindowApplication::mayClose() {
    UIViewController* const root = m_delegate->window()->rootViewController();
    if (m_isStopping || root == nullptr || !OngoingWork::isAny())
        return true;
    if (m_question)
        return false;
    auto question = std::make_unique<UIAlertController>(QStringLiteral("Stop converting?"),
                                                        QStringLiteral("The video is not ready yet."),
                                                        UIAlertController::Style::Alert);
    question->addAction(QStringLiteral("stop"), UIAlertController::ActionStyle::Destructive,
                        [this] { stopAndClose(); });
    question->addAction(QStringLiteral("keep converting"), UIAlertController::ActionStyle::Cancel);
    m_question = question.get();
    auto* const watch = new QTimer(m_question);
    connect(watch, &QTimer::timeout, m_question, [watch, question = m_question.get()] {
        if (OngoingWork::isAny())
            return;
        watch->stop();
        question->dismiss(Animated::Yes);
    });
    watch->start(questionCheck);
    root->present(std::move(question), Animated::Yes);
    return false;
}

void WindowApplication::stopAndClose() {
    m_isStopping = true;
    m_quickWindow.close();
}

} // namespace reelsmith
