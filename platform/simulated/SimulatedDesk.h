#pragma once

#include "platform/Desktop.h"
#include "platform/simulated/SimulatedMac.h"

namespace tessivo {

/// Records what the desktop was asked for. Main thread.
class SimulatedDesktop final : public Desktop {
public:
    explicit SimulatedDesktop(SimulatedMac& mac) : m_mac(mac) {}

    void openURL(const std::string& url) override { m_mac.openedURLs.push_back(url); }
    bool canOpenURL(const std::string& url) const override;
    void setPasteboardText(const std::string& text) override { m_mac.pasteboard = text; }
    std::optional<Paper> paper() const override { return m_mac.paper; }

private:
    SimulatedMac& m_mac;
};

class SimulatedUpdates final : public UpdateFramework {
public:
    explicit SimulatedUpdates(SimulatedMac& mac) : m_mac(mac) {}

    std::optional<std::string> feedURL() const override { return m_mac.feedURL; }
    void checkForUpdates() override { ++m_mac.updateChecks; }

private:
    SimulatedMac& m_mac;
};

class SimulatedFingers final : public FingerTouches {
public:
    explicit SimulatedFingers(SimulatedMac& mac) : m_mac(mac) {}

    bool tellsOfEveryWindow() const override { return !m_mac.touchesAreAimed; }
    void start(Handlers handlers) override { m_mac.fingers = std::move(handlers); }
    void stop() override { m_mac.fingers = {}; }

private:
    SimulatedMac& m_mac;
};

} // namespace tessivo
