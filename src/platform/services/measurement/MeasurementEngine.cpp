// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/MeasurementEngine.h"

#include "platform/services/measurement/EventRecorder.h"

#include <algorithm>
#include <csignal>
#include <system_error>

namespace reelsmith {

namespace {

constexpr std::chrono::milliseconds patienceWithDatabase = std::chrono::minutes(1);

/// While it lives, threads are made with all signals blocked: what asks the program to end is for the threads
/// that expect it. Those that tell of a fault stay.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t signalSet;
        sigfillset(&signalSet);
        for (const int fault : {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT})
            sigdelset(&signalSet, fault);
        pthread_sigmask(SIG_BLOCK, &signalSet, &m_before);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t m_before;
};

} // namespace

MeasurementEngine::MeasurementEngine(const QString& folder, UploadParts parts) {
    const SignalsBlocked duringTheStart;
    try {
        m_thread =
            std::thread([folder, parts = std::move(parts), inbox = m_inbox] { run(folder, parts, inbox); });
    } catch (const std::system_error&) {
        m_inbox->close();
    }
}

MeasurementEngine::~MeasurementEngine() {
    m_inbox->close();
    if (m_thread.joinable())
        m_thread.join();
}

void MeasurementEngine::logEventWithName(const QString& name,
                                         const std::optional<AnalyticsParameters>& parameters) {
    m_inbox->post(MeasuredEvent::now(name, parameters.value_or(AnalyticsParameters())));
}

void MeasurementEngine::setUserPropertyString(const QString& value, const QString& name) {
    m_inbox->post(UserProperty{name, value});
}

void MeasurementEngine::setCollectionEnabled(bool isEnabled) {
    m_inbox->post(CollectionChange{isEnabled});
}

void MeasurementEngine::run(const QString& folder, const UploadParts& parts,
                            const std::shared_ptr<MeasurementInbox>& inbox) {
    LossTally tally;
    EventDatabase database(folder, tally);
    EventRecorder recorder(database, tally);
    Uploader uploader(parts, folder, database, tally, inbox);
    std::optional<std::chrono::milliseconds> patience = std::chrono::milliseconds::zero();
    while (true) {
        const MeasurementInbox::Delivery delivery = inbox->take(patience);
        recorder.record(delivery.entries);
        if (delivery.isClosed)
            return;
        if (delivery.answer)
            uploader.take(*delivery.answer);
        patience = uploader.advance();
        if (recorder.hasUnstored())
            patience = std::min(patience.value_or(patienceWithDatabase), patienceWithDatabase);
    }
}

} // namespace reelsmith
